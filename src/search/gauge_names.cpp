#include "search/gauge_names.h"

#include <algorithm>
#include <array>

#include "cabinet/entry_name.h"
#include "gauges/gauge_file.h"
#include "text/matching.h"

namespace panelkit {
namespace {

// Some kinds cannot be read, which the user is told.
constexpr std::array<std::string_view, 18> kArchiveEndings{
    ".zip",    ".7z",      ".rar",      ".tar", ".tar.gz", ".tar.bz2", ".tgz", ".tbz2", ".txz",
    ".tar.xz", ".tar.zst", ".tar.lzma", ".lzh", ".lha",    ".iso",     ".img", ".ace",  ".arj"};

// What browsers, editors and cautious users put behind a name.
constexpr std::array<std::string_view, 10> kAddedEndings{
    ".txt", ".bak", ".old", ".orig", ".tmp", ".download", ".crdownload", ".part", ".partial", ".1"};

bool EndsIn(std::string_view name, std::string_view ending) {
  return name.size() > ending.size() && EndsWithIgnoringCase(name, ending);
}

bool IsGauges(std::string_view name) {
  return EndsIn(name, kGaugeFileExtension) || EndsIn(name, kCabinetExtension);
}

// Takes a copy's number, " (1)" or "[2]", off the end of a name.
void DropNumber(std::string_view& name) {
  if (name.empty() || (name.back() != ')' && name.back() != ']')) return;
  const std::size_t opening = name.find_last_of("([");
  if (opening == std::string_view::npos || opening == 0) return;
  const std::string_view number = name.substr(opening + 1, name.size() - opening - 2);
  if (number.empty() || number.find_first_not_of("0123456789") != std::string_view::npos) return;
  name = name.substr(0, opening);
  if (name.back() == ' ') name.remove_suffix(1);
}

}  // namespace

FileKind KindOf(std::string_view name) {
  if (EndsIn(name, kGaugeFileExtension)) return FileKind::GaugeFile;
  if (EndsIn(name, kCabinetExtension)) return FileKind::Cabinet;
  if (EndsIn(name, ".exe")) return FileKind::Program;
  const bool is_archive =
      std::any_of(kArchiveEndings.begin(), kArchiveEndings.end(),
                  [name](std::string_view ending) { return EndsIn(name, ending); });
  return is_archive ? FileKind::Archive : FileKind::Other;
}

std::string OriginalName(std::string_view name) {
  const std::string_view given = name;
  for (const std::string_view ending : kAddedEndings) {
    if (EndsIn(name, ending) && IsGauges(name.substr(0, name.size() - ending.size()))) {
      name.remove_suffix(ending.size());
    }
  }
  if (!IsGauges(name)) return {};
  const std::string_view extension = name.substr(name.size() - kExtensionLength);
  std::string_view stem = name.substr(0, name.size() - kExtensionLength);
  DropNumber(stem);
  if (EndsIn(stem, " - copy")) stem.remove_suffix(7);
  constexpr std::string_view kCopyOf = "copy of ";
  if (stem.size() > kCopyOf.size() && EqualsIgnoringCase(stem.substr(0, kCopyOf.size()), kCopyOf)) {
    stem.remove_prefix(kCopyOf.size());
  }
  if (stem.empty()) return {};
  const std::string original = std::string(stem) + std::string(extension);
  return original == given ? std::string() : original;
}

bool NamesAFile(std::string_view name) {
  return IsSafeEntryName(name) && name.find_first_of("\\*?<>|\"") == std::string_view::npos &&
         std::none_of(name.begin(), name.end(),
                      [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

std::string_view FileNameOf(std::string_view path) {
  return path.substr(path.rfind('\\') + 1);
}

}  // namespace panelkit
