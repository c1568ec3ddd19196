// The sentences of the status line, which standard error of the console companion shares.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace panelkit {

/// Why a file could not be read or written, as the end of a sentence: "it is read-only". Empty for
/// FileFault::None.
std::string_view FaultText(FileFault fault);

/// fs2002.cfg could not be read or written, and is as it was.
std::string ConfigUnchangedText(FileFault fault);

/// fs2002.cfg was edited for a setting that was missing although there is no backup.
std::string NoBackupText(FileFault fault);

/// The page file `path` stands in for one that could not be written.
std::string PageElsewhereText(const std::string& path);

/// The page file `path` could be written nowhere.
std::string PageUnwrittenText(const std::string& path, FileFault fault);

/// Why the simulator's folder `FSPath` has given no aircraft, as the end of a sentence: "the folder
/// C:\FS is not there".
std::string NoAircraftText(const Files& files, const std::string& FSPath);

/// Both names of a folder in one line, "C:\FS2002 (/home/...)"; one of them if they are equal.
std::string BothNames(const Files& files, const std::string& windows_path);

/// The chosen simulator is not known to the next start.
std::string SimulatorNotKeptText(FileFault fault);

/// The end of a Clean Gauges run: "Done", with the number of files that stayed in Gauges, of panels
/// that could not be read and of moved files that panels name in a way which the reports do not
/// read, as far as there are any.
std::string CleanDoneText(std::size_t stayed, std::size_t unreadable, std::size_t named_otherwise);

/// These cabinets (names of files in Gauges) were not looked into, since the machine's cabinet
/// service takes no such names: what to do about it.
std::string CabinetsNotNamedText(const std::vector<std::string>& cabinets);

/// A command ended half way, for the reason given.
std::string UnfinishedText(const std::string& reason);

/// Panels name so many files in a way which the report does not read; the console lists them.
std::string OtherwiseNamedText(std::size_t files);

inline constexpr const char* kNoPlaceForSettingText =
    "fs2002.cfg has no SYSCLOCK line to put the setting behind.";
inline constexpr const char* kReportNotWholeText =
    "There are more than 32,767 gauges: the report is not whole.";
inline constexpr const char* kNotAllCopiedText =
    "Not all files could be copied: the page says why.";
inline constexpr const char* kLinkNotOpenedText =
    "The link could not be opened: no web browser was found.";

}  // namespace panelkit
