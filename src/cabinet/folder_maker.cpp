#include "cabinet/folder_maker.h"

#include <cstddef>
#include <vector>

namespace panelkit::modGauges {
namespace {

bool IsThere(int outcome) {
  return outcome == kFolderCreated || outcome == kFolderExistsOrNoAccess;
}

std::vector<std::string> SplitAtBackslashes(const std::string& path) {
  std::vector<std::string> parts(1);
  for (const char letter : path) {
    if (letter == '\\') {
      parts.emplace_back();
    } else {
      parts.back() += letter;
    }
  }
  return parts;
}

// The path of the first `last` + 1 of them; "\" if these are one empty text.
std::string JoinParts(const std::vector<std::string>& parts, std::size_t last) {
  std::string text;
  for (std::size_t i = 0; i <= last; ++i) text += "\\" + parts[i];
  return text.size() > 1 ? text.substr(1) : text;
}

}  // namespace

SplitName SplitPath(const std::string& FullName) {
  const std::size_t file_start = FullName.rfind('\\') + 1;
  return {FullName.substr(0, file_start), FullName.substr(file_start)};
}

std::string AddBackslash(const std::string& Path) {
  return Path.ends_with('\\') ? Path : Path + "\\";
}

bool MakeFolderPath(Files& files, std::string& Path) {
  if (Path.empty()) return false;
  if (Path.ends_with('\\')) Path.pop_back();
  int outcome = files.MakeFolder(Path);
  if (outcome != kFolderParentMissing) return IsThere(outcome);

  const std::vector<std::string> parts = SplitAtBackslashes(Path);
  std::size_t kept = parts.size() - 1;
  while (outcome == kFolderParentMissing) {
    if (kept == 0) return false;
    outcome = files.MakeFolder(JoinParts(parts, --kept));
  }
  if (!IsThere(outcome)) return false;

  std::string path = JoinParts(parts, kept);
  for (std::size_t i = kept + 1; i < parts.size(); ++i) {
    path += "\\" + parts[i];
    if (files.MakeFolder(path) != kFolderCreated) return false;
  }
  return true;
}

}  // namespace panelkit::modGauges
