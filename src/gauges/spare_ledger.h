// Where archived gauges came from.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/text.h"

namespace panelkit {

/// One move into the archive.
struct SpareRecord {
  std::string time;    ///< "2026-11-25 20:11:05", UTC.
  std::string folder;  ///< The Gauges folder that the file came from, as a Windows path.
  std::string name;    ///< The file's name as it was spelt there.
};

/// The ledger beside an archive: a text file with a line for each move, its parts between tabs, the
/// newest last. Lines that are damaged count as missing. It tells, and decides nothing by itself: a
/// line may be there although its move failed, and of two programs that write at once one line may
/// be lost.
class SpareLedger {
 public:
  /// Of the archive in the folder `spare`. Reads it.
  SpareLedger(Files& files, const Text& text, const std::string& spare);

  /// The last record of an archived file, case ignored; nullptr if it has none.
  const SpareRecord* Find(std::string_view archived_name) const;

  /// Adds a record of now for each file, and writes them to the disk. What cannot be written is
  /// left out.
  void Add(const std::string& folder, const std::vector<std::string>& names);

 private:
  void Read();

  Files& files_;
  const Text& text_;
  std::string path_;
  std::vector<SpareRecord> records_;
};

/// The time of now in UTC, "2026-11-25 20:11:05" where `separator` is ":".
std::string TimeOfNow(char separator);

}  // namespace panelkit
