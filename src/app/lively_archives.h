// An archive reader that lets the window answer while it reads.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/archive.h"

namespace panelkit {

/// Reads as another reader does, and calls a function before each entry.
class LivelyArchives final : public ArchiveReader {
 public:
  /// `reader` must outlive this object.
  LivelyArchives(const ArchiveReader& reader, std::function<void()> before_entry)
      : reader_(reader), before_entry_(std::move(before_entry)) {}

  ArchiveFault Read(std::string_view path, const OnArchiveEntry& visit) const override {
    return reader_.Read(path, Lively(visit));
  }
  ArchiveFault ReadBytes(std::string bytes, const OnArchiveEntry& visit) const override {
    return reader_.ReadBytes(std::move(bytes), Lively(visit));
  }
  std::unique_ptr<UnpackedFile> Unpack(std::string_view bytes,
                                       std::int64_t modified) const override {
    return reader_.Unpack(bytes, modified);
  }

 private:
  OnArchiveEntry Lively(const OnArchiveEntry& visit) const {
    return [this, &visit](const ArchiveEntry& entry, const ReadArchiveEntry& read) {
      before_entry_();
      return visit(entry, read);
    };
  }

  const ArchiveReader& reader_;
  std::function<void()> before_entry_;
};

}  // namespace panelkit
