#include "simulator/remembered_simulator.h"

#include "text/line_reader.h"

namespace panelkit {
namespace {

std::string MemoryOf(const Files& files) {
  return files.AppFolder() + "\\Simulator.txt";
}

}  // namespace

bool IsSimulator(const Files& files, const std::string& folder) {
  return files.IsFolder(folder + "\\Aircraft") && files.IsFolder(folder + "\\Gauges");
}

std::string RememberedSimulator(const Files& files) {
  const std::string content = files.Read(MemoryOf(files)).bytes.value_or(std::string());
  return content.empty() ? std::string()
                         : std::string(LineReader(content, LoneLf::EndsLine).Next());
}

FileFault RememberSimulator(Files& files, const std::string& folder) {
  return files.Replace(MemoryOf(files), files.NativePath(folder) + "\r\n", Durability::Flushed);
}

void ForgetSimulator(Files& files) {
  files.Delete(MemoryOf(files));
}

}  // namespace panelkit
