// Whole panels through EnumerateGauges, whole reports out.
#include <doctest/doctest.h>

#include "gauges/panel_reader.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

using namespace std::string_literals;

struct Case {
  std::string name;
  std::string panel;
  std::string report;    // Windows, and below each, behind "+", the gauges that are missing there.
  std::string required;  // File parts that a run in Clean Gauges mode collects.
};

std::string TooManyTitles() {
  std::string titles = "[Window Titles]\n";
  for (int i = 0; i < 101; ++i) titles += "window" + std::to_string(i) + "=t\n";
  return titles;
}

const Case kCases[] = {
    {"a header directly below the titles becomes a title itself",
     "[Window Titles]\nWindow00=Main\n[Window00]\nsize=1\ngauge00=abc,1\n[Window01]\n"
     "gauge00=def,1\n",
     "Window00=Main\n+abc\n[Window00]\n+def\n", "abc|def|"},
    {"windows beyond the titles start again at the first, less their first line",
     "[window titles]\nwindow00=One\n\n[WINDOW00]\ngauge00=a1,1\n[Window01]\ngauge00=lost,1\n"
     "gauge01=a2,1\n[Window02]\n\ngauge00=a3,1\n",
     "window00=One\n+a1\nwindow00=One\n+a2\nwindow00=One\n+a3\n", "a1|a2|a3|"},
    {"the line that ends the titles is used up unseen, and an entry may stand twice in a window",
     "[Window Titles]\nWindow00=W\ngauge00=lost,1\ngauge01=a,1\ngauge02=b,1\ngauge03=a,1\n",
     "Window00=W\n+a\n+b\n+a\n", "a|b|"},
    {"what counts as a gauge line, and what its entry is",
     "[Window Titles]\nWindow00=W\n\nGAUGE07=up!x!y,1,2\n gauge00=indented,1\n//gauge00=comment,1\n"
     "gauge_size=1,2\ngauge00=blank ,1\ngauge01= lead,1\ngauge02=nocomma\ngauge03=\n"
     "gauge04plain,9\ngauge05=a=b,1\ngauge06=ZZZ!present,1\ngauge07=,occurs in every key\n"
     "gauge08,is=empty\n",
     "Window00=W\n+up!x!y\n+1\n+blank \n+ lead\n+nocomma\n+gauge04plain\n+a=b\n",
     "up|1|blank | lead|nocomma|gauge04plain|a=b|ZZZ||"},
    {"a second titles header starts the list afresh",
     "[Window Titles]\nWindow00=Old\n\n[Window09]\n[Window Titles]\nWindow00=New\n\ngauge00=a,1\n",
     "Window00=New\n+a\n", "a|"},
    {"at most 100 titles count, the next line belongs to the first window",
     TooManyTitles() + "gauge00=a,1\n", "window0=t\n+a\n", "a|"},
    {"bytes that are no text are lines like others, and the last line needs no end",
     "\0\xFF\x1A\r\r\r\n\xFE[Window Titles]\rWindow00=W\n\rgauge00=a,1\rgauge01=b,2"s,
     "Window00=W\n+a\n+b\n", "a|b|"},
    {"aliases are followed under the own name, until one leads back",
     "[Window Titles]\nWindow00=W\n\ngauge00=a,1\n[Window01]\n// Alias=  shared  \n",
     "Window00=W\n+a\n<b>AIRCRAFT: ALPHA</b>\nWindow00=W\n+g\n", "a|zzz|g|"},
};

TEST_CASE("panels give their report lines and required names") {
  for (const Case& row : kCases) {
    CAPTURE(row.name);
    Program program;
    program.simulator.AddAircraft("Alpha", row.panel);
    Put(program.simulator.Fs() / "Aircraft" / "Shared" / "panel.cfg", "ALIAS=shared\\sub");
    Put(program.simulator.Fs() / "Aircraft" / "Shared" / "sub" / "panel.cfg",
        "[Window Titles]\nWindow00=W\n\ngauge=zzz,1\ngauge=g,1\n[Window01]\nalias=Shared\n");
    program.simulator.AddGauge("ZZZ.GAU");
    frmGauges& form = program.form;
    form.EnumerateGauges();
    std::string lines = Replaced(form.ReportHtml, "&nbsp; &nbsp; &nbsp; &nbsp; &nbsp; ", "+");
    lines = Replaced(Replaced(lines, "&nbsp; &nbsp; ", ""), " *** MISSING ***", "");
    CHECK(Replaced(lines, "<br>\r\n", "\n") == "<b>AIRCRAFT: ALPHA</b>\n" + row.report);

    form.ReportHtml = "as the command left it";
    form.CollectRequiredOnly = true;
    form.EnumerateGauges();
    CHECK(form.ReportHtml == "as the command left it");
    std::string required;
    for (const std::string& name : form.MissingGauges.Names()) required += name + "|";
    CHECK(required == row.required);
  }
}

TEST_CASE_FIXTURE(Program, "a panel that is there but cannot be read is told from none at all") {
  const auto aircraft = simulator.Fs() / "Aircraft";
  for (const char* panel : {"Folder/Panel/panel.cfg", "Target/panel.cfg", "Bare"}) {
    std::filesystem::create_directories(aircraft / panel);
  }
  simulator.AddAircraft("Alias", "alias=Target\n");
  simulator.AddAircraft("Lost", "alias=Nowhere\n");
  const Machine machine = simulator.Services();
  const auto fault = [&](const char* name) {
    GaugeReport report;
    const EntryQuestions ask;
    PanelReport panel(name, ask, report);
    MentionFinder mentions(machine.files, machine.text, simulator.FSPath());
    return PanelReader(machine.files, machine.text, loop, mentions)
        .Read(simulator.FSPath(), name, panel);
  };
  for (const char* name : {"Bare", "Lost", "None"}) CHECK(fault(name) == FileFault::None);
  for (const char* name : {"Folder", "Alias"}) CHECK(fault(name) != FileFault::None);
}

TEST_CASE_FIXTURE(Program, "the walk names folders as listed and fills the bar with every entry") {
  simulator.AddAircraft("beta", "x\n");
  simulator.AddAircraft("Alpha", "x\n");
  Put(simulator.Fs() / "Aircraft" / "readme.txt", "no folder");
  std::string scanned;
  loop.on_turn = [&] { scanned += Status() + "|"; };
  const std::string before = Status() + "|";
  form.EnumerateGauges();
  // A turn for each entry, "." and ".." included, in both walks, and for each line of a panel.
  CHECK(Replaced(scanned, before, "-") ==
        "--------Scanning Alpha|Scanning Alpha|Scanning beta|Scanning beta|");
  const HeadlessProgressBar& bar = Window().ProgressBarNamed("ProgressBar1");
  CHECK(bar.Max() == 5);
  CHECK(bar.Value() == 5);
  Click("menMain");
  CHECK(bar.Value() == 0);

  simulator.registry.applications = {{"Flight Simulator", TextValue("Not Found")}};
  Click("menProbe");
  CHECK(bar.Max() == 0);
  CHECK(Window().LabelNamed("lblFilePath").Caption() == "Flight Simulator: Not Found");
}

}  // namespace
}  // namespace panelkit::test
