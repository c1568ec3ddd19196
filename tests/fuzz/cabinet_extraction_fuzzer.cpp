// Any bytes as a cabinet, extracted: only whole files, only below the output folder.
#include <sys/resource.h>

#include <csignal>
#include <set>

#include "fuzz/prefix.h"
#include "fuzz/fuzz.h"

namespace fs = std::filesystem;

namespace {

constexpr int kMostEntries = 16;
constexpr rlim_t kLargestOutput = 1024 * 1024;

// A few bytes can unpack to gigabytes: files end at the limit, as on a full disk.
bool LimitOutput() {
  const rlimit limit{kLargestOutput, kLargestOutput};
  return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace panelkit;
  using fuzz::Require;
  static const bool limited = LimitOutput();
  static fuzz::Prefix prefix;
  Require(limited);
  const auto cabinet = prefix.Cabinet(fuzz::Bytes(bytes, size));
  int entries = 0;
  cabinet->BeforeExtract.Subscribe(
      [&](const std::string&, bool& cancel) { cancel = ++entries > kMostEntries; });
  std::set<fs::path> announced;
  cabinet->AfterExtract.Subscribe(
      [&](const std::string& path) { announced.insert(prefix.Machine().NativePath(path)); });
  try {
    cabinet->Extract("", "C:\\out");
  } catch (const CabError& error) {
    Require(error.Number != 0);
  }
  std::set<fs::path> written;
  for (const auto& entry : fs::recursive_directory_iterator(prefix.C())) {
    if (!entry.is_directory()) written.insert(entry.path());
  }
  announced.insert(prefix.C() / "x.cab");
  Require(written == announced);
  for (const auto& entry : fs::directory_iterator(prefix.C() / "out")) fs::remove_all(entry.path());
  return 0;
}
