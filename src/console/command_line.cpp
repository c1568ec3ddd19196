#include "console/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <sstream>

#include "console/outcome.h"
#include "search/near_name.h"

namespace panelkit {
namespace {

const std::map<std::string, Format> kFormats{
    {"text", Format::Text}, {"html", Format::Html}, {"json", Format::Json}};

// The options of the program itself, which each command takes, and shows in its help, too.
void AddCommonOptions(CLI::App& app, CommandLine& line) {
  AddSimulatorOptions(app, line);
  app.add_option_function<std::string>(
         "--format", [&line](const std::string& format) { line.format = kFormats.at(format); },
         "How the result is printed: text, html (a report's page) or json")
      ->check(CLI::IsMember({"text", "html", "json"}))
      ->group("Common options");
}

// Adds a command to the menu of the program or, named by `group` with a blank, of a group of
// commands.
CLI::App* AddCommand(CLI::App& menu, const std::string& name, const std::string& description,
                     CommandLine& line, ConsoleCommand command, const std::string& group = {}) {
  CLI::App* added = menu.add_subcommand(name, description);
  added->callback([&line, command, whole_name = group + name] {
    line.command = command;
    line.command_name = whole_name;
  });
  AddCommonOptions(*added, line);
  return added;
}

void AddCabinetCommands(CLI::App& app, CommandLine& line) {
  CLI::App* cab = app.add_subcommand("cab", "Look into a cabinet file");
  cab->require_subcommand(1);
  const auto add = [&](const char* name, const char* description, ConsoleCommand command) {
    CLI::App* added = AddCommand(*cab, name, description, line, command, "cab ");
    added->add_option("CABINET", line.cabinet, "The cabinet file")->required();
    return added;
  };
  const char* full_name = "Only the entry of this full name";
  add("count", "Count the entries", ConsoleCommand::CabCount);
  add("list", "List the entries", ConsoleCommand::CabList)
      ->add_option("ENTRY", line.entry, full_name);
  add("xml", "List the entries as XML", ConsoleCommand::CabXml)
      ->add_option("ENTRY", line.entry, "Only the first entry of this name, folders left out");
  CLI::App* extract = add("extract", "Extract the entries", ConsoleCommand::CabExtract);
  extract->add_option("ENTRY", line.entry, full_name);
  extract->add_option("--output-path", line.output_path,
                      "Folder to extract to (else the cabinet's own)");
  extract->add_option("--output-file", line.output_file, "Name to give to what is extracted");
}

void AddCareful(CLI::App& command, CommandLine& line) {
  command.add_flag("--careful", line.careful,
                   "Tell also of files that panels name in a way which reports do not read");
}

void AddRestoreCommand(CLI::App& app, CommandLine& line) {
  CLI::App* restore = AddCommand(app, "restore", "Bring gauges back from SpareGauges", line,
                                 ConsoleCommand::Restore);
  auto* names =
      restore->add_option("NAME", line.gauges, "Only these gauges; * and ? may stand in a name");
  auto* all = restore->add_flag("--all", line.all, "Those that came from other simulators, too");
  auto* older = restore
                    ->add_flag("--older", line.older,
                               "Gauges that newer ones of their names have replaced there")
                    ->needs(names)
                    ->excludes(all);
  restore->add_flag("--list", line.list, "Say what is there, from where and since when")
      ->excludes(names)
      ->excludes(all)
      ->excludes(older);
}

void AddFindCommand(CLI::App& app, CommandLine& line) {
  CLI::App* find =
      AddCommand(app, "find", "Look for missing gauges in folders and in the archives there", line,
                 ConsoleCommand::Find);
  find->add_option("FOLDER", line.folders,
                   "Where to look: downloads, backups, other simulators; or a file")
      ->required();
  auto* install =
      find->add_flag("--install", line.install, "Copy the best of what is found to Gauges");
  find->add_flag("--dry-run", line.dry_run, "Say what would be copied, and copy nothing")
      ->needs(install);
  find->add_option("--as", line.accepted,
                   "Copy what has nearly this missing file's name, or the only file, under it")
      ->type_name("NAME")
      ->allow_extra_args(false)
      ->needs(install);
  AddCareful(*find, line);
}

void AddCommands(CLI::App& app, CommandLine& line) {
  AddCommand(app, "where", "Tell which simulator would be used, and how it was found", line,
             ConsoleCommand::Where)
      ->add_flag("--all", line.all, "Tell of every simulator that is registered in any prefix");
  CLI::App* probe = AddCommand(
      app, "probe", "Probe For Missing Gauges: report gauges that panels name and are not there",
      line, ConsoleCommand::Probe);
  probe->add_flag("--hints", line.hints,
                  "Say for each missing file what this machine has that comes close");
  AddCareful(*probe, line);
  AddCareful(*AddCommand(app, "show", "Show All Gauges: report every gauge of every panel", line,
                         ConsoleCommand::Show),
             line);
  CLI::App* clean =
      AddCommand(app, "clean", "Clean Gauges: move gauges that no panel names to SpareGauges", line,
                 ConsoleCommand::Clean);
  clean->add_flag("--dry-run", line.dry_run, "Say what would move, and move nothing");
  clean->add_flag("--careful", line.careful,
                  "Leave what a panel names in whatever way; move nothing if one cannot be read");
  AddRestoreCommand(app, line);
  AddFindCommand(app, line);
  AddCommand(app, "brake", "Say whether the red brake messages are shown, or switch them", line,
             ConsoleCommand::Brake)
      ->add_option("STATE", line.brake, "on: show the messages; off: hide them")
      ->check(CLI::IsMember({"on", "off"}));
  AddCabinetCommands(app, line);
}

// Of the commands that the menu `app` has, the one whose name is nearest to `typed`; empty if none
// is at most two letters away.
std::string NearestCommand(const CLI::App& app, const std::string& typed) {
  std::string nearest;
  std::size_t limit = std::min<std::size_t>(2, typed.size() - 1);
  for (const CLI::App* command : app.get_subcommands({})) {
    const auto distance = EditDistance(typed, command->get_name(), limit);
    if (!distance || (!nearest.empty() && *distance == limit)) continue;
    nearest = command->get_name();
    limit = *distance;
  }
  return nearest;
}

// What is wrong with a command line whose command there is not; empty if that is not what is wrong.
std::string CommandComplaint(const CLI::App& app, const std::vector<std::string>& arguments) {
  const CLI::App* menu = &app;
  std::string path;
  for (std::size_t i = 1; i < arguments.size() && !menu->get_subcommands({}).empty(); ++i) {
    const std::string& word = arguments[i];
    if (word.starts_with('-')) {
      const CLI::Option* option = app.get_option_no_throw(word);
      if (option != nullptr && option->get_items_expected_max() > 0) ++i;
      continue;
    }
    const auto commands = menu->get_subcommands({});
    const auto named = std::find_if(commands.begin(), commands.end(), [&](const CLI::App* command) {
      return command->get_name() == word;
    });
    path += (path.empty() ? "" : " ") + word;
    if (named == commands.end()) {
      const std::string nearest = NearestCommand(*menu, word);
      return "There is no command " + path + "." +
             (nearest.empty() ? "" : " Did you mean " + nearest + "?");
    }
    menu = *named;
  }
  return {};
}

// Why the format that was asked for is none of the command's; empty if it is one.
std::string FormatComplaint(const CommandLine& line) {
  const ConsoleCommand command = line.command;
  const bool makes_page = command == ConsoleCommand::Probe || command == ConsoleCommand::Show ||
                          command == ConsoleCommand::Clean;
  if (line.format == Format::Html && (!makes_page || line.dry_run || line.hints)) {
    const char* with = line.dry_run ? " --dry-run" : line.hints ? " --hints" : "";
    return line.command_name + with + " has no result as html.";
  }
  const bool is_plain = command == ConsoleCommand::CabCount || command == ConsoleCommand::CabXml ||
                        command == ConsoleCommand::CabExtract;
  if (line.format != Format::Json || !is_plain) return {};
  return line.command_name + " has no result as json.";
}

// The format of complaints about a command line that is not parsed yet, or cannot be.
Format FormatOf(const std::vector<std::string>& arguments) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const bool is_next = arguments[i] == "json" && i > 0 && arguments[i - 1] == "--format";
    if (is_next || arguments[i] == "--format=json") return Format::Json;
  }
  return Format::Text;
}

