// Any bytes as a cabinet: counted, listed into the table of gauges, and listed as XML.
#include "cabinet/mod_gauges.h"
#include "fuzz/fuzz.h"
#include "text/utf8.h"

void panelkit::fuzz::Try(std::string_view input) {
  static Prefix prefix;
  const auto cabinet = prefix.Cabinet(input);
  int found = 0;
  int gauges = 0;
  cabinet->FileFound = [&](const std::string& file, double date, std::int32_t,
                           const std::string& folder) {
    ++found;
    gauges += file.ends_with(".xml") ? 1 : 0;
    Require(file.find('\\') == std::string::npos && (folder.empty() || folder.back() == '\\'));
    Require(IsUtf8(folder + file));
    Require(date >= -109205 && date < 80000);  // 1601 stands for no date; else 1980 to 2107.
  };
  modGauges::InstalledGauges.Reset();
  const bool sound = cabinet->GetInfo();
  Require(modGauges::InstalledGauges.UpperBound() == gauges);
  try {
    Require(cabinet->FileCount() == found && sound);
    Require(cabinet->GetXML().ends_with("</FILES></CABFILE>"));
  } catch (const CabError& error) {
    Require(!sound && error.Number == 13);
  }
}
