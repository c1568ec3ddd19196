#include "gauges/gauge_mover.h"

#include <algorithm>
#include <array>

#include "text/matching.h"

namespace panelkit {
namespace {

constexpr std::array kGaugeEndings{".gau", ".cab"};

// The name of a file in its new folder until the copy is complete.
constexpr const char* kHalfMoved = "\\panelkit.moving";

// Behind the name of an archived file that waits until the newer one has taken its place for good.
constexpr std::string_view kOlder = ".panelkit-older";

// Ends a move, or what a killed run left of one: the older file goes once the newer one is in the
// archive alone, and comes back where that one stays in Gauges.
void Settle(Files& files, const std::string& source, const std::string& target) {
  const std::string older = target + std::string(kOlder);
  if (files.Exists(target)) {
    const FileContent left = files.Read(source);
    const bool stayed = left.bytes && left.bytes == files.Read(target).bytes;
    if (!stayed) {
      // Other bytes show on a Windows that gives users their own copies of protected files: the
      // user's was deleted and is in the archive alone now.
      if (left.bytes || left.fault == FileFault::Absent) files.Delete(older);
      return;
    }
    files.Delete(target);  // What stays is not to be found in the other folder too.
  }
  files.Rename(older, target);
}

// Deletes the source only when its copy has its name: at any moment the file is whole in at least
// one place, and so is the file that it replaces until the source is gone.
bool MoveFile(Files& files, const std::string& source, const std::string& folder,
              const std::string& name) {
  const std::string target = folder + "\\" + name;
  const bool replaces = files.Exists(target);
  if (replaces && !files.Rename(target, target + std::string(kOlder))) return false;
  const bool moved = CopyGauge(files, source, folder, name) && files.Delete(source);
  if (replaces || !moved) Settle(files, source, target);
  return moved;
}

// Clean and restore may both have been killed half-way.
void TidyUp(Files& files, const GaugeFolders& folders) {
  files.Delete(folders.gauges + kHalfMoved);
  files.Delete(folders.spare + kHalfMoved);
  const auto older =
      files.List(folders.spare + "\\*" + std::string(kOlder), ListedEntries::PlainFiles);
  for (std::size_t i = 0; older && i < older->size(); ++i) {
    const std::string name = (*older)[i].name.substr(0, (*older)[i].name.size() - kOlder.size());
    Settle(files, folders.gauges + "\\" + name, folders.spare + "\\" + name);
  }
}

bool HasGaugeEnding(std::string_view name) {
  name.remove_prefix(name.size() - std::min<std::size_t>(name.size(), 4));
  return std::any_of(kGaugeEndings.begin(), kGaugeEndings.end(),
                     [&](const char* ending) { return EqualsIgnoringCase(name, ending); });
}

bool IsAmong(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// The archived files of a typed name, spelt as in the archive. A name typed without an extension
// gets either.
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
  if (IsAmong(outcome.restored, name)) return;  // From an archive that is preferred.
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

bool CopyGauge(Files& files, const std::string& source, const std::string& folder,
               const std::string& name) {
  const std::string half_moved = folder + kHalfMoved;
  files.Delete(half_moved);
  if (files.Copy(source, half_moved) && files.Rename(half_moved, folder + "\\" + name)) return true;
  files.Delete(half_moved);
  return false;
}

std::string SpareFileName(const Files& files, const std::string& gauges, const std::string& entry) {
  for (const char* ending : kGaugeEndings) {
    if (files.IsPlainFile(gauges + "\\" + entry + ending)) return entry + ending;
  }
  return {};
}

MoveOutcome ArchiveGauges(Files& files, const GaugeFolders& folders,
                          const std::vector<std::string>& SpareFiles, const StopRequest& stop) {
  if (!files.Exists(folders.spare)) files.MakeFolder(folders.spare);
  // If the archive is a link to the Gauges folder, each file would be copied onto itself and then
  // deleted.
  const bool is_apart = !files.IsSame(folders.gauges, folders.spare);
  if (is_apart) TidyUp(files, folders);
  MoveOutcome outcome;
  for (const std::string& entry : SpareFiles) {
    const std::string name = SpareFileName(files, folders.gauges, entry);
    if (name.empty()) continue;
    if (!outcome.left.empty() || (stop && stop())) {
      outcome.left.push_back(name);
      continue;
    }
    const bool moved =
        is_apart && MoveFile(files, folders.gauges + "\\" + name, folders.spare, name);
    (moved ? outcome.moved : outcome.stayed).push_back(name);
  }
  return outcome;
}

RestoreOutcome RestoreGauges(Files& files, const std::vector<GaugeFolders>& folders,
                             const std::vector<std::string>& names, const StopRequest& stop) {
  RestoreOutcome outcome;
  for (const std::string& typed : names) {
    bool is_archived = false;
    for (const GaugeFolders& pair : folders) {
      if (files.IsSame(pair.gauges, pair.spare)) continue;
      TidyUp(files, pair);
      for (const std::string& name : ArchivedNames(files, pair.spare, typed)) {
        is_archived = true;
        outcome.stopped = outcome.stopped || (stop && stop());
        if (!outcome.stopped) Restore(files, pair, name, outcome);
      }
    }
    if (!is_archived && typed != kEveryGauge) outcome.failed.push_back(typed);
  }
  return outcome;
}

}  // namespace panelkit
