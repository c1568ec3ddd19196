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

// The names in one folder, without a look at the files.
class NamesInFolder : public FolderVisitor {
 public:
  Step OnFolder(const std::string&, std::size_t) override {
    return std::exchange(has_begun_, true) ? Step::End : Step::Enter;
  }
  bool Wants(std::string_view name) override {
    names.emplace_back(name);
    return false;
  }
  void OnFile(const FoundFile&) override {}

  std::vector<std::string> names;

 private:
  bool has_begun_ = false;
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

std::string GaugesHas(const std::string& path) {
  return "Gauges has " + std::string(FileNameOf(path));
}

}  // namespace

std::string LineOf(const Hint& hint, const CommandStyle& style) {
  return hint.fact + ": " + TextOf(hint.deed, style);
}

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
  NamesInFolder files;
  machine_.folders.Walk(folders_.gauges, files);
  for (const std::string& name : files.names) {
    in_gauges_.push_back({machine_.text.Lower(name), folders_.gauges + "\\" + name});
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

void HintFinder::AddSatisfying(const RequiredFile& required, std::vector<Hint>& hints) const {
  auto offers = OffersFor(required, pool_, machine_, folders_.gauges);
  offers.resize(std::min(offers.size(), kMostOfAKind));
  for (const Offer& offer : offers) {
    const Candidate& candidate = *offer.candidate;
    const std::string& path = candidate.path;
    const std::string name(FileNameOf(path));
    const std::string in_the_way = offer.name_is_taken ? candidate.name : std::string();
    Hint hint{HintKind::Elsewhere,
              path,
              "lies elsewhere in the simulator",
              {DeedKind::Install, path, {}, in_the_way}};
    if (candidate.is_renamed) {
      hint.kind = HintKind::Misnamed;
      hint.fact = PlaceOf(path) + " is " + candidate.name + " under another name";
      if (IsIn(folders_.gauges, path)) {
        hint.deed = {DeedKind::Rename, path, candidate.name, in_the_way};
      }
    } else if (IsIn(folders_.spare, path)) {
      hint.kind = HintKind::InSpareGauges;
      hint.only_holds_name = !offer.has_exact_name;
      hint.fact = hint.only_holds_name ? "SpareGauges has " + name + ", whose name holds this one"
                                       : "lies in SpareGauges";
      hint.deed = {DeedKind::Restore, name, {}, in_the_way};
    } else if (IsIn(folders_.gauges, path)) {
      hint = {
          HintKind::Hidden, path, GaugesHas(path) + ", but it is hidden", {DeedKind::Unhide, path}};
    }
    hints.push_back(std::move(hint));
  }
}

void HintFinder::AddInPlace(const RequiredFile& required, std::vector<Hint>& hints) const {
  const std::string stem = machine_.text.Lower(required.name);
  auto file = std::lower_bound(
      in_gauges_.begin(), in_gauges_.end(), stem,
      [](const InGauges& other, const std::string& name) { return other.lowered < name; });
  for (; file != in_gauges_.end() && file->lowered.starts_with(stem); ++file) {
    if (machine_.files.IsFolder(file->path)) continue;
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
    hints.push_back({HintKind::EndingInPanel,
                     {},
                     "a panel names files without their ending",
                     {DeedKind::EditPanel, {}, LessExtension(required.name)}});
  }
}

// A bitmap or a text beside a gauge is nothing that would help.
void HintFinder::AddOtherExtension(const RequiredFile& required, const std::string& path,
                                   std::vector<Hint>& hints) const {
  const FileKind kind = KindOf(path);
  const std::string bytes = machine_.files.Read(path).bytes.value_or(std::string());
  Deed deed{DeedKind::Rename, path, required.name};
  if (kind == FileKind::Archive || kind == FileKind::Program) {
    deed = {DeedKind::Install, path};
  } else if (ReasonAgainstGaugeFile(bytes).empty()) {
    deed.name += kGaugeFileExtension;
  } else if (ReasonAgainstCabinet(bytes).empty()) {
    deed.name += kCabinetExtension;
  } else {
    return;
  }
  hints.push_back({HintKind::OtherExtension, path,
                   GaugesHas(path) + ", which is neither .gau nor .cab", std::move(deed)});
}

void HintFinder::AddCabinet(const RequiredFile& required, const std::string& path,
                            std::vector<Hint>& hints) const {
  const Text& text = machine_.text;
  const std::string name(FileNameOf(path));
  const CabinetListing listing = ListCabinet(machine_, path, name);
  if (listing.fault) {
    hints.push_back(OfDamagedCabinet(required, path, listing.entries));
    return;
  }
  for (const std::string& entry : required.entries) {
    Hint hint{HintKind::LacksEntry, path, GaugesHas(path), {DeedKind::LookFor, {}, {}, name}};
    if (NamesFile(entry)) {
      hint.wanted = entry.substr(FilePart(entry).size() + 1);
      hint.nearest = NearestEntry(text, listing.entries, hint.wanted);
    }
    const std::string gauge = WithoutXmlEnding(text, hint.nearest);
    if (hint.wanted.empty()) {
      hint.fact += ", which holds no gauge";
    } else if (text.Lower(gauge) == text.Lower(hint.wanted)) {
      hint.fact += ", whose entry " + hint.nearest + " counts only with a lower-case .xml";
      hint.deed = {DeedKind::Repack, path, gauge + std::string(kGaugeEntryExtension)};
    } else {
      hint.fact += ", which lacks " + hint.wanted;
      if (!hint.nearest.empty()) hint.fact += "; its nearest entry is " + hint.nearest;
    }
    hints.push_back(std::move(hint));
  }
}

// `entries` are those that can be read.
Hint HintFinder::OfDamagedCabinet(const RequiredFile& required, const std::string& path,
                                  const std::vector<std::string>& entries) const {
  Hint hint{HintKind::DamagedCabinet,
            path,
            GaugesHas(path),
            {DeedKind::LookFor, {}, {}, std::string(FileNameOf(path))}};
  const std::string bytes = machine_.files.Read(path).bytes.value_or(std::string());
  if (const std::string reason = ReasonAgainstCabinet(bytes); !reason.empty()) {
    hint.kind = HintKind::NotACabinet;
    hint.fact += "; " + reason;
    if (ReasonAgainstGaugeFile(bytes).empty()) {
      hint.deed = {DeedKind::Rename, path, required.name + std::string(kGaugeFileExtension)};
    }
  } else if (entries.empty()) {
    hint.fact += ", which is damaged before its first entry";
  } else {
    hint.nearest = entries.back();
    hint.fact += ", which is damaged behind its entry " + std::to_string(entries.size()) + ", " +
                 hint.nearest;
  }
  return hint;
}

void HintFinder::AddSameEntries(const RequiredFile& required, std::vector<Hint>& hints) const {
  for (const Candidate* cabinet : pool_.WithExactlyTheGaugesOf(required)) {
    if (named_.contains(machine_.text.Lower(LessExtension(cabinet->name)))) continue;
    const std::string in_the_way = InTheWay(required.name + std::string(kCabinetExtension));
    hints.push_back(
        {HintKind::SameEntries,
         cabinet->path,
         PlaceOf(cabinet->path) + " holds exactly the gauges that are missing, under another name",
         {DeedKind::Install, cabinet->path, {}, in_the_way}});
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
    const std::string& name = near_candidates_[number]->name;
    const std::string& path = near_candidates_[number]->path;
    const std::string right_name = required.name + name.substr(name.size() - kExtensionLength);
    hints.push_back({HintKind::NearName,
                     path,
                     PlaceOf(path) + " differs from the required name " + DifferenceText(likeness),
                     {DeedKind::Install, path, required.name, InTheWay(right_name)}});
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

// The path as it is told.
std::string HintFinder::PlaceOf(const std::string& path) const {
  if (IsIn(folders_.spare, path)) return "SpareGauges\\" + std::string(FileNameOf(path));
  return path.starts_with(FSPath_ + "\\") ? path.substr(FSPath_.size() + 1) : path;
}

}  // namespace panelkit
