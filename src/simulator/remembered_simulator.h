// The simulator that the user has chosen, kept for the next starts among the program's own files.
#pragma once

#include <string>

#include "platform/files.h"

namespace panelkit {

/// Whether `folder` is a simulator's: it has the folders Aircraft and Gauges.
bool IsSimulator(const Files& files, const std::string& folder);

/// The native path of the chosen folder; empty if none was chosen.
std::string RememberedSimulator(const Files& files);

/// Keeps the choice, by its native path, since Windows paths depend on the Wine prefix.
FileFault RememberSimulator(Files& files, const std::string& folder);

void ForgetSimulator(Files& files);

}  // namespace panelkit
