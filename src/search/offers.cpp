#include "search/offers.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

#include "gauges/gauge_file.h"
#include "gauges/gauge_mover.h"
#include "search/gauge_names.h"
#include "search/reasons.h"

namespace panelkit {
namespace {

auto Rank(const Offer& offer) {
  return std::tuple(offer.has_exact_name, !offer.candidate->is_renamed, offer.entries.size(),
                    offer.candidate->modified);
}

// The content of an entry of an archive; nullopt if it cannot be had.
class EntryFinder {
 public:
  EntryFinder(const Candidate& candidate, const ArchiveReader& archives)
      : candidate_(candidate), archives_(archives) {}

  std::optional<std::string> Find() {
    archives_.Read(candidate_.path, Taking(0));
    if (!content_ || candidate_.inside.size() == 1) return std::move(content_);
    const std::string archive = *std::exchange(content_, std::nullopt);
    archives_.ReadBytes(archive, Taking(1));
    return std::move(content_);
  }

 private:
  // Takes the entry of that level. Names may stand in an archive more than once.
  OnArchiveEntry Taking(std::size_t level) {
    const bool is_last = level + 1 == candidate_.inside.size();
    return [this, level, is_last](const ArchiveEntry& entry, const ReadArchiveEntry& read) {
      if (!entry.is_plain_file || entry.name != candidate_.inside[level]) return true;
      if (is_last && (entry.size != candidate_.size || entry.modified != candidate_.modified)) {
        return true;
      }
      content_ = read().bytes;
      return !content_.has_value();
    };
  }

  const Candidate& candidate_;
  const ArchiveReader& archives_;
  std::optional<std::string> content_;
};

using Doubtful = std::vector<const Candidate*>;

// Reads an archive once for all candidates in it, and tells `judge` the content of each that it
// meets.
class ContentReader {
 public:
  using Judge = std::function<void(const Candidate&, const ArchiveContent&)>;

  ContentReader(const ArchiveReader& archives, Judge judge)
      : archives_(archives), judge_(std::move(judge)) {}

  /// All of `candidates` lie in the archive file `path`. Gives the archive's own fault.
  ArchiveFault Read(const std::string& path, const Doubtful& candidates) const {
    return archives_.Read(path, Visiting(candidates, 0));
  }

