#include "commands/spare_selection.h"

#include <doctest/doctest.h>

#include <random>

#include "analysis/panel_entry.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

GaugeTable TableOf(const Text& text, const std::vector<std::string>& keys) {
  GaugeTable table;
  for (const std::string& key : keys) table.Add(text, "", key);
  return table;
}

TEST_CASE("a row is needed when a required name holds its key or equals its cabinet") {
  Simulator simulator;
  const Machine machine = simulator.Services();
  const auto spare = [&](const std::vector<std::string>& keys,
                         const std::vector<std::string>& required) {
    std::string text;
    const auto selection = SelectSpare(TableOf(machine.text, keys), required, machine.text);
    for (const std::string& key : selection.keys) text += key + " ";
    text += "| ";
    for (const std::string& file : selection.SpareFiles) text += file + " ";
    return text;
  };
  CHECK(spare({"abc"}, {"ABC"}) == "| ");
  CHECK(spare({"abc"}, {"xabcy"}) == "| ");
  CHECK(spare({"abcd"}, {"abc"}) == "abcd | abcd ");
  CHECK(spare({"Abc!speed", "Abc!clock"}, {"abc"}) == "| ");
  CHECK(spare({"Abc!speed", "Abc!clock"}, {"abcd"}) == "Abc!speed Abc!clock | abc ");
  CHECK(spare({"Abc", "abc!x", "def"}, {}) == "Abc abc!x def | Abc def ");
  CHECK(spare({"xABCy", "abc"}, {}) == "xABCy abc | xABCy ");
  CHECK(spare({"abc", "xabcy"}, {}) == "abc xabcy | abc xabcy ");
}

// The same selection as nested walks over both lists.
SpareSelection PlainWalk(const std::vector<std::string>& keys,
                         const std::vector<std::string>& required, const Text& text) {
  SpareSelection spare;
  for (const std::string& key : keys) {
    const std::string lowered = text.Lower(key);
    const std::string file(FilePart(lowered));
    bool needed = false;
    for (const std::string& name : required) {
      const std::string m = text.Lower(name);
      needed = needed || (NamesFile(key) && m == file) || m.find(lowered) != std::string::npos;
    }
    if (needed) continue;
    spare.keys.push_back(key);
    const std::string wanted = NamesFile(key) ? file : key;
    bool known = false;
    for (const std::string& slot : spare.SpareFiles) {
      const std::string lowered_slot = text.Lower(slot);
      known = known || lowered_slot == wanted ||
              lowered_slot.find(text.Lower(wanted)) != std::string::npos;
    }
    if (!known) spare.SpareFiles.push_back(wanted);
  }
  return spare;
}

TEST_CASE("the selection equals that of a plain walk") {
  Simulator simulator;
  const Machine machine = simulator.Services();
  std::mt19937 random(2002);
  const auto words = [&](std::size_t most, std::size_t letters) {
    std::vector<std::string> list(random() % most);
    for (std::string& word : list) {
      for (auto left = random() % letters; left > 0; --left) word += "aAbB!"[random() % 5];
    }
    return list;
  };
  for (int round = 0; round < 2000; ++round) {
    const auto keys = words(20, 6);
    auto required = words(8, 5);
    for (std::string& name : required) name = FilePart(name);
    const auto fast = SelectSpare(TableOf(machine.text, keys), required, machine.text);
    const auto plain = PlainWalk(keys, required, machine.text);
    REQUIRE(fast.keys == plain.keys);
    REQUIRE(fast.SpareFiles == plain.SpareFiles);
  }
}

}  // namespace
}  // namespace panelkit::test
