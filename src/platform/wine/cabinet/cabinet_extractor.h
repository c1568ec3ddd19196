// Unpacking entries, by libmspack.
#pragma once

#include <mspack.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/wine/native_file.h"

namespace panelkit {

/// Unpacks entries of one cabinet, or of a set that begins with it. Unpacking entries in their
/// order costs each folder's data once. After a failure the state of the compressed data is
/// unknown: the decoder has to be given up.
class CabinetExtractor {
 public:
  /// Reads from `cabinet`, which outlives the decoder. A cabinet that libmspack refuses gives no
  /// entry.
  explicit CabinetExtractor(const OpenFile& cabinet);
  ~CabinetExtractor();
  CabinetExtractor(const CabinetExtractor&) = delete;
  CabinetExtractor& operator=(const CabinetExtractor&) = delete;

  /// Writes the content of entry `index` (counted from 0 over all of the first cabinet's entries)
  /// to the open file `output`. 0 when all `size` bytes are written and their checksums hold, else
  /// a code of winerror.h: 13 for damage, 23 for a wrong checksum, 112 for a full disk, ...
  std::uint32_t Extract(std::size_t index, std::uint32_t size, const OpenFile& output);

  /// The name, as stored, of the cabinet that follows the last one added; empty where none does.
  std::string NextCabinet() const;

  /// Adds the cabinet that follows. 0, or 13 where it does not fit.
  std::uint32_t Append(std::unique_ptr<OpenFile> next);

 private:
  // What libmspack calls for everything outside of itself.
  struct System : mspack_system {
    System();
    int failure = 0;  // The errno of the last call that failed.
  };
  struct Stream;
  struct Destroy {
    void operator()(mscab_decompressor* decompressor) const {
      mspack_destroy_cab_decompressor(decompressor);
    }
  };

  struct Opened {
    mscabd_cabinet* cabinet;  // Null where it is refused,
    std::uint32_t error;      // then with the reason.
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
