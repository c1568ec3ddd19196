// The small controls of a form: labels, progress bars, pictures and buttons.
#pragma once

#include <gtk/gtk.h>

#include <string>

#include "platform/form.h"
#include "platform/gtk/gtk_pointers.h"
#include "platform/gtk/screen_scale.h"

namespace panelkit {

/// One line of text at the top left of its place. Text that is a little too wide is set smaller;
/// text that still does not fit is cut off with an ellipsis and shown whole in the tooltip. The
/// widget gets a new text from the event loop, so that one which is never painted costs nothing.
class GtkLabelControl final : public Label {
 public:
  /// `width` of its place in pixels.
  GtkLabelControl(std::string caption, int width);
  ~GtkLabelControl() override;
  GtkLabelControl(const GtkLabelControl&) = delete;
  GtkLabelControl& operator=(const GtkLabelControl&) = delete;

  void SetCaption(const std::string& caption) override;
  std::string Caption() const override { return caption_; }

  GtkWidget* Widget() const { return widget_.get(); }

 private:
  void Update();
  void Fit();

  std::string caption_;
  int width_;
  guint update_ = 0;  // The source that is to call Update, or 0.
  ObjectPtr<GtkWidget> widget_;
};

/// A bar without text. It is redrawn only if a new value moves it by a pixel.
class GtkProgressBarControl final : public ProgressBar {
 public:
  /// `width` in pixels.
  explicit GtkProgressBarControl(int width);

  void SetMin(int min) override;
  void SetMax(int max) override;
  void SetValue(int value) override;

  /// Owned by the window that it is put into.
  GtkWidget* Widget() const { return widget_; }

 private:
  void Show();

  int width_;
  int min_ = 0;
  int max_ = 100;
  int value_ = 0;
  int filled_ = 0;  ///< Pixels, as shown.
  GtkWidget* widget_;
};

/// The picture `name` that the executable holds, as large as the scale makes it.
GtkWidget* NewPicture(std::string_view name, const ScreenScale& scale);

/// A push button with an access key where `caption` has one.
GtkWidget* NewButton(std::string_view caption);

}  // namespace panelkit
