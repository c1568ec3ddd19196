// Whole panels through EnumerateGauges, whole report texts out.
#include <doctest/doctest.h>

#include "analysis/line_reader.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

struct Case {
  const char* name;
  const char* panel;
  const char* report;    // Lines of the probe, without "&nbsp;" runs: "W" window, "G" gauge line.
  const char* required;  // File parts that a run in Clean Gauges mode collects.
};

constexpr Case kCases[] = {
    {"a normal panel pairs windows and titles by position",
     "[Window Titles]\nWindow00=Main Panel\nWindow01=Radio Stack\n\n[Other]\n[Window00]\n"
     "size=640\ngauge00=zzz!speed, 10, 20\ngauge01=xyz, 30, 20\n[Window01]\n"
     "gauge00=abc!clock, 0, 0\n[Other Section]\n",
     "W Window00=Main Panel\nG xyz\nW Window01=Radio Stack\nG abc!clock\n", "zzz xyz abc "},
    {"without titles nothing is named", "[Window00]\ngauge00=abc,1\n", "", ""},
    {"a header directly below the titles becomes a title itself",
     "[Window Titles]\nWindow00=Main\n[Window00]\nsize=1\ngauge00=abc,1\n[Window01]\n"
     "gauge00=def,1\n",
     "W Window00=Main\nG abc\nW [Window00]\nG def\n", "abc def "},
    {"windows beyond the titles start again at the first, less their first line",
     "[window titles]\nwindow00=One\n\n[Window00]\ngauge00=a1,1\n[Window01]\ngauge00=lost,1\n"
     "gauge01=a2,1\n[Window02]\n\ngauge00=a3,1\n",
     "W window00=One\nG a1\nW window00=One\nG a2\nW window00=One\nG a3\n", "a1 a2 a3 "},
    {"what counts as a gauge line, and what its entry is",
     "[Window Titles]\nWindow00=W\n\nGAUGE07=up!x,1,2\n gauge00=indented,1\n//gauge00=comment,1\n"
     "gauge_size=1,2\ngauge00=blank ,1\ngauge01= lead,1\ngauge02=nocomma\ngauge03=\n"
     "gauge04plain,9\ngauge05=a=b,1\n",
     "W Window00=W\nG up!x\nG 1\nG blank \nG  lead\nG nocomma\nG gauge04plain\nG a=b\n",
     "up 1 blank   lead nocomma gauge04plain a=b "},
    {"an empty entry occurs in every key", "[Window Titles]\nWindow00=W\n\ngauge00=,1,2\n", "",
     " "},
    {"a second titles header starts the list afresh",
     "[Window Titles]\nWindow00=Old\n\n[Window09]\n[Window Titles]\nWindow00=New\n\ngauge00=a,1\n",
     "W Window00=New\nG a\n", "a "},
    {"the same entry twice gives two lines and one name",
     "[Window Titles]\nWindow00=W\n\ngauge00=a!x,1\ngauge01=a!y,1\n",
     "W Window00=W\nG a!x\nG a!y\n", "a "},
    {"lone CR and lone LF end a line, and the last line needs no end",
     "[Window Titles]\rWindow00=W\r\rgauge00=a,1\rgauge01=b,2", "W Window00=W\nG a\nG b\n", "a b "},
    {"letters of the code page come through",
     "[Window Titles]\nWindow00=Tableau fran\xE7"
     "ais\n\ngauge00=\xC9toile!Vario,1\n",
     "W Window00=Tableau français\nG Étoile!Vario\n", "Étoile "},
    {"an alias that leads nowhere ends the aircraft", "alias=No Such\\Panel\n", "", ""},
    {"an alias to itself ends the aircraft",
     "[Window Titles]\nWindow00=W\n\ngauge00=a,1\n[Window01]\nx\nALIAS= Alpha\\Panel \n",
     "W Window00=W\nG a\n", "a "},
};

std::string Expected(const std::string& lines) {
  std::string html;
  LineReader reader(lines);
  while (!reader.AtEnd()) {
    const std::string line(reader.Next());
    if (html.empty()) html = "<b>AIRCRAFT: ALPHA</b><br>\r\n";
    html += line[0] == 'W' ? "&nbsp; &nbsp; " + line.substr(2) + "<br>\r\n"
                           : "&nbsp; &nbsp; &nbsp; &nbsp; &nbsp; " + line.substr(2) +
                                 " *** MISSING ***<br>\r\n";
  }
  return html;
}

std::string Joined(const NameList& names) {
  std::string joined;
  for (const std::string& name : names.Names()) joined += name + " ";
  return joined;
}

