// What only the second reading of the panels sees, and what Clean makes of it.
#include "gauges/mention_finder.h"

#include <doctest/doctest.h>

#include <random>
#include <set>

#include "cabinet/mod_gauges.h"
#include "gauges/doubtful_entries.h"
#include "support/cabinet_writer.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

struct OddPanels : Program {
  // A line for each file and place: "name there|gone: entry @ panel:line".
  std::string Found() {
    form.EnumerateGauges();
    std::string found;
    for (const OtherwiseNamedFile& file : form.Report()->otherwise_named) {
      found += file.name + (file.is_there ? " there:" : " gone:");
      for (const Mention& mention : file.mentions) {
        found += " " + mention.entry + " @ " + mention.panel + ":" + std::to_string(mention.line);
      }
      found += "\n";
    }
    return found;
  }
  void AddPanel(const std::string& path, const std::string& panel) {
    Put(simulator.Fs() / "Aircraft" / path / "panel.cfg", Replaced(panel, "\n", "\r\n"));
  }
};

TEST_CASE_FIXTURE(OddPanels, "gauges that panels name in other ways are found with their places") {
  simulator.AddAircraft("Blank", "[Window Titles]\n\nWindow00=W\n[Window00]\ngauge00=blank,1\n");
  simulator.AddAircraft("Indent",
                        "[Window Titles]\nWindow00=W\n\n[Window00]\n  Gauge00 = Indent!A , 1\n"
                        "\tgauge01=seen,1\n// gauge02=comment,1\n;gauge03=comment,1\n"
                        "gauge04=//comment\ngauge05=seen,1\ngauge=nodigits,1\nGAUGE06=bare // x\n"
                        "gauge07 = indent!b,1\ngauge08=reported !c,1\n");
  simulator.AddAircraft("Last", "[Window00]\ngauge00=last,1\n[Window Titles]\nWindow00=W\n");
  simulator.AddAircraft("Untitled", "[Window00]\nGauge00=untitled!x,1\n");
  simulator.AddAircraft("Variant", "[Window Titles]\nWindow00=W\n\n[Window00]\ngauge00=seen,1\n");
  AddPanel("Variant/Panel.vfr",
           "[Window Titles]\nWindow00=W\n\n[Window00]\ngauge00=SEEN,1\n"
           "gauge01=vfr,1\nalias=Mutual\\panel\n");
  AddPanel("Variant/panel.ifr", "alias = Mutual\\panel\n");
  AddPanel("Variant/Panels", "gauge00=other,1\n");
  AddPanel("Mutual/panel", "alias=mutual\\Panel\ngauge00=mutual,1\ngauge01=vfr,1\n");
  simulator.AddGauge("Indent.gau");
  simulator.AddGauge("xlast.gau");
  const std::string mutual = R"(Aircraft\Mutual\panel\panel.cfg)";
  const std::string found = "mutual gone: mutual @ Aircraft\\Mutual\\Panel\\panel.cfg:2 mutual @ " +
                            mutual +
                            ":2\n"
                            "vfr gone: vfr @ Aircraft\\Mutual\\Panel\\panel.cfg:3 vfr @ "
                            "Aircraft\\Variant\\Panel.vfr\\panel.cfg:6 vfr @ " +
                            mutual +
                            ":3\nuntitled gone: untitled!x @ "
                            "Aircraft\\Untitled\\Panel\\panel.cfg:2\n";
  CHECK(Found() ==
        "blank gone: blank @ Aircraft\\Blank\\Panel\\panel.cfg:5\n"
        "Indent there: Indent!A @ Aircraft\\Indent\\Panel\\panel.cfg:5\n"
        "bare gone: bare @ Aircraft\\Indent\\Panel\\panel.cfg:12\n"
        "last there: last @ Aircraft\\Last\\Panel\\panel.cfg:2\n" +
            found);
}

