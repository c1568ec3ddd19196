// frmGauges: the analysis that the report commands share.
#include "app/frm_gauges.h"
#include "cabinet/mod_gauges.h"
#include "gauges/aircraft_walk.h"
#include "gauges/panel_reader.h"
#include "gauges/panel_report.h"
#include "pages/report_page.h"

namespace panelkit {
namespace {

constexpr std::size_t kExtension = 4;

std::string LessExtension(const std::string& name) {
  return name.substr(0, name.size() - kExtension);
}

ReportKind KindOf(bool list_all_gauges, bool collect_required_only) {
  if (collect_required_only) return ReportKind::Clean;
  return list_all_gauges ? ReportKind::Show : ReportKind::Probe;
}

}  // namespace

void frmGauges::EnumerateGauges() {
  PanelReader panels(machine_.files, machine_.text, loop_);
  const std::string FSPath = GetFSPath();
  GaugeReport& report = report_.emplace();
  report.kind = KindOf(ListAllGauges, CollectRequiredOnly);
  unreadable_.clear();
  MissingGauges.Reset();
  CreateGaugeArray(FSPath);
  lblFilePath.SetCaption("Flight Simulator: " + FSPath);
  const auto on_aircraft = [&](const std::string& aircraft) {
    status_.ShowProgress("Scanning " + aircraft);
    const std::size_t listed = report.panels.size();
    PanelReport panel(aircraft, machine_.text, modGauges::InstalledGauges, MissingGauges, report);
    const FileFault fault = panels.Read(FSPath, aircraft, panel);
    if (fault != FileFault::None) unreadable_.push_back(aircraft);
    ReportHtml += PanelLines(std::span(report.panels).subspan(listed), machine_.text);
  };
  aircraft_listed_ = WalkAircraft(machine_.files, loop_, ProgressBar1, FSPath, on_aircraft);
}

void frmGauges::CreateGaugeArray(const std::string& FSPath) {
  GaugeTable& table = modGauges::InstalledGauges;
  table.Reset();
  const auto names = machine_.files.List(FSPath + R"(\Gauges\*.gau)", ListedEntries::PlainFiles);
  for (std::size_t i = 0; names && i < names->size() && !table.Overflowed(); ++i) {
    loop_.ProcessPending();
    table.Add(machine_.text, kGaugeFileOrigin, LessExtension((*names)[i].name));
  }
  AddCabinetRows(FSPath);
}

void frmGauges::AddCabinetRows(const std::string& FSPath) {
  const auto names = machine_.files.List(FSPath + R"(\Gauges\*.cab)", ListedEntries::PlainFiles);
  not_named_.clear();
  for (std::size_t i = 0; names && i < names->size(); ++i) {
    const std::string& name = (*names)[i].name;
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
