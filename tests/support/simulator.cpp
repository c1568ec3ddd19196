#include "support/simulator.h"

#include <utility>

#include "app/form_descriptions.h"
#include "pages/page_text.h"
#include "support/machine_here.h"

namespace fs = std::filesystem;

namespace panelkit::test {

Simulator::Simulator() {
  fs::create_directories(App());
  fs::create_directories(Fs() / "Aircraft");
  fs::create_directories(Fs() / "Gauges");
  KeepUserFilesIn(root_ / "user");
  machine_ = OpenMachineAt(root_ / "prefix", App());
  registry.applications = {{"Microsoft Flight Simulator 2002", TextValue(FSPath())}};
}

void Simulator::AddAircraft(std::string_view aircraft, std::string_view panel) {
  Put(Fs() / "Aircraft" / FromUtf8(aircraft) / "Panel" / "panel.cfg",
      Replaced(std::string(panel), "\n", "\r\n"));
}

void Simulator::AddGauge(std::string_view file) {
  Put(Fs() / "Gauges" / FromUtf8(file), std::string("the gauge ").append(file));
}

Machine Simulator::Services() {
  const Machine real = machine_->Services();
  return {registry, real.files, real.text, real.cabinets, real.dates, real.folders, real.archives};
}

std::string Simulator::Golden(std::string_view name) const {
  std::string page = Get(fs::path(PANELKIT_GOLDEN_DIR) / name);
  page = Replaced(Replaced(page, "{APP}", AppFolder()), "{FS}", FSPath());
  return Replaced(Replaced(page, "{SITE}", SiteUrl), "{HOST}", SiteHost);
}

void ScriptedLoop::ProcessPending() {
  if (!on_turn || std::exchange(inside_, true)) return;
  const std::unique_ptr<bool, void (*)(bool*)> leave(&inside_,
                                                     [](bool* inside) { *inside = false; });
  on_turn();
}

HeadlessForm& Program::Window() const {
  return *toolkit.FormTitled(kGaugesWindow.title);
}

std::string Program::Greyed() const {
  std::string greyed;
  for (const MenuDescription& item : kGaugesMenu) {
    if (!Window().MenuNamed(item.name).Enabled()) greyed.append(item.name).append(" ");
  }
  return greyed;
}

}  // namespace panelkit::test
