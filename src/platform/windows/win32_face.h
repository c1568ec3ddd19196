// The window face on the Windows API.
#pragma once

#include <windows.h>

#include "platform/form.h"
#include "platform/windows/screen_scale.h"
#include "platform/windows/win32_event_loop.h"

namespace panelkit::windows {

/// Forms of the system's own controls. Its thread is the interface thread.
class Win32Face final : public Face {
 public:
  Win32Face();
  ~Win32Face() override;
  Win32Face(const Win32Face&) = delete;
  Win32Face& operator=(const Win32Face&) = delete;

  /// Throws std::runtime_error where Windows makes no window.
  std::unique_ptr<Form> CreateForm(const FormDescription& description) override;
  Win32EventLoop& Loop() override { return loop_; }
  ScreenSize Screen() const override;

 private:
  Win32EventLoop loop_;
  ScreenScale scale_;
  HWND owner_;
};

}  // namespace panelkit::windows
