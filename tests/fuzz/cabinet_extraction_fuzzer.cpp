// Any bytes as a cabinet, extracted: only whole files, only below the output folder.
#include <sys/resource.h>

#include <csignal>
#include <set>

#include "fuzz/fuzz.h"

using namespace panelkit;
using fuzz::Require;
namespace fs = std::filesystem;

namespace {

// A few bytes can unpack to gigabytes: files end at a megabyte, as on a full disk.
bool LimitFiles() {
  const rlimit limit{1024 * 1024, 1024 * 1024};
  return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const bool limited = LimitFiles();
  static fuzz::Prefix prefix;
  Require(limited);
  const auto cabinet = prefix.Cabinet(fuzz::Bytes(bytes, size));
  int entries = 0;
  cabinet->BeforeExtract.Subscribe(
      [&](const std::string&, bool& cancel) { cancel = ++entries > 16; });
  std::set<fs::path> announced = {prefix.c / "x.cab"};
  cabinet->AfterExtract.Subscribe([&](const std::string& path) {
    const std::string native = prefix.machine.NativePath(path);
    Require(native.starts_with((prefix.c / "out/").native()));
    announced.insert(native);
  });
  try {
    cabinet->Extract("", "C:\\out");
  } catch (const CabError& error) {
    Require(error.Number != 0);
  }
  std::set<fs::path> written;
  for (const auto& entry : fs::recursive_directory_iterator(prefix.c)) {
    if (!entry.is_directory()) written.insert(entry.path());
  }
  Require(written == announced);
  for (const auto& entry : fs::directory_iterator(prefix.c / "out")) fs::remove_all(entry.path());
  return 0;
}
