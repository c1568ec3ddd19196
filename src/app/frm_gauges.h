// The main window: the program's start-up object, its commands, and the state that they share.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/frm_about.h"
#include "app/sorted_list.h"
#include "cabinet/cab_file.h"
#include "gauges/gauge_report.h"
#include "gauges/name_list.h"
#include "gauges/spare_selection.h"
#include "platform/machine.h"
#include "platform/toolkit.h"

namespace panelkit {

/// The program. A face gives it a window and an event loop, a machine the simulator's files.
/// Handlers run one at a time: while one is at work, a click on anything but Exit Program is
/// dropped.
class frmGauges {
 public:
  /// Makes the window, not shown yet, and wires its events. Toolkit and services must outlive the
  /// form. A `simulator` folder stands in for the registry's answer.
  frmGauges(Toolkit& toolkit, const Machine& machine, std::string simulator = {});

  /// Runs Form_Load, then shows the window.
  void Show();

  // The commands, as the menu calls them.
  void Form_Load();
  void menExit_Click();
  void menMain_Click();
  void menProbe_Click();
  void menShow_Click();
  void menRemove_Click();
  void menKeybd_Click();
  void menBrake_Click();
  void menVirtual_Click();
  void menVisit_Click();
  void menAboutFS_Click();

  /// The simulator's folder: empty where none is installed, "Not Found" where its entry is damaged.
  std::string GetFSPath() const;

  /// Runs over all aircraft in the mode of ListAllGauges and CollectRequiredOnly: rebuilds
  /// InstalledGauges, MissingGauges and Report, and appends the aircraft's lines to ReportHtml.
  void EnumerateGauges();

  /// Whether a panel entry is installed.
  bool GaugeExists(const std::string& Gauge) const;

  /// Rebuilds InstalledGauges from the simulator's Gauges folder: gauge files first, then cabinets.
  void CreateGaugeArray(const std::string& FSPath);

  /// Cuts `Gauge` before its first "!" and adds it to MissingGauges.
  void AddToMissing(std::string& Gauge);

  /// Shows the welcome page. False where it cannot be written; lblStatus says so then.
  bool LoadWelcome();

  /// Shows the page that asks the user to wait. False as above.
  bool LoadWorking();

  /// Sets the caption of menBrake by the simulator's configuration, adding the setting, after a
  /// backup, where it is missing. Without a simulator: disables the commands and shows the page
  /// that says so.
  void SetupBrakes();

  /// Writes `b` (1: messages are shown, 0: hidden) into the setting. A configuration that cannot be
  /// read or written stays as it is.
  void SetBrakes(int b);

  /// Scans for the gauges that no panel names, as Clean Gauges does before it moves anything.
  /// Nothing where a needed gauge could be lost; lblStatus says why then.
  std::optional<SpareSelection> FindSpare();

  /// What the caption of menBrake, the program's only memory of it, says of the brake messages.
  bool BrakeMessagesAreShown() const;

  /// What went wrong in the last command, in one sentence; empty when nothing did.
  const std::string& Complaint() const { return complaint_; }

  /// What the last report command found; nullptr if it made no report.
  const GaugeReport* Report() const { return report_ ? &*report_ : nullptr; }

  std::string PageFile() const;
  std::string BrakePageFile() const;

  std::string ReportHtml;      ///< The page under construction.
  NameList MissingGauges;      ///< File parts: missing ones or, collecting only, required ones.
  bool ListAllGauges = false;  ///< List gauges that are present, too.
  bool CollectRequiredOnly = false;  ///< Write no lines, collect every entry.
  std::shared_ptr<CABFile> cab;      ///< The last cabinet listed.

 private:
  using Handler = void (frmGauges::*)();

  void WireEvents();
  void OnClick(std::string_view item, Handler handler);
  void RunAlone(Handler handler);
  void MakeReport(bool list_all_gauges);
  std::vector<std::string> Sorted(const std::vector<std::string>& names);
  bool ShowPage(const std::string& PagePath);
  void ShowNoSimulator();
  void ArchiveSpare(const SpareSelection& spare);
  void AddCabinetRows(const std::string& FSPath);
  void BackUp(const std::string& config);
  void SetBrakeCaption(bool shown);
  void BeginCommand();
  void Complain(std::string complaint);
  void EndCommand();

  Toolkit& toolkit_;
  Machine machine_;
  std::string simulator_;
  std::unique_ptr<Form> form_;
  EventLoop& loop_;
  WebBrowser& WebBrowser1;
  Label& lblFilePath;
  Label& lblStatus;
  ProgressBar& ProgressBar1;
  SortedList List1;
  frmAbout about_;
  bool aircraft_listed_ = true;
  bool at_work_ = false;
  std::string complaint_;
  std::optional<GaugeReport> report_;
};

}  // namespace panelkit
