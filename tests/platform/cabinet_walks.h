// Cabinets in a temporary folder, and logs of the walks over them.
#pragma once

#include <doctest/doctest.h>

#include <functional>
#include <string>

#include "platform/disk.h"
#include "support/cabinet_writer.h"

namespace panelkit::test {

/// How the program answers in a walk.
struct Answers {
  std::function<std::uint32_t(FILE_IN_CABINET_INFO&)> to_entry = [](auto&) { return FILEOP_SKIP; };
  std::function<std::uint32_t(std::uint32_t)> to_outcome = [](auto error) { return error; };
};

/// The line of a walk's log for an entry with the cabinet writer's default stamp.
inline std::string EntryLine(const std::string& name, std::size_t size) {
  return name + ' ' + std::to_string(size) + " 11297 24576\n";
}

/// The disk has an empty folder "out".
class CabinetWalks : public Disk {
 public:
  CabinetWalks() { create_directory(folder / "out"); }

  /// Answers that extract each entry to the path `target` on the disk, in which a "*" at the end
  /// stands for the entry's name.
  Answers ExtractTo(const std::string& target) const {
    return {.to_entry = [path = At(target)](FILE_IN_CABINET_INFO& info) {
      std::string& full = info.FullTargetName = path;
      if (full.ends_with('*')) full.replace(full.size() - 1, 1, info.NameInCabinet);
      return FILEOP_DOIT;
    }};
  }

  /// The log of one walk, a line for each notification, then "ok" or "error" and its code:
  /// "a.xml 5 11297 24576" (size, date, time), "next?", "out\a.xml 0" (the outcome).
  std::string Walk(const std::string& cabinet, const Answers& answers = {}) {
    now = {&answers, At(""), ""};
    CabinetWalk& service = machine->Services().cabinets;
    const bool done = service.SetupIterateCabinetA(At(cabinet), &Answer, kContext) != 0;
    return now.log + (done ? "ok" : "error " + std::to_string(service.GetLastError()));
  }

  /// The same for a new cabinet of these bytes, x.cab.
  std::string WalkBytes(const std::string& bytes, const Answers& answers = {}) {
    Put(folder / "x.cab", bytes);
    return Walk("X.cab", answers);
  }

 private:
  static constexpr std::uint32_t kContext = 0xC0FFEE;

  static std::uint32_t Answer(std::uint32_t context, std::uint32_t notification,
                              std::uintptr_t param1, std::uintptr_t /*param2*/) {
    CHECK(context == kContext);
    if (notification == SPFILENOTIFY_FILEINCABINET) {
      auto& info = *reinterpret_cast<FILE_IN_CABINET_INFO*>(param1);
      now.log += std::string(info.NameInCabinet) + ' ' + std::to_string(info.FileSize) + ' ' +
                 std::to_string(info.DosDate) + ' ' + std::to_string(info.DosTime) + '\n';
      return now.answers->to_entry(info);
    }
    if (notification == SPFILENOTIFY_FILEEXTRACTED) {
      const auto& outcome = *reinterpret_cast<const FILEPATHS*>(param1);
      const std::string target = outcome.Target;
      CHECK(target.starts_with(now.disk));
      now.log += target.substr(now.disk.size()) + ' ' + std::to_string(outcome.Win32Error) + '\n';
      return now.answers->to_outcome(outcome.Win32Error);
    }
    if (notification == SPFILENOTIFY_NEEDNEWCABINET) now.log += "next?\n";
    return 0;
  }

  struct Conversation {
    const Answers* answers;
    std::string disk, log;
  };
  static inline Conversation now = {nullptr, "", ""};
};

}  // namespace panelkit::test
