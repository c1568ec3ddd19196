// The strip below the page, the folder chooser and drops, as a user uses them.
#include <windows.h>

#include <doctest/doctest.h>
#include <shlobj.h>

#include "platform/win32/screen.h"
#include "platform/windows/wide.h"
#include "support/cabinet_writer.h"

namespace panelkit::test {
namespace {

/// What Windows hands over when `path` is dropped.
HGLOBAL DropOf(const std::string& path) {
  const std::wstring names = windows::Wide(path) + L'\0';
  const HGLOBAL drop = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT,
                                   sizeof(DROPFILES) + (names.size() + 1) * sizeof(wchar_t));
  auto* head = static_cast<DROPFILES*>(GlobalLock(drop));
  head->pFiles = sizeof(DROPFILES);
  head->fWide = TRUE;
  names.copy(reinterpret_cast<wchar_t*>(head + 1), names.size());
  GlobalUnlock(drop);
  return drop;
}

/// The user at the folder chooser: types this folder and presses OK or, where it is empty, Cancel.
std::string typed;
bool was_asked = false;

BOOL CALLBACK TypeIn(HWND child, LPARAM) {
  wchar_t kind[8] = {};
  GetClassNameW(child, kind, 8);
  const bool is_edit = std::wstring_view(kind) == L"Edit";
  if (is_edit) SetWindowTextW(child, windows::Wide(typed).c_str());
  return is_edit ? FALSE : TRUE;
}

void CALLBACK AnswerChooser(HWND, UINT, UINT_PTR, DWORD) {
  const HWND dialog = FindWindowW(L"#32770", L"Look for the missing gauges in these folders");
  if (!IsWindowVisible(dialog)) return;
  was_asked = true;
  if (!typed.empty()) EnumChildWindows(dialog, TypeIn, 0);
  PostMessageW(dialog, WM_COMMAND, typed.empty() ? IDCANCEL : IDOK, 0);
}

}  // namespace

TEST_CASE_FIXTURE(Screen,
                  "A drop and the strip's keys lead to an installed gauge, and Escape back") {
  simulator.AddAircraft("Alpha", "[Window Titles]\nWindow00=W\n\ngauge00=absent!dial,1\n");
  Put(simulator.App() / "new" / "absent.cab", MakeCabinet({{"dial.xml"}}));
  Start();
  const HWND pane = FindWindowExW(window, nullptr, L"PanelkitPane", nullptr);
  const LONG whole = Outer(pane).bottom;
  SetFocus(pane);
  PostMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, 'p');
  CHECK(Says("1 required file is missing."));
  CHECK(Outer(Strip()).bottom == whole);
  CHECK(Outer(pane).bottom == Outer(Strip()).top);
  CHECK_FALSE(IsChild(Strip(), GetFocus()));
  CHECK(FindWindowExW(Strip(), nullptr, L"BUTTON", L"Wh&y?") != nullptr);

  PostMessageW(window, WM_DROPFILES,
               reinterpret_cast<WPARAM>(DropOf(simulator.AppFolder() + "\\new")), 0);
  CHECK(Says("The required file can be copied to Gauges."));
  CHECK(simulator.Page().find("SUMMARY") != std::string::npos);  // The pane went to no folder.
  SetFocus(pane);
  constexpr LPARAM kWithAlt = 1 << 29;
  PostMessageW(GetFocus(), WM_SYSKEYDOWN, 'I', kWithAlt);
  CHECK(Says("1 file was copied to Gauges; none is missing now."));
  CHECK(Tree(simulator.Fs() / "Gauges") == "absent.cab\n");

  PostMessageW(GetFocus(), WM_KEYDOWN, VK_F6, 0);
  CHECK(Until([&] { return IsChild(Strip(), GetFocus()) != 0; }));
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 0);
  CHECK(Until([&] { return Strip() == nullptr; }));
  CHECK(Outer(pane).bottom == whole);
  CHECK((GetFocus() == pane || IsChild(pane, GetFocus())));
}

TEST_CASE_FIXTURE(Screen, "The system's chooser gives a folder to look in, and its Cancel none") {
  simulator.AddAircraft("Alpha", "[Window Titles]\nWindow00=W\n\ngauge00=absent!dial,1\n");
  Put(simulator.App() / "new" / "absent.cab", MakeCabinet({{"dial.xml"}}));
  Start();
  PostMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, 'p');
  CHECK(Says("1 required file is missing."));
  const UINT_PTR timer = SetTimer(nullptr, 0, 100, &AnswerChooser);
  for (const auto& [folder, then] : {std::pair{"", "1 required file is missing."},
                                     {"\\new", "The required file can be copied to Gauges."}}) {
    typed = *folder == '\0' ? "" : simulator.AppFolder() + folder;
    was_asked = false;
    SendMessageW(Strip(), WM_COMMAND, 1, reinterpret_cast<LPARAM>(Strip()));  // The second button.
    CHECK(Until([] { return was_asked; }));
    CHECK(Says(then));
  }
  KillTimer(nullptr, timer);
}

}  // namespace panelkit::test
