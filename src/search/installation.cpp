#include "search/installation.h"

#include <optional>
#include <utility>

#include "gauges/gauge_mover.h"

namespace panelkit {
namespace {

// The content of an entry of an archive; nullopt if it cannot be had.
class EntryFinder {
 public:
  EntryFinder(const Candidate& candidate, const ArchiveReader& archives)
      : candidate_(candidate), archives_(archives) {}

  std::optional<std::string> Find() {
    archives_.Read(candidate_.path, Taking(0));
    if (!content_ || candidate_.inside.size() == 1) return std::move(content_);
    archives_.ReadBytes(*std::exchange(content_, std::nullopt), Taking(1));
    return std::move(content_);
  }

 private:
  // The visitor that takes the wanted entry of the archive at nesting `level`.
  OnArchiveEntry Taking(std::size_t level) {
    const bool is_last = level + 1 == candidate_.inside.size();
    return [this, level, is_last](const ArchiveEntry& entry, const ReadArchiveEntry& read) {
      if (!entry.is_plain_file || entry.name != candidate_.inside[level]) return true;
      if (is_last && (entry.size != candidate_.size || entry.modified != candidate_.modified)) {
        return true;
      }
      content_ = read().bytes;
      return !content_.has_value();
    };
  }

  const Candidate& candidate_;
  const ArchiveReader& archives_;
  std::optional<std::string> content_;
};

InstallFault Copy(Files& files, const std::string& source, const std::string& gauges,
                  const std::string& name) {
  const auto lock = files.Lock(gauges);  // Another program may bring a file of that name meanwhile.
  if (files.Exists(gauges + "\\" + name)) return InstallFault::NameTaken;
  return CopyGauge(files, source, gauges, name) ? InstallFault::None : InstallFault::CannotCopy;
}

}  // namespace

InstallFault Install(const Machine& machine, const Candidate& candidate,
                     const std::string& gauges) {
  if (candidate.inside.empty()) {
    return Copy(machine.files, candidate.path, gauges, candidate.name);
  }
  const auto bytes = EntryFinder(candidate, machine.archives).Find();
  const auto unpacked = bytes ? machine.archives.Unpack(*bytes, candidate.modified) : nullptr;
  if (!unpacked) return InstallFault::CannotRead;
  return Copy(machine.files, unpacked->Path(), gauges, candidate.name);
}

}  // namespace panelkit
