// cab count, cab list, cab xml, cab extract.
#include <functional>
#include <vector>

#include "cabinet/cab_file.h"
#include "console/console_commands.h"
#include "console/exit_status.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

std::string EntryLine(const DateStamps& dates, const std::string& name, double date,
                      std::int32_t size) {
  constexpr std::size_t kSizeWidth = 10;
  const std::string digits = std::to_string(static_cast<std::uint32_t>(size));
  const std::string blanks(kSizeWidth - std::min(kSizeWidth, digits.size()), ' ');
  return blanks + digits + "  " + dates.DateText(date) + "  " + name + "\n";
}

int Count(CABFile& cabinet) {
  terminal::WriteOut(std::to_string(cabinet.FileCount()) + "\n");
  return kExitDone;
}

int List(CABFile& cabinet, const DateStamps& dates, const std::string& entry) {
  std::string lines;
  cabinet.FileFound.Subscribe(
      [&](const std::string& file, double date, std::int32_t size, const std::string& folder) {
        lines += EntryLine(dates, folder + file, date, size);
      });
  const bool sound = cabinet.GetInfo(entry);
  terminal::WriteOut(lines);
  if (!sound) cabinet.FileCount();  // Throws the reason, which GetInfo drops.
  if (!entry.empty() && lines.empty()) return Complain("The cabinet has no entry " + entry + ".");
  return kExitDone;
}

int Xml(CABFile& cabinet, const std::string& entry) {
  terminal::WriteOut(cabinet.GetXML(entry) + "\n");
  return kExitDone;
}

int Extract(CABFile& cabinet, const LocalMachine& machine, const CommandLine& line) {
  std::vector<std::string> begun;
  std::size_t written = 0;
  cabinet.BeforeExtract.Subscribe(
      [&](const std::string& name, bool& /*Cancel*/) { begun.push_back(name); });
  cabinet.AfterExtract.Subscribe([&](const std::string& path) {
    ++written;
    terminal::WriteOut(machine.NativePath(path) + "\n");
  });
  const std::string folder =
      line.output_path.empty() ? std::string() : machine.WindowsPath(line.output_path);
  cabinet.Extract(line.entry, folder, line.output_file);
  if (begun.empty() && !line.entry.empty()) {
    return Complain("The cabinet has no entry " + line.entry + ".");
  }
  if (written == begun.size()) return kExitDone;
  return Complain(
      std::to_string(begun.size() - written) +
      " entries were passed over: their folder cannot be made, or their name leaves it.");
}

}  // namespace

int CabinetCommand(LocalMachine& machine, const CommandLine& line) {
  const auto cabinet = CABFile::Create(machine.Services());
  cabinet->CabName = machine.WindowsPath(line.cabinet);
  try {
    switch (line.command) {
      case ConsoleCommand::CabCount:
        return Count(*cabinet);
      case ConsoleCommand::CabList:
        return List(*cabinet, machine.Services().dates, line.entry);
      case ConsoleCommand::CabXml:
        return Xml(*cabinet, line.entry);
      default:
        return Extract(*cabinet, machine, line);
    }
  } catch (const CabError& error) {
    return Complain(line.cabinet + ": " + error.Description + " (error " +
                    std::to_string(error.Number) + ")");
  }
}

}  // namespace panelkit
