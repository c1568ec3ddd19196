// Why a required file is missing and what would help, as far as this machine shows it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "gauges/gauge_mover.h"
#include "platform/machine.h"
#include "search/candidate_pool.h"
#include "search/near_name.h"
#include "search/required_files.h"

namespace panelkit {

/// What was seen on disk.
enum class HintKind {
  InSpareGauges,   ///< A file that satisfies an entry lies in SpareGauges.
  Elsewhere,       ///< One lies in the simulator, but not in Gauges itself.
  Hidden,          ///< One lies in Gauges, but is hidden or a system file.
  OtherExtension,  ///< Gauges has a file of the required name that is neither .gau nor .cab.
  NotACabinet,     ///< Gauges has a .cab file that is a program library, as gauge files are.
  LacksEntry,      ///< Gauges has the cabinet, but without the gauge.
  DamagedCabinet,  ///< Gauges has the cabinet, but it cannot be read to its end.
  Misnamed,        ///< A file that satisfies an entry has been renamed, as by a browser.
  EndingInPanel,   ///< The panel names the file with its ending, which does not belong there.
  NearName,        ///< A gauge file or cabinet has nearly the required name.
};

/// One fact.
struct Hint {
  HintKind kind = HintKind::Elsewhere;
  std::string path;             ///< Windows path of the file that was seen.
  std::string wanted = {};      ///< LacksEntry: the gauge; empty if the panel names the file alone.
  std::string right_name = {};  ///< Misnamed, OtherExtension: what to rename the file to.
                                ///< EndingInPanel: what the panel should say.
  std::string nearest = {};     ///< LacksEntry: the entry most like it. DamagedCabinet: the last
                                ///< that can be read. Empty if there is none.
  std::size_t entries = 0;      ///< DamagedCabinet: how many can be read.
  bool ending_is_wrong = false;        ///< LacksEntry: `nearest` is the gauge, but not with ".xml".
  Likeness likeness = Likeness::None;  ///< NearName.
  bool name_is_taken = false;          ///< InSpareGauges: Gauges has another file of that name.
  bool only_holds_name = false;        ///< InSpareGauges: its own name is a longer one.
};

/// Answers for one state of the disk, which it reads when it is made.
class HintFinder {
 public:
  /// `folders` are the Gauges and SpareGauges folders of the simulator `FSPath`.
  HintFinder(const Machine& machine, std::string FSPath, GaugeFolders folders);

  /// What would satisfy an entry comes first, then what stands in the required file's place, then
  /// what may be the same file under a slightly different name.
  std::vector<Hint> HintsFor(const RequiredFile& required) const;

  /// A hint as one line for the user.
  std::string LineOf(const Hint& hint) const;

 private:
  struct NamedFile {
    std::string path;
    ComparableName stem;
  };

  void ReadGauges();
  void AddSatisfying(const RequiredFile& required, std::vector<Hint>& hints) const;
  void AddInPlace(const RequiredFile& required, std::vector<Hint>& hints) const;
  void AddCabinet(const RequiredFile& required, const std::string& path,
                  std::vector<Hint>& hints) const;
  void AddNearNames(const RequiredFile& required, std::vector<Hint>& hints) const;
  bool IsIn(const std::string& folder, const std::string& path) const;
  std::string RelativePath(const std::string& path) const;

  const Machine& machine_;
  std::string FSPath_;
  GaugeFolders folders_;
  CandidatePool pool_;
  std::vector<std::string> in_gauges_;  // Paths of the files in Gauges itself.
  std::vector<NamedFile> gauge_files_;  // All gauge files and cabinets that were met.
};

}  // namespace panelkit
