// The commands cab count, cab list, cab xml and cab extract.
#include <algorithm>

#include "cabinet/cab_file.h"
#include "console/console_commands.h"
#include "platform/terminal.h"

namespace panelkit {
namespace {

int NoEntry(const std::string& name) {
  return Complain("The cabinet has no entry " + name + ".");
}

int Print(const std::string& text) {
  return terminal::WriteOut(text) ? kExitDone : Complain("The output could not be written.");
}

int Count(CABFile& cabinet) {
  return Print(std::to_string(cabinet.FileCount()) + "\n");
}

std::string EntryLine(const std::string& size, const std::string& date, const std::string& name) {
  constexpr std::size_t kSizeWidth = 10;
  const std::string blanks(kSizeWidth - std::min(kSizeWidth, size.size()), ' ');
  return blanks + size + "  " + date + "  " + name + "\n";
}

int List(CABFile& cabinet, const DateStamps& dates, const std::string& entry) {
  std::string lines;
  cabinet.FileFound = [&](const std::string& file, double date, std::int32_t size,
                          const std::string& folder) {
    const std::string bytes = std::to_string(static_cast<std::uint32_t>(size));
    lines += EntryLine(bytes, dates.DateText(date), folder + file);
  };
  try {
    cabinet.ListEntries(entry);
  } catch (const CabError&) {
    Print(lines);  // The entries before the damage.
    throw;
  }
  return !entry.empty() && lines.empty() ? NoEntry(entry) : Print(lines);
}

int Xml(CABFile& cabinet, const std::string& entry) {
  return Print(cabinet.GetXML(entry) + "\n");
}

int Extract(CABFile& cabinet, const LocalMachine& machine, const CommandLine& line) {
  if (line.entry.empty() && !line.output_file.empty()) {
    const std::int32_t entries = cabinet.FileCount();
    if (entries > 1) {
      return Complain("--output-file names one file, but the cabinet has " +
                      std::to_string(entries) + " entries: name the one to extract.");
    }
  }
  std::size_t selected = 0;
  std::size_t written = 0;
  cabinet.BeforeExtract = [&](const std::string& /*name*/, bool& /*cancel*/) { ++selected; };
  cabinet.AfterExtract = [&](const std::string& path) {
    ++written;
    terminal::WriteOut(machine.NativePath(path) + "\n");
  };
  const std::string folder =
      line.output_path.empty() ? std::string() : machine.WindowsPath(line.output_path);
  cabinet.Extract(line.entry, folder, line.output_file);
  if (selected == 0 && !line.entry.empty()) return NoEntry(line.entry);
  if (written == selected) return kExitDone;
  return Complain(
      "Entries passed over, since their folder cannot be made or their name leaves it: " +
      std::to_string(selected - written) + ".");
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
