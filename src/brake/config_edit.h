// The edit of the simulator's configuration file, from bytes to bytes. What is not touched comes
// back bit for bit, but for line ends: a line ends at CR LF or a lone CR (at LF only in a file
// without any CR) and is written with CR LF, and one more CR LF ends the file.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace panelkit {

/// The setting's name; searched with case ignored, anywhere in a line.
inline constexpr std::string_view BrakeKey = "show_brake_message";

/// Called before each line is read, so that a long file does not stop the window.
using BetweenLines = std::function<void()>;

/// Whether the messages are shown, by the first line that holds BrakeKey: hidden only if the
/// character behind the line's first "=" is a digit other than 1. nullopt if no line holds it.
std::optional<bool> BrakeMessagesShown(std::string_view config, const BetweenLines& between_lines);

/// The file's lines as they were read, for the backup.
std::string AsRead(std::string_view config, const BetweenLines& between_lines);

/// The file with "show_brake_message=1" behind each line that contains "SYSCLOCK", case ignored.
std::string WithSettingAdded(std::string_view config, const BetweenLines& between_lines);

/// The file with each line that holds BrakeKey replaced by "show_brake_message=" and `b`.
std::string WithSettingSet(std::string_view config, int b, const BetweenLines& between_lines);

}  // namespace panelkit
