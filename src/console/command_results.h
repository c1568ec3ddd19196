// What the commands of the console companion came to, as data: computed first, then printed.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "console/command_line.h"
#include "gauges/gauge_mover.h"
#include "platform/local_machine.h"

namespace panelkit {

/// What the program had to tell beside its result: one sentence each, for standard error.
struct Notes {
  std::vector<std::string> sentences;
  bool failed = false;  ///< The command could not do all of what it was asked.
};

/// A folder by both its names.
struct FolderNames {
  std::string windows;  ///< As the program names it: "C:\FS2002".
  std::string native;   ///< As the system's own programs do: "/home/kim/.wine/drive_c/FS2002".
};

FolderNames NamesOf(const LocalMachine& machine, const std::string& windows_path);

/// Both names in one line, "C:\FS2002 (/home/...)"; one of them if they are equal.
std::string BothNames(const FolderNames& folder);

/// where: the simulator that would be used, and the folder of the program's own files.
struct WhereResult {
  FolderNames simulator;  ///< Empty if none is registered.
  std::string how;        ///< How it was found.
  bool is_there = false;
  FolderNames own_files;
  std::string own_files_how;
};
WhereResult Where(LocalMachine& machine, const CommandLine& line);

/// where --all: one simulator that a registry names.
struct RegisteredSimulator {
  FolderNames folder;
  std::string how;      ///< The registry that names it.
  std::string windows;  ///< The name of that Windows; empty if the registry does not say.
  bool is_there = false;
  std::size_t aircraft = 0;  ///< Folders in Aircraft.
  std::size_t gauges = 0;    ///< Gauge files and cabinets in Gauges.
};

/// The simulators of all Wine prefixes, or of the one in the native folder `prefix` if that is not
/// empty.
std::vector<RegisteredSimulator> AllSimulators(const std::string& prefix);

/// clean, and its dry run.
struct CleanResult {
  FolderNames gauges;
  FolderNames spare;
  MoveOutcome files;  ///< Of a dry run, those that would move stand under `moved`.
  std::vector<std::string> unreadable;  ///< Aircraft whose panel could not be read.
  std::string report;  ///< As asked for, text or page bytes; empty if there is none.
  Notes notes;
};
CleanResult Clean(LocalMachine& machine, const CommandLine& line, const std::string& simulator);

/// restore.
struct RestoreResult {
  FolderNames gauges;
  std::vector<FolderNames> archives;
  RestoreOutcome files;
};
RestoreResult Restore(LocalMachine& machine, const CommandLine& line, const std::string& simulator);

/// brake: the state that fs2002.cfg has at the end.
struct BrakeResult {
  std::optional<bool> shown;  ///< nullopt if the file has no setting or cannot be read.
  Notes notes;
};
BrakeResult Brake(LocalMachine& machine, const CommandLine& line, const std::string& simulator);

}  // namespace panelkit
