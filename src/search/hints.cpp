#include "search/hints.h"

#include <algorithm>
#include <utility>

#include "gauges/gauge_file.h"
#include "gauges/name_list.h"
#include "search/cabinet_listing.h"
#include "search/candidate_search.h"
#include "search/gauge_names.h"
#include "search/offers.h"
#include "search/reasons.h"

namespace panelkit {
namespace {

constexpr std::size_t kMostOfAKind = 5;

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

// The entry that is `wanted` but for the ending, or nearly so; empty if none is.
std::string NearestEntry(const Text& text, const std::vector<std::string>& entries,
                         const std::string& wanted) {
  NearNames gauges(text);
  std::vector<const std::string*> added;
  for (const std::string& entry : entries) {
    const std::string gauge = WithoutXmlEnding(text, entry);
    if (gauge.empty()) continue;
    if (text.Lower(gauge) == text.Lower(wanted)) return entry;
    gauges.Add(gauge);
    added.push_back(&entry);
  }
  const auto near = gauges.LikeThis(wanted, [](std::size_t) { return true; });
  return near.empty() ? std::string() : *added[near.front().number];
}

}  // namespace

HintFinder::HintFinder(const Machine& machine, std::string FSPath, GaugeFolders folders,
                       const GaugeReport& report, CandidateSearch::OnProgress on_progress)
    : machine_(machine),
      FSPath_(std::move(FSPath)),
      folders_(std::move(folders)),
      named_(NamedFileParts(report, machine.text)),
      pool_(machine.text),
      near_names_(machine.text) {
  ReadGauges();
  CandidateSearch search(machine_, pool_, SearchDepth::Folders, std::move(on_progress));
  for (const std::string& folder : {folders_.gauges, folders_.spare, FSPath_}) {
    search.LookThrough(folder);
  }
  for (const Candidate& candidate : pool_.All()) {
    const std::string stem = LessExtension(candidate.name);
    if (candidate.is_renamed || named_.contains(machine_.text.Lower(stem))) continue;
    near_names_.Add(stem);
    near_candidates_.push_back(&candidate);
  }
}

void HintFinder::ReadGauges() {
  EveryFile files;
  machine_.folders.Walk(folders_.gauges, files);
  for (std::string& path : files.paths) {
    if (!IsIn(folders_.gauges, path)) continue;
    in_gauges_.push_back({machine_.text.Lower(FileNameOf(path)), std::move(path)});
  }
  std::stable_sort(in_gauges_.begin(), in_gauges_.end(),
                   [](const InGauges& a, const InGauges& b) { return a.lowered < b.lowered; });
}

std::vector<Hint> HintFinder::HintsFor(const RequiredFile& required) const {
  std::vector<Hint> hints;
  AddSatisfying(required, hints);
  AddInPlace(required, hints);
  AddSameEntries(required, hints);
  AddNearNames(required, hints);
  return hints;
}

Hint HintFinder::NewHint(HintKind kind, const RequiredFile& required,
                         const std::string& path) const {
  Hint hint;
  hint.kind = kind;
  hint.path = path;
  hint.place = RelativePath(path);
  hint.required = required.name;
  hint.is_in_gauges = IsIn(folders_.gauges, path);
  return hint;
}

void HintFinder::AddSatisfying(const RequiredFile& required, std::vector<Hint>& hints) const {
  auto offers = OffersFor(required, pool_, machine_, folders_.gauges);
  offers.resize(std::min(offers.size(), kMostOfAKind));
  for (const Offer& offer : offers) {
    const Candidate& candidate = *offer.candidate;
    Hint hint = NewHint(HintKind::Elsewhere, required, candidate.path);
    if (candidate.is_renamed) {
      hint.kind = HintKind::Misnamed;
      hint.right_name = candidate.name;
    } else if (IsIn(folders_.spare, candidate.path)) {
      hint.kind = HintKind::InSpareGauges;
      hint.only_holds_name = !offer.has_exact_name;
    } else if (hint.is_in_gauges) {
      hint.kind = HintKind::Hidden;
    }
    if (hint.kind != HintKind::Hidden && offer.name_is_taken) hint.in_the_way = candidate.name;
    hints.push_back(std::move(hint));
  }
}

void HintFinder::AddInPlace(const RequiredFile& required, std::vector<Hint>& hints) const {
  const std::string stem = machine_.text.Lower(required.name);
  auto file = std::lower_bound(
      in_gauges_.begin(), in_gauges_.end(), stem,
      [](const InGauges& other, const std::string& name) { return other.lowered < name; });
  for (; file != in_gauges_.end() && file->lowered.starts_with(stem); ++file) {
    const std::string_view ending = std::string_view(file->lowered).substr(stem.size());
    if (ending == kCabinetExtension) {
      AddCabinet(required, file->path, hints);
    } else if ((ending.empty() || ending.starts_with('.')) && ending != kGaugeFileExtension &&
               OriginalName(file->lowered).empty()) {
      AddOtherExtension(required, file->path, hints);
    }
  }
  const FileKind kind = KindOf(required.name);
  if (kind == FileKind::GaugeFile || kind == FileKind::Cabinet) {
    Hint hint;
    hint.kind = HintKind::EndingInPanel;
    hint.required = required.name;
    hint.right_name = LessExtension(required.name);
    hints.push_back(std::move(hint));
  }
}

// A bitmap or a text beside a gauge is nothing that would help.
void HintFinder::AddOtherExtension(const RequiredFile& required, const std::string& path,
                                   std::vector<Hint>& hints) const {
  Hint hint = NewHint(HintKind::OtherExtension, required, path);
  const FileKind kind = KindOf(path);
  hint.is_archive = kind == FileKind::Archive || kind == FileKind::Program;
  const std::string bytes = machine_.files.Read(path).bytes.value_or(std::string());
  if (ReasonAgainstGaugeFile(bytes).empty()) {
    hint.right_name = required.name + std::string(kGaugeFileExtension);
  } else if (ReasonAgainstCabinet(bytes).empty()) {
    hint.right_name = required.name + std::string(kCabinetExtension);
  }
  if (hint.is_archive || !hint.right_name.empty()) hints.push_back(std::move(hint));
}

void HintFinder::AddCabinet(const RequiredFile& required, const std::string& path,
                            std::vector<Hint>& hints) const {
  const std::string name(FileNameOf(path));
  const CabinetListing listing = ListCabinet(machine_, path, name);
  if (listing.fault) {
    Hint hint = NewHint(HintKind::DamagedCabinet, required, path);
    hint.entries = listing.entries.size();
    hint.in_the_way = name;
    if (!listing.entries.empty()) hint.nearest = listing.entries.back();
    const std::string bytes = machine_.files.Read(path).bytes.value_or(std::string());
    hint.reason = ReasonAgainstCabinet(bytes);
    if (!hint.reason.empty()) hint.kind = HintKind::NotACabinet;
    if (ReasonAgainstGaugeFile(bytes).empty()) {
      hint.right_name = required.name + std::string(kGaugeFileExtension);
    }
    hints.push_back(std::move(hint));
    return;
  }
  for (const std::string& entry : required.entries) {
    Hint hint = NewHint(HintKind::LacksEntry, required, path);
    hint.in_the_way = name;
    if (NamesFile(entry)) hint.wanted = entry.substr(FilePart(entry).size() + 1);
    hint.nearest = NearestEntry(machine_.text, listing.entries, hint.wanted);
    const std::string nearest_gauge =
        hint.nearest.empty() ? std::string() : WithoutXmlEnding(machine_.text, hint.nearest);
    hint.ending_is_wrong = !nearest_gauge.empty() &&
                           machine_.text.Lower(nearest_gauge) == machine_.text.Lower(hint.wanted);
    if (hint.ending_is_wrong) hint.right_name = nearest_gauge + std::string(kGaugeEntryExtension);
    hints.push_back(std::move(hint));
  }
}

void HintFinder::AddSameEntries(const RequiredFile& required, std::vector<Hint>& hints) const {
  const std::string name = required.name + std::string(kCabinetExtension);
  for (const Candidate* cabinet : pool_.WithExactlyTheGaugesOf(required)) {
    if (named_.contains(machine_.text.Lower(LessExtension(cabinet->name)))) continue;
    Hint hint = NewHint(HintKind::SameEntries, required, cabinet->path);
    hint.in_the_way = InTheWay(name);
    hints.push_back(std::move(hint));
    return;
  }
}

void HintFinder::AddNearNames(const RequiredFile& required, std::vector<Hint>& hints) const {
  const auto would_help = [&](std::size_t number) {
    const Candidate& candidate = *near_candidates_[number];
    return pool_.WouldSatisfyAs(required, candidate) &&
           std::none_of(hints.begin(), hints.end(),
                        [&](const Hint& hint) { return hint.path == candidate.path; });
  };
  for (const auto& [number, likeness] : near_names_.LikeThis(required.name, would_help)) {
    const Candidate& candidate = *near_candidates_[number];
    Hint hint = NewHint(HintKind::NearName, required, candidate.path);
    hint.likeness = likeness;
    const std::string& name = candidate.name;
    hint.in_the_way = InTheWay(required.name + name.substr(name.size() - kExtensionLength));
    hints.push_back(std::move(hint));
  }
}

// The name, if Gauges has a file of it.
std::string HintFinder::InTheWay(const std::string& name) const {
  return machine_.files.Exists(folders_.gauges + "\\" + name) ? name : std::string();
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
