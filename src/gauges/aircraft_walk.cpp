#include "gauges/aircraft_walk.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "gauges/name_list.h"

namespace panelkit {
namespace {

// A progress bar takes 16-bit numbers: beyond them the counter stays at the highest.
void CountEntry(std::int16_t& counter) {
  if (counter < kHighestIndex) ++counter;
}

}  // namespace

bool WalkAircraft(const Files& files, EventLoop& loop, const std::string& FSPath,
                  const OnWalkProgress& on_progress,
                  const std::function<void(const std::string& aircraft)>& on_aircraft) {
  const std::string pattern = FSPath + R"(\Aircraft\*.*)";
  std::int16_t entries = 0;
  const auto measured = files.List(pattern, ListedEntries::FilesAndFolders);
  for (std::size_t i = 0; measured && i < measured->size(); ++i) {
    loop.ProcessPending();
    CountEntry(entries);
  }
  on_progress(0, entries);

  std::int16_t done = 0;
  const auto listed = files.List(pattern, ListedEntries::FilesAndFolders);
  if (!listed) return false;
  for (const ListedEntry& entry : *listed) {
    loop.ProcessPending();
    const bool is_dots = entry.name == "." || entry.name == "..";
    if (!is_dots && entry.is_folder) on_aircraft(entry.name);
    CountEntry(done);
    on_progress(std::min(done, entries), entries);
  }
  return true;
}

}  // namespace panelkit
