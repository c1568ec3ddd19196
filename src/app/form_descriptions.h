// The program's two windows as data: their controls, with places in twips, and the main window's
// menu.
//
// List1 is not among the main window's controls: it lies below the visible area and only sorts
// names (app/sorted_list.h).
#pragma once

#include <array>

#include "platform/form.h"

namespace panelkit {

inline constexpr std::array kGaugesControls{
    ControlDescription{"WebBrowser1", ControlKind::WebBrowser, 120, 120, 10215, 6135, 2, "",
                       "Report"},
    ControlDescription{"lblFilePath", ControlKind::Label, 120, 6360, 10215, 255, 0,
                       "Panelkit - Version 1.10  Dec 15, 2002              Come to "  //
                       PANELKIT_SITE_URL " if you are looking for gauges",
                       ""},
    ControlDescription{"lblStatus", ControlKind::Label, 120, 6600, 5415, 255, 1,
                       "Made with care for everyone who builds and flies panels", ""},
    ControlDescription{"ProgressBar1", ControlKind::ProgressBar, 5640, 6600, 4695, 255, 4, "",
                       "Progress of the scan"},
    ControlDescription{"Label1", ControlKind::Label, 120, 6840, 5415, 255, 5,
                       "Free software - happy landings!", ""},
};

inline constexpr std::array kGaugesMenu{
    MenuDescription{"menFile", "&File", ""},
    MenuDescription{"menExit", "E&xit Program", "menFile"},
    MenuDescription{"menMain", "&Main Page", ""},
    MenuDescription{"menProbe", "&Probe For Missing Gauges", ""},
    MenuDescription{"menShow", "&Show All Gauges", ""},
    MenuDescription{"menRemove", "&Clean Gauges", ""},
    MenuDescription{"menCool", "&Other Cool Stuff", ""},
    MenuDescription{"menKeybd", "FS2002 &Keyboard Commands", "menCool"},
    MenuDescription{"menBrake", "&Parking Brake Annunciator OFF", "menCool"},
    MenuDescription{"menVirtual", "List of &Virtual Airlines", "menCool"},
    MenuDescription{"menHelp", "&Help", ""},
    MenuDescription{"menVisit", "&Visit Panelkit Web Site", "menHelp"},
    MenuDescription{"menAboutFS", "&About Panelkit", "menHelp"},
};

inline constexpr FormDescription kGaugesWindow{" Panelkit for FS2002 ONLY",
                                               10440,
                                               7110,
                                               Border::FixedDialog,
                                               kGaugesControls,
                                               kGaugesMenu,
                                               "menHelp"};

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
