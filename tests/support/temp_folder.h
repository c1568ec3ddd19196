// Files on disk for the length of one test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace panelkit::test {

/// The UTF-8 text of a path, and back: what std::filesystem::path's own text is differs by system.
std::string Utf8(const std::filesystem::path& path);
std::filesystem::path FromUtf8(std::string_view text);

/// A new empty folder, removed with all it holds at the end, read-only entries included.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path operator/(std::string_view name) const { return path_ / FromUtf8(name); }

 private:
  std::filesystem::path path_;
};

/// Writes `bytes` to a file, making the folders on the way.
void Put(const std::filesystem::path& file, std::string_view bytes);

/// The bytes of a file; a text that says so where it cannot be read.
std::string Get(const std::filesystem::path& file);

/// Each file below `folder`, by its path with "/" between, on a line of its own, sorted.
std::string Tree(const std::filesystem::path& folder);

/// `text` with each `what` in it replaced.
std::string Replaced(std::string text, std::string_view what, std::string_view by);

}  // namespace panelkit::test
