// Where archived gauges came from.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/files.h"
#include "platform/text.h"

namespace panelkit {

/// One move into the archive.
struct SpareRecord {
  std::string time;    ///< "2026-11-25 20:11:05", UTC.
  std::string folder;  ///< The Gauges folder that it came from, as Files::NativePath has it.
  std::string name;    ///< The file's name as it was spelt there.
};

/// The ledger beside an archive: a text file with a line for each move, its parts between tabs, the
/// newest last. Lines that are damaged count as missing, and stay. It tells, and decides nothing by
/// itself: a line may be there although its move was never made.
class SpareLedger {
 public:
  /// Reads that of the archive in the folder `spare`.
  SpareLedger(const Files& files, const Text& text, const std::string& spare);

  /// The last record of an archived file, case ignored; nullptr if it has none.
  const SpareRecord* Find(std::string_view archived_name) const;

 private:
  const Text& text_;
  std::unordered_map<std::string, SpareRecord> records_;  // By the lowered name.
};

/// Adds a record to the ledger of the archive in the folder `spare` and writes it to the disk, if
/// that can be. Of programs that do so at once, each holds the folder's lock.
void AddRecord(Files& files, const std::string& spare, const SpareRecord& record);

}  // namespace panelkit
