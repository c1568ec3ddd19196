// The strip of a browser pane: the system's own controls in a window of their own.
#pragma once

#include <windows.h>

#include <memory>

#include "platform/strip.h"
#include "platform/win32/screen_scale.h"
#include "platform/win32/win32_browser.h"
#include "platform/win32/win32_event_loop.h"

namespace panelkit::windows {

class Win32Strip final : public Strip {
 public:
  /// Takes its room from `pane` inside `form`. Both, `font` and `loop` outlive the strip.
  Win32Strip(HWND form, Win32Browser& pane, const ScreenScale& scale, HFONT font,
             Win32EventLoop& loop);
  ~Win32Strip() override;
  Win32Strip(const Win32Strip&) = delete;
  Win32Strip& operator=(const Win32Strip&) = delete;

  void Show(StripContent content) override;
  void Hide() override;

  /// Receives each message for the form's windows before they do; true if it was for the strip: an
  /// access key, F6 to and from the pane, and Enter and Escape in the strip itself.
  bool Takes(const MSG& message);

  /// Takes the keyboard for a Tab that the pane has no use for.
  bool TakesTab(const MSG& message) const;

 private:
  SIZE Measured(const std::wstring& text, int width, UINT format) const;
  HWND AddControl(const wchar_t* kind, const std::wstring& text, DWORD style, int id,
                  const RECT& place) const;
  void AddControls(int width, int height);
  bool HasFocus() const { return window_ != nullptr && IsChild(window_, GetFocus()); }
  bool PressesAccessKey(wchar_t key);
  void Press(std::size_t button);
  void Command(UINT id);
  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  static ATOM RegisterStripClass();

  HWND form_;
  Win32Browser& pane_;
  ScreenScale scale_;
  HFONT font_;
  Win32EventLoop& loop_;
  HWND window_ = nullptr;  ///< Null while the strip is hidden.
  StripContent content_;

  /// Expires with the strip, so that presses posted for it no longer run.
  std::shared_ptr<const void> alive_ = std::make_shared<int>();
};

}  // namespace panelkit::windows
