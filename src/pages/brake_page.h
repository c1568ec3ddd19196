// The text of the brake page.
#pragma once

#include <string>

namespace panelkit {

/// The page up to where a pick switches the messages: what the feature is for and which files it
/// touches. Both folders are quoted unescaped.
std::string BrakePageOpening(const std::string& FSPath, const std::string& AppFolder);

/// The rest of the page.
std::string BrakePageClosing();

}  // namespace panelkit
