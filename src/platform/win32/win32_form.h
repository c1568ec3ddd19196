// A form as a window of Windows.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/form.h"
#include "platform/win32/screen_scale.h"
#include "platform/win32/win32_browser.h"
#include "platform/win32/win32_controls.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_menu.h"
#include "platform/win32/win32_strip.h"

namespace panelkit::windows {

class Win32Form final : public Form {
 public:
  /// `owner` is a hidden window, which keeps the form off the task bar. It and `loop` outlive the
  /// form. Throws std::runtime_error where Windows makes no window.
  Win32Form(const FormDescription& description, const ScreenScale& scale, HWND owner,
            Win32EventLoop& loop);
  ~Win32Form() override;
  Win32Form(const Win32Form&) = delete;
  Win32Form& operator=(const Win32Form&) = delete;

  Label& LabelNamed(std::string_view name) override;
  MenuItem& MenuNamed(std::string_view name) override { return menu_->Named(name); }
  ProgressBar& ProgressBarNamed(std::string_view name) override;
  WebBrowser& BrowserNamed(std::string_view name) override;
  Strip& StripOf(std::string_view name) override { return EntryNamed(strips_, name); }
  void OnClick(std::string_view name, std::function<void()> handler) override;
  void OnClose(std::function<void()> handler) override { close_ = std::move(handler); }
  std::vector<std::string> ChooseFolders(const std::string& title) override;
  void OnDrop(std::function<void(const std::vector<std::string>& paths)> handler) override;
  void Show() override;
  void Hide() override { ShowWindow(window_, SW_HIDE); }
  Twips Width() const override;
  Twips Height() const override;
  void MoveTo(Twips left, Twips top) override;

 private:
  void AddControls(const FormDescription& description);
  void AddControl(const ControlDescription& control, UINT id);
  void FocusFirst() const;
  bool Filter(MSG& message);
  bool IsForWindow(MSG& message) const;
  void Clicked(const std::string& name);
  void Closed();
  void Dropped(HDROP drop);
  void Command(UINT id);
  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam);
  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  friend ATOM RegisterFormClass();

  ScreenScale scale_{};  ///< The screen's, or a smaller one at which the form fits.
  Win32EventLoop& loop_;
  HWND window_ = nullptr;
  HWND last_focus_ = nullptr;
  HFONT font_ = nullptr;
  LPARAM help_key_ = 0;  ///< The letter that opens the help menu; 0 if there is none.
  std::optional<Win32Menu> menu_;
  ByName<Win32Label> labels_;
  ByName<Win32ProgressBar> bars_;
  ByName<Win32Browser> browsers_;
  ByName<Win32Strip> strips_;
  ByName<std::function<void()>> clicks_;
  std::map<UINT, std::string> buttons_;
  std::map<UINT, std::string> pictures_;
  std::function<void()> close_;
  std::function<void(const std::vector<std::string>& paths)> drop_;

  /// Expires with the form, so that clicks posted for it no longer run.
  std::shared_ptr<const void> alive_ = std::make_shared<int>();
};

}  // namespace panelkit::windows
