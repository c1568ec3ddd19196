// The controls of a form: the system's own.
#pragma once

#include <windows.h>

#include <string>

#include "platform/form.h"
#include "platform/win32/screen_scale.h"

namespace panelkit::windows {

/// Makes the window of a label, progress bar, picture box or button inside `form`; `id` is what its
/// messages name it by. Its accessible name becomes its window text where it shows none. Null where
/// Windows refuses.
HWND CreateControl(HWND form, const ControlDescription& control, const ScreenScale& scale, UINT id);

/// The form font at the screen's resolution, to be deleted with DeleteObject.
HFONT CreateFormFont(const ScreenScale& scale);

/// Draws a picture box with the picture of that name in the executable, scaled with the screen.
/// Nothing is drawn where there is no such picture.
void DrawPicture(const DRAWITEMSTRUCT& box, const std::string& picture, const ScreenScale& scale);

class Win32Label final : public Label {
 public:
  Win32Label(HWND window, std::string caption) : window_(window), caption_(std::move(caption)) {}
  void SetCaption(const std::string& caption) override;
  std::string Caption() const override { return caption_; }

 private:
  HWND window_;
  std::string caption_;
};

class Win32ProgressBar final : public ProgressBar {
 public:
  explicit Win32ProgressBar(HWND window) : window_(window) { Show(); }
  void SetMin(int min) override;
  void SetMax(int max) override;
  void SetValue(int value) override;

 private:
  void Show() const;

  HWND window_;
  int min_ = 0;
  int max_ = 100;
  int value_ = 0;
};

}  // namespace panelkit::windows
