#include "search/candidate_search.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "search/cabinet_listing.h"
#include "search/gauge_names.h"
#include "search/reasons.h"
#include "text/matching.h"

namespace panelkit {
namespace {

/// How many archives may lie in each other.
constexpr std::size_t kDeepestArchive = 2;

// Whether a name leads out of the archive. The reader has taken out "." and empty parts.
bool LeadsOut(std::string_view name) {
  if (name.starts_with('\\') || name.find(':') != std::string_view::npos) return true;
  for (;;) {
    const std::size_t separator = name.find('\\');
    // Windows drops dots and blanks at the end of a name.
    if (name.substr(0, separator).find_first_not_of(". ") == std::string_view::npos) return true;
    if (separator == std::string_view::npos) return false;
    name.remove_prefix(separator + 1);
  }
}

/// Why an entry must not be read; empty if it may be.
std::string ReasonAgainst(const ArchiveEntry& entry) {
  if (!entry.is_plain_file) return "it is a link or no file";
  if (LeadsOut(entry.name)) return "its name leads out of the archive";
  if (!NamesAFile(FileNameOf(entry.name))) return "its name is none that a file can have";
  if (entry.is_encrypted) return ReasonOf(ArchiveFault::Encrypted);
  if (entry.size > kLargestFile) return ReasonOf(ArchiveFault::TooLarge);
  return {};
}

// The kind by the name or, if that says nothing, by the original name.
FileKind FirstKindOf(std::string_view name) {
  const FileKind kind = KindOf(name);
  return kind == FileKind::Other ? KindOf(OriginalName(FileNameOf(name))) : kind;
}

bool HoldsGaugesOrArchives(const CabinetListing& listing) {
  return std::any_of(listing.entries.begin(), listing.entries.end(),
                     [](const std::string& name) { return FirstKindOf(name) != FileKind::Other; });
}

}  // namespace

/// A file on disk, or an entry of an archive.
struct CandidateSearch::Place {
  Candidate candidate;
  std::vector<std::string> other_names = {};  ///< File names that it may have in its archive.

  Place Entry(const ArchiveEntry& entry) const {
    Place place{candidate};
    place.candidate.inside.push_back(entry.name);
    place.candidate.name = FileNameOf(entry.name);
    place.candidate.size = entry.size;
    place.candidate.modified = entry.modified;
    for (const std::string& name : entry.other_names) {
      if (NamesAFile(FileNameOf(name))) place.other_names.emplace_back(FileNameOf(name));
    }
    return place;
  }

  /// The place as a candidate: under each spelling of its name, and under the name that it had
  /// before a careless renaming.
  std::vector<Candidate> Candidates(FileKind kind) const {
    std::vector<Candidate> candidates;
    const auto add = [&](std::string name, bool is_renamed) {
      if (KindOf(name) != kind || !NamesAFile(name)) return;
      candidates.push_back(candidate);
      candidates.back().name = std::move(name);
      candidates.back().is_renamed = is_renamed;
    };
    add(candidate.name, false);
    add(OriginalName(candidate.name), true);
    for (const std::string& name : other_names) {
      add(name, false);
      add(OriginalName(name), true);
    }
    return candidates;
  }
  std::size_t Depth() const { return candidate.inside.size(); }
};

/// Looks at what may hold gauges in a folder and below or, with a pattern, at the files of the
/// folder itself whose names match it.
class CandidateSearch::Visitor : public FolderVisitor {
 public:
  explicit Visitor(CandidateSearch& search, std::optional<std::string> pattern = {})
      : search_(search), pattern_(std::move(pattern)), before_(search.progress_.files) {}

  Step OnFolder(const std::string& folder, std::size_t files) override {
    const bool is_first = top_.empty();
    if (is_first) top_ = folder;
    if (pattern_) return is_first ? Step::Enter : Step::End;
    search_.progress_.files = before_ + files;
    if (!search_.GoesOn()) return Step::End;
    return search_.HasSearched(folder) ? Step::Skip : Step::Enter;
  }
  bool Wants(std::string_view name) override {
    if (pattern_) return MatchesWildcard(*pattern_, search_.machine_.text.Lower(name));
    const FileKind kind = FirstKindOf(name);
    const bool is_gauges = kind == FileKind::GaugeFile || kind == FileKind::Cabinet;
    return is_gauges || (kind != FileKind::Other && search_.depth_ == SearchDepth::Archives);
  }
  void OnFile(const FoundFile& file) override {
    has_met_ = true;
    if (pattern_) ++search_.progress_.files;
    if (search_.GoesOn()) search_.LookAt(file);
  }

  /// The folder where the walk began; empty if there was none.
  const std::string& Top() const { return top_; }

  bool HasMet() const { return has_met_; }

