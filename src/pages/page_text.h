// The text of the fixed pages, and the pieces that all pages share. Lines end in CR LF.
#pragma once

#include <string>
#include <string_view>

namespace panelkit {

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

/// The page of the start and of the Main Page command. `AppFolder` is quoted unescaped.
std::string WelcomePage(const std::string& AppFolder);

/// The page for a machine without the simulator.
std::string NoSimulatorPage(const std::string& AppFolder);

/// The page that asks the user to wait.
std::string WorkingPage();

}  // namespace panelkit
