#include "platform/wine/archives.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <clocale>

#include "platform/wine/native_file.h"

namespace panelkit {
namespace {

class MemoryFile final : public UnpackedFile {
 public:
  MemoryFile() : descriptor_(memfd_create("panelkit", MFD_CLOEXEC)) {}
  ~MemoryFile() override {
    if (descriptor_ >= 0) close(descriptor_);
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  bool Fill(std::string_view bytes, std::int64_t modified) const {
    const timespec time{static_cast<time_t>(modified), 0};
    const timespec times[2] = {time, time};
    return descriptor_ >= 0 && fchmod(descriptor_, 0644) == 0 && WriteAll(descriptor_, bytes) &&
           futimens(descriptor_, times) == 0;
  }

  void SetPath(const PathResolver& resolver) {
    path_ = resolver.WindowsPathOf("/proc/self/fd/" + std::to_string(descriptor_));
  }
  const std::string& Path() const override { return path_; }

 private:
  int descriptor_;
  std::string path_;
};

/// UTF-8 as the thread's encoding.
class Utf8Locale {
 public:
  Utf8Locale()
      : locale_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)),
        previous_(locale_ ? uselocale(locale_) : nullptr) {}
  ~Utf8Locale() {
    if (!locale_) return;
    uselocale(previous_);
    freelocale(locale_);
  }
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

 private:
  locale_t locale_;
  locale_t previous_;
};

}  // namespace

WineArchives::WineArchives(const PathResolver& resolver, const Text& text)
    : LibarchiveReader(text,
                       [&resolver](std::string_view path) {
                         return std::filesystem::path(resolver.Existing(path).value_or(""));
                       }),
      resolver_(resolver) {}

std::unique_ptr<UnpackedFile> WineArchives::Unpack(std::string_view bytes,
                                                   std::int64_t modified) const {
  auto file = std::make_unique<MemoryFile>();
  if (!file->Fill(bytes, modified)) return nullptr;
  file->SetPath(resolver_);
  return file;
}

std::shared_ptr<void> ConvertNamesToUtf8() {
  return std::make_shared<Utf8Locale>();
}

}  // namespace panelkit