 private:
  CandidateSearch& search_;
  std::optional<std::string> pattern_;  // Lowered.
  std::size_t before_;
  std::string top_;
  bool has_met_ = false;
};

bool CandidateSearch::LookThrough(const std::string& path) {
  Visitor visitor(*this);
  const auto outcome = machine_.folders.Walk(path, visitor);
  if (outcome.unreadable > 0) {
    passed_over_.push_back({path, {}, "a folder in it cannot be read", outcome.unreadable - 1});
  }
  if (outcome.is_folder) searched_.push_back(visitor.Top());
  const bool is_there = outcome.is_folder || LookAtNamed(path);
  ++progress_.places;
  return is_there;
}

bool CandidateSearch::LookAtNamed(const std::string& path) {
  const std::string_view name = FileNameOf(path);
  Visitor visitor(*this, machine_.text.Lower(name));
  machine_.folders.Walk(path.substr(0, path.size() - name.size()), visitor);
  const bool is_pattern = name.find_first_of("*?") != std::string_view::npos;
  if (visitor.HasMet() && !is_pattern && FirstKindOf(name) == FileKind::Other) {
    passed_over_.push_back({path, {}, "by its name it is no gauge, cabinet or archive"});
  }
  return visitor.HasMet();
}

// A walk may come to a folder that was searched by itself, and spell its name in other case.
bool CandidateSearch::HasSearched(const std::string& folder) const {
  const std::string name = machine_.text.Lower(FileNameOf(folder));
  return std::any_of(searched_.begin(), searched_.end(), [&](const std::string& other) {
    return machine_.text.Lower(FileNameOf(other)) == name && machine_.files.IsSame(folder, other);
  });
}

void CandidateSearch::LookAt(const FoundFile& file) {
  if (!seen_.insert(file.path).second) return;
  const std::string name(FileNameOf(file.path));
  const Place place{{name, file.path, {}, file.size, file.modified}};
  switch (FirstKindOf(name)) {
    case FileKind::GaugeFile:
      return AddGaugeFile(place);
    case FileKind::Cabinet:
      return LookIntoCabinet(place, file.path);
    case FileKind::Archive:
    case FileKind::Program:
      return LookIntoArchive(place, [&](const OnArchiveEntry& visit) {
        return machine_.archives.Read(file.path, visit);
      });
    case FileKind::Other:
      return;
  }
}

void CandidateSearch::AddGaugeFile(const Place& place) {
  for (Candidate& candidate : place.Candidates(FileKind::GaugeFile)) {
    pool_.AddGaugeFile(std::move(candidate));
  }
}

void CandidateSearch::LookIntoCabinet(const Place& cabinet, const std::string& path) {
  CabinetListing listing;
  for (const Candidate& candidate : cabinet.Candidates(FileKind::Cabinet)) {
    listing = ListCabinet(machine_, path, candidate.name);
    pool_.AddCabinet(candidate, listing.rows);
  }
  if (listing.fault && listing.entries.empty()) {
    const std::string reason =
        ReasonAgainstCabinet(machine_.files.Read(path).bytes.value_or(std::string()));
    PassOver(cabinet, reason.empty() ? "it is damaged before its first entry" : reason);
  } else if (listing.fault) {
    PassOver(cabinet, "it is damaged behind its entry " + std::to_string(listing.entries.size()));
  } else if (listing.rows.Overflowed()) {
    PassOver(cabinet, "it holds more than 32,767 gauges");
  } else if (depth_ == SearchDepth::Archives && HoldsGaugesOrArchives(listing)) {
    LookIntoArchive(
        cabinet, [&](const OnArchiveEntry& visit) { return machine_.archives.Read(path, visit); });
  }
}

void CandidateSearch::LookIntoArchive(const Place& archive, const ReadArchive& read_archive) {
  if (archive.Depth() == kDeepestArchive) {
    return PassOver(archive, "it lies too deep in other archives");
  }
  ++progress_.archives;
  const ArchiveFault fault =
      read_archive([&](const ArchiveEntry& entry, const ReadArchiveEntry& read) {
        return LookAtEntry(archive, entry, read);
      });
  // Most programs are no archives, which needs no word.
  const bool is_plain_program =
      fault == ArchiveFault::NoArchive && KindOf(archive.candidate.name) == FileKind::Program;
  if (fault != ArchiveFault::None && !is_plain_program) PassOver(archive, ReasonOf(fault));
}

bool CandidateSearch::LookAtEntry(const Place& archive, const ArchiveEntry& entry,
                                  const ReadArchiveEntry& read) {
  const FileKind kind = FirstKindOf(entry.name);
  if (kind == FileKind::Other) return GoesOn();
  const Place place = archive.Entry(entry);
  if (std::string reason = ReasonAgainst(entry); !reason.empty()) {
    PassOver(place, std::move(reason));
  } else if (kind == FileKind::GaugeFile) {
    AddGaugeFile(place);
  } else {
    OpenEntry(place, read);
  }
  return GoesOn();
}

void CandidateSearch::OpenEntry(const Place& place, const ReadArchiveEntry& read) {
  ArchiveContent content = read();
  if (!content.bytes) return PassOver(place, ReasonOf(content.fault));
  if (FirstKindOf(place.candidate.name) != FileKind::Cabinet) {
    return LookIntoArchive(place, [&](const OnArchiveEntry& visit) {
      return machine_.archives.ReadBytes(std::move(*content.bytes), visit);
    });
  }
  const auto file = machine_.archives.Unpack(*content.bytes, place.candidate.modified);
  if (!file) return PassOver(place, ReasonOf(ArchiveFault::NoRoom));
  content.bytes.reset();
  LookIntoCabinet(place, file->Path());
}

void CandidateSearch::PassOver(const Place& place, std::string reason) {
  const Candidate& what = place.candidate;
  // A hostile archive may have thousands of such entries.
  if (!what.inside.empty()) {
    const auto same =
        std::find_if(passed_over_.begin(), passed_over_.end(), [&](const PassedOver& other) {
          return other.path == what.path && !other.inside.empty() && other.reason == reason;
        });
    if (same != passed_over_.end()) {
      ++same->others;
      return;
    }
  }
  passed_over_.push_back({what.path, what.inside, std::move(reason)});
}

bool CandidateSearch::GoesOn() {
  if (!ended_ && on_progress_) ended_ = !on_progress_(progress_);
  return !ended_;
}

}  // namespace panelkit
