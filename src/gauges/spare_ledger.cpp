#include "gauges/spare_ledger.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

#include "text/line_reader.h"

namespace panelkit {
namespace {

std::string RecordLine(const SpareRecord& record) {
  return record.time + "\t" + record.folder + "\t" + record.name + "\r\n";
}

}  // namespace

SpareLedger::SpareLedger(Files& files, const Text& text, const std::string& spare)
    : files_(files), text_(text), path_(spare + ".txt") {
  Read();
}

void SpareLedger::Read() {
  records_.clear();
  const FileContent file = files_.Read(path_);
  if (!file.bytes) return;
  LineReader lines(*file.bytes, LoneLf::EndsLine);
  while (!lines.AtEnd()) {
    const std::string_view line = lines.Next();
    const std::size_t folder = line.find('\t');
    const std::size_t name = line.rfind('\t');
    if (folder == name || name + 1 == line.size()) continue;
    records_.push_back({std::string(line.substr(0, folder)),
                        std::string(line.substr(folder + 1, name - folder - 1)),
                        std::string(line.substr(name + 1))});
  }
}

const SpareRecord* SpareLedger::Find(std::string_view archived_name) const {
  const std::string lowered = text_.Lower(archived_name);
  const auto found =
      std::find_if(records_.rbegin(), records_.rend(),
                   [&](const SpareRecord& record) { return text_.Lower(record.name) == lowered; });
  return found == records_.rend() ? nullptr : &*found;
}

void SpareLedger::Add(const std::string& folder, const std::vector<std::string>& names) {
  if (names.empty()) return;
  Read();  // Another program may have moved gauges meanwhile.
  for (const std::string& name : names) records_.push_back({TimeOfNow(':'), folder, name});
  std::string text;
  for (const SpareRecord& record : records_) text += RecordLine(record);
  files_.ReplaceOrOverwrite(path_, text, Durability::Flushed);
}

std::string TimeOfNow(char separator) {
  using namespace std::chrono;
  const auto now = floor<seconds>(system_clock::now());
  const auto day = floor<days>(now);
  const year_month_day date(day);
  const hh_mm_ss clock(now - day);
  std::array<char, 80> text{};
  static_cast<void>(std::snprintf(
      text.data(), text.size(), "%04d-%02u-%02u %02d%c%02d%c%02d", int(date.year()),
      unsigned(date.month()), unsigned(date.day()), int(clock.hours().count()), separator,
      int(clock.minutes().count()), separator, int(clock.seconds().count())));
  return text.data();
}

}  // namespace panelkit
