#include "commands/spare_selection.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>

#include "analysis/panel_entry.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

// The same selection as nested walks over both lists.
SpareSelection PlainWalk(const std::vector<std::string>& keys,
                         const std::vector<std::string>& required, const Text& text) {
  SpareSelection spare;
  for (const std::string& key : keys) {
    const std::string file = text.Lower(FilePart(key));
    const auto holds = [&](const std::string& name, const std::string& part) {
      return text.Lower(name).find(text.Lower(part)) != std::string::npos;
    };
    const auto needs_key = [&](const std::string& name) {
      return (NamesFile(key) && text.Lower(name) == file) || holds(name, key);
    };
    if (std::any_of(required.begin(), required.end(), needs_key)) continue;
    spare.keys.push_back(key);
    const std::string wanted = NamesFile(key) ? file : key;
    const auto holds_wanted = [&](const std::string& slot) { return holds(slot, wanted); };
    const auto& slots = spare.SpareFiles;
    if (std::any_of(slots.begin(), slots.end(), holds_wanted)) continue;
    spare.SpareFiles.push_back(wanted);
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
    GaugeTable table;
    for (const std::string& key : keys) table.Add(machine.text, "", key);
    const auto fast = SelectSpare(table, required, machine.text);
    const auto plain = PlainWalk(keys, required, machine.text);
    REQUIRE(fast.keys == plain.keys);
    REQUIRE(fast.SpareFiles == plain.SpareFiles);
  }
}

}  // namespace
}  // namespace panelkit::test
