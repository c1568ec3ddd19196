#include "gauges/older_spares.h"

#include <algorithm>

#include "gauges/gauge_file.h"
#include "gauges/gauge_mover.h"
#include "text/time_text.h"

namespace panelkit {
namespace {

constexpr const char* kOlderFolder = "\\Older";

// The files whose names the pattern stands for, the newest last.
std::vector<std::string> KeptFiles(const Files& files, const std::string& spare,
                                   const std::string& pattern) {
  auto names = FilesNamed(files, spare + kOlderFolder + "\\" + pattern);
  std::sort(names.begin(), names.end());
  return names;
}

bool HasBytes(const Files& files, const std::string& path, const FileContent& content) {
  return content.bytes && content.bytes == files.Read(path).bytes;
}

// The time of now at its end, or of the next second that no file of the name has.
std::string FreeName(const Files& files, const std::string& folder, const std::string& name) {
  for (auto time = Now();; ++time) {
    std::string as = name + "." + TimeText(time);
    std::replace(as.end() - kTimeTextLength, as.end(), ':', '.');
    if (!files.Exists(folder + "\\" + as)) return as;
  }
}

}  // namespace

void KeepOlder(Files& files, const std::string& spare, const std::string& file,
               const std::string& name) {
  const FileContent content = files.Read(file);
  const auto kept = KeptFiles(files, spare, name + ".*");
  const bool is_kept = std::any_of(kept.begin(), kept.end(), [&](const std::string& other) {
    return HasBytes(files, spare + kOlderFolder + "\\" + other, content);
  });
  if (!is_kept && !HasBytes(files, spare + "\\" + name, content)) {
    const std::string folder = spare + kOlderFolder;
    if (!files.Exists(folder)) files.MakeFolder(folder);
    if (!CopyGauge(files, file, folder, FreeName(files, folder, name))) return;
  }
  files.Delete(file);
}

std::string OlderFileName(const Files& files, const std::string& spare, const std::string& typed) {
  if (typed.find_first_of("\\/:*?") != std::string::npos) return {};
  auto found = KeptFiles(files, spare, typed);
  if (found.empty()) found = KeptFiles(files, spare, typed + ".*");
  return found.empty() ? std::string() : found.back();
}

std::string GaugeNameOfOlder(const std::string& older) {
  return older.substr(0, older.size() - std::min(older.size(), kTimeTextLength + 1));
}

}  // namespace panelkit
