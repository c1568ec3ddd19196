#include <doctest/doctest.h>

#include <random>

#include "analysis/panel_entry.h"
#include "shell/mod_gauges.h"
#include "support/cabinet_writer.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

TEST_CASE("an entry is installed by its file part or as a part of a key") {
  Simulator simulator;
  const Machine machine = simulator.Services();
  const auto exists = [&](const char* entry, std::initializer_list<const char*> keys) {
    GaugeTable table;
    for (const char* key : keys) table.Add(machine.text, "", key);
    return table.Exists(machine.text, entry);
  };
  CHECK(exists("abc!speed", {"abc"}));
  CHECK(exists("abc!speed", {"ABC!Speed"}));
  CHECK_FALSE(exists("abc!speed", {"abc!clock"}));
  CHECK(exists("abc!speed", {"xabc!speedy"}));
  CHECK(exists("abc", {"zabc"}));
  CHECK(exists("abc", {"xyz!abc"}));
  CHECK_FALSE(exists("abc", {"ab"}));
  CHECK(exists("ÉTOILE!x", {"étoile"}));
  CHECK(exists("b", {"abc"}));
  CHECK_FALSE(exists("bd", {"abc", "d"}));
  CHECK(exists("", {"abc"}));
  CHECK_FALSE(exists("", {}));
}

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

TEST_CASE("tables and lists end in one free slot and refuse what 16 bits cannot count") {
  Simulator simulator;
  const Machine machine = simulator.Services();
  GaugeTable table;
  CHECK(table.UpperBound() == 0);
  for (int i = 0; i < 32767; ++i) REQUIRE(table.Add(machine.text, "o", std::to_string(i)));
  CHECK(table.UpperBound() == 32767);
  CHECK_FALSE(table.Add(machine.text, "o", "beyond"));
  CHECK(table.Overflowed());
  CHECK(table.Row(32767).key == "beyond");
  CHECK_FALSE(table.Exists(machine.text, "beyond"));

  Program program(simulator);
  for (std::string entry : {"abc", "abc!speed", "ABC", "a!b!c"}) program.form.AddToMissing(entry);
  CHECK(program.form.MissingGauges.Names() == std::vector<std::string>{"abc", "ABC", "a"});
}

TEST_CASE("gauge files and the xml entries of cabinets are rows, in the order of the folder") {
  Simulator simulator;
  for (const char* file : {"Zulu.gau", "alpha.GAU", "x.gau_old", "notes.txt"}) {
    simulator.AddGauge(file);
  }
  const auto cabinet = [](std::initializer_list<const char*> names) {
    std::vector<CabinetEntry> entries;
    for (const char* name : names) entries.push_back({name, "content"});
    return MakeCabinet(entries);
  };
  const std::string good =
      cabinet({"Speed.xml", "Speed.bmp", "sub\\Clock.xml", "Loud.XML", ".xml"});
  Put(simulator.Fs() / "Gauges" / "abc.CAB", good);
  Put(simulator.Fs() / "Gauges" / "art.cab", cabinet({"a.bmp"}));
  Put(simulator.Fs() / "Gauges" / "text.cab", "no cabinet at all");
  Put(simulator.Fs() / "Gauges" / "nil.cab", "");
  std::filesystem::create_directories(simulator.Fs() / "Gauges" / "folder.cab");
  Put(simulator.Fs() / "Gauges" / "zoo.cab", cabinet({"Lion.xml"}));
  Program program(simulator);
  program.form.CreateGaugeArray(simulator.FSPath());
  std::string rows;
  const GaugeTable& table = modGauges::InstalledGauges;
  for (int row = 0; row <= table.UpperBound(); ++row) {
    rows.append(table.Row(row).origin).append(":").append(table.Row(row).key).append("\n");
  }
  CHECK(rows ==
        "Gauge File:alpha\nGauge File:Zulu\nabc:abc!Speed\nabc:abc!Clock\nabc:abc!\n"
        "zoo:zoo!Lion\n:\n");
}

// A case of its own: Wine's cabinet service, unlike Windows', tells nothing of such a cabinet.
TEST_CASE("a damaged cabinet gives the rows before the damage") {
  Simulator simulator;
  const std::string good =
      MakeCabinet({{"Speed.xml", "content"}, {"Clock.xml", "content"}, {"Fuel.xml", "content"}});
  Put(simulator.Fs() / "Gauges" / "cut.cab", good.substr(0, good.find("Clock") + 3));
  Program program(simulator);
  program.form.CreateGaugeArray(simulator.FSPath());
  CHECK(modGauges::InstalledGauges.UpperBound() == 1);
  CHECK(modGauges::InstalledGauges.Row(0).key == "cut!Speed");
}

}  // namespace
}  // namespace panelkit::test
