// The steps of the strip where files are refused, change or bear names that no one expects.
#include <doctest/doctest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "app/search_case.h"
#include "support/cabinet_writer.h"

namespace fs = std::filesystem;

namespace panelkit::test {
namespace {

/// A simulator that lacks two gauges, which lie in the folder of new downloads.
struct TwoMissing : SearchCase {
  TwoMissing() {
    simulator.AddAircraft("Alpha",
                          "[Window Titles]\nWindow00=W\n\ngauge00=Fuel,1\ngauge01=Oil,1\n");
    Put(New() / "Fuel.gau", fuel);
    Put(New() / "Oil.gau", oil);
  }
  fs::path Gauges() const { return simulator.Fs() / "Gauges"; }

  const std::string fuel = GaugeBytes("fuel");
  const std::string oil = GaugeBytes(std::string(50'000, 'o'));
};

/// Has a step of root's own done as a user does it who owns the simulator.
void AsOwner(const fs::path& root, const std::function<void()>& step) {
  constexpr uid_t kNobody = 65534;
  const bool is_root = getuid() == 0;
  if (is_root) {
    REQUIRE(chown(root.c_str(), kNobody, kNobody) == 0);
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
      REQUIRE(lchown(entry.path().c_str(), kNobody, kNobody) == 0);
    }
    REQUIRE(seteuid(kNobody) == 0);
  }
  step();
  if (is_root) REQUIRE(seteuid(0) == 0);
}

/// No file can grow beyond this many bytes while it lives, as on a disk that is full then.
class LittleRoom {
 public:
  explicit LittleRoom(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit little{bytes, before_.rlim_max};
    REQUIRE(setrlimit(RLIMIT_FSIZE, &little) == 0);
  }
  ~LittleRoom() {
    setrlimit(RLIMIT_FSIZE, &before_);
    (void)std::signal(SIGXFSZ, on_signal_);
  }
  LittleRoom(const LittleRoom&) = delete;
  LittleRoom& operator=(const LittleRoom&) = delete;

 private:
  rlimit before_{};
  void (*on_signal_)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

TEST_CASE_FIXTURE(TwoMissing, "what Gauges does not take is told, and no half of it is there") {
  LookIn({Path("new")});
  AsOwner(simulator.Fs().parent_path(), [this] {
    fs::permissions(Gauges(), fs::perms::owner_read | fs::perms::owner_exec);
    Strip().Press("&Install Them");
    fs::permissions(Gauges(), fs::perms::owner_all);
  });
  CHECK(Greyed().empty());
  CHECK(Tree(Gauges()).empty());
  CHECK(Status() == "Not all files could be copied: the page says why.");
  CHECK(Strip().Shown() ==
        "No file was copied to Gauges; 2 are still missing. [Look Else&where...]");
  CHECK(Found() == simulator.Golden("refused.htm"));

  LookIn({Path("new")});
  {
    const LittleRoom room(40'000);
    Strip().Press("&Install Them");
  }
  CHECK(Tree(Gauges()) == "Fuel.gau\n");
  CHECK(Status() == "Not all files could be copied: the page says why.");
  CHECK(Strip().Shown() ==
        "1 file was copied to Gauges; 1 is still missing. [Ta&ke Them Out Again] "
        "[Look Else&where...]");
  LookIn({Path("new")});
  Strip().Press("&Install Them");
  CHECK(Get(Gauges() / "Oil.gau") == oil);
}

TEST_CASE_FIXTURE(TwoMissing, "Exit or a close ends the program at any moment of search and copy") {
  const auto look_and_install = [this] {
    LookIn({Path("new")});
    Strip().Press("&Install Them");
  };
  // Whether a process of its own ends in that turn of the loop, and not at the end of the work.
  const auto ends_in = [&](int turn) {
    const pid_t child = fork();
    if (child == 0) {
      (void)std::signal(SIGABRT, SIG_DFL);
      int turns = 0;
      loop.on_turn = [&] {
        if (++turns == turn) turn % 2 == 0 ? Window().Close() : Click("menExit");
      };
      look_and_install();
      _exit(0);
    }
    int status = 0;
    REQUIRE(waitpid(child, &status, 0) == child);
    return WIFSIGNALED(status);
  };
  std::string states;
  for (int turn = 1; ends_in(turn); ++turn) {
    const std::string state = Tree(Gauges());
    if (!states.ends_with(state + ".")) states += state + ".";
    if (state.find("Fuel") != std::string::npos) CHECK(Get(Gauges() / "Fuel.gau") == fuel);
    if (state.find("Oil") != std::string::npos) CHECK(Get(Gauges() / "Oil.gau") == oil);
    for (const char* gauge : {"Fuel.gau", "Oil.gau"}) fs::remove(Gauges() / gauge);
  }
  // The last one came to its end.
  CHECK(states == ".Fuel.gau\n.Fuel.gau\nOil.gau\n.");
  CHECK(Tree(Gauges()) == "Fuel.gau\nOil.gau\n");
}

TEST_CASE_FIXTURE(TwoMissing,
                  "an archive that changes after the look gives nothing, and the next best does") {
  Put(New() / "pack.cab", MakeCabinet({{"a\\Fuel.gau", fuel + "newer"}, {"Oil.gau", oil}}));
  fs::rename(New() / "Fuel.gau", New() / "Fuel (1).gau");
  fs::remove(New() / "Oil.gau");
  LookIn({Path("new")});
  Put(New() / "pack.cab",
      MakeCabinet({{"a\\Fuel.gau", fuel + "other"}, {"Oil.gau", "of another length"}}));
  Strip().Press("&Install Them");
  CHECK(Tree(Gauges()) == "Fuel.gau\n");
  CHECK(Get(Gauges() / "Fuel.gau") == fuel);
  CHECK(Found() == simulator.Golden("changed.htm"));
}

TEST_CASE_FIXTURE(SearchCase, "hostile and long names and ten thousand finds stay a page to read") {
  const std::string hostile = "<img src=x onerror='&'>";
  const std::string longest(251, 'L');
  simulator.AddAircraft(hostile, "[Window Titles]\nWindow00=W\n\ngauge00=Oil,1\ngauge01=" +
                                     longest + ",1\ngauge02=" + hostile + "!a,1\n");
  simulator.AddAircraft(std::string(255, 'A'),
                        "[Window Titles]\nWindow00=W\n\ngauge00=Near &lt'b,1\n");
  const auto with_names = [&](std::string page) {
    page = Replaced(page, std::string(255, 'A'), "{A255}");
    return Replaced(page, longest, "{L251}");
  };
  simulator.AddGauge("Near_&lt'b.gau");
  Put(simulator.Fs() / "Gauges" / (longest + ".txt"), "");
  Put(simulator.Fs() / "Gauges" / (hostile + ".cab"), "no cabinet");
  std::vector<CabinetEntry> many(10'000);
  for (std::size_t i = 0; i < many.size(); ++i) {
    many[i] = {"<b>" + std::to_string(10'000 + i) + "\\Oil.gau", GaugeBytes(std::to_string(i))};
  }
  Put(New() / hostile / "many.cab", MakeCabinet(many));
  Put(New() / hostile / (longest + ".gau"), GaugeBytes("long"));
  Put(New() / "Near-&lt'b.gau", GaugeBytes("near"));
  Click("menProbe");
  Strip().Press("Wh&y?");
  CHECK(with_names(OwnPage("HINTS.HTM")) == simulator.Golden("hints-odd-names.htm"));
  LookIn({Path("new")});
  CHECK(with_names(Found()) == simulator.Golden("found-odd-names.htm"));
}

}  // namespace
}  // namespace panelkit::test
