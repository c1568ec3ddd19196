#include "search/deeds.h"

#include <algorithm>

namespace panelkit {

CommandStyle CommandStyle::Of(const Files& files) {
  CommandStyle style;
  style.is_posix = files.NativePath(R"(C:\)") != R"(C:\)";
  return style;
}

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

}  // namespace panelkit
