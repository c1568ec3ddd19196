#include <doctest/doctest.h>

#include <random>

#include "analysis/panel_entry.h"
#include "shell/mod_gauges.h"
#include "support/cabinet_writer.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

TEST_CASE("the table answers as a plain walk over its rows does") {
  Simulator simulator;
  const Machine machine = simulator.Services();
  std::mt19937 random(20021215);
  const auto word = [&](std::size_t longest) {
    std::string text;
    for (auto left = random() % (longest + 1); left > 0; --left) text += "aAbB!"[random() % 5];
    return text;
  };
  for (int round = 0; round < 300; ++round) {
    GaugeTable table;
    for (auto left = random() % 12; left > 0; --left) table.Add(machine.text, "", word(7));
    for (int question = 0; question < 40; ++question) {
      const std::string entry = word(6);
      const std::string lowered = machine.text.Lower(entry);
      bool expected = false;
      for (int row = 0; row < table.UpperBound(); ++row) {
        const std::string key = machine.text.Lower(table.Row(row).key);
        expected = expected || (NamesFile(lowered) && key == FilePart(lowered)) ||
                   key.find(lowered) != std::string::npos;
      }
      CAPTURE(entry);
      REQUIRE(table.Exists(machine.text, entry) == expected);
    }
  }
}

// The rows that a simulator's Gauges folder gives, the free one at the end included.
std::string Rows(Simulator& simulator) {
  Program program(simulator);
  program.form.CreateGaugeArray(simulator.FSPath());
  const GaugeTable& table = modGauges::InstalledGauges;
  std::string rows;
  for (int row = 0; row <= table.UpperBound(); ++row) {
    rows.append(table.Row(row).origin).append(":").append(table.Row(row).key).append("\n");
  }
  return rows;
}

TEST_CASE("gauge files and the xml entries of cabinets are rows, in the order of the folder") {
  Simulator simulator;
  for (const char* file : {"Zulu.gau", "alpha.GAU", "x.gau_old", "notes.txt", "text.cab"}) {
    simulator.AddGauge(file);
  }
  const auto gauges = simulator.Fs() / "Gauges";
  Put(gauges / "abc.CAB",
      MakeCabinet({{"Speed.xml"}, {"Speed.bmp"}, {"sub\\Clock.xml"}, {"Loud.XML"}, {"sub\\.xml"}}));
  Put(gauges / "art.cab", MakeCabinet({{"a.bmp"}}));
  std::filesystem::create_directories(gauges / "folder.cab");
  Put(gauges / "zoo.cab", MakeCabinet({{"Lion.xml"}}));
  CHECK(Rows(simulator) ==
        "Gauge File:alpha\nGauge File:Zulu\nabc:abc!Speed\nabc:abc!Clock\nabc:abc!\n"
        "zoo:zoo!Lion\n:\n");
}

// A case of its own: Wine's cabinet service, unlike Windows', tells nothing of such a cabinet.
TEST_CASE("a damaged cabinet gives the rows before the damage") {
  Simulator simulator;
  const std::string good = MakeCabinet({{"Speed.xml"}, {"Clock.xml"}, {"Fuel.xml"}});
  Put(simulator.Fs() / "Gauges" / "cut.cab", good.substr(0, good.find("Clock") + 3));
  CHECK(Rows(simulator) == "cut:cut!Speed\n:\n");
}

}  // namespace
}  // namespace panelkit::test
