// A simulator in a temporary folder, and the program running on it without a window.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "app/frm_gauges.h"
#include "platform/headless/headless_toolkit.h"
#include "platform/local_machine.h"
#include "support/scripted_registry.h"
#include "support/temp_folder.h"

namespace panelkit::test {

/// A simulator's folder with nothing in it but Aircraft and Gauges, registered, and an empty
/// program folder beside it; real files behind real services of this system, the registry alone
/// scripted.
class Simulator {
 public:
  Simulator();

  /// Writes Aircraft/`aircraft`/Panel/panel.cfg; a "\n" in `panel` becomes CR LF.
  void AddAircraft(std::string_view aircraft, std::string_view panel);
  /// Writes Gauges/`file` with content of its own.
  void AddGauge(std::string_view file);

  std::filesystem::path Fs() const { return root_ / "fs"; }
  std::filesystem::path App() const { return root_ / "app"; }
  /// The same folders as the program names them.
  std::string FSPath() const { return machine_->WindowsPath(Utf8(Fs())); }
  std::string AppFolder() const { return machine_->Services().files.AppFolder(); }

  /// What stands in the program's page file.
  std::string Page() const { return Get(App() / "GAUGES.HTM"); }
  /// A page of tests/golden with this simulator's folders and the addresses filled in: {APP}, {FS},
  /// {SITE}, {HOST}.
  std::string Golden(std::string_view name) const;

  /// The machine with the scripted registry in it.
  Machine Services();

  ScriptedRegistry registry;

 private:
  TempFolder root_;
  std::unique_ptr<LocalMachine> machine_;
};

/// An event loop whose turns a test can fill.
class ScriptedLoop : public EventLoop {
 public:
  /// Called at each turn, not again from inside itself.
  std::function<void()> on_turn;
  void ProcessPending() override;
  /// Ends the test program: no test lets it come so far.
  [[noreturn]] void End() override { std::abort(); }

 private:
  bool inside_ = false;
};

/// The program on a simulator of its own, not yet started: a test can still lay things out.
struct Program {
  void Click(std::string_view item) { Window().Click(item); }
  HeadlessForm& Window() const;
  std::string Status() const { return Window().LabelNamed("lblStatus").Caption(); }
  /// Names of the disabled items among the bar's, in the bar's order, with blanks between.
  std::string Greyed() const;

  Simulator simulator;
  ScriptedLoop loop;
  HeadlessToolkit toolkit{loop};
  frmGauges form{toolkit, simulator.Services()};
};

}  // namespace panelkit::test
