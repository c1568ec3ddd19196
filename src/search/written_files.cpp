#include "search/written_files.h"

#include "search/content_check.h"

namespace panelkit {
std::vector<WrittenFile> WrittenFiles(const Files& files, const std::string& gauges,
                                      const std::vector<InstalledFile>& installed) {
  std::vector<WrittenFile> written;
  for (const InstalledFile& file : installed) {
    const std::string& name = file.candidate->name;
    const FileContent content = files.Read(gauges + "\\" + name);
    if (content.bytes) written.push_back({name, HashOf(*content.bytes)});
  }
  return written;
}

TakenOut TakeOut(Files& files, const std::string& gauges, const std::vector<WrittenFile>& written) {
  TakenOut outcome;
  for (const WrittenFile& file : written) {
    const std::string path = gauges + "\\" + file.name;
    const FileContent content = files.Read(path);
    if (content.fault == FileFault::Absent) continue;
    const bool is_unchanged = content.bytes && HashOf(*content.bytes) == file.content;
    const bool removed = is_unchanged && files.Delete(path);
    (removed ? outcome.removed : outcome.kept).push_back(file.name);
  }
  return outcome;
}

}  // namespace panelkit
