// The browser pane: the system's web browser control.
#pragma once

#include <windows.h>

#include <exdisp.h>
#include <wrl/client.h>

#include <functional>
#include <string>
#include <utility>

#include "platform/browser.h"
#include "platform/win32/navigation_policy.h"
#include "platform/win32/screen_scale.h"

namespace panelkit::windows {

/// Keeps scripts out of local pages, in every browser control of this process, as far as this
/// Windows can.
void LockLocalPages();

/// Hosted by the AtlAxWin class of atl.dll. Where the system lacks one of the two, the pane stays
/// white.
class Win32Browser final : public WebBrowser {
 public:
  /// Makes the pane inside `form`; `id` as in CreateControl. OLE is initialised on this thread.
  Win32Browser(HWND form, const ControlDescription& control, const ScreenScale& scale, UINT id);
  Win32Browser(const Win32Browser&) = delete;
  Win32Browser& operator=(const Win32Browser&) = delete;

  void Navigate(const std::string& address) override;
  void OnLinkNotOpened(std::function<void()> handler) override {
    link_not_opened_ = std::move(handler);
  }

  /// Offers a message to the page: Tab, Enter on a link, Ctrl+C, Ctrl+P and the like. True when the
  /// page took it.
  bool Translate(MSG& message);

  /// Whether the keyboard is with the page.
  bool HasFocus() const { return IsChild(pane_, GetFocus()) || GetFocus() == pane_; }

  HWND Window() const { return pane_; }

 private:
  void Connect();

  HWND pane_ = nullptr;
  NavigationPolicy rules_;
  std::function<void()> link_not_opened_;
  Microsoft::WRL::ComPtr<IWebBrowser2> browser_;
};

}  // namespace panelkit::windows
