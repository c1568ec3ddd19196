// The program in its window on this system's screen, driven as a user drives it.
#include <windows.h>

#include <commctrl.h>
#include <doctest/doctest.h>
#include <exdisp.h>
#include <wrl/client.h>

#include "platform/win32/screen.h"
#include "platform/windows/replaced_call.h"
#include "platform/windows/wide.h"

namespace panelkit::test {
namespace {

/// Called just before a window of the test's thread is given a text.
std::function<void(std::wstring_view)> before_text;
LRESULT CALLBACK BeforeMessage(int code, WPARAM of_thread, LPARAM param) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(param);
  if (code == HC_ACTION && sent.message == WM_SETTEXT && before_text) {
    before_text(reinterpret_cast<const wchar_t*>(sent.lParam));
  }
  return CallNextHookEx(nullptr, code, of_thread, param);
}

/// Sees the system commands of keys in place of the window, which would wait in a menu, or close.
std::string key_commands;
LRESULT CALLBACK OnKeyCommand(int code, WPARAM removed, LPARAM param) {
  auto& message = *reinterpret_cast<MSG*>(param);
  if (code == HC_ACTION && message.message == WM_SYSCOMMAND) {
    key_commands += message.wParam == SC_CLOSE ? "close " : "menu ";
    if (message.lParam != 0) key_commands += static_cast<char>(message.lParam);
    message.message = WM_NULL;
  }
  return CallNextHookEx(nullptr, code, removed, param);
}

bool IsCentred(HWND window) {
  const RECT outer = Outer(window);
  return std::abs(outer.left + outer.right - GetSystemMetrics(SM_CXSCREEN)) <= 3 &&
         std::abs(outer.top + outer.bottom - GetSystemMetrics(SM_CYSCREEN)) <= 3;
}

/// Goes where a link in the page would go.
void Follow(IWebBrowser2& control, const wchar_t* address) {
  BSTR text = SysAllocString(address);
  VARIANT none;
  VariantInit(&none);
  control.Navigate(text, &none, &none, &none, &none);
  SysFreeString(text);
}

}  // namespace

TEST_CASE_FIXTURE(Screen,
                  "A pick on the bar probes at once, greys the commands, and fills the bar") {
  const std::string panel = "[Window Titles]\nWindow00=Main\n\n[Window00]\ngauge00=absent!dial,1\n";
  for (const char* aircraft : {"Alpha", "Beta"}) simulator.AddAircraft(aircraft, panel);
  Start();
  const std::string ready =
      "&File &Main Page &Probe For Missing Gauges &Show All Gauges &Clean Gauges "
      "&Other Cool Stuff &Help ";
  CHECK(Bar() == ready);
  CHECK(LabelsOf(window)[0].starts_with("Panelkit - Version 1.10  Dec 15, 2002     "));

  std::string bar_at_work;
  before_text = [this, &bar_at_work](std::wstring_view text) {
    if (text.starts_with(L"Scanning Beta")) bar_at_work = Bar();
  };
  const HHOOK hook =
      SetWindowsHookExW(WH_CALLWNDPROC, &BeforeMessage, nullptr, GetCurrentThreadId());
  PostMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, 'p');
  CHECK(Until([this] { return LabelsOf(window)[1] == "Done"; }));
  UnhookWindowsHookEx(hook);

  CHECK(bar_at_work ==
        "&File [&Main Page] [&Probe For Missing Gauges] [&Show All Gauges] [&Clean Gauges] "
        "[&Other Cool Stuff] [&Help] ");
  CHECK(Bar() == ready);
  CHECK(LabelsOf(window)[0] == "Flight Simulator: " + simulator.FSPath());
  const HWND bar = FindWindowExW(window, nullptr, PROGRESS_CLASSW, nullptr);
  CHECK(SendMessageW(bar, PBM_GETPOS, 0, 0) == 4);
  CHECK(SendMessageW(bar, PBM_GETRANGE, FALSE, 0) == 4);
  CHECK(Get(simulator.App() / "GAUGES.HTM").find("BETA") != std::string::npos);
}

