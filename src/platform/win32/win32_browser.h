// The browser pane: the system's web browser control.
#pragma once

#include <windows.h>

#include <exdisp.h>
#include <wrl/client.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "pane/pane_policy.h"
#include "platform/browser.h"
#include "platform/win32/browser_events.h"
#include "platform/win32/browser_host.h"
#include "platform/win32/fetch_guard.h"
#include "platform/win32/page_addresses.h"
#include "platform/win32/screen_scale.h"
#include "platform/win32/win32_event_loop.h"

namespace panelkit::windows {

/// Turns on the feature controls of urlmon.dll that keep scripts out of local pages, for every
/// browser control of this process. Does nothing on a Windows without them.
void LockLocalPages();

/// The system's web browser control. Where the system lacks it, the pane stays white. A page from
/// memory shows no pictures.
class Win32Browser final : public WebBrowser {
 public:
  /// Makes the pane inside `form`; `id` as in CreateControl. OLE is initialised on this thread.
  /// `loop` outlives the pane.
  Win32Browser(HWND form, const ControlDescription& control, const ScreenScale& scale, UINT id,
               Win32EventLoop& loop);
  ~Win32Browser() override;
  Win32Browser(const Win32Browser&) = delete;
  Win32Browser& operator=(const Win32Browser&) = delete;

  void Navigate(const std::string& address) override;
  void ShowFromMemory(const std::string& page) override;
  void OnLinkNotOpened(std::function<void()> handler) override {
    link_not_opened_ = std::move(handler);
  }

  /// Receives each message for the form's windows before they do. A navigation shortly after a
  /// click or a key inside the pane counts as the user's.
  void Notice(const MSG& message);

  /// Offers a message to the page: Tab, Enter on a link, Ctrl+C, Ctrl+P and the like. True if the
  /// page took it.
  bool Translate(MSG& message);

  /// Whether the keyboard is with the page.
  bool HasFocus() const { return IsChild(pane_, GetFocus()) || GetFocus() == pane_; }

  HWND Window() const { return pane_; }

  /// Leaves `height` pixels at the lower edge of its place free and gives that room, in the form's
  /// coordinates.
  RECT GiveRoom(int height);

 private:
  void Connect();
  void Go(const std::wstring& address);
  void FollowRules();
  void HasCome(const std::wstring& address);
  bool HasFailed(const std::wstring& address);
  void DownloadEnded();
  void Loaded(const std::wstring& address);
  bool MayGo(const std::wstring& address, bool is_main_frame);
  void NewWindowWanted(const std::wstring& address, bool user_acted);
  void OpenOutside(const std::wstring& address);
  bool UserActed() const;
  static LRESULT CALLBACK PaneProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  static ATOM RegisterPaneClass();

  Win32EventLoop& loop_;
  HWND pane_ = nullptr;
  RECT place_{};  ///< In the form, with the room that it can give.
  /// Shared with the guard, which other threads may still ask when the pane has gone.
  struct Rules {
    PanePolicy policy;
    PageAddresses pages;
  };
  std::shared_ptr<Rules> rules_ = std::make_shared<Rules>();
  FetchGuard guard_;
  Microsoft::WRL::ComPtr<BrowserHost> host_;
  Microsoft::WRL::ComPtr<BrowserEvents> events_;
  std::function<void()> link_not_opened_;
  std::optional<std::string> page_;  ///< To be loaded once the pane is empty.
  std::wstring page_file_;           ///< The one shown last.
  DWORD acted_at_ = 0;               ///< GetTickCount of the user's last click or key in the pane.
  bool has_acted_ = false;           ///< Whether there was one since the last navigation.
  bool menu_was_open_ = false;       ///< Whether the page's menu was opened since then.

  /// Expires with the pane, so that tasks posted for it no longer run.
  std::shared_ptr<const void> alive_ = std::make_shared<int>();
};

}  // namespace panelkit::windows
