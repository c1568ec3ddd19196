#include "platform/wine/drives.h"

#include <unistd.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "platform/wine/native_file.h"

namespace panelkit {

namespace {

std::string WithoutClosingSlash(std::string path) {
  if (path.ends_with('/')) path.pop_back();
  return path;
}

/// The part of `path` behind `folder`; nullopt if the folder does not hold it.
std::optional<std::string> Behind(const std::string& folder, std::string_view path) {
  if (!path.starts_with(folder)) return std::nullopt;
  const std::string_view rest = path.substr(folder.size());
  if (!rest.empty() && rest.front() != '/') return std::nullopt;
  return std::string(rest);
}

/// The folder with all links followed.
std::string RealPath(const std::string& folder) {
  const std::unique_ptr<char, decltype(&free)> real(
      realpath(folder.empty() ? "/" : folder.c_str(), nullptr), &free);
  return real ? WithoutClosingSlash(real.get()) : folder;
}

}  // namespace

Drives::Drives(std::string_view prefix) : prefix_(WithoutClosingSlash(std::string(prefix))) {}

std::optional<std::string> Drives::Root(char letter) const {
  const char name = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
  const auto now = std::chrono::steady_clock::now();
  const auto known = known_.find(name);
  if (known != known_.end() && now - known->second.since < std::chrono::seconds(1)) {
    return known->second.root;
  }
  return known_.insert_or_assign(name, Known{now, ReadRoot(name)}).first->second.root;
}

std::optional<std::string> Drives::ReadRoot(char small_letter) const {
  const std::string links = prefix_ + "/dosdevices/";
  const std::string link = links + small_letter + ':';
  std::array<char, PATH_MAX> target{};
  const ssize_t length = readlink(link.c_str(), target.data(), target.size());
  if (length > 0) {
    const std::string_view text(target.data(), static_cast<std::size_t>(length));
    if (text.front() == '/') return WithoutClosingSlash(std::string(text));
    return WithoutClosingSlash(std::filesystem::path(links + std::string(text)).lexically_normal());
  }
  if (StatusOf(link)) return link;
  if (small_letter == 'c') return prefix_ + "/drive_c";
  if (small_letter == 'z') return "";
  return std::nullopt;
}

std::string Drives::NetworkRoot() const {
  return prefix_ + "/dosdevices/unc";
}

std::optional<Drives::Place> Drives::Holding(std::string_view native_path) const {
  std::optional<Place> closest;
  // Of several that hold a path alike, Z: is the one that Wine itself lays out.
  for (const char letter : std::string_view("ZABCDEFGHIJKLMNOPQRSTUVWXY")) {
    const auto root = Root(letter);
    if (!root) continue;
    for (const std::string& folder : {*root, RealPath(*root)}) {
      auto rest = Behind(folder, native_path);
      if (rest && (!closest || rest->size() < closest->rest.size())) {
        closest = {letter, *std::move(rest)};
      }
    }
  }
  return closest;
}

}  // namespace panelkit
