// The commands cab count, cab list, cab xml and cab extract.
#include <algorithm>

#include "cabinet/cab_file.h"
#include "console/console_commands.h"
#include "console/json.h"

namespace panelkit {
namespace {

struct ListedCabinetEntry {
  std::string name;  // With its folders.
  std::uint32_t size;
  std::string date;
};

std::string NoEntryText(const std::string& name) {
  return "The cabinet has no entry " + name + ".";
}

std::string TextOf(const std::vector<ListedCabinetEntry>& entries) {
  constexpr std::size_t kSizeWidth = 10;
  Lines lines;
  for (const ListedCabinetEntry& entry : entries) {
    const std::string size = std::to_string(entry.size);
    const std::string blanks(kSizeWidth - std::min(kSizeWidth, size.size()), ' ');
    lines.Add(blanks + size + "  " + entry.date + "  " + entry.name);
  }
  return lines.Take();
}

Json JsonOf(const std::vector<ListedCabinetEntry>& entries) {
  Json json = Json::array();
  for (const ListedCabinetEntry& entry : entries) {
    json.push_back({{"name", entry.name}, {"size", entry.size}, {"date", entry.date}});
  }
  return json;
}

std::string WordsOf(const CabError& error, const CommandLine& line) {
  return line.cabinet + ": " + error.Description + " (error " + std::to_string(error.Number) + ")";
}

Outcome List(CABFile& cabinet, const LocalMachine& machine, const DateStamps& dates,
             const CommandLine& line) {
  Outcome outcome;
  std::vector<ListedCabinetEntry> entries;
  cabinet.FileFound = [&](const std::string& file, double date, std::int32_t size,
                          const std::string& folder) {
    entries.push_back({folder + file, static_cast<std::uint32_t>(size), dates.DateText(date)});
  };
  try {
    cabinet.ListEntries(line.entry);
    if (!line.entry.empty() && entries.empty()) return Failure(NoEntryText(line.entry));
  } catch (const CabError& error) {
    outcome.Fail(WordsOf(error, line));  // The entries before the damage are there.
  }
  outcome.output = line.format == Format::Json
                       ? JsonText(line, {{"cabinet", JsonOfPath(machine, cabinet.CabName)},
                                         {"entries", JsonOf(entries)}})
                       : TextOf(entries);
  return outcome;
}

Outcome Xml(CABFile& cabinet, const std::string& entry) {
  Lines lines;
  lines.AddText(cabinet.GetXML(entry) + "\n");
  return {lines.Take()};
}

Outcome Extract(CABFile& cabinet, const LocalMachine& machine, const CommandLine& line) {
  if (line.entry.empty() && !line.output_file.empty()) {
    const std::int32_t entries = cabinet.FileCount();
    if (entries > 1) {
      return Failure("--output-file names one file, but the cabinet has " +
                     std::to_string(entries) + " entries: name the one to extract.");
    }
  }
  Outcome outcome;
  Lines lines;
  std::size_t selected = 0;
  std::size_t written = 0;
  cabinet.BeforeExtract = [&](const std::string& /*name*/, bool& /*cancel*/) { ++selected; };
  cabinet.AfterExtract = [&](const std::string& path) {
    ++written;
    lines.Add(machine.NativePath(path));
  };
  const std::string folder =
      line.output_path.empty() ? std::string() : machine.WindowsPath(line.output_path);
  try {
    cabinet.Extract(line.entry, folder, line.output_file);
    if (selected == 0 && !line.entry.empty()) outcome.Fail(NoEntryText(line.entry));
    if (written < selected) {
      outcome.Fail(
          "Entries passed over, since their folder cannot be made or their name leaves it: " +
          std::to_string(selected - written) + ".");
    }
  } catch (const CabError& error) {
    outcome.Fail(WordsOf(error, line));
  }
  outcome.output = lines.Take();
  return outcome;
}

}  // namespace

Outcome CabinetCommand(LocalMachine& machine, const CommandLine& line) {
  const auto cabinet = CABFile::Create(machine.Services());
  cabinet->CabName = machine.WindowsPath(line.cabinet);
  try {
    switch (line.command) {
      case ConsoleCommand::CabCount:
        return {std::to_string(cabinet->FileCount()) + "\n"};
      case ConsoleCommand::CabList:
        return List(*cabinet, machine, machine.Services().dates, line);
      case ConsoleCommand::CabXml:
        return Xml(*cabinet, line.entry);
      default:
        return Extract(*cabinet, machine, line);
    }
  } catch (const CabError& error) {
    return Failure(WordsOf(error, line));
  }
}

}  // namespace panelkit
