// frmGauges: the analysis that the report commands share.
#include "app/frm_gauges.h"
#include "cabinet/mod_gauges.h"
#include "gauges/aircraft_walk.h"
#include "gauges/panel_entry.h"
#include "gauges/panel_reader.h"
#include "gauges/panel_report.h"

namespace panelkit {
namespace {

constexpr std::size_t kExtension = 4;

std::string LessExtension(const std::string& name) {
  return name.substr(0, name.size() - kExtension);
}

PanelReportMode ModeOf(bool list_all_gauges, bool collect_required_only) {
  if (collect_required_only) return PanelReportMode::RequiredOnly;
  return list_all_gauges ? PanelReportMode::All : PanelReportMode::Missing;
}

}  // namespace

void frmGauges::EnumerateGauges() {
  PanelReader panels(machine_.files, machine_.text, loop_);
  const std::string FSPath = GetFSPath();
  MissingGauges.Reset();
  CreateGaugeArray(FSPath);
  lblFilePath.SetCaption("Flight Simulator: " + FSPath);
  const auto on_aircraft = [&](const std::string& aircraft) {
    lblStatus.SetCaption("Scanning " + aircraft);
    PanelReport report(
        ModeOf(ListAllGauges, CollectRequiredOnly), machine_.text.Upper(aircraft), ReportHtml,
        [this](const std::string& entry) { return GaugeExists(entry); },
        [this](std::string entry) { AddToMissing(entry); });
    panels.Read(FSPath, aircraft, report);
  };
  aircraft_listed_ = WalkAircraft(machine_.files, loop_, ProgressBar1, FSPath, on_aircraft);
}

void frmGauges::CreateGaugeArray(const std::string& FSPath) {
  GaugeTable& table = modGauges::InstalledGauges;
  table.Reset();
  const auto names = machine_.files.List(FSPath + R"(\Gauges\*.gau)", ListedEntries::PlainFiles);
  for (std::size_t i = 0; names && i < names->size() && !table.Overflowed(); ++i) {
    loop_.ProcessPending();
    table.Add(machine_.text, "Gauge File", LessExtension((*names)[i]));
  }
  AddCabinetRows(FSPath);
}

void frmGauges::AddCabinetRows(const std::string& FSPath) {
  const auto names = machine_.files.List(FSPath + R"(\Gauges\*.cab)", ListedEntries::PlainFiles);
  for (std::size_t i = 0; names && i < names->size(); ++i) {
    const std::string& name = (*names)[i];
    loop_.ProcessPending();
    modGauges::CurrentCabinet = LessExtension(name);
    cab = CABFile::Create(machine_);
    cab->CabName = FSPath + R"(\Gauges\)" + name;
    cab->GetInfo();
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
