#include "gauges/gauge_mover.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <random>
#include <unordered_map>
#include <utility>

#include "gauges/gauge_file.h"
#include "gauges/older_spares.h"
#include "text/matching.h"
#include "text/time_text.h"

namespace panelkit {
namespace {

// The beginning of a file's name in its new folder until the copy is complete.
constexpr const char* kHalfMoved = "\\panelkit.moving";

// Of this process alone: another one must not give this one's half copy its name.
std::string HalfMoved(const std::string& folder) {
  static const std::string name = kHalfMoved + std::to_string(std::random_device()());
  return folder + name;
}

// Behind the name of an archived file that waits until the newer one has taken its place for good.
constexpr std::string_view kOlder = ".panelkit-older";

// Ends a move of `source` to the file `name` in `folder`, or what a killed run left of one: the
// older file is put away once the newer one is in the archive alone, and comes back where that one
// stays in Gauges.
void Settle(Files& files, const std::string& source, const std::string& folder,
            const std::string& name) {
  const std::string target = folder + "\\" + name;
  const std::string older = target + std::string(kOlder);
  if (files.Exists(target)) {
    const FileContent left = files.Read(source);
    const bool stayed = left.bytes && left.bytes == files.Read(target).bytes;
    if (!stayed) {
      // Other bytes show on a Windows that gives users their own copies of protected files: the
      // user's was deleted and is in the archive alone now.
      const bool has_left = left.bytes || left.fault == FileFault::Absent;
      if (has_left && files.Exists(older)) KeepOlder(files, folder, older, name);
      return;
    }
    files.Delete(target);  // If the source could not be deleted, remove the copy.
  }
  files.Rename(older, target);
}

// Deletes the source only when its copy has its name: at any moment the file is whole in at least
// one place, and so is the file that it replaces until the source is gone.
bool MoveFile(Files& files, const std::string& source, const std::string& folder,
              const std::string& name) {
  const std::string target = folder + "\\" + name;
  const std::string older = target + std::string(kOlder);
  const bool replaces = files.Exists(target);
  // Give up if a folder has the name, or an older file still waits to be put into Older.
  if (replaces && (files.IsFolder(target) || files.Exists(older) || !files.Rename(target, older))) {
    return false;
  }
  const bool moved = CopyGauge(files, source, folder, name) && files.Delete(source);
  if (replaces || !moved) Settle(files, source, folder, name);
  return moved;
}

// While it lives, other programs wait that would change either folder: what they have half done is
// not what a kill has left. A simulator may have several archives, an archive several simulators.
using Turn = std::array<std::shared_ptr<void>, 2>;

Turn TakeTurn(Files& files, const GaugeFolders& folders) {
  return {files.Lock(folders.spare), files.Lock(folders.gauges)};
}

// Clean and restore may both have been killed half-way.
void TidyUp(Files& files, const GaugeFolders& folders) {
  [[maybe_unused]] const Turn turn = TakeTurn(files, folders);
  for (const std::string& folder : {folders.gauges, folders.spare, folders.spare + "\\Older"}) {
    for (const std::string& name : FilesNamed(files, folder + kHalfMoved + "*")) {
      files.Delete(folder + "\\" + name);
    }
  }
  for (const std::string& older : FilesNamed(files, folders.spare + "\\*" + std::string(kOlder))) {
    const std::string name = older.substr(0, older.size() - kOlder.size());
    Settle(files, folders.gauges + "\\" + name, folders.spare, name);
  }
}

bool HasGaugesExtension(std::string_view name) {
  return std::any_of(kGaugesExtensions.begin(), kGaugesExtensions.end(),
                     [name](auto extension) { return EndsWithIgnoringCase(name, extension); });
}

bool IsAmong(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// The archived files of a typed name, spelt as in the archive. A name typed without an extension
// gets either.
std::vector<std::string> ArchivedNames(const Files& files, const std::string& spare,
                                       const std::string& typed) {
  if (typed.find_first_of("\\/:") != std::string::npos) return {};
  if (HasGaugesExtension(typed)) return FilesNamed(files, spare + "\\" + typed);
  std::vector<std::string> names;
  for (const std::string_view extension : kGaugesExtensions) {
    const auto found = FilesNamed(files, spare + "\\" + typed + std::string(extension));
    names.insert(names.end(), found.begin(), found.end());
  }
  return names;
}

// Moves a file into the archive, with a record of its name, as it was spelt, written before.
bool Archive(Files& files, const Text& text, const GaugeFolders& folders, const std::string& name,
             const std::string& as_spelt) {
  std::optional<SpareRecord> replaced;
  if (files.Exists(folders.spare + "\\" + name)) {
    const SpareLedger ledger(files, text, folders.spare);
    if (const SpareRecord* record = ledger.Find(name)) replaced = *record;
  }
  AddRecord(files, folders.spare, {TimeText(Now()), files.NativePath(folders.gauges), as_spelt});
  if (MoveFile(files, folders.gauges + "\\" + name, folders.spare, name)) return true;
  if (replaced) AddRecord(files, folders.spare, *replaced);  // The older file is still there.
  return false;
}

// Moves the file `archived` of `folder` to Gauges under `name`.
void Restore(Files& files, const std::string& folder, const std::string& archived,
             const std::string& gauges, const std::string& name, RestoreOutcome& outcome) {
  const std::string source = folder + "\\" + archived;
  if (IsAmong(outcome.restored, name)) return;  // From an archive that is preferred.
  if (!files.Exists(source)) return;            // Another program has restored it meanwhile.
  if (files.Exists(gauges + "\\" + name)) {
    outcome.already_there.push_back(name);
  } else if (MoveFile(files, source, gauges, name)) {
    outcome.restored.push_back(name);
  } else {
    outcome.failed.push_back(name);
  }
}

// The names to restore from one archive. Of a pattern, what came from another simulator stays.
std::vector<std::string> WantedNames(const Files& files, const Text& text,
                                     const SpareLedger& ledger, const GaugeFolders& folders,
                                     const std::string& typed, RestoreChoice choice,
                                     RestoreOutcome& outcome) {
  std::vector<std::string> wanted;
  const bool is_pattern = typed.find_first_of("*?") != std::string::npos;
  const std::string own = text.Lower(files.NativePath(folders.gauges));
  for (const std::string& name : ArchivedNames(files, folders.spare, typed)) {
    const SpareRecord* record = ledger.Find(name);
    const bool is_elsewheres = record != nullptr && text.Lower(record->folder) != own;
    const bool stays = is_elsewheres && is_pattern && choice == RestoreChoice::Own;
    (stays ? outcome.from_elsewhere : wanted).push_back(name);
  }
  return wanted;
}

}  // namespace

GaugeFolders FoldersOf(const std::string& FSPath, const std::string& AppFolder) {
  return {FSPath + "\\Gauges", AppFolder + "\\SpareGauges"};
}

bool CopyGauge(Files& files, const std::string& source, const std::string& folder,
               const std::string& name) {
  const std::string half_moved = HalfMoved(folder);
  if (files.Copy(source, half_moved) && files.Rename(half_moved, folder + "\\" + name)) return true;
  files.Delete(half_moved);
  return false;
}

std::string SpareFileName(const Files& files, const std::string& gauges, const std::string& entry) {
  for (const std::string_view extension : kGaugesExtensions) {
    std::string name = entry + std::string(extension);
    if (files.IsPlainFile(gauges + "\\" + name)) return name;
  }
  return {};
}

MoveOutcome ArchiveGauges(Files& files, const Text& text, const GaugeFolders& folders,
                          const std::vector<std::string>& SpareFiles, const StopRequest& stop) {
  if (!files.Exists(folders.spare)) files.MakeFolder(folders.spare);
  // If the archive is a link to the Gauges folder, each file would be copied onto itself and then
  // deleted.
  const bool is_apart = !files.IsSame(folders.gauges, folders.spare);
  if (is_apart) TidyUp(files, folders);
  std::unordered_map<std::string, std::string> spelt;
  for (std::string& name : FilesNamed(files, folders.gauges + "\\*")) {
    spelt.emplace(text.Lower(name), std::move(name));
  }
  MoveOutcome outcome;
  for (const std::string& entry : SpareFiles) {
    const Turn turn = is_apart ? TakeTurn(files, folders) : Turn();
    const std::string name = SpareFileName(files, folders.gauges, entry);
    if (name.empty()) continue;
    if (!outcome.left.empty() || (stop && stop())) {
      outcome.left.push_back(name);
      continue;
    }
    const auto found = spelt.find(text.Lower(name));
    const std::string& as_spelt = found == spelt.end() ? name : found->second;
    const bool moved = is_apart && Archive(files, text, folders, name, as_spelt);
    (moved ? outcome.moved : outcome.stayed).push_back(name);
  }
  return outcome;
}

std::vector<ArchivedGauge> ArchivedGauges(Files& files, const Text& text,
                                          const std::string& spare) {
  const SpareLedger ledger(files, text, spare);
  std::vector<ArchivedGauge> gauges;
  for (const std::string& name : ArchivedNames(files, spare, kEveryGauge)) {
    const SpareRecord* record = ledger.Find(name);
    gauges.push_back({name, record == nullptr ? SpareRecord() : *record});
  }
  return gauges;
}

RestoreOutcome RestoreGauges(Files& files, const Text& text,
                             const std::vector<GaugeFolders>& folders,
                             const std::vector<std::string>& names, RestoreChoice choice,
                             const StopRequest& stop) {
  RestoreOutcome outcome;
  for (const std::string& typed : names) {
    bool is_archived = false;
    for (const GaugeFolders& pair : folders) {
      if (files.IsSame(pair.gauges, pair.spare)) continue;
      TidyUp(files, pair);
      const SpareLedger ledger(files, text, pair.spare);
      if (choice == RestoreChoice::Older) {
        const Turn turn = TakeTurn(files, pair);
        const std::string older = OlderFileName(files, pair.spare, typed);
        if (older.empty() || is_archived) continue;
        is_archived = true;
        Restore(files, pair.spare + "\\Older", older, pair.gauges, GaugeNameOfOlder(older),
                outcome);
        continue;
      }
      const std::size_t others = outcome.from_elsewhere.size();
      for (const std::string& archived :
           WantedNames(files, text, ledger, pair, typed, choice, outcome)) {
        is_archived = true;
        outcome.stopped = outcome.stopped || (stop && stop());
        const SpareRecord* record = ledger.Find(archived);
        const std::string& name = record == nullptr ? archived : record->name;
        if (outcome.stopped) continue;
        const Turn turn = TakeTurn(files, pair);
        Restore(files, pair.spare, archived, pair.gauges, name, outcome);
      }
      is_archived = is_archived || outcome.from_elsewhere.size() > others;
    }
    if (!is_archived && typed != kEveryGauge) outcome.failed.push_back(typed);
  }
  return outcome;
}

}  // namespace panelkit
