// Twips to pixels and back, by the screen's resolution.
#pragma once

#include <windows.h>

#include "platform/form.h"

namespace panelkit::windows {

/// The resolution of the screen in dots per inch.
struct ScreenScale {
  int dpi_x;
  int dpi_y;

  static ScreenScale OfScreen() {
    const HDC screen = GetDC(nullptr);
    const ScreenScale scale{GetDeviceCaps(screen, LOGPIXELSX), GetDeviceCaps(screen, LOGPIXELSY)};
    ReleaseDC(nullptr, screen);
    return scale;
  }

  /// The highest resolution at which a length takes no more than so many pixels.
  static int DpiThatFits(Twips twips, int pixels) { return pixels * kTwipsPerInch / twips; }

  int PixelsX(Twips twips) const { return MulDiv(twips, dpi_x, kTwipsPerInch); }
  int PixelsY(Twips twips) const { return MulDiv(twips, dpi_y, kTwipsPerInch); }
  Twips TwipsX(int pixels) const { return MulDiv(pixels, kTwipsPerInch, dpi_x); }
  Twips TwipsY(int pixels) const { return MulDiv(pixels, kTwipsPerInch, dpi_y); }

 private:
  static constexpr int kTwipsPerInch = 1440;
};

}  // namespace panelkit::windows
