#include "console/console_program.h"

#include <cstdlib>

#include "app/form_descriptions.h"
#include "platform/terminal.h"

namespace panelkit {

void ConsoleLoop::ProcessPending() {
  if (!terminal::Interrupted()) return;
  progress_.Wipe();
  std::_Exit(terminal::kExitInterrupted);
}

ConsoleProgram::ConsoleProgram(const Machine& services, const std::string& simulator)
    : toolkit_(loop_, [this](int value, int max) { progress_.Show(value, max); }),
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

}  // namespace panelkit
