#include "search/reasons.h"

#include <algorithm>

#include "text/matching.h"
#include "text/program_file.h"

namespace panelkit {
namespace {

bool IsText(std::string_view bytes) {
  return std::none_of(bytes.begin(), bytes.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
  });
}

// What bytes are, by how they begin; empty if that tells nothing.
std::string KindOfContent(std::string_view bytes) {
  constexpr std::size_t kBeginning = 1024;
  const std::string_view beginning = bytes.substr(0, kBeginning);
  if (bytes.empty()) return "it is empty";
  if (bytes.starts_with("MSCF")) return "it is a cabinet";
  if (bytes.starts_with("PK\3\4")) return "it is a zip archive";
  if (bytes.starts_with("7z\xBC\xAF")) return "it is a 7z archive";
  if (bytes.starts_with("Rar!")) return "it is a rar archive";
  if (IsText(beginning)) {
    const bool is_page = ContainsIgnoringCase(beginning, "<html") ||
                         ContainsIgnoringCase(beginning, "<!doctype html");
    return is_page ? "it is a web page" : "it is a text";
  }
  return {};
}

}  // namespace

std::string ReasonOf(ArchiveFault fault) {
  switch (fault) {
    case ArchiveFault::None:
      return {};
    case ArchiveFault::Unreadable:
      return "it cannot be read";
    case ArchiveFault::NoArchive:
      return "it is no archive of a kind that can be read here";
    case ArchiveFault::Damaged:
      return "it is damaged";
    case ArchiveFault::CutOff:
      return "it is cut off";
    case ArchiveFault::OtherMethod:
      return "it is packed by a method that cannot be read here";
    case ArchiveFault::Encrypted:
      return "it is encrypted";
    case ArchiveFault::NoRoom:
      return "there is no room to unpack it";
    case ArchiveFault::TooLarge:
      return "it would unpack to far more than a gauge has";
    case ArchiveFault::Installer:
      return "it is an installer, or the like, of a kind that cannot be read here";
  }
  return {};
}

std::string ReasonAgainstGaugeFile(std::string_view bytes) {
  constexpr std::size_t kIsLibrary = 0x2000;
  if (const auto flags = ProgramFlags(bytes)) {
    return (*flags & kIsLibrary) != 0 ? "" : "it is a program, which gauge files are not";
  }
  const std::string kind = KindOfContent(bytes);
  return kind.empty() ? "it is no library for Windows, as gauge files are"
                      : kind + ", and no gauge file";
}

std::string ReasonAgainstCabinet(std::string_view bytes) {
  if (bytes.starts_with("MSCF")) return {};
  if (bytes.starts_with("MZ")) return "it is no cabinet but a library, as gauge files are";
  const std::string kind = KindOfContent(bytes);
  return kind.empty() ? "it is no cabinet" : kind + ", and no cabinet";
}

}  // namespace panelkit
