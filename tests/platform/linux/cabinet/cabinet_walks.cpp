#include "cabinet_walks.h"

#include <doctest/doctest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <set>

namespace panelkit::test {

namespace {

struct Conversation {
  Answers answers;
  std::string log;
};

Conversation* conversation = nullptr;

constexpr std::uint32_t kContext = 0xC0FFEE;

std::uint32_t Answer(std::uint32_t context, std::uint32_t notification, std::uintptr_t param1,
                     std::uintptr_t /*param2*/) {
  auto& [answers, log] = *conversation;
  CHECK(context == kContext);
  if (notification == SPFILENOTIFY_FILEINCABINET) {
    auto& info = *reinterpret_cast<FILE_IN_CABINET_INFO*>(param1);
    std::array<char, 400> line{};
    std::snprintf(line.data(), line.size(), "%u | %02d.%02d.%04d %02d:%02d:%02d | %s %x\n",
                  info.FileSize, info.DosDate & 0x1F, info.DosDate >> 5 & 0xF,
                  (info.DosDate >> 9) + 1980, info.DosTime >> 11, info.DosTime >> 5 & 0x3F,
                  (info.DosTime & 0x1F) * 2, info.NameInCabinet, info.DosAttribs);
    log += line.data();
    return answers.to_entry(info);
  }
  if (notification == SPFILENOTIFY_FILEEXTRACTED) {
    const auto& outcome = *reinterpret_cast<const FILEPATHS*>(param1);
    log += outcome.Target + (' ' + std::to_string(outcome.Win32Error)) + '\n';
    return answers.to_extracted(outcome);
  }
  CHECK(notification == SPFILENOTIFY_NEEDNEWCABINET);
  log += "next?\n";
  return answers.to_next;
}

}  // namespace

Answers ExtractTo(const std::string& target) {
  Answers answers;
  answers.to_entry = [target](FILE_IN_CABINET_INFO& info) {
    std::string path = target;
    if (path.ends_with('*')) path.replace(path.size() - 1, 1, info.NameInCabinet);
    path.copy(info.FullTargetName, sizeof info.FullTargetName);
    return FILEOP_DOIT;
  };
  return answers;
}

std::string Told(const std::string& name, std::size_t size) {
  return std::to_string(size) + " | 01.01.2002 12:00:00 | " + name + " 20\n";
}

OrdinaryUser::OrdinaryUser() {
  if (before_ == 0) REQUIRE(seteuid(65534) == 0);
}

OrdinaryUser::~OrdinaryUser() {
  CHECK(seteuid(before_) == 0);
}

void CabinetWalks::Run(const std::string& line) const {
  REQUIRE(std::system(("cd '" + Utf8(C("")) + "' && " + line).c_str()) == 0);
}

std::string CabinetWalks::Walk(const std::string& cabinet, Answers answers) {
  Conversation own{std::move(answers), ""};
  conversation = &own;
  const bool done = service_.SetupIterateCabinetA(cabinet, 0, &Answer, kContext) != 0;
  return own.log + (done ? "ok" : "error " + std::to_string(service_.GetLastError()));
}

std::string CabinetWalks::WalkBytes(const std::string& bytes, Answers answers) {
  Put(C("x.cab"), bytes);
  return Walk("C:\\x.cab", std::move(answers));
}

std::string CabinetWalks::NamesInOut() const {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(C("out"))) {
    names.insert(Utf8(entry.path().filename()) + ' ');
  }
  return std::accumulate(names.begin(), names.end(), std::string());
}

}  // namespace panelkit::test
