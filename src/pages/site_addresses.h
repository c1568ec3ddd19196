// The publisher's addresses, set when the program is built.
#pragma once

#include <string_view>

namespace panelkit {

/// The publisher's web address with its scheme.
inline constexpr std::string_view SiteUrl = PANELKIT_SITE_URL;

/// The same address's host name alone.
inline constexpr std::string_view SiteHost = PANELKIT_SITE_HOST;

/// A page that lists the simulator's keyboard commands.
inline constexpr std::string_view KeyboardPageUrl =
    PANELKIT_KEYBOARD_HOST "/members/panelkitcom/home/FS2002kbcmds.htm";

/// A directory of virtual airlines.
inline constexpr std::string_view AirlineDirectoryUrl =
    PANELKIT_AIRLINES_HOST "/Top/Recreation/Aviation/Simulation/Virtual_Airlines/";

}  // namespace panelkit
