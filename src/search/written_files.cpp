#include "search/written_files.h"

#include <functional>

namespace panelkit {
namespace {

WrittenFile Written(const std::string& name, const std::string& bytes) {
  return {name, bytes.size(), std::hash<std::string>()(bytes)};
}

}  // namespace

std::vector<WrittenFile> WrittenFiles(const Files& files, const std::string& gauges,
                                      const std::vector<const Candidate*>& installed) {
  std::vector<WrittenFile> written;
  for (const Candidate* candidate : installed) {
    const FileContent content = files.Read(gauges + "\\" + candidate->name);
    if (content.bytes) written.push_back(Written(candidate->name, *content.bytes));
  }
  return written;
}

TakenOut TakeOut(Files& files, const std::string& gauges, const std::vector<WrittenFile>& written) {
  TakenOut outcome;
  for (const WrittenFile& file : written) {
    const std::string path = gauges + "\\" + file.name;
    const FileContent content = files.Read(path);
    if (content.fault == FileFault::Absent) continue;
    const bool is_unchanged = content.bytes && content.bytes->size() == file.size &&
                              Written(file.name, *content.bytes).hash == file.hash;
    const bool removed = is_unchanged && files.Delete(path);
    (removed ? outcome.removed : outcome.kept).push_back(file.name);
  }
  return outcome;
}

}  // namespace panelkit
