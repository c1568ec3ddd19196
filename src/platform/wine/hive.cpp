#include "platform/wine/hive.h"

#include <algorithm>

#include "platform/wine/letter_case.h"

namespace panelkit {

namespace {

std::vector<std::string> Parts(std::string_view path) {
  std::vector<std::string> parts;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find('\\'), path.size());
    if (end > 0) parts.emplace_back(path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return parts;
}

/// The path in lower case, in a hive's notation as far as that is plain ASCII.
std::string NotationOf(const std::vector<std::string>& lowered_parts) {
  std::string notation;
  for (const auto& part : lowered_parts) {
    if (!notation.empty()) notation += "\\\\";
    notation += part;
  }
  return notation;
}

bool IsPlain(char c) {
  return c != '\\' && static_cast<unsigned char>(c) < 0x80;
}

/// False where the section's path surely leads elsewhere. Looks at plain letters only, so that the
/// thousands of other keys cost next to nothing.
bool MayLeadTo(std::string_view wanted, std::string_view section_path) {
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (i == section_path.size()) return false;
    const char c = section_path[i];
    if (c == '\\' && wanted[i] == '\\') {
      if (i + 1 < section_path.size() && section_path[i + 1] == '\\') {
        ++i;
        continue;
      }
      return true;
    }
    if (!IsPlain(c) || !IsPlain(wanted[i])) return !(IsPlain(c) && wanted[i] == '\\');
    if ((c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c) != wanted[i]) return false;
  }
  return true;
}

/// Whether a key's parts begin with the wanted ones, case ignored.
bool StartsWith(const std::vector<std::string>& parts, const std::vector<std::string>& wanted) {
  return parts.size() >= wanted.size() &&
         std::equal(wanted.begin(), wanted.end(), parts.begin(),
                    [](const auto& lowered, const auto& part) { return Lowered(part) == lowered; });
}

}  // namespace

void HiveKey::AddSubkey(std::string_view name) {
  // Sections of one key's subkeys stand together, so most repeats follow each other.
  if (subkeys_.empty() || subkeys_.back() != name) subkeys_.emplace_back(name);
}

void HiveKey::SortSubkeys() {
  std::vector<std::pair<std::string, std::string>> by_upper;
  for (auto& name : subkeys_) by_upper.emplace_back(Uppered(name), std::move(name));
  std::stable_sort(by_upper.begin(), by_upper.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  const auto end = std::unique(by_upper.begin(), by_upper.end(),
                               [](const auto& a, const auto& b) { return a.first == b.first; });
  subkeys_.clear();
  for (auto it = by_upper.begin(); it != end; ++it) subkeys_.push_back(std::move(it->second));
}

std::optional<HiveValue> HiveKey::Value(std::string_view name) const {
  const std::string wanted = Lowered(name);
  std::optional<HiveValue> value;
  for (std::string_view rest : bodies_) {
    while (!rest.empty()) {
      const bool is_named = rest.starts_with('"');
      const auto quoted = is_named ? ReadQuoted(rest.substr(1), '"') : std::nullopt;
      const std::size_t length = is_named ? 1 + (quoted ? quoted->length : 0) : 1;
      const bool is_unnamed = rest.starts_with('@');
      if ((is_unnamed && wanted.empty()) || (quoted && Lowered(quoted->text) == wanted)) {
        const bool has_value = rest.substr(length).starts_with('=');
        if (auto read = has_value ? ReadHiveValue(rest.substr(length + 1)) : std::nullopt) {
          value = std::move(read);
        }
      }
      const std::size_t line_end = rest.find('\n');
      rest.remove_prefix(line_end == std::string_view::npos ? rest.size() : line_end + 1);
    }
  }
  return value;
}

Hive::Hive(std::string text) : text_(std::move(text)) {
  const std::string_view all = text_;
  const auto next_section = [all](std::size_t from) {
    // Brackets are rarer than line ends.
    std::size_t found = all.find('[', from + 1);
    while (found != std::string_view::npos && all[found - 1] != '\n') {
      found = all.find('[', found + 1);
    }
    return std::min(found, all.size());
  };
  std::size_t start = all.starts_with('[') ? 0 : next_section(0);
  is_win64_ = all.substr(0, start).find("\n#arch=win64") != std::string_view::npos;
  while (start < all.size()) {
    const std::size_t end = next_section(start);
    const std::string_view section = all.substr(start + 1, end - start - 1);
    const std::size_t line_end = std::min(section.find('\n'), section.size());
    sections_.push_back({section.substr(0, line_end), section.substr(line_end)});
    start = end;
  }
}

std::optional<HiveKey> Hive::Find(std::string_view path) const {
  const std::vector<std::string> wanted = Parts(Lowered(path));
  const std::string notation = NotationOf(wanted);
  HiveKey key;
  bool found = false;
  for (const Section& section : sections_) {
    if (!MayLeadTo(notation, section.path)) continue;
    const auto section_path = ReadQuoted(section.path, ']');
    if (!section_path) continue;
    const std::vector<std::string> parts = Parts(section_path->text);
    if (!StartsWith(parts, wanted)) continue;
    found = true;
    if (parts.size() > wanted.size()) {
      key.AddSubkey(parts[wanted.size()]);
    } else {
      key.bodies_.push_back(section.body);
    }
  }
  if (!found) return std::nullopt;
  key.SortSubkeys();
  return key;
}

}  // namespace panelkit
