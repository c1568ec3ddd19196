// Writes a Wine prefix with a made-up simulator of any size. The same arguments give the same
// files.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "support/cabinet_writer.h"
#include "support/temp_folder.h"

namespace panelkit::bench {
namespace {

namespace fs = std::filesystem;
using test::Put;

/// What to write; as it stands, the reference size: 14,000 rows of installed gauges.
struct Size {
  fs::path prefix;
  int aircraft = 1000;
  int windows = 6;
  int gauges = 10;           ///< Gauge lines a window.
  int entries = 12000;       ///< Different panel entries among all gauge lines.
  int missing_percent = 10;  ///< Share of these whose gauge is not installed.
  int gauge_files = 5000;
  int cabinets = 300;
  int xml = 30;                ///< Gauges a cabinet.
  int bitmaps = 30;            ///< Other entries a cabinet.
  int other_case_percent = 0;  ///< Share of panel folders in other case than the program's.
  int registry_keys = 9000;    ///< As many as a fresh prefix has.
};

constexpr std::array kAircraft{"Corvane_600-40", "Corvane_700-40", "Jarrowby_J-900", "Regent_Jet",
                               "Aldwyn_A-12T",   "Aldwyn_A-14S",   "Borealis",       "Rotor_R-4",
                               "Dunmere_P350",   "Marlowe_30S",    "Tamsin_Brave",   "Packet"};
constexpr std::array kInstruments{"Airspeed",
                                  "Altimeter",
                                  "Attitude",
                                  "Turn_Coordinator",
                                  "Heading_Indicator",
                                  "VSI",
                                  "Tachometer",
                                  "Fuel_Quantity",
                                  "Oil_Temp",
                                  "Oil_Press",
                                  "Suction",
                                  "Magneto",
                                  "Battery",
                                  "Alternator",
                                  "Nav1",
                                  "Nav2",
                                  "ADF",
                                  "DME",
                                  "Transponder",
                                  "Autopilot",
                                  "Annunciators",
                                  "Flaps",
                                  "Gear_Lever",
                                  "Trim",
                                  "Heading",
                                  "Clock",
                                  "GPS_Toggle",
                                  "Radio_Stack",
                                  "EPR",
                                  "N1"};
constexpr std::array kTitles{"Main Panel", "Radio Stack", "Throttle Quadrant",
                             "GPS",        "Overhead",    "Mini Panel"};

template <typename Names>
std::string Pick(const Names& names, int number) {
  return names[static_cast<std::size_t>(number) % names.size()];
}

std::string Numbered(std::string_view name, int number) {
  std::string digits = std::to_string(number);
  digits.insert(0, 4 - std::min<std::size_t>(4, digits.size()), '0');
  return std::string(name) + '_' + digits;
}

std::string GaugeFile(int number) {
  return Numbered(Pick(kAircraft, number), number);
}

std::string Cabinet(int number) {
  return Numbered(Pick(kAircraft, number) + "_Panel", number);
}

/// An instrument; beyond the known ones, with a number.
std::string Instrument(int number) {
  const auto known = static_cast<int>(kInstruments.size());
  const std::string name = Pick(kInstruments, number);
  return number < known ? name : Numbered(name, number / known);
}

std::string Lowered(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

/// Whether a number is one of those, evenly spread, that make up a share of all.
bool IsAmong(int percent, int number) {
  return (number + 1) * percent / 100 > number * percent / 100;
}

/// A panel entry whose gauge is installed: two in three times one of a cabinet.
std::string InstalledEntry(const Size& size, int number) {
  const int turn = number / 3;
  const int cabinet_gauges = size.cabinets * size.xml;
  if (number % 3 != 0 && cabinet_gauges > 0) {
    const int gauge = (2 * turn + number % 3) % cabinet_gauges;
    return Cabinet(gauge % size.cabinets) + '!' + Instrument(gauge / size.cabinets);
  }
  return GaugeFile(turn % std::max(1, size.gauge_files)) + '!' +
         Instrument(turn / std::max(1, size.gauge_files));
}

/// The different panel entries; every fifth one is spelt in another case than its gauge.
std::string Entry(const Size& size, int number) {
  const bool missing = IsAmong(size.missing_percent, number);
  std::string entry = missing ? Numbered("Vanished_" + Pick(kAircraft, number), number) + '!' +
                                    Pick(kInstruments, number)
                              : InstalledEntry(size, number);
  return number % 5 == 0 ? Lowered(std::move(entry)) : entry;
}

std::string Panel(const Size& size, int aircraft) {
  constexpr long kStride = 7919;  // A prime: entries come in a scattered order, each equally often.
  std::string text =
      "// Panel Configuration file\r\n// " + GaugeFile(aircraft) + "\r\n\r\n[Window Titles]\r\n";
  for (int window = 0; window < size.windows; ++window) {
    text += "Window0" + std::to_string(window) + "=" + Pick(kTitles, window) + "\r\n";
  }
  for (int window = 0; window < size.windows; ++window) {
    text += "\r\n//--------------------------------------------------------\r\n[Window0" +
            std::to_string(window) + "]\r\nfile=" + Lowered(Pick(kAircraft, aircraft)) +
            ".bmp\r\nBackground_color=0,0,0\r\nsize_mm=640,480\r\nwindow_size=1.0, 1.0\r\n"
            "position=7\r\nvisible=1\r\nident=MAIN_PANEL\r\n";
    for (int gauge = 0; gauge < size.gauges; ++gauge) {
      const long line = (long{aircraft} * size.windows + window) * size.gauges + gauge;
      text += "gauge" + std::string(gauge < 10 ? "0" : "") + std::to_string(gauge) + "=" +
              Entry(size, static_cast<int>(line * kStride % size.entries)) + ",  " +
              std::to_string(gauge * 50) + ",412,90,90\r\n";
    }
  }
  return text + "\r\n[Color]\r\nDay=255,255,255\r\nNight=223,255,255\r\nLuminous=201,64,64\r\n";
}

std::string CabinetBytes(const Size& size) {
  std::vector<test::CabinetEntry> entries;
  entries.reserve(static_cast<std::size_t>(size.xml) + static_cast<std::size_t>(size.bitmaps));
  for (int gauge = 0; gauge < size.xml; ++gauge) {
    entries.push_back({.name = Instrument(gauge) + ".xml", .content = std::string(400, 'x')});
  }
  for (int bitmap = 0; bitmap < size.bitmaps; ++bitmap) {
    entries.push_back(
        {.name = Instrument(bitmap) + "_Background.bmp", .content = std::string(1000, 'b')});
  }
  return test::MakeCabinet(entries);
}

std::string Registry(int keys) {
  std::string text =
      "WINE REGISTRY Version 2\n;; All keys relative to REGISTRY\\\\Machine\n\n"
      "#arch=win32\n";
  for (int key = 0; key < keys; ++key) {
    text += "\n[Software\\\\Classes\\\\Interface\\\\{3EEF9758-35FC-11D1-8CE4-" +
            std::to_string(100000000000 + key) +
            "}] 1795558525\n#time=1dd7c614e42347e\n@=\"NumberObject\"\n\"Version\"=\"1.0\"\n";
  }
  return text +
         "\n[Software\\\\Microsoft\\\\DirectPlay\\\\Applications\\\\Flight Simulator 2002] "
         "1795558525\n\"Path\"=\"C:\\\\Program Files\\\\Microsoft Games\\\\FS2002\"\n";
}

void Write(const Size& size) {
  const fs::path simulator =
      size.prefix / "drive_c" / "Program Files" / "Microsoft Games" / "FS2002";
  fs::create_directories(size.prefix / "dosdevices");
  fs::create_symlink("../drive_c", size.prefix / "dosdevices" / "c:");
  Put(size.prefix / "system.reg", Registry(size.registry_keys));
  for (int aircraft = 0; aircraft < size.aircraft; ++aircraft) {
    const char* folder = IsAmong(size.other_case_percent, aircraft) ? "panel" : "Panel";
    Put(simulator / "Aircraft" / GaugeFile(aircraft) / folder / "panel.cfg", Panel(size, aircraft));
  }
  for (int file = 0; file < size.gauge_files; ++file) {
    Put(simulator / "Gauges" / (GaugeFile(file) + ".gau"), "MZ");
  }
  const std::string cabinet = CabinetBytes(size);
  for (int number = 0; number < size.cabinets; ++number) {
    Put(simulator / "Gauges" / (Cabinet(number) + ".cab"), cabinet);
  }
}

/// Reads the arguments and writes. Gives main's result.
int Run(int argc, char** argv) {
  Size size;
  int times = 1;
  CLI::App app("Writes a Wine prefix with a made-up simulator.");
  app.add_option("PREFIX", size.prefix, "A folder that does not exist yet")
      ->required()
      ->check(CLI::NonexistentPath);
  app.add_option("--times", times, "Multiplies aircraft, entries, gauge files and cabinets")
      ->check(CLI::PositiveNumber);
  const auto number = [&app](const char* name, int& value, const char* what) {
    app.add_option(name, value, what)->capture_default_str()->check(CLI::NonNegativeNumber);
  };
  number("--aircraft", size.aircraft, "Aircraft, each with a panel");
  number("--windows", size.windows, "Windows a panel");
  number("--gauges", size.gauges, "Gauge lines a window");
  number("--entries", size.entries, "Different panel entries");
  number("--missing", size.missing_percent, "Percent of these that are not installed");
  number("--gauge-files", size.gauge_files, "Gauge files");
  number("--cabinets", size.cabinets, "Cabinets");
  number("--xml", size.xml, "Gauges a cabinet");
  number("--bitmaps", size.bitmaps, "Other entries a cabinet");
  number("--other-case", size.other_case_percent, "Percent of panel folders in other case");
  number("--registry-keys", size.registry_keys, "Other keys in the registry");
  CLI11_PARSE(app, argc, argv);
  for (int* scaled : {&size.aircraft, &size.entries, &size.gauge_files, &size.cabinets}) {
    *scaled *= times;
  }
  Write(size);
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace panelkit::bench

int main(int argc, char** argv) {
  try {
    return panelkit::bench::Run(argc, argv);
  } catch (const std::exception& failure) {
    (void)std::fprintf(stderr, "%s\n", failure.what());
    return EXIT_FAILURE;
  }
}
