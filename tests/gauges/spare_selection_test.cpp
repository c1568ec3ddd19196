// Both matchings, the table's and that of Clean Gauges, against plain walks over the rows.
#include "gauges/spare_selection.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>

#include "support/simulator.h"

namespace panelkit::test {
namespace {

using Names = std::vector<std::string>;

struct PlainWalks {
  Simulator simulator;
  const Text& text = simulator.Services().text;

  // Whether a row's key, or a required name, stands for the entry or holds it.
  bool Exists(const Names& rows, const std::string& entry) const {
    const std::string wanted = text.Lower(entry);
    return std::any_of(rows.begin(), rows.end(), [&](const std::string& row) {
      const std::string key = text.Lower(row);
      return (NamesFile(wanted) && key == FilePart(wanted)) || key.find(wanted) != key.npos;
    });
  }

  SpareSelection Select(const Names& keys, const Names& required) const {
    SpareSelection spare;
    for (const std::string& key : keys) {
      if (Exists(required, key)) continue;
      spare.keys.push_back(key);
      const std::string file = NamesFile(key) ? text.Lower(FilePart(key)) : key;
      if (!Exists(spare.SpareFiles, file)) spare.SpareFiles.push_back(file);
    }
    return spare;
  }
};

TEST_CASE_FIXTURE(PlainWalks, "the table and the selection answer as plain walks over rows do") {
  std::mt19937 random(2002);
  const auto words = [&](std::size_t most, std::size_t letters) {
    Names list(random() % most);
    for (std::string& word : list) {
      for (auto left = random() % letters; left > 0; --left) word += "aAbB!"[random() % 5];
    }
    return list;
  };
  for (int round = 0; round < 2000; ++round) {
    const Names keys = words(20, 8);
    Names required = words(8, 6);
    GaugeTable table;
    for (const std::string& key : keys) table.Add(text, "", key);
    for (std::string& name : required) {
      CAPTURE(name);
      REQUIRE(table.Exists(text, name) == Exists(keys, name));
      name = FilePart(name);
    }
    const auto fast = SelectSpare(table, required, text);
    const auto plain = Select(keys, required);
    REQUIRE(fast.keys == plain.keys);
    REQUIRE(fast.SpareFiles == plain.SpareFiles);
  }
}

}  // namespace
}  // namespace panelkit::test
