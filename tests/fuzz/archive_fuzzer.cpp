// Any bytes as an archive of each kind: searched, and what is found in it installed.
#include "cabinet/entry_name.h"
#include "fuzz/fuzz.h"
#include "search/find_result.h"

void panelkit::fuzz::Try(std::string_view input) {
  static Prefix prefix;
  static const std::filesystem::path gauges = prefix.c / "Gauges";
  const Machine machine = prefix.machine.Services();
  for (const char* name : {"x.zip", "x.7z", "x.rar", "x.tar.gz", "x.cab"}) {
    std::filesystem::remove_all(prefix.c);
    std::filesystem::create_directories(gauges);
    test::Put(prefix.c / "in" / name, input);
    FindResult result(machine.text);
    CandidateSearch search(machine, result.pool, SearchDepth::Archives, {});
    Require(search.LookThrough("C:\\in"));
    result.required = {{"J900_FMC", {"J900_FMC!Left"}, {{"a"}}},
                       {"..\\TCAS", {"..\\TCAS!Display", "..\\TCAS!Control"}, {{"a"}, {"b"}}},
                       {"J900FMC", {"J900FMC!Right"}, {{"b"}}}};
    const auto never = [] { return false; };
    FindOffers(machine, "C:\\Gauges", {"J900FMC"}, never, result);
    InstallBest(machine, "C:\\Gauges", false, never, result);
    for (const Candidate& candidate : result.pool.All()) {
      Require(IsSafeEntryName(candidate.name) && candidate.name.find('\\') == std::string::npos);
    }
    for (const auto& [candidate, content] : result.contents) {
      if (candidate->size > (1U << 20)) continue;
      const InstallFault fault = Install(machine, *candidate, content, "C:\\Gauges");
      Require((fault == InstallFault::None || fault == InstallFault::NameTaken) ==
              machine.files.Exists("C:\\Gauges\\" + candidate->name));
    }
    // Nothing but the archive and what was installed by its own plain name.
    for (const auto& entry : std::filesystem::recursive_directory_iterator(prefix.c)) {
      Require(entry.is_directory() || entry.path().parent_path() == gauges ||
              entry.path() == prefix.c / "in" / name);
    }
  }
}
