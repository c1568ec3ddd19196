#include "support/temp_folder.h"

#include <fstream>
#include <iterator>
#include <numeric>
#include <random>
#include <set>
#include <system_error>

namespace fs = std::filesystem;

namespace panelkit::test {

std::string Utf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

fs::path FromUtf8(std::string_view text) {
  return {std::u8string(text.begin(), text.end())};
}

TempFolder::TempFolder() {
  std::random_device any_number;
  do {
    path_ = fs::temp_directory_path() / ("panelkit-test-" + std::to_string(any_number()));
  } while (!fs::create_directory(path_));
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  for (auto it = fs::recursive_directory_iterator(path_, ignored);
       it != fs::recursive_directory_iterator(); it.increment(ignored)) {
    if (!it->is_symlink(ignored)) {
      fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
  }
  fs::remove_all(path_, ignored);
}

void Put(const fs::path& file, std::string_view bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary).write(bytes.data(), std::ssize(bytes));
}

std::string Get(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return "(cannot be read: " + Utf8(file) + ")";
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string Replaced(std::string text, std::string_view what, std::string_view by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
    text.replace(at, what.size(), by);
  }
  return text;
}

std::string Tree(const fs::path& folder) {
  std::set<std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_directory()) continue;
    files.insert(Replaced(Utf8(entry.path().lexically_relative(folder)), "\\", "/") + "\n");
  }
  return std::accumulate(files.begin(), files.end(), std::string());
}

}  // namespace panelkit::test
