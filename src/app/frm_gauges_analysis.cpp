// frmGauges: the analysis that the report commands share.
#include "app/frm_gauges.h"
#include "cabinet/mod_gauges.h"
#include "gauges/aircraft_walk.h"
#include "gauges/gauge_file.h"
#include "gauges/mention_finder.h"
#include "gauges/panel_reader.h"
#include "gauges/panel_report.h"
#include "pages/report_page.h"

namespace panelkit {
namespace {

ReportKind ReportKindOf(bool list_all_gauges, bool collect_required_only) {
  if (collect_required_only) return ReportKind::Clean;
  return list_all_gauges ? ReportKind::Show : ReportKind::Probe;
}

}  // namespace

void frmGauges::EnumerateGauges() {
  const std::string FSPath = GetFSPath();
  MentionFinder mentions(machine_.files, machine_.text, FSPath);
  PanelReader panels(machine_.files, machine_.text, loop_, mentions);
  GaugeReport& report = report_.emplace();
  report.kind = ReportKindOf(ListAllGauges, CollectRequiredOnly);
  unreadable_.clear();
  MissingGauges.Reset();
  CreateGaugeArray(FSPath);
  lblFilePath.SetCaption("Flight Simulator: " + FSPath);
  const auto on_progress = [this](int done, int entries) {
    if (done > 0) return ProgressBar1.SetValue(done);
    ProgressBar1.SetMin(0);
    ProgressBar1.SetMax(entries);
  };
  const EntryQuestions ask{[this](const std::string& Gauge) { return GaugeExists(Gauge); },
                           [this](std::string& Gauge) { AddToMissing(Gauge); }};
  const auto on_aircraft = [&](const std::string& aircraft) {
    status_.Show("Scanning " + aircraft);
    const std::size_t listed = report.panels.size();
    PanelReport panel(aircraft, ask, report);
    const FileFault fault = panels.Read(FSPath, aircraft, panel);
    if (fault != FileFault::None) unreadable_.push_back(aircraft);
    ReportHtml += PanelLines(std::span(report.panels).subspan(listed), machine_.text);
  };
  aircraft_listed_ = WalkAircraft(machine_.files, loop_, FSPath, on_progress, on_aircraft);
  report.otherwise_named =
      OtherwiseNamedFiles(mentions.Mentions(), report.named, machine_.text, ask.exists);
  unreadable_variants_ = mentions.Unreadable();
}

void frmGauges::CreateGaugeArray(const std::string& FSPath) {
  GaugeTable& table = modGauges::InstalledGauges;
  table.Reset();
  for (const std::string& name :
       FilesNamed(machine_.files, FSPath + R"(\Gauges\*)" + std::string(kGaugeFileExtension))) {
    if (table.Overflowed()) break;
    loop_.ProcessPending();
    table.Add(machine_.text, kGaugeFileOrigin, LessExtension(name));
  }
  AddCabinetRows(FSPath);
}

void frmGauges::AddCabinetRows(const std::string& FSPath) {
  not_named_.clear();
  for (const std::string& name :
       FilesNamed(machine_.files, FSPath + R"(\Gauges\*)" + std::string(kCabinetExtension))) {
    loop_.ProcessPending();
    modGauges::CurrentCabinet = LessExtension(name);
    cab = CABFile::Create(machine_);
    cab->CabName = FSPath + R"(\Gauges\)" + name;
    // A damaged cabinet gives what can be read of it, without a word; one that the user need only
    // rename is told.
    if (!cab->GetInfo() && machine_.cabinets.GetLastError() == kImpossibleName) {
      not_named_.push_back(name);
    }
  }
}

bool frmGauges::GaugeExists(const std::string& Gauge) const {
  return modGauges::InstalledGauges.Exists(machine_.text, Gauge);
}

void frmGauges::AddToMissing(std::string& Gauge) {
  Gauge.resize(FilePart(Gauge).size());
  MissingGauges.Add(Gauge);
}

}  // namespace panelkit
