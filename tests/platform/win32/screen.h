// The program in a window of this system, driven by a test.
#pragma once

#include <windows.h>

#include <doctest/doctest.h>

#include <functional>
#include <optional>
#include <string>

#include "platform/win32/win32_toolkit.h"
#include "platform/win32/windows_on_screen.h"
#include "platform/windows/wide.h"
#include "support/simulator.h"

namespace panelkit::test {

/// A window's place on the screen, its frame included.
inline RECT Outer(HWND window) {
  RECT outer{};
  GetWindowRect(window, &outer);
  return outer;
}

/// The program with its window. The test is its interface thread and gives the loop its turns.
struct Screen {
  Simulator simulator;
  windows::Win32Toolkit toolkit;
  std::optional<frmGauges> program;
  HWND window = nullptr;

  void Start() {
    program.emplace(toolkit, simulator.Services());
    program->Show();
    window = TopWindow(kMainTitle);
    REQUIRE(IsWindowVisible(window));
  }

  bool Until(const std::function<bool()>& condition) {
    return WaitFor([&] {
      toolkit.Loop().ProcessPending();
      return condition();
    });
  }

  /// The strip below the pane; null while it is hidden.
  HWND Strip() const { return FindWindowExW(window, nullptr, L"PanelkitStrip", nullptr); }

  /// Whether the strip comes to say this.
  bool Says(const std::string& text) {
    return Until([&] { return Strip() != nullptr && WindowText(Strip()) == text; });
  }

  /// Picks an entry of a menu on the bar as a mouse click would.
  void Pick(int menu, int entry) const {
    PostMessageW(window, WM_COMMAND, GetMenuItemID(GetSubMenu(GetMenu(window), menu), entry), 0);
  }

  /// The bar's captions, greyed ones in brackets.
  std::string Bar() const {
    std::string bar;
    const HMENU menu = GetMenu(window);
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
      wchar_t caption[100] = {};
      GetMenuStringW(menu, i, caption, 100, MF_BYPOSITION);
      const bool greyed = (GetMenuState(menu, i, MF_BYPOSITION) & MF_GRAYED) != 0;
      bar += (greyed ? "[" : "") + windows::Utf8(caption) + (greyed ? "] " : " ");
    }
    return bar;
  }
};

}  // namespace panelkit::test
