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
  /// nothing where there is no such drive. The folder need not exist.
  std::optional<std::string> Root(char letter) const;

  /// The native folder that holds one folder a server, for paths like "\\server\share".
  std::string NetworkRoot() const;

  /// The letter of the drive whose folder holds the absolute native path most closely, and the rest
  /// of the path, empty or beginning with a slash. 'Z' and the whole path where none does.
  struct Place {
    char letter;
    std::string rest;
  };
  Place Holding(std::string_view native_path) const;

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