TEST_CASE_FIXTURE(Screen, "A cabinet that the service cannot be told by name is told to the user") {
  const NoShortNames no_short_names;
  for (const char* cabinet : {"damaged.cab", "計器.cab", "計器2.cab"}) simulator.AddGauge(cabinet);
  Start();
  for (const auto& [command, words] : {std::pair{'p', "SUMMARY"}, {'c', "ARCHIVED"}}) {
    PostMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, command);
    CHECK(Until(
        [&, heading = words] { return simulator.Page().find(heading) != std::string::npos; }));
    CHECK(LabelsOf(window)[1] ==
          "Give these cabinets plain names, or they cannot be read: 計器.cab, 計器2.cab.");
  }
}

TEST_CASE_FIXTURE(Screen, "The window has its size, its frame, no task-bar entry, and a pane") {
  Start();
  RECT client{};
  GetClientRect(window, &client);
  const int dpi = windows::ScreenScale::OfScreen().dpi_x;
  CHECK(client.right == MulDiv(10440, dpi, 1440));
  CHECK(client.bottom == MulDiv(7110, dpi, 1440));
  const LONG style = GetWindowLongW(window, GWL_STYLE);
  CHECK((style & (WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX)) == 0);
  CHECK((style & WS_SYSMENU) != 0);
  CHECK_FALSE(IsWindowVisible(GetWindow(window, GW_OWNER)));
  const HWND pane = FindWindowExW(window, nullptr, L"PanelkitPane", nullptr);
  REQUIRE(pane != nullptr);
  CHECK(WindowText(pane) == "Report");
  CHECK(GetWindow(pane, GW_CHILD) != nullptr);  // the browser control itself
}

TEST_CASE("The executable has an icon for every size at which Windows shows one") {
  const HMODULE program = LoadLibraryExW(windows::Wide(std::getenv("PANELKIT_EXE")).c_str(),
                                         nullptr, LOAD_LIBRARY_AS_DATAFILE);
  REQUIRE(program != nullptr);
  const auto resource = [program](WORD id, LPWSTR type) {
    const HRSRC found = FindResourceW(program, MAKEINTRESOURCEW(id), type);
    const auto* bytes = static_cast<const BYTE*>(LockResource(LoadResource(program, found)));
    return std::vector<BYTE>(bytes, bytes + SizeofResource(program, found));
  };
  // A header of 6 bytes, then 14 for each icon: width and height first, its number last.
  const std::vector<BYTE> group = resource(1, RT_GROUP_ICON);
  std::vector<int> sizes;
  for (std::size_t at = 6; at < group.size(); at += 14) {
    sizes.push_back(group[at] == 0 ? 256 : group[at]);
    CHECK(group[at + 1] == group[at]);
    CHECK(resource(group[at + 12], RT_ICON).size() > 100);
  }
  CHECK(sizes == std::vector{16, 20, 24, 32, 40, 48, 64, 256});
  FreeLibrary(program);
}

TEST_CASE_FIXTURE(Screen, "The pane shows the page, and is led to no file and no refresh from it") {
  const MadeControl made;
  const auto& control = made.control;
  Start();
  REQUIRE(control != nullptr);
  CHECK(Until([&] { return Location(*control.Get()).ends_with("GAUGES.HTM"); }));
  Follow(*control.Get(), L"C:\\windows\\win.ini");
  Follow(*control.Get(), L"http://127.0.0.1:9/");
  Follow(*control.Get(), L"about:blank");
  Pick(5, 1);
  std::string last;
  CHECK(Until([&] {
    if (!Location(*control.Get()).ends_with("BRAKES.HTM")) last = Location(*control.Get());
    return last != Location(*control.Get());
  }));
  CAPTURE(last);
  CHECK(last.ends_with("GAUGES.HTM"));
}

