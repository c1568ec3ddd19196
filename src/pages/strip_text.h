// The sentences of the strip below a report.
#pragma once

#include <cstddef>
#include <string>

namespace panelkit {

/// "1 file", "13 files"; `what` may be more than one word: "required file".
std::string Counted(std::size_t count, const std::string& what);

/// After a report: how many required files are missing.
std::string MissingText(std::size_t missing);

/// After Clean Gauges: `moved` files are in the archive, of which panels name `named` in a way
/// which the reports do not read.
std::string MovedText(std::size_t moved, std::size_t named);

/// `restored` of `wanted` moved files are back in Gauges.
std::string PutBackText(std::size_t restored, std::size_t wanted);

/// So many of the moved files have not come back.
std::string StillInSpareText(std::size_t files);

/// While so many required files are looked for.
std::string LookingText(std::size_t required);

/// How far it has come: "120 files, 3 archives".
std::string SearchedText(std::size_t files, std::size_t archives);

/// Something was found for `found` of the `required` files, and can be installed for `helped`.
std::string FoundText(std::size_t helped, std::size_t found, std::size_t required);

/// After an installation of `copied` files.
std::string InstalledText(std::size_t copied, std::size_t missing);

/// So many files of an installation were removed, so many others stayed.
std::string TakenOutText(std::size_t removed, std::size_t kept);

inline constexpr const char* kNoSimulatorText = "Flight Simulator 2002 was not found.";

/// The window works on the simulator in `folder`; `registered` is how many this machine has.
std::string SimulatorText(const std::string& folder, std::size_t registered);

/// The chosen `folder` is no simulator's any more.
std::string SimulatorGoneText(const std::string& folder);

/// `folder`, which the user has picked, is no simulator's.
std::string NoSimulatorThereText(const std::string& folder);

}  // namespace panelkit