Outcome Refusal(const std::string& sentence) {
  Outcome refusal = Failure(sentence);
  refusal.complaints.emplace_back("Run with --help for more information.");
  return refusal;
}

}  // namespace

std::optional<Outcome> ParseCommandLine(const std::vector<std::string>& arguments,
                                        CommandLine& line) {
  CLI::App app("Compares the gauges that FS2002 panels name with those that are installed.",
               "panelkit-console");
  app.set_version_flag("--version", "panelkit-console " PANELKIT_VERSION);
  AddCommonOptions(app, line);
  app.require_subcommand(1);
  app.footer("Exit status: 0 nothing is missing, or done; 1 gauges are missing; 2 an error.");
  AddCommands(app, line);
  line.format = FormatOf(arguments);
  const std::string empty = EmptyArgumentComplaint(arguments);
  if (!empty.empty()) return Refusal(empty);
  try {
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    if (!reversed.empty()) reversed.pop_back();
    app.parse(std::move(reversed));
  } catch (const CLI::ParseError& error) {
    std::ostringstream output;
    if (app.exit(error, output, output) == 0) return Outcome{output.str()};
    const std::string complaint = CommandComplaint(app, arguments);
    return Refusal(complaint.empty() ? error.what() : complaint);
  }
  const std::string complaint = FormatComplaint(line);
  if (!complaint.empty()) return Refusal(complaint);
  return std::nullopt;
}

}  // namespace panelkit
