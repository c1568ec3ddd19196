#include "search/offers.h"

#include <algorithm>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

#include "gauges/gauge_file.h"
#include "gauges/gauge_mover.h"

namespace panelkit {
namespace {

auto Rank(const Offer& offer) {
  return std::tuple(offer.has_exact_name, offer.entries.size(), offer.candidate->modified);
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
  return offers;
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
