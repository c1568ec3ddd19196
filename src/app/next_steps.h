// The next steps after a command, which the strip below the pane offers.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/status_line.h"
#include "gauges/gauge_mover.h"
#include "pages/hints_page.h"
#include "platform/machine.h"
#include "platform/toolkit.h"
#include "search/hints.h"
#include "search/look.h"
#include "search/written_files.h"

namespace panelkit {

class frmGauges;

/// Offers the steps that a command leaves to do, and does them. What a step needs beside the
/// program's report its button keeps.
class NextSteps {
 public:
  /// The steps of `program`, whose window and status line these are. All must outlive the object.
  NextSteps(frmGauges& program, const Machine& machine, Form& form, EventLoop& loop,
            StatusLine& status);

  /// Sets how pages write commands of the console. The simulator that was chosen in the window, if
  /// any, is added to them.
  void WriteCommandsIn(CommandStyle style) { style_ = std::move(style); }

  /// After a start: the choice of another simulator where there may be one, that is without one,
  /// where this machine has several `simulators`, and where the one chosen earlier is `gone`, a
  /// native path or empty.
  void OfferSimulators(const std::string& gone, std::size_t simulators);

  /// After a report with missing files: why they are missing, and a search for them. The sentence
  /// begins with `told`; where nothing is missing, that is all it says.
  void OfferHints(const std::string& told = {});

  /// After Clean Gauges: bringing back what it moved, or what of that panels name in another way.
  void OfferPutBack();

  /// Looks for the missing gauges of the report in these folders and files (Windows paths).
  void LookIn(const std::vector<std::string>& places);

 private:
  using Names = std::vector<std::string>;
  using Found = std::shared_ptr<Look>;

  void Offer(const std::string& sentence, std::vector<StripButton> steps);
  void OfferAgain() { strip_.Show(offered_); }
  void Do(const std::function<void()>& work);
  StripButton Searching(const char* caption);
  void ShowHints();
  void PutBack(const Names& names, Names moved);
  void LookForThem();
  CandidateSearch::OnProgress ProgressOfSearch(std::size_t places, const Look& look);
  void ShowFound(const Look& look);
  void InstallThem(const Found& look);
  void TakeThemOut(const std::vector<WrittenFile>& written);
  void ChooseSimulator();
  GaugeFolders Folders() const;
  HintsOf Hints();
  CommandStyle Style() const;  // Of the simulator at work.

  frmGauges& program_;
  Machine machine_;
  Form& form_;
  StatusLine& status_;
  Strip& strip_;
  ProgressBar& bar_;
  StopRequest keep_answering_;  // Delivers events, and asks for no stop.
  CommandStyle style_;
  StripContent offered_;  // The last one.
};

}  // namespace panelkit
