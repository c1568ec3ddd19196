#include "search/gauge_names.h"

#include <algorithm>
#include <array>

#include "gauges/gauge_file.h"
#include "text/matching.h"

namespace panelkit {
namespace {

constexpr std::array<std::string_view, 12> kArchiveEndings{
    ".zip", ".7z",   ".rar", ".tar",    ".tar.gz",  ".tar.bz2",
    ".tgz", ".tbz2", ".txz", ".tar.xz", ".tar.zst", ".tar.lzma"};

}  // namespace

FileKind KindOf(std::string_view name) {
  const auto ends_in = [name](std::string_view extension) {
    return name.size() > extension.size() && EndsWithIgnoringCase(name, extension);
  };
  if (ends_in(kGaugeFileExtension)) return FileKind::GaugeFile;
  if (ends_in(kCabinetExtension)) return FileKind::Cabinet;
  const bool is_archive = std::any_of(kArchiveEndings.begin(), kArchiveEndings.end(), ends_in);
  return is_archive ? FileKind::Archive : FileKind::Other;
}

std::string_view FileNameOf(std::string_view path) {
  return path.substr(path.rfind('\\') + 1);
}

}  // namespace panelkit
