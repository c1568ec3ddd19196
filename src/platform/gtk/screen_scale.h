// From twips to the pixels of the screen.
#pragma once

#include "platform/form.h"

namespace panelkit {

/// The screen's resolution, as the user set it: dots per inch, 96 if nothing is set.
class ScreenScale {
 public:
  explicit ScreenScale(double dots_per_inch);

  /// The scale of the default screen. GTK must be initialised.
  static ScreenScale OfDefaultScreen();

  int ToPixels(Twips length) const;
  Twips ToTwips(int pixels) const;

  /// Size in pixels of a font of `points`.
  double FontPixels(double points) const;

  /// The size of things, relative to their size at 96 dots per inch.
  double Factor() const;

 private:
  double dots_per_inch_;
};

}  // namespace panelkit
