// Which simulator a program works on: the options of the command line that both programs take.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/local_machine.h"
#include "search/deeds.h"

namespace CLI {
class App;
}

namespace panelkit {

/// What the user typed, as UTF-8; empty if left out.
struct SimulatorChoice {
  std::string simulator;
  std::string prefix;  ///< Native folder of a Wine prefix.
};

/// Adds --simulator and --prefix, which are read into `choice`.
void AddSimulatorOptions(CLI::App& app, SimulatorChoice& choice);

/// What is wrong with an argument that is empty, as a script's variable may be that is not set: it
/// would count as left out. Empty if there is none. `arguments` starts with the program's name.
std::string EmptyArgumentComplaint(const std::vector<std::string>& arguments);

/// The machine of the chosen prefix, else the first that has a simulator. Null, with the reason in
/// `complaint`, if there is no such prefix.
std::unique_ptr<LocalMachine> OpenChosenMachine(const SimulatorChoice& choice,
                                                std::string& complaint);

/// Why a simulator's folder, a Windows path, is of no use; empty if it is there.
std::string FolderComplaint(LocalMachine& machine, const std::string& simulator);

/// How to write commands of the console so that they use the same simulator.
CommandStyle StyleFor(LocalMachine& machine, const SimulatorChoice& choice);

}  // namespace panelkit
