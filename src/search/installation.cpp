#include "search/installation.h"

#include <memory>

#include "gauges/gauge_mover.h"
#include "search/content_check.h"

namespace panelkit {

InstallFault Install(const Machine& machine, const Candidate& candidate,
                     const std::string& gauges) {
  std::unique_ptr<UnpackedFile> unpacked;
  if (!candidate.inside.empty()) {
    ReadCandidates(machine, {&candidate}, [&](const Candidate&, const ArchiveContent& content) {
      if (content.bytes) unpacked = machine.archives.Unpack(*content.bytes, candidate.modified);
    });
    if (!unpacked) return InstallFault::CannotRead;
  }
  // Another program may bring a file of that name meanwhile.
  const auto lock = machine.files.Lock(gauges);
  if (machine.files.Exists(gauges + "\\" + candidate.name)) return InstallFault::NameTaken;
  const std::string& source = unpacked ? unpacked->Path() : candidate.path;
  const bool copied = CopyGauge(machine.files, source, gauges, candidate.name);
  return copied ? InstallFault::None : InstallFault::CannotCopy;
}

}  // namespace panelkit
