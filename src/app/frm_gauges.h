// The main window: the program's start-up object, its commands, and the state that they share.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/frm_about.h"
#include "app/next_steps.h"
#include "app/sorted_list.h"
#include "app/status_line.h"
#include "brake/brake_setting.h"
#include "cabinet/cab_file.h"
#include "gauges/gauge_mover.h"
#include "gauges/gauge_report.h"
#include "gauges/name_list.h"
#include "gauges/spare_selection.h"
#include "pages/page_file.h"
#include "platform/machine.h"
#include "platform/toolkit.h"

namespace panelkit {

/// The program. A window toolkit gives it a window and an event loop, a machine the simulator's
/// files. Handlers run one at a time: while one is at work, a click on anything but Exit Program is
/// dropped. What a click could not do is told on the status line, and no exception leaves it; an
/// operation that is called directly lets exceptions out.
class frmGauges {
 public:
  /// Makes the window, not shown yet, and connects its events. Toolkit and services must outlive
  /// the form. A `simulator` folder, if not empty, stands in for the registry's answer.
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

  /// Looks for the missing gauges in these folders and files (Windows paths), after a probe if none
  /// has run, whose report it does not show. Does nothing while a command runs, and without a
  /// simulator.
  void FindIn(const std::vector<std::string>& places);

  /// What the strip below the pane offers.
  NextSteps& Steps() { return next_; }

  /// The simulator's folder: empty if none is installed, "Not Found" if its entry is damaged.
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

  /// Shows the welcome page.
  void LoadWelcome();

  /// Shows the page that asks the user to wait. One that cannot be written is no loss.
  void LoadWorking();

  /// Sets the caption of menBrake by the simulator's configuration, adding the setting, after a
  /// backup, if it is missing. Without a simulator: disables the commands and shows the page that
  /// says so.
  void SetupBrakes();

  /// Writes `b` (1: messages are shown, 0: hidden) into the setting. A configuration that cannot be
  /// read or written stays as it is.
  void SetBrakes(int b);

  /// Scans for the gauges that no panel names, as Clean Gauges does before it moves anything.
  /// nullopt if a needed gauge could be lost; the status line says why.
  std::optional<SpareSelection> FindSpare();

  /// What the caption of menBrake, the program's only memory of it, says of the brake messages.
  bool BrakeMessagesAreShown() const;

  /// What the last look at fs2002.cfg, or the last edit of it, came to.
  const BrakeOutcome& Brakes() const { return brakes_; }

  /// What the last command has to tell.
  const StatusLine& Status() const { return status_; }

  /// What the last report command found; nullptr if it made no report.
  const GaugeReport* Report() const { return report_ ? &*report_ : nullptr; }

  /// Aircraft whose panel was there but could not be read in the last scan.
  const std::vector<std::string>& Unreadable() const { return unreadable_; }

  /// Of these files in Gauges, those that a panel names in a way which the last scan's report does
  /// not read, each with its first mention.
  std::vector<std::pair<std::string, Mention>> NamedOtherwise(
      const std::vector<std::string>& files) const;

  /// What became of the files that the last Clean Gauges was to move.
  const MoveOutcome& Moved() const { return moved_; }

  // What the next steps ask for.

  /// Runs a step as a pick of the menu runs: alone, and with its failure told.
  void RunAlone(const std::function<void()>& work);

  /// Makes the report of a probe, or of all gauges, anew, and its page without showing it.
  void Scan(bool list_all_gauges);

  /// Writes `page` to the page file `name` ("HINTS.HTM") and shows it.
  void ShowOwnPage(const std::string& name, const std::string& page);

  /// Starts anew with the simulator in this folder, a Windows path.
  void StartWith(const std::string& folder);

  /// The simulator that stands in for the registry's answer, or empty.
  const std::string& ChosenSimulator() const { return simulator_; }

  std::string PageFile() const;
  std::string BrakePageFile() const;

  std::string ReportHtml;      ///< The page under construction.
  NameList MissingGauges;      ///< File parts: missing ones or, collecting only, required ones.
  bool ListAllGauges = false;  ///< List gauges that are present, too.
  bool CollectRequiredOnly = false;  ///< Write no lines, collect every entry.
  /// Clean moves nothing if a panel could not be read, and no file that a panel names in a way
  /// which the reports do not read.
  bool Careful = false;
  StopRequest Stop;              ///< Ends Clean's moving of files early, without a report.
  std::shared_ptr<CABFile> cab;  ///< The last cabinet listed.

 private:
  using Handler = void (frmGauges::*)();

  void WireEvents();
  void OnClick(std::string_view item, Handler handler);
  void GiveUp(const std::string& reason);
  void MakeReport(bool list_all_gauges);
  std::vector<std::string> Sorted(const std::vector<std::string>& names);
  PagePlace ShowPage(const std::string& PagePath);
  void TellOf(const PagePlace& place);
  std::string OwnFile(const std::string& name) const;
  void ShowNoSimulator();
  void EnableCommands(bool enabled);
  void TellOfReport();
  void ArchiveSpare(const SpareSelection& spare);
  std::string WhyNothingMoves() const;
  bool TablesAreFull() const;
  void AddCabinetRows(const std::string& FSPath);
  void SetBrakeCaption(bool shown);
  void TellOfBrakes();

  Machine machine_;
  std::string simulator_;
  std::unique_ptr<Form> form_;
  EventLoop& loop_;
  WebBrowser& WebBrowser1;
  Strip& strip_;
  Label& lblFilePath;
  ProgressBar& ProgressBar1;
  SortedList List1;
  frmAbout about_;
  bool aircraft_listed_ = true;
  bool at_work_ = false;
  bool told_of_brakes_ = false;  // The status line tells what a brake edit could not do.
  StatusLine status_;            // lblStatus.
  std::optional<GaugeReport> report_;
  std::vector<std::string> unreadable_;
  std::vector<std::string> unreadable_variants_;  // Panels beside the aircraft's `Panel`.
  std::vector<std::string> not_named_;  // Cabinets whose names the cabinet service does not take.
  MoveOutcome moved_;
  BrakeOutcome brakes_;
  NextSteps next_;
};

}  // namespace panelkit
