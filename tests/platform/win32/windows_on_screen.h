// Looking at windows on the screen, of this process and of others.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace panelkit::test {

inline constexpr const wchar_t* kMainTitle = L" Panelkit for FS2002 ONLY";
inline constexpr const wchar_t* kAboutTitle = L"About Panelkit ";

/// The form with this title, or null.
HWND TopWindow(const wchar_t* title);

/// A window's own text, or a control's, also of another process.
std::string WindowText(HWND window);

/// The texts of a form's labels from top to bottom.
std::vector<std::string> LabelsOf(HWND form);

/// Waits until the condition holds; false when it has not for a minute.
bool WaitFor(const std::function<bool()>& condition);

}  // namespace panelkit::test
