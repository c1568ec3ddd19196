#include "platform/wine/cabinet/cabinet_extractor.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <new>

#include "platform/wine/cabinet/win32_error.h"

namespace panelkit {

namespace {

// libmspack passes a file's name on to System::open without reading it. We pass the address of an
// open file as the name, so that it works on the very file that was listed.
const char* NameOf(const OpenFile& file) {
  return reinterpret_cast<const char*>(&file);
}

// NOLINTBEGIN(*-owning-memory, *-no-malloc, *-static-cast-downcast, cert-dcl50-cpp): libmspack's
// interface is one of C.

// Drops libmspack's messages: the result of the call tells the same.
void Ignore(mspack_file*, const char*, ...) {}

}  // namespace

struct CabinetExtractor::Stream : mspack_file {
  System* system;
  int file;
  off_t position;

  static Stream& Of(mspack_file* stream) { return *static_cast<Stream*>(stream); }

  // Repeats `step` (a pread or pwrite) up to `bytes` or the end of the file. Bytes done, or -1.
  template <typename Step>
  int Repeat(int bytes, Step step) {
    int done = 0;
    while (done < bytes) {
      const ssize_t now = step(done);
      if (now < 0 && errno == EINTR) continue;
      if (now < 0) {
        system->failure = errno;
        return -1;
      }
      if (now == 0) break;
      done += static_cast<int>(now);
      position += now;
    }
    return done;
  }

  static int Read(mspack_file* stream, void* buffer, int bytes) {
    Stream& self = Of(stream);
    return self.Repeat(bytes, [&](int done) {
      return pread(self.file, static_cast<char*>(buffer) + done,
                   static_cast<std::size_t>(bytes - done), self.position);
    });
  }

  static int Write(mspack_file* stream, void* buffer, int bytes) {
    Stream& self = Of(stream);
    return self.Repeat(bytes, [&](int done) {
      return pwrite(self.file, static_cast<const char*>(buffer) + done,
                    static_cast<std::size_t>(bytes - done), self.position);
    });
  }

  static int Seek(mspack_file* stream, off_t offset, int mode) {
    Stream& self = Of(stream);
    off_t base = 0;
    if (mode == MSPACK_SYS_SEEK_CUR) base = self.position;
    if (mode == MSPACK_SYS_SEEK_END) {
      struct stat status {};
      if (fstat(self.file, &status) != 0) return -1;
      base = status.st_size;
    }
    if (base + offset < 0) return -1;
    self.position = base + offset;
    return 0;
  }
};

CabinetExtractor::System::System() : mspack_system{} {
  open = [](mspack_system* self, const char* name, int) -> mspack_file* {
    auto& system = *static_cast<System*>(self);
    const auto& file = *reinterpret_cast<const OpenFile*>(name);
    return new (std::nothrow) Stream{{}, &system, file.Descriptor(), 0};
  };
  close = [](mspack_file* stream) { delete &Stream::Of(stream); };
  read = &Stream::Read;
  write = &Stream::Write;
  seek = &Stream::Seek;
  tell = [](mspack_file* stream) { return Stream::Of(stream).position; };
  message = &Ignore;
  alloc = [](mspack_system* self, std::size_t bytes) {
    // Zeroed, since damaged data may refer to a part of the window that nothing was unpacked to
    // yet: uninitialised memory would end up in the file.
    void* memory = std::calloc(1, bytes);
    if (memory == nullptr) static_cast<System*>(self)->failure = ENOMEM;
    return memory;
  };
  free = [](void* memory) { std::free(memory); };
  copy = [](void* from, void* to, std::size_t bytes) { std::memcpy(to, from, bytes); };
}

// NOLINTEND(*-owning-memory, *-no-malloc, *-static-cast-downcast, cert-dcl50-cpp)

CabinetExtractor::CabinetExtractor(const OpenFile& cabinet)
    : decompressor_(mspack_create_cab_decompressor(&system_)) {
  if (!decompressor_) throw std::bad_alloc();
  const Opened opened = Open(cabinet);
  first_ = last_ = opened.cabinet;
  error_ = opened.error;
  if (first_ == nullptr) return;
  for (mscabd_file* entry = first_->files; entry != nullptr; entry = entry->next) {
    entries_.push_back(entry);
  }
}

CabinetExtractor::~CabinetExtractor() {
  if (first_ != nullptr) decompressor_->close(decompressor_.get(), first_);
}

std::uint32_t CabinetExtractor::Extract(std::size_t index, std::uint32_t size,
                                        const OpenFile& output) {
  if (first_ == nullptr) return error_;
  if (index >= entries_.size() || entries_[index]->length != size) return ERROR_INVALID_DATA;
  system_.failure = 0;
  return ErrorOf(decompressor_->extract(decompressor_.get(), entries_[index], NameOf(output)));
}

std::string CabinetExtractor::NextCabinet() const {
  const bool has_next = last_ != nullptr && (last_->flags & MSCAB_HDR_NEXTCAB) != 0;
  return has_next ? last_->nextname : "";
}

std::uint32_t CabinetExtractor::Append(std::unique_ptr<OpenFile> next) {
  appended_.push_back(std::move(next));
  const auto [cabinet, error] = Open(*appended_.back());
  if (cabinet == nullptr) return error;
  // The index increases along a set; to check it also ends a ring of cabinets.
  if (cabinet->set_id != last_->set_id || cabinet->set_index != last_->set_index + 1 ||
      decompressor_->append(decompressor_.get(), last_, cabinet) != MSPACK_ERR_OK) {
    decompressor_->close(decompressor_.get(), cabinet);
    return ERROR_INVALID_DATA;
  }
  last_ = cabinet;
  return ERROR_SUCCESS;
}

CabinetExtractor::Opened CabinetExtractor::Open(const OpenFile& cabinet) {
  system_.failure = 0;
  mscabd_cabinet* opened = decompressor_->open(decompressor_.get(), NameOf(cabinet));
  return {opened, ErrorOf(decompressor_->last_error(decompressor_.get()))};
}

std::uint32_t CabinetExtractor::ErrorOf(int result) const {
  switch (result) {
    case MSPACK_ERR_OK:
      return ERROR_SUCCESS;
    case MSPACK_ERR_CHECKSUM:
      return ERROR_CRC;
    case MSPACK_ERR_WRITE:
      return Win32ErrorOf(system_.failure, ERROR_WRITE_FAULT);
    default:
      // If no system call failed, the cabinet's content is at fault: too short, out of range, ...
      return system_.failure == 0 ? ERROR_INVALID_DATA
                                  : Win32ErrorOf(system_.failure, ERROR_READ_FAULT);
  }
}

}  // namespace panelkit
