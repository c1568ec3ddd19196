#include "support/simulator.h"

#include <utility>

#include "shell/gauges_window.h"
#include "shell/site_addresses.h"
#include "support/machine_here.h"

namespace fs = std::filesystem;

namespace panelkit::test {
namespace {

std::string Replaced(std::string text, std::string_view what, std::string_view by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
    text.replace(at, what.size(), by);
  }
  return text;
}

}  // namespace

Simulator::Simulator() {
  fs::create_directories(App());
  fs::create_directories(Fs() / "Aircraft");
  fs::create_directories(Fs() / "Gauges");
  machine_ = OpenMachineAt(root_ / "prefix", App());
  registry.applications = {{"Microsoft Flight Simulator 2002", TextValue(FSPath())}};
}

void Simulator::AddAircraft(std::string_view aircraft, std::string_view panel) {
  Put(Fs() / "Aircraft" / FromUtf8(aircraft) / "Panel" / "panel.cfg", CrLf(panel));
}

void Simulator::AddGauge(std::string_view file) {
  Put(Fs() / "Gauges" / FromUtf8(file), std::string("the gauge ").append(file));
}

Machine Simulator::Services() {
  const Machine real = machine_->Services();
  return {registry, real.files, real.text, real.cabinets, real.dates};
}

void ScriptedLoop::ProcessPending() {
  if (!on_turn || std::exchange(inside_, true)) return;
  on_turn();
  inside_ = false;
}

Program::Program(Simulator& simulator) : face(loop), form(face, simulator.Services()) {}

MemoryForm& Program::Window() const {
  return *face.FormTitled(kGaugesWindow.title);
}

std::string Program::Greyed() const {
  std::string greyed;
  for (const MenuDescription& item : kGaugesMenu) {
    if (!Window().MenuNamed(item.name).Enabled()) greyed.append(item.name).append(" ");
  }
  return greyed;
}

std::string Golden(std::string_view name, const std::string& app, const std::string& fs_path) {
  std::string page = Get(fs::path(PANELKIT_GOLDEN_DIR) / name);
  page = Replaced(Replaced(page, "{APP}", app), "{FS}", fs_path);
  return Replaced(Replaced(page, "{SITE}", SiteUrl), "{HOST}", SiteHost);
}

std::string Tree(const fs::path& folder) {
  std::set<std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_directory()) {
      files.insert(Replaced(Utf8(fs::relative(entry.path(), folder)), "\\", "/"));
    }
  }
  std::string tree;
  for (const std::string& file : files) tree += file + "\n";
  return tree;
}

std::string CrLf(std::string_view text) {
  return Replaced(std::string(text), "\n", "\r\n");
}

}  // namespace panelkit::test
