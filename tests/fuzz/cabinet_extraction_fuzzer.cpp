// Any bytes as a cabinet, extracted: only whole files, only below the output folder.
#include <sys/resource.h>

#include <csignal>
#include <set>

#include "fuzz/fuzz.h"

void panelkit::fuzz::Try(std::string_view input) {
  // A few bytes can unpack to gigabytes: files end at a megabyte, as on a full disk.
  std::signal(SIGXFSZ, SIG_IGN);
  constexpr rlimit kLimit{1024 * 1024, 1024 * 1024};
  Require(setrlimit(RLIMIT_FSIZE, &kLimit) == 0);
  static Prefix prefix;
  const auto cabinet = prefix.Cabinet(input);
  int entries = 0;
  cabinet->BeforeExtract = [&](const std::string&, bool& cancel) { cancel = ++entries > 16; };
  std::set<std::string> announced = {prefix.c / "x.cab"};
  cabinet->AfterExtract = [&](const std::string& path) {
    const std::string native = prefix.machine.NativePath(path);
    Require(native.starts_with((prefix.c / "out/").native()));
    announced.insert(native);
  };
  try {
    cabinet->Extract("", "C:\\out");
  } catch (const CabError& error) {
    Require(error.Number != 0);
  }
  std::set<std::string> written;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(prefix.c)) {
    if (!entry.is_directory()) written.insert(entry.path());
  }
  Require(written == announced);
  std::filesystem::remove_all(prefix.c / "out");
}
