// The finished Panelkit.exe, named by PANELKIT_EXE, as a process of its own.
#include <windows.h>

#include <doctest/doctest.h>

#include <cstdlib>
#include <cstring>

#include "platform/win32/windows_on_screen.h"
#include "platform/windows/check_kit.h"
#include "platform/windows/handle.h"
#include "platform/windows/wide.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

/// A simulator registered with this Windows for the length of a test.
class RegisteredSimulator : public Simulator {
 public:
  RegisteredSimulator() {
    const std::string path = Services().text.ToAnsi(FSPath());
    RegCreateKeyExA(HKEY_LOCAL_MACHINE, kKey, 0, nullptr, 0, KEY_ALL_ACCESS | KEY_WOW64_32KEY,
                    nullptr, &key_, nullptr);
    DWORD size = sizeof before_;
    had_path_ = RegQueryValueExA(key_, "Path", nullptr, nullptr, reinterpret_cast<BYTE*>(before_),
                                 &size) == ERROR_SUCCESS;
    SetPath(path.c_str());
  }
  ~RegisteredSimulator() {
    // What was registered before is what other tests of this prefix go by.
    if (had_path_) {
      SetPath(before_);
    } else {
      RegDeleteValueA(key_, "Path");
    }
    RegCloseKey(key_);
  }

 private:
  static constexpr const char* kKey =
      "Software\\Microsoft\\DirectPlay\\Applications\\Microsoft Flight Simulator 2002";

  void SetPath(const char* path) {
    RegSetValueExA(key_, "Path", 0, REG_SZ, reinterpret_cast<const BYTE*>(path),
                   static_cast<DWORD>(std::strlen(path)) + 1);
  }

  HKEY key_ = nullptr;
  char before_[MAX_PATH + 1] = {};
  bool had_path_ = false;
};

/// Panelkit.exe, copied to the simulator's program folder and started there.
class RunningProgram {
 public:
  explicit RunningProgram(const Simulator& simulator)
      : RunningProgram(simulator, Named(simulator)) {}
  /// Without a terminal, as a click starts it; waits until `find` gives its window.
  RunningProgram(
      const Simulator& simulator, const std::wstring& arguments,
      HWND (*find)() = [] { return TopWindow(kMainTitle); }) {
    const char* program = std::getenv("PANELKIT_EXE");
    REQUIRE_MESSAGE(program != nullptr, "PANELKIT_EXE names no program");
    const std::filesystem::path copy = simulator.App() / "Panelkit.exe";
    std::filesystem::copy_file(program, copy);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW | STARTF_USESTDHANDLES;
    startup.wShowWindow = SW_SHOWMAXIMIZED;  // As a shortcut may ask for.
    std::wstring line = L"Panelkit.exe" + arguments;
    REQUIRE(CreateProcessW(copy.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                           &startup, &process_));
    REQUIRE(WaitFor([find] { return IsWindowVisible(find()) != 0; }));
    window_ = find();
    CHECK_FALSE(IsZoomed(window_));
  }
  ~RunningProgram() {
    TerminateProcess(process_.hProcess, 1);
    WaitForSingleObject(process_.hProcess, INFINITE);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }

  HWND Window() const { return window_; }

  /// Picks the menu item at `index` among those that carry a command, in the order of the menu.
  void Pick(unsigned index) const { PostMessageW(window_, WM_COMMAND, 100 + index, 0); }

  /// The exit status, once the program has ended; nothing while it runs on.
  std::optional<DWORD> Status() const {
    DWORD status = 0;
    const bool ended = WaitFor([this] { return WaitForSingleObject(process_.hProcess, 0) == 0; });
    if (!ended || !GetExitCodeProcess(process_.hProcess, &status)) return std::nullopt;
    return status;
  }

 private:
  static std::wstring Named(const Simulator& simulator) {
    return L" --simulator \"" + windows::Wide(simulator.FSPath()) + L"\"";
  }

  PROCESS_INFORMATION process_{};
  HWND window_ = nullptr;
};

constexpr unsigned kExit = 0;
constexpr unsigned kProbe = 2;
constexpr unsigned kClean = 4;
constexpr unsigned kVisit = 8;

