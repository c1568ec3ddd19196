// HintFinder: its findings in words.
#include "search/gauge_names.h"
#include "search/hints.h"

namespace panelkit {
namespace {

std::string DifferenceOf(Likeness likeness) {
  switch (likeness) {
    case Likeness::Separators:
      return R"(in blanks, "_" and "-" alone)";
    case Likeness::OneLetter:
      return "in one letter";
    default:
      return "in two letters";
  }
}

// As shells of both systems take it.
std::string AsArgument(const std::string& name) {
  constexpr std::string_view kSpecial = " !#$%&'()*;<=>?[\\]^`{|}~";
  return name.find_first_of(kSpecial) == std::string::npos ? name : '"' + name + '"';
}

std::string SpareLine(const Hint& hint, const std::string& name) {
  if (hint.name_is_taken) {
    return "SpareGauges has " + name + ", but Gauges has another file of that name";
  }
  const std::string restore = "panelkit-console restore " + AsArgument(name);
  if (hint.only_holds_name) return "a name that holds it lies in SpareGauges: " + restore;
  return "lies in SpareGauges: " + restore;
}

std::string LackLine(const Hint& hint, const std::string& name) {
  if (hint.wanted.empty()) return "Gauges has " + name + ", which holds no gauge";
  if (hint.ending_is_wrong) {
    return "Gauges has " + name + ", whose entry " + hint.nearest +
           " counts only with a lower-case .xml";
  }
  const std::string line = "Gauges has " + name + ", which lacks " + hint.wanted;
  return hint.nearest.empty() ? line : line + "; its nearest entry is " + hint.nearest;
}

std::string DamageLine(const Hint& hint, const std::string& name) {
  if (hint.entries == 0) {
    return "Gauges has " + name + ", which is no cabinet, or damaged before its first entry";
  }
  return "Gauges has " + name + ", which is damaged behind its entry " +
         std::to_string(hint.entries) + ", " + hint.nearest;
}

}  // namespace

std::string HintFinder::LineOf(const Hint& hint) const {
  const std::string name(FileNameOf(hint.path));
  switch (hint.kind) {
    case HintKind::InSpareGauges:
      return SpareLine(hint, name);
    case HintKind::Elsewhere:
      return "lies elsewhere in the simulator: panelkit-console find " + AsArgument(hint.path) +
             " --install";
    case HintKind::Hidden:
      return "Gauges has " + name + ", but it is hidden";
    case HintKind::OtherExtension:
      return "Gauges has " + name + ", which is neither .gau nor .cab: rename it to " +
             hint.right_name;
    case HintKind::Misnamed:
      return RelativePath(hint.path) + " is " + hint.right_name +
             " under another name: rename it to " + hint.right_name;
    case HintKind::EndingInPanel:
      return "a panel names files without their ending: write " + hint.right_name + " for " +
             hint.path + " there";
    case HintKind::NotACabinet:
      return "Gauges has " + name + ", which is no cabinet but a library, as .gau files are";
    case HintKind::LacksEntry:
      return LackLine(hint, name);
    case HintKind::DamagedCabinet:
      return DamageLine(hint, name);
    case HintKind::NearName:
      return RelativePath(hint.path) + " differs from the required name " +
             DifferenceOf(hint.likeness);
  }
  return {};
}

}  // namespace panelkit
