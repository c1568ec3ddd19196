// Cabinets in a Wine prefix, and what is said in walks over them.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>

#include "platform/cabinet_walk.h"
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

/// Answers that extract each entry to the Windows path `target`, with the entry's name for a "*".
Answers ExtractTo(const std::string& target);

/// What a walk's log says of an entry with the writer's own stamp and attributes.
std::string Told(const std::string& name, std::size_t size);

/// While it lives, root, whom permissions do not bind, is another user.
class OrdinaryUser {
 public:
  OrdinaryUser();
  ~OrdinaryUser();

 private:
  uid_t before_ = geteuid();
};

/// A prefix in a temporary folder with the service over it; its C: has an empty folder "out".
class CabinetWalks {
 public:
  CabinetWalks() { std::filesystem::create_directories(C("out")); }

  /// The native path of a file on C:; folders are separated by "/".
  std::filesystem::path C(const std::string& name) const { return prefix_ / ("drive_c/" + name); }

  /// Runs a line of shell in C:.
  void Run(const std::string& line) const;

  /// The whole conversation of one walk, a line a notification, then "ok" or "error" and its code:
  /// "5 | 01.01.2002 12:00:00 | a.xml 20" (the attributes last), "next?", "C:\out\a.xml 0" (the
  /// outcome).
  std::string Walk(const std::string& cabinet, Answers answers = {});

  /// The same for a new cabinet of these bytes, C:\x.cab.
  std::string WalkBytes(const std::string& bytes, Answers answers = {});

  /// The names in C:\out, sorted, a blank behind each.
  std::string NamesInOut() const;

 private:
  TempFolder prefix_;
  CodePageText text_{1252};
  PathResolver paths_{Utf8(prefix_.Path())};
  CabinetService service_{paths_, text_};
};

}  // namespace panelkit::test