/// Aircraft that take a scan far longer than the test waits.
void AddFleet(Simulator& simulator) {
  std::string panel = "[Window Titles]\nWindow00=Main\n[Window00]\n";
  for (int i = 0; i < 20'000; ++i) panel += "gauge" + std::to_string(i) + "=absent!dial,1,2\n";
  simulator.AddAircraft("Aircraft 1", panel);
  for (int i = 2; i < 500; ++i) {
    simulator.AddAircraft("Aircraft " + std::to_string(i), "[fltsim]\nalias=Aircraft 1\\Panel\n");
  }
}

void CheckProbe(const RunningProgram& program, const Simulator& simulator) {
  program.Pick(kProbe);
  CHECK(WaitFor([&] { return LabelsOf(program.Window())[1] == "Done"; }));
  CHECK(LabelsOf(program.Window())[0] == "Flight Simulator: " + simulator.FSPath());
  CHECK(Get(simulator.App() / "GAUGES.HTM").find("horn") != std::string::npos);
  program.Pick(kExit);
  CHECK(program.Status() == 0);
}

constexpr const char* kHorn = "[Window Titles]\nWindow00=Main\n\n[Window00]\ngauge00=horn,1,2\n";

}  // namespace

TEST_CASE("Panelkit.exe finds the simulator in the registry and probes it" * kWritesToTheRegistry) {
  RegisteredSimulator simulator;
  simulator.AddAircraft("Alpha", kHorn);
  CheckProbe(RunningProgram(simulator, {}), simulator);
}

TEST_CASE("Panelkit.exe probes the simulator that its command line names") {
  Simulator simulator;
  simulator.AddAircraft("Alpha", kHorn);
  CheckProbe(RunningProgram(simulator), simulator);
}

TEST_CASE("What Panelkit.exe has to say without a window shows in a box after a click") {
  const Simulator simulator;
  struct {
    const wchar_t* arguments;
    std::string said;
    DWORD status;
  } const starts[] = {{L" --help", "Usage: panelkit", 0},
                      {L" --nonsense", "panelkit: The following argument was not expected", 2},
                      {L" --simulator C:\\nowhere", "C:\\nowhere", 2}};
  for (const auto& start : starts) {
    CAPTURE(start.said);
    const RunningProgram program(simulator, start.arguments,
                                 [] { return FindWindowW(L"#32770", L"Panelkit"); });
    const std::string said = WindowText(GetDlgItem(program.Window(), 0xFFFF));
    CHECK_MESSAGE(said.find(start.said) != std::string::npos, said);
    PostMessageW(program.Window(), WM_COMMAND, IDOK, 0);
    CHECK(program.Status() == start.status);
    std::filesystem::remove(simulator.App() / "Panelkit.exe");
  }
}

TEST_CASE("Exit Program ends the program at once also while a page loads") {
  const Simulator simulator;
  const RunningProgram program(simulator);
  program.Pick(kVisit);
  program.Pick(kExit);
  CHECK(program.Status() == 0);
}

TEST_CASE("Exit Program, or a close of the window, ends a scan at once") {
  Simulator simulator;
  AddFleet(simulator);
  for (const bool by_menu : {true, false}) {
    CAPTURE(by_menu);
    const RunningProgram program(simulator);
    program.Pick(kProbe);
    REQUIRE(WaitFor([&] { return LabelsOf(program.Window())[1].starts_with("Scanning "); }));
    if (by_menu) {
      program.Pick(kExit);
    } else {
      const HWND pane = FindWindowExW(program.Window(), nullptr, L"PanelkitPane", nullptr);
      PostMessageW(pane, WM_SYSKEYDOWN, VK_F4, 1 << 29);  // Alt+F4.
    }
    CHECK(program.Status() == 0);
    CHECK(Get(simulator.App() / "GAUGES.HTM").find("I'm Working On It") != std::string::npos);
    std::filesystem::remove(simulator.App() / "Panelkit.exe");
  }
}

TEST_CASE("Exit Program, while Clean waits for a locked gauge, ends nothing half way") {
  Simulator simulator;
  simulator.AddAircraft("Alpha", "[Window Titles]\nWindow00=Main\n[Window00]\ngauge00=a,1\n");
  std::vector<windows::Handle> held;
  for (const char* gauge : {"held.gau", "kept.gau", "locked.gau", "spare.gau"}) {
    simulator.AddGauge(gauge);
    held.emplace_back(CreateFileW((simulator.Fs() / "Gauges" / gauge).c_str(), GENERIC_READ, 0,
                                  nullptr, OPEN_EXISTING, 0, nullptr));
  }
  held.back().Close();
  const RunningProgram program(simulator);
  program.Pick(kClean);
  REQUIRE(WaitFor([&] { return std::filesystem::exists(simulator.App() / "SpareGauges"); }));
  program.Pick(kExit);
  CHECK(program.Status() == 0);
  CHECK(simulator.Page().find("<b>Removed Files:</b>") != std::string::npos);
  CHECK(std::filesystem::exists(simulator.App() / "SpareGauges" / "spare.gau"));
}

}  // namespace panelkit::test
