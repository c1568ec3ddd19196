// Where Wine prefixes lie.
#pragma once

#include <string>
#include <vector>

namespace panelkit {

/// A folder that is or might be a Wine prefix.
struct WinePrefix {
  std::string folder;    ///< Native, absolute.
  std::string found_by;  ///< "WINEPREFIX", a manager's name, or empty for Wine's own default.
};

/// The prefixes of this user, by preference: the one that the variable WINEPREFIX names, alone;
/// else ~/.wine, whether or not it is there, then those that hold a registry in the usual folders
/// of Lutris, Bottles, PlayOnLinux and Steam, in flatpak homes too. Never empty; no prefix twice.
std::vector<WinePrefix> WinePrefixes();

/// The file of a prefix that holds the registry of the machine.
std::string RegistryFileOf(const std::string& prefix);

}  // namespace panelkit
