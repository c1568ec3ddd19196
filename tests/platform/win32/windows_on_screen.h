// Looking at windows on the screen, of this process and of others.
#pragma once

#include <windows.h>

#include <exdisp.h>
#include <ole2.h>
#include <wrl/client.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/form.h"
#include "platform/windows/replaced_call.h"

namespace panelkit::test {

inline constexpr const wchar_t* kMainTitle = L" Panelkit for FS2002 ONLY";
inline constexpr const wchar_t* kAboutTitle = L"About Panelkit ";

/// The form with this title, or null.
HWND TopWindow(const wchar_t* title);

/// A window's own text, or a control's, also of another process.
std::string WindowText(HWND window);

/// The texts of a form's labels from top to bottom.
std::vector<std::string> LabelsOf(HWND form);

/// Catches the browser control that the program makes while this lives.
struct MadeControl {
  using Call =
      ReplacedCall<"CoCreateInstance", HRESULT(REFCLSID, LPUNKNOWN, DWORD, REFIID, LPVOID*)>;
  Microsoft::WRL::ComPtr<IWebBrowser2> control;
  Call call{[this](REFCLSID id, LPUNKNOWN outer, DWORD context, REFIID type, LPVOID* made) {
    const HRESULT result = Call::System(id, outer, context, type, made);
    if (id == CLSID_WebBrowser) control = static_cast<IWebBrowser2*>(*made);
    return result;
  }};
};

/// The address of what the control shows.
std::string Location(IWebBrowser2& control);

/// Waits until the condition holds; false when it has not for a minute.
bool WaitFor(const std::function<bool()>& condition);

/// The system's objects, for as long as a test needs them.
struct Ole {
  Ole() { OleInitialize(nullptr); }
  ~Ole() { OleUninitialize(); }
  Ole(const Ole&) = delete;
  Ole& operator=(const Ole&) = delete;
};

/// A window of the system's own kind, never shown.
struct Window {
  Window() = default;
  ~Window() { DestroyWindow(handle); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  HWND handle = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 200, 100, nullptr, nullptr,
                                GetModuleHandleW(nullptr), nullptr);
};

/// A browser pane on a form.
inline constexpr ControlDescription kPane{"pane", ControlKind::WebBrowser, 0, 0, 1500, 1500, 0, "",
                                          ""};

}  // namespace panelkit::test
