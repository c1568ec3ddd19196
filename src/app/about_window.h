// The About window as data.
#pragma once

#include <array>

#include "platform/form.h"

namespace panelkit {

inline constexpr std::array kAboutControls{
    ControlDescription{"Picture1", ControlKind::PictureBox, 120, 120, 2295, 4455, 0, "about",
                       "A panel of gauges at dusk"},
    ControlDescription{"Label1(0)", ControlKind::Label, 2640, 120, 2655, 255, 1, "Panelkit", ""},
    ControlDescription{"Label1(1)", ControlKind::Label, 2640, 360, 2655, 255, 2,
                       "For Microsoft Flight Simulator 2xxx", ""},
    ControlDescription{"Label1(2)", ControlKind::Label, 2640, 720, 2655, 255, 3,
                       "By the Panelkit authors", ""},
    ControlDescription{"Command1", ControlKind::CommandButton, 3360, 4080, 1215, 375, 4, "OK", ""},
};

inline constexpr FormDescription kAboutWindow{"About Panelkit ",       5430,           4740,
                                              Border::FixedToolWindow, kAboutControls, {}};

}  // namespace panelkit
