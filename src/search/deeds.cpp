#include "search/deeds.h"

#include <algorithm>

#include "search/gauge_names.h"

namespace panelkit {
namespace {

std::string LackFact(const Hint& hint, const std::string& cabinet) {
  if (hint.wanted.empty()) return cabinet + ", which holds no gauge";
  if (hint.ending_is_wrong) {
    return cabinet + ", whose entry " + hint.nearest + " counts only with a lower-case .xml";
  }
  const std::string fact = cabinet + ", which lacks " + hint.wanted;
  return hint.nearest.empty() ? fact : fact + "; its nearest entry is " + hint.nearest;
}

std::string DamageFact(const Hint& hint, const std::string& cabinet) {
  if (hint.entries == 0) return cabinet + ", which is damaged before its first entry";
  return cabinet + ", which is damaged behind its entry " + std::to_string(hint.entries) + ", " +
         hint.nearest;
}

Deed MisnamedDeed(const Hint& hint) {
  if (hint.is_in_gauges) return {DeedKind::Rename, hint.path, hint.right_name, hint.in_the_way};
  return {DeedKind::Install, hint.path, {}, hint.in_the_way};
}

}  // namespace

std::string AsArgument(std::string_view text, bool is_posix) {
  constexpr std::string_view kPlain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-+.,:/@=";
  const auto is_plain = [&](char c) {
    return static_cast<unsigned char>(c) >= 0x80 || kPlain.find(c) != std::string_view::npos ||
           (c == '\\' && !is_posix);
  };
  if (std::all_of(text.begin(), text.end(), is_plain)) return std::string(text);
  // Between double quotes, these still mean something to a shell of Unix.
  if (!is_posix || (text.find_first_of("$`!\"") == std::string_view::npos &&
                    text.find("\\\\") == std::string_view::npos && !text.ends_with('\\'))) {
    return '"' + std::string(text) + '"';
  }
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string FactOf(const Hint& hint) {
  const std::string name(FileNameOf(hint.path));
  const std::string in_gauges = "Gauges has " + name;
  switch (hint.kind) {
    case HintKind::InSpareGauges:
      return hint.only_holds_name ? "SpareGauges has " + name + ", whose name holds this one"
                                  : "lies in SpareGauges";
    case HintKind::Elsewhere:
      return "lies elsewhere in the simulator";
    case HintKind::Hidden:
      return in_gauges + ", but it is hidden";
    case HintKind::OtherExtension:
      return in_gauges + ", which is neither .gau nor .cab";
    case HintKind::Misnamed:
      return hint.place + " is " + hint.right_name + " under another name";
    case HintKind::SameEntries:
      return hint.place + " holds exactly the gauges that are missing, under another name";
    case HintKind::EndingInPanel:
      return "a panel names files without their ending";
    case HintKind::NotACabinet:
      return in_gauges + "; " + hint.reason;
    case HintKind::LacksEntry:
      return LackFact(hint, in_gauges);
    case HintKind::DamagedCabinet:
      return DamageFact(hint, in_gauges);
    case HintKind::NearName:
      return hint.place + " differs from the required name " + DifferenceText(hint.likeness);
  }
  return {};
}

Deed DeedFor(const Hint& hint) {
  switch (hint.kind) {
    case HintKind::InSpareGauges:
      return {DeedKind::Restore, std::string(FileNameOf(hint.path)), {}, hint.in_the_way};
    case HintKind::Elsewhere:
    case HintKind::SameEntries:
      return {DeedKind::Install, hint.path, {}, hint.in_the_way};
    case HintKind::Hidden:
      return {DeedKind::Unhide, hint.path};
    case HintKind::OtherExtension:
      if (hint.is_archive) return {DeedKind::Install, hint.path};
      return {DeedKind::Rename, hint.path, hint.right_name};
    case HintKind::Misnamed:
      return MisnamedDeed(hint);
    case HintKind::EndingInPanel:
      return {DeedKind::EditPanel, {}, hint.right_name};
    case HintKind::NotACabinet:
      if (!hint.right_name.empty()) return {DeedKind::Rename, hint.path, hint.right_name};
      return {DeedKind::LookFor, {}, {}, hint.in_the_way};
    case HintKind::LacksEntry:
      if (hint.ending_is_wrong) return {DeedKind::Repack, hint.path, hint.right_name};
      return {DeedKind::LookFor, {}, {}, hint.in_the_way};
    case HintKind::DamagedCabinet:
      return {DeedKind::LookFor, {}, {}, hint.in_the_way};
    case HintKind::NearName:
      return {DeedKind::Install, hint.path, hint.required, hint.in_the_way};
  }
  return {};
}

std::string TextOf(const Deed& deed, const CommandStyle& style) {
  const auto argument = [&](const std::string& text) { return AsArgument(text, style.is_posix); };
  const std::string before =
      deed.in_the_way.empty() ? "" : "move Gauges\\" + deed.in_the_way + " away, then ";
  switch (deed.kind) {
    case DeedKind::Restore:
      return before + style.program + " restore " + argument(deed.file);
    case DeedKind::Install:
      return before + style.program + " find " + argument(deed.file) + " --install" +
             (deed.name.empty() ? "" : " --as " + argument(deed.name));
    case DeedKind::LookFor:
      return before + style.program + " find " + style.look_in + " --install";
    case DeedKind::Rename:
      return before + "rename it to " + deed.name;
    case DeedKind::Unhide:
      return (style.is_posix ? "wine attrib -h -s " : "attrib -h -s ") + argument(deed.file);
    case DeedKind::Repack:
      return "pack it anew with " + deed.name;
    case DeedKind::EditPanel:
      return "write " + deed.name + " in the panel";
  }
  return {};
}

std::string LineOf(const Hint& hint, const CommandStyle& style) {
  return FactOf(hint) + ": " + TextOf(DeedFor(hint), style);
}

}  // namespace panelkit
