#include "search/content_check.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <utility>

#include "search/gauge_names.h"
#include "search/reasons.h"

namespace panelkit {
namespace {

using Candidates = std::vector<const Candidate*>;

/// Reads an archive once for all candidates in it.
class ContentReader {
 public:
  /// Tells `take` of each candidate in `open` that it meets, and takes that out of `open`.
  ContentReader(const ArchiveReader& archives, std::set<const Candidate*>& open,
                const StopRequest& stop, const OnContent& take)
      : archives_(archives), open_(open), stop_(stop), take_(take) {}

  /// The visitor of an archive that lies in `level` others. All of `candidates` lie in it.
  OnArchiveEntry Visiting(const Candidates& candidates, std::size_t level) const {
    std::multimap<std::string_view, const Candidate*> awaited;  // By the entry's name.
    for (const Candidate* candidate : candidates) {
      awaited.emplace(candidate->inside[level], candidate);
    }
    return [this, awaited = std::move(awaited), level](const ArchiveEntry& entry,
                                                       const ReadArchiveEntry& read) mutable {
      if (stop_()) return false;
      const auto [first, last] = awaited.equal_range(entry.name);
      Candidates here;
      for (auto one = first; one != last; ++one) {
        if (IsAt(entry, *one->second, level)) here.push_back(one->second);
      }
      if (!here.empty()) Take(here, read(), level);
      for (auto one = first; one != last;) {
        one = open_.contains(one->second) ? std::next(one) : awaited.erase(one);
      }
      return !awaited.empty();
    };
  }

 private:
  // Whether the entry, which has the right name, is the candidate or an archive that leads to it.
  static bool IsAt(const ArchiveEntry& entry, const Candidate& candidate, std::size_t level) {
    const bool is_archive = level + 1 < candidate.inside.size();
    return entry.is_plain_file &&
           (is_archive || (entry.size == candidate.size && entry.modified == candidate.modified));
  }

  void Take(const Candidates& candidates, ArchiveContent content, std::size_t level) const {
    Candidates deeper;
    for (const Candidate* candidate : candidates) {
      if (level + 1 < candidate->inside.size() && content.bytes) {
        deeper.push_back(candidate);
      } else {
        open_.erase(candidate);
        take_(*candidate, content);
      }
    }
    if (deeper.empty()) return;
    archives_.ReadBytes(std::move(*content.bytes), Visiting(deeper, level + 1));
  }

  const ArchiveReader& archives_;
  std::set<const Candidate*>& open_;
  const StopRequest& stop_;
  const OnContent& take_;
};

}  // namespace

void ReadCandidates(const Machine& machine, const std::vector<const Candidate*>& candidates,
                    const StopRequest& stop, const OnContent& take) {
  std::set<const Candidate*> open(candidates.begin(), candidates.end());
  // A cabinet may be one itself and hold others.
  std::map<std::pair<std::string, bool>, Candidates> files;
  for (const Candidate* candidate : candidates) {
    files[{candidate->path, !candidate->inside.empty()}].push_back(candidate);
  }
  for (const auto& [file, here] : files) {
    if (stop()) return;
    const auto& [path, is_archive] = file;
    ArchiveContent rest;  // Of what the reading does not meet.
    if (is_archive) {
      const ContentReader reader(machine.archives, open, stop, take);
      rest.fault = machine.archives.Read(path, reader.Visiting(here, 0));
      if (rest.fault == ArchiveFault::None) rest.fault = ArchiveFault::Damaged;
    } else {
      rest = {machine.files.Read(path).bytes, ArchiveFault::Unreadable};
    }
    if (stop()) return;
    for (const Candidate* candidate : here) {
      if (open.erase(candidate) > 0) take(*candidate, rest);
    }
  }
}

// FNV-1a, of 64 bits.
std::uint64_t HashOf(std::string_view bytes) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  return hash;
}

ContentCheck CheckContents(const Machine& machine, const std::vector<const Candidate*>& candidates,
                           const StopRequest& stop) {
  ContentCheck check;
  ReadCandidates(machine, candidates, stop,
                 [&](const Candidate& candidate, const ArchiveContent& content) {
                   const bool is_gauge_file = KindOf(candidate.name) == FileKind::GaugeFile;
                   std::string reason = !content.bytes  ? ReasonOf(content.fault)
                                        : is_gauge_file ? ReasonAgainstGaugeFile(*content.bytes)
                                                        : ReasonAgainstCabinet(*content.bytes);
                   if (reason.empty()) {
                     check.contents.emplace(&candidate, HashOf(*content.bytes));
                   } else {
                     check.unfit.push_back({candidate.path, candidate.inside, std::move(reason)});
                   }
                 });
  return check;
}

}  // namespace panelkit
