#include <doctest/doctest.h>

#include "cabinet/mod_gauges.h"
#include "support/cabinet_writer.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

struct GaugesFolder : Program {
  std::filesystem::path gauges = simulator.Fs() / "Gauges";

  // The rows that the folder gives, the free one at the end included.
  std::string Rows() {
    form.CreateGaugeArray(simulator.FSPath());
    const GaugeTable& table = modGauges::InstalledGauges;
    std::string rows;
    for (int row = 0; row <= table.UpperBound(); ++row) {
      rows.append(table.Row(row).origin).append(":").append(table.Row(row).key).append("\n");
    }
    return rows;
  }
};

TEST_CASE_FIXTURE(
    GaugesFolder,
    "gauge files and the xml entries of cabinets are rows, in the order of the folder") {
  for (const char* file : {"Zulu.gau", "alpha.GAU", "x.gau_old", "notes.txt", "text.cab"}) {
    simulator.AddGauge(file);
  }
  Put(gauges / "abc.CAB",
      MakeCabinet({{"Speed.xml"}, {"Speed.bmp"}, {"sub\\Clock.xml"}, {"Loud.XML"}, {"sub\\.xml"}}));
  Put(gauges / "art.cab", MakeCabinet({{"a.bmp"}}));
  std::filesystem::create_directories(gauges / "folder.cab");
  Put(gauges / "zoo.cab", MakeCabinet({{"Lion.xml"}}));
  CHECK(Rows() ==
        "Gauge File:alpha\nGauge File:Zulu\nabc:abc!Speed\nabc:abc!Clock\nabc:abc!\n"
        "zoo:zoo!Lion\n:\n");
}

// A case of its own: Wine's cabinet service, unlike Windows', tells nothing of such a cabinet.
TEST_CASE_FIXTURE(GaugesFolder, "a damaged cabinet gives the rows before the damage") {
  const std::string good = MakeCabinet({{"Speed.xml"}, {"Clock.xml"}, {"Fuel.xml"}});
  Put(gauges / "cut.cab", good.substr(0, good.find("Clock") + 3));
  CHECK(Rows() == "cut:cut!Speed\n:\n");
}

}  // namespace
}  // namespace panelkit::test
