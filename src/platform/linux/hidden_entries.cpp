#include "platform/linux/hidden_entries.h"

#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <future>
#include <span>
#include <system_error>
#include <thread>

#include "platform/linux/dos_attributes.h"

namespace panelkit {

namespace {

constexpr std::size_t kWorthAThread = 256;

using Names = std::span<std::string>;

/// Empties the names of hidden and system entries. `prefix` and a name make a path.
void EmptyHidden(const std::string& prefix, Names names) {
  for (std::string& name : names) {
    if (IsHiddenOrSystem(prefix + name)) name.clear();
  }
}

/// The same in a thread of its own, whose current folder may be changed without the others'
/// knowing: the system finds a bare name in half the time that the folder's path takes.
void EmptyHiddenFromInside(const std::string& folder, Names names) {
  const bool inside = unshare(CLONE_FS) == 0 && chdir(folder.c_str()) == 0;
  EmptyHidden(inside ? "" : folder + '/', names);
}

}  // namespace

std::vector<std::string> WithoutHidden(const std::string& folder, std::vector<std::string> names) {
  const std::size_t processors = std::max(1U, std::thread::hardware_concurrency());
  const std::size_t share = std::max(kWorthAThread, names.size() / processors + 1);
  std::vector<std::future<void>> threads;
  for (Names rest = names; !rest.empty(); rest = rest.subspan(std::min(share, rest.size()))) {
    const Names part = rest.first(std::min(share, rest.size()));
    try {
      if (names.size() >= kWorthAThread) {
        threads.push_back(std::async(std::launch::async, EmptyHiddenFromInside, folder, part));
        continue;
      }
    } catch (const std::system_error&) {
      // There is no thread to be had.
    }
    EmptyHidden(folder + '/', part);
  }
  for (auto& thread : threads) thread.get();
  std::erase(names, "");
  return names;
}

}  // namespace panelkit
