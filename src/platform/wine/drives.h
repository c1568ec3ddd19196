// The drives of a Wine prefix.
#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace panelkit {

/// Drive letters and where they lead: the links in the prefix's folder `dosdevices`, each read
/// again after a second at the latest; C: is `drive_c` and Z: is "/" also where no link says so.
class Drives {
 public:
  explicit Drives(std::string_view prefix);

  /// The native folder of the drive `letter` (either case), without a closing slash ("" for "/");
  /// nullopt if there is no such drive. The folder need not exist.
  std::optional<std::string> Root(char letter) const;

  /// The native folder that holds a folder for each server, for paths like "\\server\share".
  std::string NetworkRoot() const;

  /// A path seen from a drive.
  struct Place {
    char letter;
    std::string rest;  ///< Empty or beginning with a slash.
  };

  /// The drive whose folder is the deepest that holds the absolute native path, and the rest of the
  /// path. nullopt if none does.
  std::optional<Place> Holding(std::string_view native_path) const;

 private:
  struct Known {
    std::chrono::steady_clock::time_point since;
    std::optional<std::string> root;
  };

  std::optional<std::string> ReadRoot(char small_letter) const;

  std::string prefix_;
  mutable std::map<char, Known> known_;  // By small letter.
};

}  // namespace panelkit
