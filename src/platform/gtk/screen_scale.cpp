#include "platform/gtk/screen_scale.h"

#include <gdk/gdk.h>

#include <cmath>

namespace panelkit {
namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kPointsPerInch = 72;
constexpr double kUsualDotsPerInch = 96;

}  // namespace

ScreenScale::ScreenScale(double dots_per_inch)
    : dots_per_inch_(dots_per_inch > 0 ? dots_per_inch : kUsualDotsPerInch) {}

ScreenScale ScreenScale::OfDefaultScreen() {
  return ScreenScale(gdk_screen_get_resolution(gdk_screen_get_default()));
}

int ScreenScale::ToPixels(Twips length) const {
  return static_cast<int>(std::lround(length * dots_per_inch_ / kTwipsPerInch));
}

Twips ScreenScale::ToTwips(int pixels) const {
  return static_cast<Twips>(std::lround(pixels * kTwipsPerInch / dots_per_inch_));
}

double ScreenScale::FontPixels(double points) const {
  return points * dots_per_inch_ / kPointsPerInch;
}

double ScreenScale::Factor() const {
  return dots_per_inch_ / kUsualDotsPerInch;
}

}  // namespace panelkit
