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

std::vector<std::string> ArchivedNames(const Files& files, const std::string& spare) {
  std::vector<std::string> names;
  for (const char* ending : kGaugeEndings) {
    const auto listed = files.List(spare + "\\*" + ending, ListedEntries::PlainFiles);
    if (listed) names.insert(names.end(), listed->begin(), listed->end());
  }
  return names;
}

// The archived file that the user means, by its full name or without the extension; empty where
// there is none.
std::string ArchivedName(const Files& files, const std::string& spare, const std::string& typed) {
  if (typed.find_first_of("\\/:") != std::string::npos) return {};
  if (files.IsPlainFile(spare + "\\" + typed)) return typed;
  return SpareFileName(files, spare, typed);
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
    (moved ? outcome.moved : outcome.stayed).push_back(name);
  }
  return outcome;
}

RestoreOutcome RestoreGauges(Files& files, const GaugeFolders& folders,
                             const std::vector<std::string>& names) {
  RestoreOutcome outcome;
  if (files.IsSame(folders.gauges, folders.spare)) return outcome;
  RemoveHalfMoved(files, folders);
  for (const std::string& typed : names.empty() ? ArchivedNames(files, folders.spare) : names) {
    const std::string name = ArchivedName(files, folders.spare, typed);
    if (name.empty()) {
      outcome.failed.push_back(typed);
    } else if (files.Exists(folders.gauges + "\\" + name)) {
      outcome.already_there.push_back(name);
    } else if (MoveFile(files, folders.spare + "\\" + name, folders.gauges, name)) {
      outcome.restored.push_back(name);
    } else {
      outcome.failed.push_back(name);
    }
  }
  return outcome;
}

}  // namespace panelkit
