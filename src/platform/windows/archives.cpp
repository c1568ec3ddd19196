#include "platform/windows/archives.h"

#include <windows.h>

#include <array>

#include "platform/windows/native_file.h"
#include "platform/windows/paths.h"
#include "platform/windows/wide.h"

namespace panelkit {
namespace windows {
namespace {

class TemporaryFile : public UnpackedFile {
 public:
  TemporaryFile() {
    std::array<wchar_t, MAX_PATH> folder{};
    std::array<wchar_t, MAX_PATH> name{};
    if (GetTempPathW(MAX_PATH, folder.data()) == 0 ||
        GetTempFileNameW(folder.data(), L"pnl", 0, name.data()) == 0) {
      return;
    }
    name_ = name.data();
    path_ = Utf8(name_);
  }
  ~TemporaryFile() override {
    if (!name_.empty()) DeleteFileW(name_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  bool Fill(std::string_view bytes, std::int64_t modified) const {
    const Handle file(CreateFileW(name_.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file || !WriteAll(file.Get(), bytes)) return false;
    const auto steps = static_cast<std::uint64_t>((modified + 11'644'473'600) * 10'000'000);
    const ::FILETIME time{static_cast<DWORD>(steps), static_cast<DWORD>(steps >> 32U)};
    return SetFileTime(file.Get(), nullptr, nullptr, &time) != 0;
  }

  const std::string& Path() const override { return path_; }

 private:
  std::wstring name_;
  std::string path_;
};

}  // namespace

WindowsArchives::WindowsArchives(const Text& text)
    : LibarchiveReader(text, [](std::string_view path) { return FilePath(path); }) {}

std::unique_ptr<UnpackedFile> WindowsArchives::Unpack(std::string_view bytes,
                                                      std::int64_t modified) const {
  auto file = std::make_unique<TemporaryFile>();
  if (!file->Fill(bytes, modified)) return nullptr;
  return file;
}

}  // namespace windows

// The library keeps wide names here, whatever the locale.
std::shared_ptr<void> ConvertNamesToUtf8() {
  return nullptr;
}

}  // namespace panelkit
