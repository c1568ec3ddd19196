#include "search/content_check.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "search/gauge_names.h"
#include "search/reasons.h"

namespace panelkit {
namespace {

using Candidates = std::vector<const Candidate*>;

// Reads an archive once for all candidates in it, and tells `judge` the content of each that it
// meets.
class ContentReader {
 public:
  using Judge = std::function<void(const Candidate&, const ArchiveContent&)>;

  ContentReader(const ArchiveReader& archives, Judge judge)
      : archives_(archives), judge_(std::move(judge)) {}

  /// All of `candidates` lie in the archive file `path`. Gives the archive's own fault.
  ArchiveFault Read(const std::string& path, const Candidates& candidates) const {
    return archives_.Read(path, Visiting(candidates, 0));
  }

 private:
  OnArchiveEntry Visiting(const Candidates& candidates, std::size_t level) const {
    return [this, &candidates, level](const ArchiveEntry& entry, const ReadArchiveEntry& read) {
      Candidates here;
      std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(here),
                   [&](const Candidate* candidate) {
                     const auto& inside = candidate->inside;
                     if (!entry.is_plain_file || inside[level] != entry.name) return false;
                     return level + 1 < inside.size() || (entry.size == candidate->size &&
                                                          entry.modified == candidate->modified);
                   });
      if (!here.empty()) Take(here, read(), level);
      return true;
    };
  }

  void Take(const Candidates& candidates, ArchiveContent content, std::size_t level) const {
    Candidates deeper;
    for (const Candidate* candidate : candidates) {
      if (level + 1 == candidate->inside.size() || !content.bytes) {
        judge_(*candidate, content);
      } else {
        deeper.push_back(candidate);
      }
    }
    if (!deeper.empty()) {
      archives_.ReadBytes(std::move(*content.bytes), Visiting(deeper, level + 1));
    }
  }

  const ArchiveReader& archives_;
  Judge judge_;
};

}  // namespace

// FNV-1a, of 64 bits.
std::uint64_t HashOf(std::string_view bytes) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  return hash;
}

ContentCheck CheckContents(const Machine& machine,
                           const std::vector<const Candidate*>& candidates) {
  ContentCheck check;
  std::map<std::string, Candidates> by_path;
  std::set<const Candidate*> open;
  for (const Candidate* candidate : candidates) {
    if (open.insert(candidate).second) by_path[candidate->path].push_back(candidate);
  }
  const auto judge = [&](const Candidate& candidate, const ArchiveContent& content) {
    if (open.erase(&candidate) == 0) return;
    const bool is_gauge_file = KindOf(candidate.name) == FileKind::GaugeFile;
    std::string reason = !content.bytes  ? ReasonOf(content.fault)
                         : is_gauge_file ? ReasonAgainstGaugeFile(*content.bytes)
                                         : ReasonAgainstCabinet(*content.bytes);
    if (reason.empty()) {
      check.contents.emplace(&candidate, HashOf(*content.bytes));
    } else {
      check.unfit.push_back({candidate.path, candidate.inside, std::move(reason)});
    }
  };
  const ContentReader reader(machine.archives, judge);
  for (const auto& [path, here] : by_path) {
    ArchiveFault fault = ArchiveFault::None;
    if (!here.front()->inside.empty()) fault = reader.Read(path, here);
    for (const Candidate* candidate : here) {
      if (candidate->inside.empty()) {
        judge(*candidate, {machine.files.Read(path).bytes, ArchiveFault::Unreadable});
      } else {
        // What the reading did not meet.
        judge(*candidate,
              {std::nullopt, fault == ArchiveFault::None ? ArchiveFault::Damaged : fault});
      }
    }
  }
  return check;
}

}  // namespace panelkit