 private:
  OnArchiveEntry Visiting(const Doubtful& candidates, std::size_t level) const {
    return [this, &candidates, level](const ArchiveEntry& entry, const ReadArchiveEntry& read) {
      Doubtful here;
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

  void Take(const Doubtful& candidates, const ArchiveContent& content, std::size_t level) const {
    Doubtful deeper;
    for (const Candidate* candidate : candidates) {
      if (level + 1 == candidate->inside.size() || !content.bytes) {
        judge_(*candidate, content);
      } else {
        deeper.push_back(candidate);
      }
    }
    if (!deeper.empty()) archives_.ReadBytes(*content.bytes, Visiting(deeper, level + 1));
  }

  const ArchiveReader& archives_;
  Judge judge_;
};

InstallFault Copy(Files& files, const std::string& source, const std::string& gauges,
                  const std::string& name) {
  return CopyGauge(files, source, gauges, name) ? InstallFault::None : InstallFault::CannotCopy;
}

}  // namespace

std::vector<Offer> OffersFor(const RequiredFile& required, const CandidatePool& pool,
                             const Text& text) {
  std::vector<Offer> offers;
  for (const std::string& entry : required.entries) {
    for (const Candidate* candidate : pool.ThatSatisfy(entry)) {
      auto offer = std::find_if(offers.begin(), offers.end(),
                                [&](const Offer& other) { return other.candidate == candidate; });
      if (offer == offers.end()) {
        const std::string stem = LessExtension(candidate->name);
        const bool exact = text.Lower(stem) == text.Lower(required.name);
        offer = offers.insert(offers.end(), {candidate, exact, {}});
      }
      offer->entries.push_back(entry);
    }
  }
  std::stable_sort(offers.begin(), offers.end(),
                   [](const Offer& a, const Offer& b) { return Rank(a) > Rank(b); });
  // A file that may have two names is offered once, by the better one.
  for (auto offer = offers.begin(); offer != offers.end();) {
    const bool is_there = std::any_of(offers.begin(), offer, [&](const Offer& other) {
      return other.candidate->path == offer->candidate->path &&
             other.candidate->inside == offer->candidate->inside;
    });
    offer = is_there ? offers.erase(offer) : std::next(offer);
  }
  return offers;
}

std::vector<PassedOver> RejectUnfit(const Machine& machine,
                                    const std::vector<RequiredFile>& required,
                                    CandidatePool& pool) {
  std::map<std::string, Doubtful> by_path;
  std::set<const Candidate*> known;
  for (const RequiredFile& file : required) {
    for (const Offer& offer : OffersFor(file, pool, machine.text)) {
      const bool is_gauge_file = KindOf(offer.candidate->name) == FileKind::GaugeFile;
      if (is_gauge_file && known.insert(offer.candidate).second) {
        by_path[offer.candidate->path].push_back(offer.candidate);
      }
    }
  }
  std::vector<PassedOver> passed_over;
  const auto judge = [&](const Candidate& candidate, const ArchiveContent& content) {
    if (known.erase(&candidate) == 0) return;
    std::string reason =
        content.bytes ? ReasonAgainstGaugeFile(*content.bytes) : ReasonOf(content.fault);
    if (reason.empty()) return;
    pool.Reject(&candidate);
    passed_over.push_back({candidate.path, candidate.inside, std::move(reason)});
  };
  const ContentReader reader(machine.archives, judge);
  for (const auto& [path, candidates] : by_path) {
    ArchiveFault fault = ArchiveFault::Damaged;
    if (!candidates.front()->inside.empty()) fault = reader.Read(path, candidates);
    for (const Candidate* candidate : candidates) {
      if (candidate->inside.empty()) {
        judge(*candidate, {machine.files.Read(path).bytes, ArchiveFault::Unreadable});
      } else {
        // What the reading did not meet.
        judge(*candidate,
              {std::nullopt, fault == ArchiveFault::None ? ArchiveFault::Damaged : fault});
      }
    }
  }
  return passed_over;
}

InstallFault Install(const Machine& machine, const Candidate& candidate,
                     const std::string& gauges) {
  if (machine.files.Exists(gauges + "\\" + candidate.name)) return InstallFault::NameTaken;
  if (candidate.inside.empty()) {
    return Copy(machine.files, candidate.path, gauges, candidate.name);
  }
  const auto bytes = EntryFinder(candidate, machine.archives).Find();
  const auto unpacked = bytes ? machine.archives.Unpack(*bytes, candidate.modified) : nullptr;
  if (!unpacked) return InstallFault::CannotRead;
  return Copy(machine.files, unpacked->Path(), gauges, candidate.name);
}

void ForEachChoice(const std::vector<RequiredFile>& required, const CandidatePool& pool,
                   const Machine& machine, const std::string& gauges,
                   const std::function<bool(const Candidate&)>& take) {
  std::set<const Candidate*> taken;
  std::set<const Candidate*> refused;
  std::set<std::string> names;  // Of the taken ones, lowered.
  for (const RequiredFile& file : required) {
    std::set<std::string_view> open(file.entries.begin(), file.entries.end());
    const auto satisfies_open = [&open](const Offer& offer) {
      return std::any_of(offer.entries.begin(), offer.entries.end(),
                         [&open](std::string_view entry) { return open.contains(entry); });
    };
    const auto close = [&open](const Offer& offer) {
      for (const std::string_view entry : offer.entries) open.erase(entry);
    };
    const auto offers = OffersFor(file, pool, machine.text);
    for (const Offer& offer : offers) {
      if (taken.contains(offer.candidate)) close(offer);
    }
    for (const Offer& offer : offers) {
      const Candidate& candidate = *offer.candidate;
      const std::string name = machine.text.Lower(candidate.name);
      if (!satisfies_open(offer) || names.contains(name) || refused.contains(&candidate) ||
          machine.files.Exists(gauges + "\\" + candidate.name)) {
        continue;
      }
      if (!take(candidate)) {
        refused.insert(&candidate);
        continue;
      }
      taken.insert(&candidate);
      names.insert(name);
      close(offer);
    }
  }
}

}  // namespace panelkit
