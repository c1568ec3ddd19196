#include "gauges/gauge_mover.h"

#include <algorithm>
#include <array>

#include "text/line_reader.h"

namespace panelkit {
namespace {

constexpr std::array kGaugeEndings{".gau", ".cab"};

// What a file is called in its new folder until its copy is whole.
constexpr const char* kHalfMoved = "\\panelkit.moving";

// What a killed run left in either folder.
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
  return files.Delete(source);
}

bool HasGaugeEnding(const std::string& name) {
  return std::any_of(kGaugeEndings.begin(), kGaugeEndings.end(),
                     [&](const char* ending) { return ContainsIgnoringCase(name, ending); });
}

// The archived files of one name, spelt as in the archive: with the extension typed, or each gauge
// ending where none was.
std::vector<std::string> ArchivedNames(const Files& files, const std::string& spare,
                                       const std::string& typed) {
  std::vector<std::string> names;
  if (typed.find_first_of("\\/:") != std::string::npos) return names;
  const auto add = [&](const std::string& pattern) {
    const auto listed = files.List(spare + "\\" + pattern, ListedEntries::PlainFiles);
    for (std::size_t i = 0; listed && i < listed->size(); ++i) names.push_back((*listed)[i].name);
  };
  if (HasGaugeEnding(typed)) {
    add(typed);
  } else {
    for (const char* ending : kGaugeEndings) add(typed + ending);
  }
  return names;
}

void Restore(Files& files, const GaugeFolders& folders, const std::string& name,
             RestoreOutcome& outcome) {
  if (files.Exists(folders.gauges + "\\" + name)) {
    outcome.already_there.push_back(name);
  } else if (MoveFile(files, folders.spare + "\\" + name, folders.gauges, name)) {
    outcome.restored.push_back(name);
  } else {
    outcome.failed.push_back(name);
  }
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
  for (const std::string& typed : names) {
    const auto archived = ArchivedNames(files, folders.spare, typed);
    if (archived.empty() && typed != kEveryGauge) outcome.failed.push_back(typed);
    for (const std::string& name : archived) Restore(files, folders, name, outcome);
  }
  return outcome;
}

}  // namespace panelkit
