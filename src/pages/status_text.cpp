#include "pages/status_text.h"

namespace panelkit {
namespace {

// A file that is to be written may be absent; its folder may not.
std::string WriteFaultText(FileFault fault) {
  return fault == FileFault::Absent ? "its folder is not there" : std::string(FaultText(fault));
}

}  // namespace

std::string_view FaultText(FileFault fault) {
  switch (fault) {
    case FileFault::None:
      return "";
    case FileFault::Absent:
      return "it is not there";
    case FileFault::NotAFile:
      return "it is not a plain file";
    case FileFault::ReadOnly:
      return "it is read-only";
    case FileFault::NoAccess:
      return "access is denied";
    case FileFault::InUse:
      return "another program is using it";
    case FileFault::NoRoom:
      return "the disk is full";
    case FileFault::TooLarge:
      return "it is too large";
    case FileFault::Irreplaceable:
    case FileFault::Other:
      break;
  }
  return "the system refused it";
}

std::string ConfigUnchangedText(FileFault fault) {
  return "fs2002.cfg was not changed: " + std::string(FaultText(fault)) + ".";
}

std::string NoBackupText(FileFault fault) {
  return "fs2002.cfg was changed without a backup: " + WriteFaultText(fault) + ".";
}

std::string PageElsewhereText(const std::string& path) {
  return "The page is in " + path + ".";
}

std::string PageUnwrittenText(const std::string& path, FileFault fault) {
  return path.substr(path.rfind('\\') + 1) + " could not be written: " + WriteFaultText(fault) +
         ".";
}

std::string NoAircraftText(const Files& files, const std::string& FSPath) {
  if (!files.IsFolder(FSPath)) return "the folder " + FSPath + " is not there";
  if (!files.Exists(FSPath + "\\Aircraft")) return FSPath + " has no Aircraft folder";
  return "the Aircraft folder cannot be read";
}

std::string BothNames(const Files& files, const std::string& windows_path) {
  const std::string native = files.NativePath(windows_path);
  return native == windows_path ? native : windows_path + " (" + native + ")";
}

std::string SimulatorNotKeptText(FileFault fault) {
  return "The choice could not be kept for the next start: " + WriteFaultText(fault) + ".";
}

std::string CabinetsNotNamedText(const std::vector<std::string>& cabinets) {
  std::string names;
  for (const std::string& cabinet : cabinets) names += (names.empty() ? "" : ", ") + cabinet;
  return "Give these cabinets plain names, or they cannot be read: " + names + ".";
}

std::string OtherwiseNamedText(std::size_t files) {
  return "Files that panels name in another way, which --careful lists: " + std::to_string(files) +
         ".";
}

std::string UnfinishedText(const std::string& reason) {
  return "The command could not be finished: " + reason + ".";
}

std::string CleanDoneText(std::size_t stayed, std::size_t unreadable, std::size_t named_otherwise) {
  std::string text = "Done";
  if (stayed > 0) text += " - files that stayed in Gauges: " + std::to_string(stayed);
  if (unreadable > 0) text += " - panels that could not be read: " + std::to_string(unreadable);
  if (named_otherwise > 0) {
    text += " - " + std::to_string(named_otherwise) + " of the moved files " +
            (named_otherwise == 1 ? "is" : "are") + " named by panels in another way";
  }
  return text;
}

}  // namespace panelkit
