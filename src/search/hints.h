// Why a required file is missing and what would help, as far as this machine shows it.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_set>
#include <vector>

#include "gauges/gauge_mover.h"
#include "gauges/gauge_report.h"
#include "platform/machine.h"
#include "search/candidate_pool.h"
#include "search/candidate_search.h"
#include "search/deeds.h"
#include "search/near_name.h"
#include "search/required_files.h"

namespace panelkit {

/// What was seen on disk.
enum class HintKind {
  InSpareGauges,   ///< A file that satisfies an entry lies in SpareGauges.
  Elsewhere,       ///< One lies in the simulator, but not in Gauges itself.
  Hidden,          ///< One lies in Gauges, but is hidden or a system file.
  OtherExtension,  ///< Gauges has it under the required name, but with another ending.
  NotACabinet,     ///< Gauges has a .cab file that is none.
  LacksEntry,      ///< Gauges has the cabinet, but without the gauge.
  DamagedCabinet,  ///< Gauges has the cabinet, but it cannot be read to its end.
  Misnamed,        ///< A file that satisfies an entry has been renamed, as by a browser.
  SameEntries,     ///< A cabinet of another name holds exactly the gauges that are wanted.
  EndingInPanel,   ///< The panel names the file with its ending, which does not belong there.
  NearName,        ///< A gauge file or cabinet has nearly the required name.
};

/// One fact, and what to do about it.
struct Hint {
  HintKind kind = HintKind::Elsewhere;
  std::string path = {};     ///< Windows path of the file that was seen; empty of EndingInPanel.
  std::string fact = {};     ///< What was seen, as the beginning of a line.
  Deed deed = {};            ///< What helps most.
  std::string wanted = {};   ///< LacksEntry: the gauge; empty if the panel names the file alone.
  std::string nearest = {};  ///< LacksEntry: the entry most like it. DamagedCabinet: the last that
                             ///< can be read. Empty if there is none.
  bool only_holds_name = false;  ///< InSpareGauges: its own name is a longer one.
};

/// A hint as one line for the user.
std::string LineOf(const Hint& hint, const CommandStyle& style);

/// Answers for one state of the disk, which it reads when it is made.
class HintFinder {
 public:
  /// `folders` are the Gauges and SpareGauges folders of the simulator `FSPath`, of which `report`
  /// is a probe. `on_progress` hears of the search through both; its exceptions come out of here.
  HintFinder(const Machine& machine, std::string FSPath, GaugeFolders folders,
             const GaugeReport& report, CandidateSearch::OnProgress on_progress);

  /// What would satisfy an entry comes first, then what stands in the required file's place, then
  /// what may be the same file under a slightly different name, which no panel names.
  std::vector<Hint> HintsFor(const RequiredFile& required) const;

 private:
  struct InGauges {
    std::string lowered;  // The name.
    std::string path;
  };

  void ReadGauges();
  void AddSatisfying(const RequiredFile& required, std::vector<Hint>& hints) const;
  void AddInPlace(const RequiredFile& required, std::vector<Hint>& hints) const;
  void AddOtherExtension(const RequiredFile& required, const std::string& path,
                         std::vector<Hint>& hints) const;
  void AddCabinet(const RequiredFile& required, const std::string& path,
                  std::vector<Hint>& hints) const;
  Hint OfDamagedCabinet(const RequiredFile& required, const std::string& path,
                        const std::vector<std::string>& entries) const;
  void AddSameEntries(const RequiredFile& required, std::vector<Hint>& hints) const;
  void AddNearNames(const RequiredFile& required, std::vector<Hint>& hints) const;
  std::string InTheWay(const std::string& name) const;
  bool IsIn(const std::string& folder, const std::string& path) const;
  std::string PlaceOf(const std::string& path) const;

  const Machine& machine_;
  std::string FSPath_;
  GaugeFolders folders_;
  std::unordered_set<std::string> named_;  // As NamedFileParts.
  CandidatePool pool_;
  std::vector<InGauges> in_gauges_;  // The files in Gauges itself, by `lowered`.
  NearNames near_names_;             // Of all candidates that no panel names.
  std::vector<const Candidate*> near_candidates_;
};

}  // namespace panelkit
