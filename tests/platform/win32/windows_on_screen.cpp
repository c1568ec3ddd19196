#include "platform/win32/windows_on_screen.h"

#include <map>

#include "platform/windows/wide.h"

namespace panelkit::test {

HWND TopWindow(const wchar_t* title) {
  return FindWindowW(L"PanelkitForm", title);
}

std::string WindowText(HWND window) {
  std::wstring text(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0), L'\0');
  SendMessageW(window, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
  return windows::Utf8(text);
}

std::vector<std::string> LabelsOf(HWND form) {
  std::map<LONG, std::string> by_top;
  HWND label = nullptr;
  while ((label = FindWindowExW(form, label, L"STATIC", nullptr)) != nullptr) {
    if ((GetWindowLongW(label, GWL_STYLE) & SS_TYPEMASK) != SS_LEFT) continue;
    RECT place{};
    GetWindowRect(label, &place);
    by_top.emplace(place.top, WindowText(label));
  }
  std::vector<std::string> texts;
  texts.reserve(by_top.size());
  for (auto& [top, text] : by_top) texts.push_back(std::move(text));
  return texts;
}

std::string Location(IWebBrowser2& control) {
  BSTR url = nullptr;
  control.get_LocationURL(&url);
  std::string text = windows::Utf8({url, SysStringLen(url)});
  SysFreeString(url);
  return text;
}

bool WaitFor(const std::function<bool()>& condition) {
  constexpr int kAttempts = 60'000;
  for (int i = 0; i < kAttempts; ++i) {
    if (condition()) return true;
    Sleep(1);
  }
  return false;
}

}  // namespace panelkit::test