TEST_CASE_FIXTURE(Screen, "Keys of the menu and Alt+F4 reach the window from the page, no others") {
  Start();
  const HWND pane = FindWindowExW(window, nullptr, L"PanelkitPane", nullptr);
  SetFocus(pane);
  const auto page = [pane] {
    return GetFocus() == pane || IsChild(pane, GetFocus()) ? GetFocus() : nullptr;
  };
  REQUIRE(Until([&] { return page() != nullptr; }));
  constexpr LPARAM kWithAlt = 1 << 29;
  PostMessageW(page(), WM_SYSKEYDOWN, 'P', kWithAlt);
  CHECK(Until([this] { return LabelsOf(window)[1] == "Done"; }));
  key_commands.clear();
  const HHOOK hook = SetWindowsHookExW(WH_GETMESSAGE, &OnKeyCommand, nullptr, GetCurrentThreadId());
  const auto press = [&](UINT message, WPARAM key, LPARAM with, const std::string& told) {
    SetFocus(pane);
    PostMessageW(page(), message, key, with);
    CHECK(Until([&] { return key_commands.size() >= told.size(); }));
  };
  press(WM_SYSKEYDOWN, VK_F5, kWithAlt, "");  // A virtual key whose number is a small letter's.
  press(WM_SYSKEYDOWN, VK_F4, kWithAlt, "close ");
  press(WM_SYSKEYDOWN, VK_F10, 0, "close menu ");
  press(WM_KEYDOWN, VK_F1, 0, "close menu menu H");
  BYTE keys[256] = {};
  keys[VK_SHIFT] = 0x80;
  SetKeyboardState(keys);
  press(WM_SYSKEYDOWN, VK_F10, 0, "");  // The page's own menu.
  press(WM_KEYDOWN, VK_F1, 0, "close menu menu Hmenu H");
  SetKeyboardState(std::vector<BYTE>(256).data());
  UnhookWindowsHookEx(hook);
  CHECK(key_commands == "close menu menu Hmenu H");
}

TEST_CASE_FIXTURE(Screen, "A window too large for its monitor is smaller as a whole, and inside") {
  const RECT area{0, 0, 500, 420};
  const ReplacedCall<"GetMonitorInfoW", BOOL(HMONITOR, LPMONITORINFO)> small(
      [&](HMONITOR, LPMONITORINFO monitor) {
        monitor->rcWork = area;
        return TRUE;
      });
  Start();
  const RECT outer = Outer(window);
  RECT both{};
  UnionRect(&both, &outer, &area);
  CHECK(EqualRect(&both, &area));
  RECT client{};
  GetClientRect(window, &client);
  CHECK(client.right > 480);  // As large as it may be.
  CHECK(std::abs(client.right * 7110 - client.bottom * 10440) <= 10440);
  const HWND bar = FindWindowExW(window, nullptr, PROGRESS_CLASSW, nullptr);
  CHECK(Outer(bar).right - outer.left > client.right * 9 / 10);
  CHECK(Outer(bar).right < outer.right);
}

TEST_CASE_FIXTURE(Screen, "About comes back where it stood after OK, and centred after a close") {
  Start();
  Pick(6, 1);
  REQUIRE(Until([] { return IsWindowVisible(TopWindow(kAboutTitle)) != 0; }));
  HWND about = TopWindow(kAboutTitle);
  CHECK(IsCentred(about));
  CHECK((GetWindowLongW(about, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0);
  CHECK(LabelsOf(about)[0] == "Panelkit");

  SetWindowPos(about, nullptr, 7, 9, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  const HWND button = FindWindowExW(about, nullptr, L"BUTTON", L"OK");
  for (const WPARAM key : {VK_ESCAPE, VK_RETURN}) PostMessageW(button, WM_KEYDOWN, key, 0);
  CHECK(Until([about] { return !IsWindowVisible(about); }));
  Pick(6, 1);
  CHECK(Until([about] { return IsWindowVisible(about) != 0; }));
  CHECK(Outer(about).left == 7);  // Escape, before Enter on the button, has not closed it.

  PostMessageW(about, WM_CLOSE, 0, 0);
  CHECK(Until([] { return TopWindow(kAboutTitle) == nullptr; }));
  Pick(6, 1);
  REQUIRE(Until([] { return IsWindowVisible(TopWindow(kAboutTitle)) != 0; }));
  CHECK(IsCentred(TopWindow(kAboutTitle)));
}

}  // namespace panelkit::test
