// Cabinets in a Wine prefix, and what is said in walks over them.
#pragma once

#include <doctest/doctest.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <numeric>
#include <set>
#include <string>

#include "platform/linux/cabinet/cabinet_service.h"
#include "platform/linux/code_page_text.h"
#include "platform/linux/path_resolver.h"
#include "support/temp_folder.h"

namespace panelkit::test {

/// How the program answers in a walk.
struct Answers {
  std::function<std::uint32_t(FILE_IN_CABINET_INFO&)> to_entry = [](auto&) { return FILEOP_SKIP; };
  std::function<std::uint32_t(const FILEPATHS&)> to_extracted = [](auto& outcome) {
    return outcome.Win32Error;
  };
  std::uint32_t to_next = 0;
};

/// Answers that extract each entry to the Windows path `target`, with the entry's name for a "*" at
/// its end.
inline Answers ExtractTo(std::string target) {
  return {.to_entry = [target = std::move(target)](FILE_IN_CABINET_INFO& info) {
    std::string path = target;
    if (path.ends_with('*')) path.replace(path.size() - 1, 1, info.NameInCabinet);
    path.copy(info.FullTargetName, sizeof info.FullTargetName);
    return FILEOP_DOIT;
  }};
}

/// What a walk's log says of an entry with the cabinet writer's own stamp and attributes.
inline std::string Told(const std::string& name, std::size_t size) {
  return std::to_string(size) + " | 01.01.2002 12:00:00 | " + name + " 20\n";
}

/// While it lives, root, whom permissions do not bind, is another user.
struct OrdinaryUser {
  const uid_t before = geteuid();
  OrdinaryUser() { CHECK(seteuid(before == 0 ? 65534 : before) == 0); }
  ~OrdinaryUser() { CHECK(seteuid(before) == 0); }
};

/// A prefix in a temporary folder with the service over it; its C: has an empty folder "out".
class CabinetWalks {
 public:
  CabinetWalks() { std::filesystem::create_directories(C("out")); }

  /// The native path of a file on C:; folders are separated by "/".
  std::filesystem::path C(const std::string& name) const { return prefix_ / ("drive_c/" + name); }

  /// Runs a line of shell in C:.
  void Run(const std::string& line) const {
    REQUIRE(std::system(("cd '" + Utf8(C("")) + "' && " + line).c_str()) == 0);
  }

  /// The whole conversation of one walk, a line a notification, then "ok" or "error" and its code:
  /// "5 | 01.01.2002 12:00:00 | a.xml 20" (the attributes last), "next?", "C:\out\a.xml 0" (the
  /// outcome).
  std::string Walk(const std::string& cabinet, const Answers& answers = {}) {
    conversation = {&answers, ""};
    const bool done = service_.SetupIterateCabinetA(cabinet, 0, &Answer, kContext) != 0;
    return conversation.log + (done ? "ok" : "error " + std::to_string(service_.GetLastError()));
  }

  /// The same for a new cabinet of these bytes, C:\x.cab.
  std::string WalkBytes(const std::string& bytes, const Answers& answers = {}) {
    Put(C("x.cab"), bytes);
    return Walk("C:\\x.cab", answers);
  }

  /// The names in C:\out, sorted, a blank behind each.
  std::string NamesInOut() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(C("out"))) {
      names.insert(Utf8(entry.path().filename()) + ' ');
    }
    return std::accumulate(names.begin(), names.end(), std::string());
  }

 private:
  static constexpr std::uint32_t kContext = 0xC0FFEE;

  static std::uint32_t Answer(std::uint32_t context, std::uint32_t notification,
                              std::uintptr_t param1, std::uintptr_t /*param2*/) {
    auto& [answers, log] = conversation;
    CHECK(context == kContext);
    if (notification == SPFILENOTIFY_FILEINCABINET) {
      auto& info = *reinterpret_cast<FILE_IN_CABINET_INFO*>(param1);
      std::array<char, 400> line{};
      std::snprintf(line.data(), line.size(), "%u | %02d.%02d.%04d %02d:%02d:%02d | %s %x\n",
                    info.FileSize, info.DosDate & 0x1F, info.DosDate >> 5 & 0xF,
                    (info.DosDate >> 9) + 1980, info.DosTime >> 11, info.DosTime >> 5 & 0x3F,
                    (info.DosTime & 0x1F) * 2, info.NameInCabinet, info.DosAttribs);
      log += line.data();
      return answers->to_entry(info);
    }
    if (notification == SPFILENOTIFY_FILEEXTRACTED) {
      const auto& outcome = *reinterpret_cast<const FILEPATHS*>(param1);
      log += outcome.Target + (' ' + std::to_string(outcome.Win32Error)) + '\n';
      return answers->to_extracted(outcome);
    }
    log += notification == SPFILENOTIFY_NEEDNEWCABINET ? "next?\n" : "unknown\n";
    return answers->to_next;
  }

  struct Conversation {
    const Answers* answers;
    std::string log;
  };
  static inline Conversation conversation = {nullptr, ""};

  TempFolder prefix_;
  CodePageText text_{1252};
  PathResolver paths_{Utf8(prefix_.Path())};
  CabinetService service_{paths_, text_};
};

}  // namespace panelkit::test