TEST_CASE("panels give their report lines and required names") {
  for (const Case& row : kCases) {
    CAPTURE(row.name);
    Simulator simulator;
    simulator.AddAircraft("Alpha", row.panel);
    simulator.AddGauge("ZZZ.GAU");
    Program program(simulator);
    program.form.EnumerateGauges();
    CHECK(program.form.ReportHtml == Expected(row.report));

    program.form.ReportHtml = "as the command left it";
    program.form.CollectRequiredOnly = true;
    program.form.EnumerateGauges();
    CHECK(program.form.ReportHtml == "as the command left it");
    CHECK(Joined(program.form.MissingGauges) == row.required);
  }
}

TEST_CASE("an alias is followed to another aircraft's panel under the own name") {
  Simulator simulator;
  simulator.AddAircraft("Alpha", "alias=Beta\\Panel\n");
  simulator.AddAircraft("Beta", "// Alias=  gamma\\panel  \n");
  simulator.AddAircraft("Gamma", "[Window Titles]\nWindow00=W\n\ngauge00=have,1\ngauge01=g,1\n");
  simulator.AddGauge("have.gau");
  Program program(simulator);
  program.form.ListAllGauges = true;
  program.form.EnumerateGauges();
  std::string expected;
  for (const std::string name : {"ALPHA", "BETA", "GAMMA"}) {
    expected += "<b>AIRCRAFT: " + name +
                "</b><br>\r\n"
                "&nbsp; &nbsp; Window00=W<br>\r\n"
                "&nbsp; &nbsp; &nbsp; &nbsp; &nbsp; have<br>\r\n"
                "&nbsp; &nbsp; &nbsp; &nbsp; &nbsp; g *** MISSING ***<br>\r\n";
  }
  CHECK(program.form.ReportHtml == expected);
}

TEST_CASE("at most 100 titles count, the next line belongs to the first window") {
  std::string panel = "[Window Titles]\n";
  for (int i = 0; i < 101; ++i) panel += "window" + std::to_string(i) + "=t\n";
  Simulator simulator;
  simulator.AddAircraft("Alpha", panel + "gauge00=a,1\n");
  Program program(simulator);
  program.form.EnumerateGauges();
  CHECK(program.form.ReportHtml == Expected("W window0=t\nG a\n"));
}

TEST_CASE("the walk names folders as listed and fills the bar with every entry") {
  Simulator simulator;
  simulator.AddAircraft("beta", "x\n");
  simulator.AddAircraft("Alpha", "x\n");
  std::filesystem::create_directories(simulator.Fs() / "Aircraft" / "gamma" / "Panel" /
                                      "panel.cfg");
  Put(simulator.Fs() / "Aircraft" / "readme.txt", "no folder");
  Program program(simulator);
  std::string scanned;
  program.loop.on_turn = [&] {
    if (!scanned.ends_with(program.Status() + "|")) scanned += program.Status() + "|";
  };
  const std::string before = program.Status();
  program.form.EnumerateGauges();
  CHECK(scanned == before + "|Scanning Alpha|Scanning beta|Scanning gamma|");
  CHECK(program.Window().ProgressBarNamed("ProgressBar1").Max() == 6);
  CHECK(program.Window().ProgressBarNamed("ProgressBar1").Value() == 6);
  program.Click("menMain");
  CHECK(program.Window().ProgressBarNamed("ProgressBar1").Value() == 0);
}

TEST_CASE("a simulator that is not there gives an empty report") {
  for (const char* folder : {"Not Found", "C:\\no such folder", "?*"}) {
    Simulator simulator;
    simulator.registry.applications = {{"Flight Simulator", TextValue(folder)}};
    Program program(simulator);
    program.Click("menProbe");
    CHECK(program.form.MissingGauges.UpperBound() == 0);
    CHECK(program.Status() == "Done");
    CHECK(program.Window().ProgressBarNamed("ProgressBar1").Max() == 0);
  }
}

TEST_CASE("a panel that is no panel costs nothing but its own lines") {
  Simulator simulator;
  simulator.AddAircraft("Binary", std::string("\0\xFF\x1A[Window Titles]\0\r\r\n\n\xFE", 24));
  simulator.AddAircraft("Empty", "");
  simulator.AddAircraft("Huge", std::string(100'000'000, 'x'));
  simulator.AddAircraft("Zulu", "[Window Titles]\nwindow\n\ngauge00=a,1\n");
  Program program(simulator);
  program.Click("menProbe");
  CHECK(program.form.MissingGauges.Names() == std::vector<std::string>{"a"});
}

}  // namespace
}  // namespace panelkit::test
