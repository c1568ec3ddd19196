#include "gauges/spare_ledger.h"

#include <optional>
#include <utility>

#include "text/line_reader.h"
#include "text/time_text.h"

namespace panelkit {
namespace {

// What stands before the record, such as the beginning of one whose writer was killed, is passed
// over; nullopt if there is no record.
std::optional<SpareRecord> RecordIn(std::string_view line) {
  const std::size_t name = line.rfind('\t');
  if (name == std::string_view::npos || name == 0 || name + 1 == line.size()) return std::nullopt;
  const std::size_t folder = line.rfind('\t', name - 1);
  if (folder == std::string_view::npos || folder < kTimeTextLength) return std::nullopt;
  return SpareRecord{std::string(line.substr(folder - kTimeTextLength, kTimeTextLength)),
                     std::string(line.substr(folder + 1, name - folder - 1)),
                     std::string(line.substr(name + 1))};
}

std::string LedgerOf(const std::string& spare) {
  return spare + ".txt";
}

}  // namespace

SpareLedger::SpareLedger(const Files& files, const Text& text, const std::string& spare)
    : text_(text) {
  const FileContent file = files.Read(LedgerOf(spare));
  if (!file.bytes) return;
  LineReader lines(*file.bytes, LoneLf::EndsLine);
  while (!lines.AtEnd()) {
    if (auto record = RecordIn(lines.Next())) {
      records_.insert_or_assign(text.Lower(record->name), std::move(*record));
    }
  }
}

const SpareRecord* SpareLedger::Find(std::string_view archived_name) const {
  const auto found = records_.find(text_.Lower(archived_name));
  return found == records_.end() ? nullptr : &found->second;
}

void AddRecord(Files& files, const std::string& spare, const SpareRecord& record) {
  files.Append(LedgerOf(spare), record.time + "\t" + record.folder + "\t" + record.name + "\r\n");
}

}  // namespace panelkit
