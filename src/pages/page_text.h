// The text of the fixed pages, and what all pages share. Lines end in CR LF. Folders are quoted
// unescaped and have no closing backslash. The addresses are set when the program is built.
#pragma once

#include <string>
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

/// The eight opening lines of every page.
inline constexpr std::string_view PagePrelude =
    "<html>\r\n"
    "<head>\r\n"
    "<style>\r\n"
    "body {font-family:tahoma,\"tahoma\",monospace}\r\n"
    "body {font-size:11}\r\n"
    "</style>\r\n"
    "</head>\r\n"
    "<body class='body' topmargin=10 leftmargin=10>\r\n";

/// A link to the publisher's site that shows its whole address.
std::string SiteUrlLink();

/// The page of the start and of the Main Page command.
std::string WelcomePage(const std::string& AppFolder);

/// The page for a machine without the simulator.
std::string NoSimulatorPage(const std::string& AppFolder);

/// The page that asks the user to wait.
std::string WorkingPage();

/// The brake page up to where a pick switches the messages: what the feature is for and which files
/// it touches.
std::string BrakePageOpening(const std::string& FSPath, const std::string& AppFolder);

/// The rest of the brake page.
std::string BrakePageClosing();

}  // namespace panelkit
