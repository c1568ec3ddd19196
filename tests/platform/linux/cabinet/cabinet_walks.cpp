#include "cabinet_walks.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <set>
#include <stdexcept>

namespace fs = std::filesystem;

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
  if (context != kContext) log += "wrong context\n";
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
  log += notification == SPFILENOTIFY_NEEDNEWCABINET ? "next?\n" : "unknown\n";
  return answers.to_next;
}

}  // namespace

Answers ExtractTo(const std::string& target) {
  Answers answers;
  answers.to_entry = [target](FILE_IN_CABINET_INFO& info) {
    std::string path = target;
    const std::size_t star = path.find('*');
    if (star != std::string::npos) path.replace(star, 1, info.NameInCabinet);
    path.copy(info.FullTargetName, sizeof info.FullTargetName);
    return FILEOP_DOIT;
  };
  return answers;
}

std::string Told(const std::string& name, std::size_t size) {
  return std::to_string(size) + " | 01.01.2002 12:00:00 | " + name + " 20\n";
}

void BecomeOrdinaryUser() {
  if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) {
    throw std::runtime_error("still root");
  }
}

std::string CabinetWalks::Walk(const std::string& cabinet, Answers answers) {
  Conversation own{std::move(answers), ""};
  conversation = &own;
  const bool done = service_.SetupIterateCabinetA(cabinet, 0, &Answer, kContext) != 0;
  return own.log + (done ? "ok" : "error " + std::to_string(service_.GetLastError()));
}

std::string CabinetWalks::WalkBytes(std::string_view bytes, Answers answers) {
  Put(C("x.cab"), bytes);
  return Walk("C:\\x.cab", std::move(answers));
}

std::string CabinetWalks::WalkApart(const std::string& cabinet, const Answers& answers,
                                    const std::function<void()>& prepare) {
  Put(C("log"), "");
  fs::permissions(C("log"), fs::perms::others_write, fs::perm_options::add);
  const pid_t child = fork();
  if (child == 0) {
    try {
      prepare();
      Put(C("log"), Walk(cabinet, answers));
    } catch (const std::exception& error) {
      Put(C("log"), error.what());
    }
    _exit(0);
  }
  waitpid(child, nullptr, 0);
  return Get(C("log"));
}

std::string CabinetWalks::NamesInOut() const {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(C("out"))) {
    names.insert(Utf8(entry.path().filename()));
  }
  std::string joined;
  for (const std::string& name : names) joined += name + ' ';
  return joined;
}

}  // namespace panelkit::test
