// Unpacks the entries of a cabinet, by libmspack.
#pragma once

#include <mspack.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/wine/native_file.h"

namespace panelkit {

/// Unpacks entries of one cabinet, or of a set of which it is the first. Entries unpacked in their
/// order cost each folder's data once. After a failed Extract the extractor is of no further use,
/// since its position in the compressed data is unknown.
class CabinetExtractor {
 public:
  /// Reads from `cabinet`, which outlives the extractor. If libmspack refuses the cabinet, each
  /// Extract gives the reason.
  explicit CabinetExtractor(const OpenFile& cabinet);
  ~CabinetExtractor();
  CabinetExtractor(const CabinetExtractor&) = delete;
  CabinetExtractor& operator=(const CabinetExtractor&) = delete;

  /// Writes the content of entry `index` (counted from 0 over all of the first cabinet's entries)
  /// to the open file `output`. 0 when all `size` bytes are written and their checksums hold, else
  /// a code of winerror.h: 13 for damage, 23 for a wrong checksum, 112 for a full disk, ...
  std::uint32_t Extract(std::size_t index, std::uint32_t size, const OpenFile& output);

  /// The name, as stored, of the cabinet that follows the last one of the set; empty if none does.
  std::string NextCabinet() const;

  /// Adds the cabinet that follows. 0, or 13 if it is no continuation of the last one.
  std::uint32_t Append(std::unique_ptr<OpenFile> next);

 private:
  // The file and memory functions that libmspack calls.
  struct System : mspack_system {
    System();
    int failure = 0;  // errno of the last call that failed.
  };
  struct Stream;
  struct Destroy {
    void operator()(mscab_decompressor* decompressor) const {
      mspack_destroy_cab_decompressor(decompressor);
    }
  };

  struct Opened {
    mscabd_cabinet* cabinet;  // Null if it is refused.
    std::uint32_t error;      // Why it is refused (a code of winerror.h), else 0.
  };

  Opened Open(const OpenFile& cabinet);
  std::uint32_t ErrorOf(int result) const;

  System system_;
  std::unique_ptr<mscab_decompressor, Destroy> decompressor_;
  std::vector<std::unique_ptr<OpenFile>> appended_;
  mscabd_cabinet* first_ = nullptr;
  mscabd_cabinet* last_ = nullptr;
  std::uint32_t error_ = 0;            // Why the first cabinet was refused.
  std::vector<mscabd_file*> entries_;  // Of the first cabinet.
};

}  // namespace panelkit
