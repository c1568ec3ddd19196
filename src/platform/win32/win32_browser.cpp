#include "platform/win32/win32_browser.h"

#include <shellapi.h>
#include <urlmon.h>

#include "pane/failure_page.h"
#include "platform/win32/browser_document.h"
#include "platform/windows/system_library.h"
#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

using Microsoft::WRL::ComPtr;

constexpr const wchar_t* kEmptyDocument = L"about:blank";

/// How long after a click or key a navigation counts as the user's, in milliseconds.
constexpr DWORD kActionCounts = 1000;

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

/// Shortcuts of the control that would open windows or dialogs of a whole browser. Ctrl and Alt
/// together are AltGr, which types letters.
bool IsBrowserShortcut(const MSG& message) {
  if (message.message != WM_KEYDOWN || GetKeyState(VK_CONTROL) >= 0 || GetKeyState(VK_MENU) < 0) {
    return false;
  }
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

ATOM Win32Browser::RegisterPaneClass() {
  WNDCLASSEXW pane{};
  pane.cbSize = sizeof pane;
  pane.lpfnWndProc = &PaneProcedure;
  pane.hInstance = GetModuleHandleW(nullptr);
  pane.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  pane.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  pane.lpszClassName = L"PanelkitPane";
  return RegisterClassExW(&pane);
}

Win32Browser::Win32Browser(HWND form, const ControlDescription& control, const ScreenScale& scale,
                           UINT id, Win32EventLoop& loop)
    : loop_(loop), guard_([rules = rules_](const std::wstring& url) {
        return !rules->policy.IsStrict() || rules->pages.MayLoad(url) ||
               rules->policy.Awaits(Utf8(url));
      }) {
  static const ATOM pane_class = RegisterPaneClass();
  place_ = {scale.PixelsX(control.left), scale.PixelsY(control.top),
            scale.PixelsX(control.left + control.width),
            scale.PixelsY(control.top + control.height)};
  pane_ = CreateWindowExW(
      WS_EX_CLIENTEDGE, MAKEINTATOM(pane_class), Wide(control.accessible_name).c_str(),
      WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_TABSTOP, place_.left, place_.top,
      place_.right - place_.left, place_.bottom - place_.top, form,
      reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
  SetWindowLongPtrW(pane_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  Connect();
}

Win32Browser::~Win32Browser() {
  SetWindowLongPtrW(pane_, GWLP_USERDATA, 0);
  events_->StopListening();
  host_->Close();
}

void Win32Browser::Connect() {
  events_ = new BrowserEvents({[this](const std::wstring& address, bool is_main_frame) {
                                 return MayGo(address, is_main_frame);
                               },
                               [this](const std::wstring& address, bool user_acted) {
                                 NewWindowWanted(address, user_acted);
                               },
                               [this](const std::wstring& address) { HasCome(address); },
                               [this](const std::wstring& address) { Loaded(address); },
                               [this](const std::wstring& address) { return HasFailed(address); },
                               [this] { DownloadEnded(); }});
  host_ = new BrowserHost(pane_, {[rules = rules_] { return rules->policy.MayRunScripts(); },
                                  [this] { menu_was_open_ = true; }});
  host_->Release();  // The reference that it was made with.
  if (host_->Control() == nullptr) return;
  host_->Control()->put_RegisterAsDropTarget(VARIANT_FALSE);
  events_->ListenTo(*host_->Control());
}

RECT Win32Browser::GiveRoom(int height) {
  RECT room = place_;
  room.top = room.bottom - height;
  SetWindowPos(pane_, nullptr, 0, 0, place_.right - place_.left, room.top - place_.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  host_->Resized();
  return room;
}

void Win32Browser::Navigate(const std::string& address) {
  page_.reset();
  if (!IsWebAddress(address)) {
    page_file_ = Wide(address);
    rules_->pages.Add(page_file_);
  }
  Go(Wide(address));
}

/// The empty document comes under the rules for page files, and passes them on to what it is loaded
/// with.
void Win32Browser::ShowFromMemory(const std::string& page) {
  page_ = page;
  Go(kEmptyDocument);
}

void Win32Browser::Go(const std::wstring& address) {
  if (host_->Control() == nullptr) return;
  rules_->policy.Expect(rules_->pages.Load(address, Place::MainFrame, false).address);
  VARIANT none;
  VariantInit(&none);
  host_->Control()->Navigate(OleText(address).Get(), &none, &none, &none, &none);
}

void Win32Browser::Loaded(const std::wstring& address) {
  if (address != kEmptyDocument || !page_) return;
  const std::string page = *std::exchange(page_, std::nullopt);
  ComPtr<IDispatch> document;
  host_->Control()->get_Document(&document);
  LoadPage(document.Get(), page);
}

bool Win32Browser::UserActed() const {
  return menu_was_open_ || (has_acted_ && GetTickCount() - acted_at_ < kActionCounts);
}

bool Win32Browser::MayGo(const std::wstring& address, bool is_main_frame) {
  const Place place = is_main_frame ? Place::MainFrame : Place::Frame;
  const auto load = rules_->pages.Load(address, place, UserActed());
  const bool may_go = rules_->policy.Decide(load) == Answer::Show;
  if (!may_go || !is_main_frame) return may_go;
  has_acted_ = menu_was_open_ = false;
  if (address != kEmptyDocument) page_.reset();
  FollowRules();
  return true;
}

void Win32Browser::FollowRules() {
  if (rules_->policy.IsStrict()) {
    guard_.TurnOn(page_file_);
  } else {
    guard_.TurnOff();
  }
  host_->RulesChanged();
}

void Win32Browser::HasCome(const std::wstring& address) {
  rules_->policy.HasCome(rules_->pages.Load(address, Place::MainFrame, false).target);
  FollowRules();
}

bool Win32Browser::HasFailed(const std::wstring& address) {
  rules_->policy.HasFailed();
  FollowRules();
  if (!IsWebAddress(Utf8(address))) return false;
  const std::string page =
      FailurePage(Utf8(address), "No answer came, or none that this pane understands.", {});
  loop_.Post(alive_, [this, page] { ShowFromMemory(page); });
  return true;
}

void Win32Browser::DownloadEnded() {
  VARIANT_BOOL is_busy = VARIANT_FALSE;
  host_->Control()->get_Busy(&is_busy);
  if (is_busy != VARIANT_FALSE) return;
  rules_->policy.HasFailed();
  FollowRules();
}

/// Older browsers name neither the address nor who acted.
void Win32Browser::NewWindowWanted(const std::wstring& address, bool user_acted) {
  const std::wstring link = address.empty() ? ActiveLink(*host_->Control()) : address;
  const bool by_user = address.empty() ? UserActed() : user_acted;
  const auto load = rules_->pages.Load(link, Place::NewWindow, by_user);
  if (rules_->policy.Decide(load) == Answer::OpenInUsersBrowser) OpenOutside(link);
}

/// From the event loop: inside the control's event, the shell's own messages would reach the
/// control while it waits for the answer.
void Win32Browser::OpenOutside(const std::wstring& address) {
  loop_.Post(alive_, [this, address] {
    constexpr INT_PTR kLastError = 32;
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteW(nullptr, L"open", address.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    if (result <= kLastError && link_not_opened_) link_not_opened_();
  });
}

void Win32Browser::Notice(const MSG& message) {
  const bool is_action = message.message == WM_LBUTTONUP || message.message == WM_MBUTTONUP ||
                         message.message == WM_XBUTTONUP || message.message == WM_KEYDOWN ||
                         message.message == WM_SYSKEYDOWN;
  if (!is_action || (message.hwnd != pane_ && !IsChild(pane_, message.hwnd))) return;
  has_acted_ = true;
  acted_at_ = GetTickCount();
}

bool Win32Browser::Translate(MSG& message) {
  if (host_->Control() == nullptr || message.message < WM_KEYFIRST ||
      message.message > WM_KEYLAST) {
    return false;
  }
  if (IsBrowserShortcut(message)) return true;
  ComPtr<IOleInPlaceActiveObject> page;
  return SUCCEEDED(host_->Control()->QueryInterface(IID_PPV_ARGS(&page))) &&
         page->TranslateAccelerator(&message) == S_OK;
}

LRESULT CALLBACK Win32Browser::PaneProcedure(HWND window, UINT message, WPARAM wparam,
                                             LPARAM lparam) {
  auto* pane = reinterpret_cast<Win32Browser*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_SETFOCUS && pane != nullptr && pane->host_->Control() != nullptr) {
    pane->host_->Activate();
    return 0;
  }
  return DefWindowProcW(window, message, wparam, lparam);
}

}  // namespace panelkit::windows
