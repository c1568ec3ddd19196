#include "search/installation.h"

#include <memory>

#include "gauges/gauge_mover.h"
#include "search/content_check.h"

namespace panelkit {

InstallFault Install(const Machine& machine, const Candidate& candidate, std::uint64_t content,
                     const std::string& gauges) {
  bool is_unchanged = false;
  std::unique_ptr<UnpackedFile> unpacked;
  const auto take = [&](const Candidate& what, const ArchiveContent& now) {
    is_unchanged = now.bytes && HashOf(*now.bytes) == content;
    if (!is_unchanged || what.inside.empty()) return;
    unpacked = machine.archives.Unpack(*now.bytes, what.modified);
  };
  ReadCandidates(
      machine, {&candidate}, [] { return false; }, take);
  if (!is_unchanged) return InstallFault::CannotRead;
  if (!candidate.inside.empty() && !unpacked) return InstallFault::CannotCopy;
  // Another program may bring a file of that name meanwhile.
  const auto lock = machine.files.Lock(gauges);
  if (machine.files.Exists(gauges + "\\" + candidate.name)) return InstallFault::NameTaken;
  const std::string& source = unpacked ? unpacked->Path() : candidate.path;
  const bool copied = CopyGauge(machine.files, source, gauges, candidate.name);
  return copied ? InstallFault::None : InstallFault::CannotCopy;
}

}  // namespace panelkit
