#include "commands/gauge_mover.h"

#include <algorithm>
#include <array>

namespace panelkit {
namespace {

constexpr std::array kGaugeEndings{".gau", ".cab"};

// What a file is called in its new folder until its copy is whole.
constexpr const char* kHalfMoved = "\\panelkit.moving";

void RemoveHalfMoved(Files& files, const GaugeFolders& folders) {
  files.Delete(folders.gauges + kHalfMoved);
  files.Delete(folders.spare + kHalfMoved);
}

// Copies under a name that is no gauge's, then gives the copy its name, then deletes the source: at
// any moment the file is whole in at least one place.
bool MoveFile(Files& files, const std::string& source, const std::string& folder,
              const std::string& name) {
  const std::string half_moved = folder + kHalfMoved;
  if (!files.Copy(source, half_moved)) return false;
  if (!files.Rename(half_moved, folder + "\\" + name)) {
    files.Delete(half_moved);
    return false;
  }
  return files.ClearAttributes(source) && files.Delete(source);
}

void Note(MoveOutcome& outcome, bool moved, const std::string& name) {
  (moved ? outcome.moved : outcome.stayed).push_back(name);
}

std::vector<std::string> ArchivedNames(const Files& files, const std::string& spare) {
  std::vector<std::string> names;
  for (const char* ending : kGaugeEndings) {
    const auto listed = files.List(spare + "\\*" + ending, ListedEntries::PlainFiles);
    if (listed) names.insert(names.end(), listed->begin(), listed->end());
  }
  return names;
}

// The archived file that the user means: by its full name, or without the extension.
std::string ArchivedName(const Files& files, const std::string& spare, const std::string& name) {
  if (files.IsPlainFile(spare + "\\" + name)) return name;
  return SpareFileName(files, spare, name);
}

bool RestoreOne(Files& files, const GaugeFolders& folders, const std::string& name) {
  const bool is_plain_name = name.find_first_of("\\/:") == std::string::npos;
  const std::string source = folders.spare + "\\" + name;
  return is_plain_name && files.IsPlainFile(source) &&
         !files.Exists(folders.gauges + "\\" + name) &&
         MoveFile(files, source, folders.gauges, name);
}

}  // namespace

GaugeFolders FoldersOf(const std::string& FSPath, const std::string& AppFolder) {
  return {FSPath + "\\Gauges", AppFolder + "\\SpareGauges"};
}

std::string SpareFileName(const Files& files, const std::string& gauges, const std::string& entry) {
  for (const char* ending : kGaugeEndings) {
    if (files.IsPlainFile(gauges + "\\" + entry + ending)) return entry + ending;
  }
  return {};
}

MoveOutcome ArchiveGauges(Files& files, const GaugeFolders& folders,
                          const std::vector<std::string>& SpareFiles) {
  if (!files.Exists(folders.spare)) files.MakeFolder(folders.spare);
  // An archive that is the Gauges folder itself, by a link, would have each file copied onto itself
  // and then deleted.
  const bool is_apart = !files.IsSame(folders.gauges, folders.spare);
  if (is_apart) RemoveHalfMoved(files, folders);
  MoveOutcome outcome;
  for (const std::string& entry : SpareFiles) {
    const std::string name = SpareFileName(files, folders.gauges, entry);
    if (name.empty()) continue;
    const bool moved =
        is_apart && MoveFile(files, folders.gauges + "\\" + name, folders.spare, name);
    Note(outcome, moved, name);
  }
  return outcome;
}

MoveOutcome RestoreGauges(Files& files, const GaugeFolders& folders,
                          const std::vector<std::string>& names) {
  MoveOutcome outcome;
  const bool is_apart = !files.IsSame(folders.gauges, folders.spare);
  if (is_apart) RemoveHalfMoved(files, folders);
  const bool all = names.empty();
  for (const std::string& wanted : all ? ArchivedNames(files, folders.spare) : names) {
    const std::string found = all ? wanted : ArchivedName(files, folders.spare, wanted);
    const std::string& name = found.empty() ? wanted : found;
    Note(outcome, is_apart && RestoreOne(files, folders, name), name);
  }
  return outcome;
}

}  // namespace panelkit
