#include "search/candidate_search.h"

#include <algorithm>
#include <utility>

#include "cabinet/entry_name.h"
#include "search/cabinet_listing.h"
#include "search/gauge_names.h"

namespace panelkit {
namespace {

/// How many archives may lie in each other.
constexpr std::size_t kDeepestArchive = 2;

std::string ReasonOf(ArchiveFault fault) {
  switch (fault) {
    case ArchiveFault::None:
      return {};
    case ArchiveFault::Unreadable:
      return "it cannot be read";
    case ArchiveFault::Damaged:
      return "it is damaged";
    case ArchiveFault::Encrypted:
      return "it is encrypted";
    case ArchiveFault::TooLarge:
      return "it would unpack to far more than a gauge has";
  }
  return {};
}

/// Why an entry must not be read; empty if it may be.
std::string ReasonAgainst(const ArchiveEntry& entry) {
  if (!entry.is_plain_file) return "it is a link or no file";
  if (!IsSafeEntryName(entry.name)) return "its name leads out of the archive or names no file";
  if (entry.is_encrypted) return ReasonOf(ArchiveFault::Encrypted);
  if (entry.size > kLargestFile) return ReasonOf(ArchiveFault::TooLarge);
  return {};
}

bool HoldsGaugesOrArchives(const CabinetListing& listing) {
  return std::any_of(listing.entries.begin(), listing.entries.end(),
                     [](const std::string& name) { return KindOf(name) != FileKind::Other; });
}

}  // namespace

/// A file on disk, or an entry of an archive.
struct CandidateSearch::Place {
  Candidate candidate;
  std::string_view archive_bytes = {};  ///< Of an archive that is an entry itself.

  Place Entry(const ArchiveEntry& entry) const {
    Place place{candidate};
    place.candidate.inside.push_back(entry.name);
    place.candidate.name = FileNameOf(entry.name);
    place.candidate.size = entry.size;
    place.candidate.modified = entry.modified;
    return place;
  }
  std::size_t Depth() const { return candidate.inside.size(); }
};

class CandidateSearch::Visitor : public FolderVisitor {
 public:
  explicit Visitor(CandidateSearch& search) : search_(search), before_(search.progress_.files) {}

  bool OnFolder(std::size_t files) override {
    search_.progress_.files = before_ + files;
    return search_.GoesOn();
  }
  bool Wants(std::string_view name) override {
    const FileKind kind = KindOf(name);
    return kind != FileKind::Other &&
           (kind != FileKind::Archive || search_.depth_ == SearchDepth::Archives);
  }
  void OnFile(const FoundFile& file) override {
    if (!search_.ended_) search_.LookAt(file);
  }

 private:
  CandidateSearch& search_;
  std::size_t before_;
};

bool CandidateSearch::LookThrough(const std::string& folder) {
  Visitor visitor(*this);
  const auto outcome = machine_.folders.Walk(folder, visitor);
  if (outcome.unreadable > 0) {
    passed_over_.push_back({folder, {}, "a folder in it cannot be read", outcome.unreadable - 1});
  }
  return outcome.is_folder;
}

void CandidateSearch::LookAt(const FoundFile& file) {
  if (!seen_.insert(file.path).second) return;
  const std::string name(FileNameOf(file.path));
  const Place place{{name, file.path, {}, file.size, file.modified}};
  switch (KindOf(name)) {
    case FileKind::GaugeFile:
      return pool_.AddGaugeFile(place.candidate);
    case FileKind::Cabinet:
      return LookIntoCabinet(place, file.path);
    case FileKind::Archive:
      return LookIntoArchive(place);
    case FileKind::Other:
      return;
  }
}

void CandidateSearch::LookIntoCabinet(const Place& cabinet, const std::string& path) {
  const CabinetListing listing = ListCabinet(machine_, path, cabinet.candidate.name);
  pool_.AddCabinet(cabinet.candidate, listing.rows);
  if (listing.fault) {
    PassOver(cabinet, "it is damaged behind its entry " + std::to_string(listing.entries.size()));
  } else if (listing.rows.Overflowed()) {
    PassOver(cabinet, "it holds more than 32,767 gauges");
  } else if (depth_ == SearchDepth::Archives && HoldsGaugesOrArchives(listing)) {
    LookIntoArchive(cabinet);
  }
}

void CandidateSearch::LookIntoArchive(const Place& archive) {
  if (archive.Depth() == kDeepestArchive) {
    return PassOver(archive, "it lies too deep in other archives");
  }
  ++progress_.archives;
  const OnArchiveEntry visit = [&](const ArchiveEntry& entry, const ReadArchiveEntry& read) {
    return LookAtEntry(archive, entry, read);
  };
  const ArchiveFault fault = archive.Depth() == 0
                                 ? machine_.archives.Read(archive.candidate.path, visit)
                                 : machine_.archives.ReadBytes(archive.archive_bytes, visit);
  if (fault != ArchiveFault::None) PassOver(archive, ReasonOf(fault));
}

bool CandidateSearch::LookAtEntry(const Place& archive, const ArchiveEntry& entry,
                                  const ReadArchiveEntry& read) {
  const FileKind kind = KindOf(entry.name);
  if (kind == FileKind::Other) return GoesOn();
  const Place place = archive.Entry(entry);
  if (std::string reason = ReasonAgainst(entry); !reason.empty()) {
    PassOver(place, std::move(reason));
  } else if (kind == FileKind::GaugeFile) {
    pool_.AddGaugeFile(place.candidate);
  } else {
    OpenEntry(place, read);
  }
  return GoesOn();
}

void CandidateSearch::OpenEntry(const Place& place, const ReadArchiveEntry& read) {
  const ArchiveContent content = read();
  if (!content.bytes) return PassOver(place, ReasonOf(content.fault));
  Place opened = place;
  opened.archive_bytes = *content.bytes;
  if (KindOf(place.candidate.name) == FileKind::Archive) return LookIntoArchive(opened);
  const auto file = machine_.archives.Unpack(*content.bytes, place.candidate.modified);
  if (!file) return PassOver(place, "there is no room to unpack it");
  LookIntoCabinet(opened, file->Path());
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
