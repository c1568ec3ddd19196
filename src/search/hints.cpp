#include "search/hints.h"

#include <algorithm>
#include <utility>

#include "gauges/gauge_file.h"
#include "gauges/name_list.h"
#include "search/cabinet_listing.h"
#include "search/candidate_search.h"
#include "search/gauge_names.h"
#include "search/offers.h"

namespace panelkit {
namespace {

constexpr std::size_t kMostOfAKind = 5;
constexpr std::size_t kMostNearNames = 3;

// A path for comparing: lowered, each backslash once.
std::string Comparable(const Text& text, std::string_view path) {
  std::string comparable = text.Lower(path);
  const auto is_doubled = [](char a, char b) { return a == '\\' && b == '\\'; };
  comparable.erase(std::unique(comparable.begin(), comparable.end(), is_doubled), comparable.end());
  return comparable;
}

class EveryFile : public FolderVisitor {
 public:
  bool OnFolder(std::size_t) override { return true; }
  bool Wants(std::string_view) override { return true; }
  void OnFile(const FoundFile& file) override { paths.push_back(file.path); }

  std::vector<std::string> paths;
};

std::string WithoutXmlEnding(const Text& text, std::string_view entry) {
  const std::string_view file = FileNameOf(entry);
  return text.Lower(file).ends_with(kGaugeEntryExtension) ? LessExtension(file) : std::string();
}

// The entry whose name takes the fewest edits; empty if none shares a letter.
std::string NearestEntry(const Text& text, const std::vector<std::string>& entries,
                         const std::string& wanted) {
  const std::string lowered = text.Lower(wanted);
  std::string nearest;
  std::size_t limit = lowered.empty() ? 0 : lowered.size() - 1;
  for (const std::string& entry : entries) {
    const std::string gauge = text.Lower(WithoutXmlEnding(text, entry));
    const auto distance = gauge.empty() ? std::nullopt : EditDistance(gauge, lowered, limit);
    if (!distance || (!nearest.empty() && *distance >= limit)) continue;
    nearest = entry;
    limit = *distance;
  }
  return nearest;
}

}  // namespace

HintFinder::HintFinder(const Machine& machine, std::string FSPath, GaugeFolders folders)
    : machine_(machine),
      FSPath_(std::move(FSPath)),
      folders_(std::move(folders)),
      pool_(machine.text) {
  ReadGauges();
  CandidateSearch search(machine_, pool_, SearchDepth::Folders, {});
  search.LookThrough(folders_.spare);
  search.LookThrough(FSPath_);
  for (const Candidate& candidate : pool_.All()) {
    if (candidate.is_renamed || IsIn(folders_.gauges, candidate.path)) continue;
    gauge_files_.push_back(
        {candidate.path, ComparableName(machine_.text, LessExtension(candidate.name))});
  }
}

void HintFinder::ReadGauges() {
  EveryFile files;
  machine_.folders.Walk(folders_.gauges, files);
  for (std::string& path : files.paths) {
    if (!IsIn(folders_.gauges, path)) continue;
    const std::string_view name = FileNameOf(path);
    const FileKind kind = KindOf(name);
    if (kind == FileKind::GaugeFile || kind == FileKind::Cabinet) {
      gauge_files_.push_back({path, ComparableName(machine_.text, LessExtension(name))});
    }
    in_gauges_.push_back(std::move(path));
  }
}

std::vector<Hint> HintFinder::HintsFor(const RequiredFile& required) const {
  std::vector<Hint> hints;
  AddSatisfying(required, hints);
  AddInPlace(required, hints);
  AddNearNames(required, hints);
  return hints;
}

void HintFinder::AddSatisfying(const RequiredFile& required, std::vector<Hint>& hints) const {
  auto offers = OffersFor(required, pool_, machine_.text);
  offers.resize(std::min(offers.size(), kMostOfAKind));
  for (const Offer& offer : offers) {
    const std::string& path = offer.candidate->path;
    Hint hint{HintKind::Elsewhere, path};
    if (offer.candidate->is_renamed) {
      hint.kind = HintKind::Misnamed;
      hint.right_name = offer.candidate->name;
    } else if (IsIn(folders_.spare, path)) {
      hint.kind = HintKind::InSpareGauges;
      hint.only_holds_name = !offer.has_exact_name;
      hint.name_is_taken = machine_.files.Exists(folders_.gauges + "\\" + offer.candidate->name);
    } else if (IsIn(folders_.gauges, path)) {
      hint.kind = HintKind::Hidden;
    }
    hints.push_back(std::move(hint));
  }
}

void HintFinder::AddInPlace(const RequiredFile& required, std::vector<Hint>& hints) const {
  const std::string stem = machine_.text.Lower(required.name);
  for (const std::string& path : in_gauges_) {
    const std::string name = machine_.text.Lower(FileNameOf(path));
    if (name == stem + std::string(kCabinetExtension)) {
      AddCabinet(required, path, hints);
    } else if (name.starts_with(stem + ".") && name != stem + std::string(kGaugeFileExtension) &&
               OriginalName(name).empty()) {
      Hint hint{HintKind::OtherExtension, path};
      hint.right_name = required.name + std::string(kGaugeFileExtension);
      hints.push_back(std::move(hint));
    }
  }
  const FileKind kind = KindOf(required.name);
  if (kind == FileKind::GaugeFile || kind == FileKind::Cabinet) {
    Hint hint{HintKind::EndingInPanel, required.name};
    hint.right_name = LessExtension(required.name);
    hints.push_back(std::move(hint));
  }
}

void HintFinder::AddCabinet(const RequiredFile& required, const std::string& path,
                            std::vector<Hint>& hints) const {
  const CabinetListing listing = ListCabinet(machine_, path, std::string(FileNameOf(path)));
  if (listing.fault) {
    const auto content = machine_.files.Read(path).bytes;
    const bool is_library = content && content->starts_with("MZ");
    Hint hint{is_library ? HintKind::NotACabinet : HintKind::DamagedCabinet, path};
    hint.entries = listing.entries.size();
    if (!listing.entries.empty()) hint.nearest = listing.entries.back();
    hints.push_back(std::move(hint));
    return;
  }
  for (const std::string& entry : required.entries) {
    Hint hint{HintKind::LacksEntry, path};
    if (NamesFile(entry)) hint.wanted = entry.substr(FilePart(entry).size() + 1);
    hint.nearest = NearestEntry(machine_.text, listing.entries, hint.wanted);
    hint.ending_is_wrong = !hint.nearest.empty() &&
                           machine_.text.Lower(WithoutXmlEnding(machine_.text, hint.nearest)) ==
                               machine_.text.Lower(hint.wanted);
    hints.push_back(std::move(hint));
  }
}

void HintFinder::AddNearNames(const RequiredFile& required, std::vector<Hint>& hints) const {
  const ComparableName wanted(machine_.text, required.name);
  std::vector<Hint> near;
  for (const NamedFile& file : gauge_files_) {
    const Likeness likeness = wanted.LikenessTo(file.stem);
    if (likeness == Likeness::None) continue;
    Hint hint{HintKind::NearName, file.path};
    hint.likeness = likeness;
    near.push_back(std::move(hint));
  }
  std::stable_sort(near.begin(), near.end(),
                   [](const Hint& a, const Hint& b) { return a.likeness < b.likeness; });
  near.resize(std::min(near.size(), kMostNearNames));
  if (!near.empty() && near.front().likeness != Likeness::TwoLetters) {
    std::erase_if(near, [](const Hint& hint) { return hint.likeness == Likeness::TwoLetters; });
  }
  hints.insert(hints.end(), near.begin(), near.end());
}

// Whether a file lies in the folder itself.
bool HintFinder::IsIn(const std::string& folder, const std::string& path) const {
  return Comparable(machine_.text, path.substr(0, path.rfind('\\'))) ==
         Comparable(machine_.text, folder);
}

std::string HintFinder::RelativePath(const std::string& path) const {
  if (IsIn(folders_.spare, path)) return "SpareGauges\\" + std::string(FileNameOf(path));
  return path.starts_with(FSPath_ + "\\") ? path.substr(FSPath_.size() + 1) : path;
}

}  // namespace panelkit
