#include "console/console_program.h"

#include "app/form_descriptions.h"
#include "platform/terminal.h"

namespace panelkit {

void ConsoleLoop::ProcessPending() {
  if (terminal::Interrupted()) throw Interruption{};
}

ConsoleProgram::ConsoleProgram(const Machine& services, const std::string& simulator)
    : text_(services.text),
      toolkit_(loop_, [this](int value, int max) { progress_.Show(value, max); }),
      form_(toolkit_, services, simulator) {}

void ConsoleProgram::Click(std::string_view item) {
  toolkit_.FormTitled(kGaugesWindow.title)->Click(item);
  progress_.Wipe();
}

std::optional<SpareSelection> ConsoleProgram::FindSpare() {
  auto spare = form_.FindSpare();
  progress_.Wipe();
  return spare;
}

void ConsoleProgram::TellInto(Outcome& outcome) const {
  const auto& sentences = form_.Status().Sentences();
  outcome.complaints.insert(outcome.complaints.end(), sentences.begin(), sentences.end());
  if (form_.Status().HasComplaint()) outcome.status = kExitError;
}

void ConsoleProgram::PrintPageInto(Outcome& outcome) const {
  outcome.is_page = !terminal::OutIsTerminal();
  if (outcome.is_page) {
    outcome.output = text_.ToAnsi(form_.ReportHtml) + "\r\n";
    return;
  }
  Lines lines;
  lines.AddText(form_.ReportHtml);
  outcome.output = lines.Take();
}

}  // namespace panelkit