TEST_CASE_FIXTURE(OddPanels, "an entry is doubtful if only a longer name holds it") {
  const std::string panel =
      "[Window Titles]\nWindow00=W\n\ngauge00=ab,1\ngauge01=OWN!x,1\ngauge02=pack!dial,1\n"
      "gauge03=gone,1\ngauge04=Pack!Lamp,1\n";
  for (const char* aircraft : {"Alpha", "Beta"}) simulator.AddAircraft(aircraft, panel + panel);
  for (const char* file : {"xabc.gau", "own.gau", "abcd.gau"}) simulator.AddGauge(file);
  Put(simulator.Fs() / "Gauges" / "pack.cab", MakeCabinet({{"dials.xml"}, {"lamp.xml"}}));
  form.EnumerateGauges();
  const auto doubtful =
      DoubtfulEntries(form.Report()->named, modGauges::InstalledGauges, simulator.Services().text);
  std::string told;
  for (const DoubtfulEntry& entry : doubtful) {
    told += entry.entry + "|" + entry.held_by + "|" + std::to_string(entry.aircraft) + "\n";
  }
  CHECK(told == "ab|abcd|2\npack!dial|pack!dials|2\n");
}

TEST_CASE_FIXTURE(OddPanels, "Clean tells which of the moved files panels name in another way") {
  simulator.AddAircraft("Alpha", "[Window00]\ngauge00=used!x,1\ngauge01=pack!y,1\n");
  for (const char* file : {"Used.gau", "idle.gau"}) simulator.AddGauge(file);
  Put(simulator.Fs() / "Gauges" / "Pack.cab", MakeCabinet({{"y.xml"}}));
  form.Careful = true;
  Click("menRemove");
  CHECK(Status() == "Done");
  CHECK(Tree(simulator.Fs() / "Gauges") == "Pack.cab\nUsed.gau\n");
  form.Careful = false;
  Click("menRemove");
  CHECK(Status() == "Done - 2 of the moved files are named by panels in another way");
  const auto named = form.NamedOtherwise(form.Moved().moved);
  REQUIRE(named.size() == 2);
  CHECK(named[0].first == "Used.gau");
  CHECK(named[1].second.line == 3);
}

TEST_CASE_FIXTURE(OddPanels, "a careful Clean moves what neither reading names, and no more") {
  std::mt19937 random(2002);
  // Each of its lines names a gauge, or none, however the lines before it are read.
  const auto panel = [&random](std::set<std::string>& named) {
    std::string text;
    for (auto lines = random() % 12; lines > 0; --lines) {
      const std::string name = "g" + std::string(1, "abcdefghijkl"[random() % 12]);
      const std::vector<std::string> kinds{
          "[Window Titles]\n",      "Window00=W\n",          "\n",
          "[Window00]\n",           "[Window01]\n",          "alias=b\\mutual\n",
          "//gauge1=" + name,       "gauge0=" + name + ",1", " gauge1 = " + name + "!x,1",
          "Gauge2=" + name + " , 1"};
      const auto kind = random() % kinds.size();
      if (kind > 6) named.insert(name + ".gau\n");
      text += kinds[kind] + (kind > 5 ? "\n" : "");
    }
    return text;
  };
  form.Careful = true;
  for (int round = 0; round < 60; ++round) {
    for (const char* folder : {"Aircraft", "Gauges"}) {
      std::filesystem::remove_all(simulator.Fs() / folder);
    }
    std::set<std::string> used;
    std::string all;
    for (const char* path : {"a/Panel", "a/Panel.x", "b/Panel"}) {
      const std::string text = panel(used);
      AddPanel(path, text);
      all += text;
    }
    std::set<std::string> mutual;  // Of a panel that nothing but an alias line leads to.
    AddPanel("b/mutual", panel(mutual));
    if (all.find("alias") != std::string::npos) used.merge(mutual);
    for (char letter = 'a'; letter <= 'l'; ++letter) {
      simulator.AddGauge("g" + std::string(1, letter) + ".gau");
    }
    Click("menRemove");
    CAPTURE(all);
    std::string stayed;
    for (const std::string& file : used) stayed += file;
    CHECK(Tree(simulator.Fs() / "Gauges") == stayed);
  }
}

}  // namespace
}  // namespace panelkit::test
