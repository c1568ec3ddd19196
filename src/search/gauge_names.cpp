#include "search/gauge_names.h"

#include <algorithm>
#include <array>

namespace panelkit {
namespace {

constexpr std::array<std::string_view, 12> kArchiveEndings{
    ".zip", ".7z",   ".rar", ".tar",    ".tar.gz",  ".tar.bz2",
    ".tgz", ".tbz2", ".txz", ".tar.xz", ".tar.zst", ".tar.lzma"};

bool EndsWith(std::string_view name, std::string_view small_ending) {
  if (name.size() <= small_ending.size()) return false;
  const auto is_same = [](char a, char b) {
    return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
  };
  name.remove_prefix(name.size() - small_ending.size());
  return std::equal(name.begin(), name.end(), small_ending.begin(), is_same);
}

}  // namespace

FileKind KindOf(std::string_view name) {
  if (EndsWith(name, ".gau")) return FileKind::GaugeFile;
  if (EndsWith(name, ".cab")) return FileKind::Cabinet;
  const bool is_archive =
      std::any_of(kArchiveEndings.begin(), kArchiveEndings.end(),
                  [&](std::string_view ending) { return EndsWith(name, ending); });
  return is_archive ? FileKind::Archive : FileKind::Other;
}

std::string_view FileNameOf(std::string_view path) {
  return path.substr(path.rfind('\\') + 1);
}

std::string LessExtension(std::string_view name) {
  constexpr std::size_t kExtension = 4;
  return std::string(name.substr(0, name.size() - kExtension));
}

}  // namespace panelkit
