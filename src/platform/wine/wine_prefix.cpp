#include "platform/wine/wine_prefix.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string_view>
#include <system_error>

#include "platform/wine/directory.h"
#include "platform/wine/native_file.h"
#include "platform/wine/own_folders.h"

namespace panelkit {

namespace {

namespace fs = std::filesystem;

/// Folders below a home, or below its folder for programs' files, each of which is a prefix.
struct Place {
  std::string_view manager;
  std::string_view pattern;  ///< "*" at the end of a part stands for any ending.
};

constexpr std::array<Place, 8> kBelowHome = {{
    {"Lutris", "Games/*"},
    {"Lutris", "Games/*/*"},
    {"PlayOnLinux", ".PlayOnLinux/wineprefix/*"},
    {"Steam", ".steam/steam/steamapps/compatdata/*/pfx"},
    {"Steam", ".steam/root/steamapps/compatdata/*/pfx"},
    {"Steam", ".steam/debian-installation/steamapps/compatdata/*/pfx"},
    {"Steam", ".steam/steam/SteamApps/compatdata/*/pfx"},
    {"Steam", "Steam/steamapps/compatdata/*/pfx"},
}};

constexpr std::array<Place, 4> kBelowShare = {{
    {"Lutris", "lutris/prefixes/*"},
    {"Lutris", "lutris/runners/winesteam/prefix*"},
    {"Bottles", "bottles/bottles/*"},
    {"Steam", "Steam/steamapps/compatdata/*/pfx"},
}};

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

/// The folders that the pattern stands for, in byte order.
std::vector<std::string> Expanded(const std::string& base, std::string_view pattern) {
  if (pattern.empty()) return {base};
  const std::size_t end = std::min(pattern.find('/'), pattern.size());
  const std::string_view part = pattern.substr(0, end);
  const std::string_view rest = pattern.substr(std::min(end + 1, pattern.size()));
  if (!part.ends_with('*')) return Expanded(base + '/' + std::string(part), rest);
  const std::string_view start = part.substr(0, part.size() - 1);
  auto entries = ReadDirectory(base).value_or(std::vector<DirectoryEntry>{});
  std::sort(entries.begin(), entries.end(),
            [](const auto& a, const auto& b) { return a.name < b.name; });
  std::vector<std::string> found;
  for (const auto& entry : entries) {
    if (!entry.name.starts_with(start)) continue;
    for (auto& folder : Expanded(base + '/' + entry.name, rest)) {
      found.push_back(std::move(folder));
    }
  }
  return found;
}

/// Collects prefixes, each once however many links lead to it.
class Collection {
 public:
  void Add(std::string folder, std::string_view found_by) {
    std::error_code error;
    const std::string real = fs::weakly_canonical(folder, error);
    if (seen_.insert(error ? folder : real).second) {
      prefixes_.push_back({std::move(folder), std::string(found_by)});
    }
  }

  template <typename Places>
  void AddBelow(const std::string& base, const Places& places) {
    for (const Place& place : places) {
      for (const std::string& folder : Expanded(base, place.pattern)) {
        if (StatusOf(RegistryFileOf(folder))) Add(folder, place.manager);
      }
    }
  }

  std::vector<WinePrefix> Take() { return std::move(prefixes_); }

 private:
  std::set<std::string> seen_;
  std::vector<WinePrefix> prefixes_;
};

}  // namespace

std::string RegistryFileOf(const std::string& prefix) {
  return prefix + "/system.reg";
}

std::vector<WinePrefix> WinePrefixes() {
  std::error_code error;
  if (const std::string named = Variable("WINEPREFIX"); !named.empty()) {
    return {{fs::absolute(named, error), "WINEPREFIX"}};
  }
  const std::string home = HomeFolder();
  Collection collection;
  collection.Add(home + "/.wine", "");
  collection.AddBelow(home, kBelowHome);
  collection.AddBelow(UserDataFolder(), kBelowShare);
  for (const std::string& flatpak : Expanded(home + "/.var/app", "*")) {
    collection.AddBelow(flatpak, kBelowHome);
    collection.AddBelow(flatpak + "/.local/share", kBelowShare);
    collection.AddBelow(flatpak + "/data", kBelowShare);
  }
  return collection.Take();
}

}  // namespace panelkit
