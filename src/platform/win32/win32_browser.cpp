#include "platform/win32/win32_browser.h"

#include <mshtmhst.h>
#include <shellapi.h>
#include <urlmon.h>

#include "platform/win32/browser_events.h"
#include "platform/windows/system_library.h"
#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

using Microsoft::WRL::ComPtr;

/// A text as OLE passes it.
class OleText {
 public:
  explicit OleText(const std::wstring& text) : text_(SysAllocString(text.c_str())) {}
  ~OleText() { SysFreeString(text_); }
  OleText(const OleText&) = delete;
  OleText& operator=(const OleText&) = delete;
  BSTR Get() const { return text_; }

 private:
  BSTR text_;
};

/// Null where the system has no host for controls or no browser control.
HWND CreateHost(HWND form, RECT place, UINT id) {
  const auto initialise = SystemCall<BOOL WINAPI()>(L"atl.dll", "AtlAxWinInit");
  if (initialise == nullptr) return nullptr;
  initialise();  // Its result is no help: Wine gives false where the class is there already.
  return CreateWindowExW(WS_EX_CLIENTEDGE, L"AtlAxWin", L"Shell.Explorer.2",
                         WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_TABSTOP, place.left,
                         place.top, place.right - place.left, place.bottom - place.top, form,
                         reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)),
                         GetModuleHandleW(nullptr), nullptr);
}

HWND CreateWhitePane(HWND form, RECT place, UINT id) {
  return CreateWindowExW(WS_EX_CLIENTEDGE, L"STATIC", nullptr, WS_CHILD | WS_VISIBLE | SS_WHITERECT,
                         place.left, place.top, place.right - place.left, place.bottom - place.top,
                         form, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)),
                         GetModuleHandleW(nullptr), nullptr);
}

/// Asks the host `pane` for the object that `call` of atl.dll gives.
template <typename Interface>
ComPtr<Interface> AskHost(HWND pane, const char* call) {
  const auto ask = SystemCall<HRESULT WINAPI(HWND, IUnknown**)>(L"atl.dll", call);
  ComPtr<IUnknown> object;
  ComPtr<Interface> wanted;
  if (ask != nullptr && SUCCEEDED(ask(pane, &object)) && object != nullptr) object.As(&wanted);
  return wanted;
}

/// Has the pages' text grow with the screen's resolution. The host knows the property by name
/// (IAxWinAmbientDispatch).
void ScaleWithScreen(HWND pane) {
  const ComPtr<IDispatch> host = AskHost<IDispatch>(pane, "AtlAxGetHost");
  std::wstring name = L"DocHostFlags";
  LPOLESTR names = name.data();
  DISPID property = 0;
  if (host == nullptr ||
      FAILED(host->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_SYSTEM_DEFAULT, &property))) {
    return;
  }
  VARIANT flags;
  V_VT(&flags) = VT_I4;
  V_I4(&flags) = DOCHOSTUIFLAG_NO3DBORDER | DOCHOSTUIFLAG_THEME | DOCHOSTUIFLAG_DPI_AWARE;
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS arguments{&flags, &put, 1, 1};
  host->Invoke(property, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_PROPERTYPUT, &arguments, nullptr,
               nullptr, nullptr);
}

void OpenInUsersBrowser(const std::wstring& address) {
  if (!IsWebAddress(address)) return;
  ShellExecuteW(nullptr, L"open", address.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

/// Shortcuts of the control that would open windows or dialogs of a whole browser.
bool IsBrowserShortcut(const MSG& message) {
  if (message.message != WM_KEYDOWN || GetKeyState(VK_CONTROL) >= 0) return false;
  return message.wParam == 'N' || message.wParam == 'O' || message.wParam == 'L';
}

}  // namespace

void LockLocalPages() {
  const auto enable = SystemCall<HRESULT WINAPI(INTERNETFEATURELIST, DWORD, BOOL)>(
      L"urlmon.dll", "CoInternetSetFeatureEnabled");
  if (enable == nullptr) return;
  for (const INTERNETFEATURELIST feature :
       {FEATURE_LOCALMACHINE_LOCKDOWN, FEATURE_ZONE_ELEVATION, FEATURE_WEBOC_POPUPMANAGEMENT,
        FEATURE_DISABLE_NAVIGATION_SOUNDS}) {
    enable(feature, SET_FEATURE_ON_PROCESS, TRUE);
  }
}

Win32Browser::Win32Browser(HWND form, const ControlDescription& control, const ScreenScale& scale,
                           UINT id) {
  const RECT place{scale.PixelsX(control.left), scale.PixelsY(control.top),
                   scale.PixelsX(control.left + control.width),
                   scale.PixelsY(control.top + control.height)};
  pane_ = CreateHost(form, place, id);
  if (pane_ != nullptr) {
    Connect();
  } else {
    pane_ = CreateWhitePane(form, place, id);
  }
  // After the host has read the name of its control there.
  SetWindowTextW(pane_, Wide(control.accessible_name).c_str());
}

void Win32Browser::Connect() {
  ScaleWithScreen(pane_);
  browser_ = AskHost<IWebBrowser2>(pane_, "AtlAxGetControl");
  if (browser_ == nullptr) return;
  browser_->put_Silent(VARIANT_TRUE);
  browser_->put_RegisterAsDropTarget(VARIANT_FALSE);
  const ComPtr<BrowserEvents> events(
      new BrowserEvents({[this](const std::wstring& address) { return rules_.MayLoad(address); },
                         OpenInUsersBrowser}));
  events->ListenTo(*browser_.Get());
}

void Win32Browser::Navigate(const std::string& address) {
  if (browser_ == nullptr) return;
  const std::wstring wide = Wide(address);
  if (!IsWebAddress(wide)) rules_.Admit(wide);
  VARIANT none;
  VariantInit(&none);
  browser_->Navigate(OleText(wide).Get(), &none, &none, &none, &none);
}

bool Win32Browser::Translate(MSG& message) {
  if (browser_ == nullptr || message.message < WM_KEYFIRST || message.message > WM_KEYLAST) {
    return false;
  }
  if (IsBrowserShortcut(message)) return true;
  ComPtr<IOleInPlaceActiveObject> page;
  return SUCCEEDED(browser_.As(&page)) && page->TranslateAccelerator(&message) == S_OK;
}

}  // namespace panelkit::windows
