#include "search/cabinet_listing.h"

#include "cabinet/cab_file.h"
#include "gauges/gauge_file.h"

namespace panelkit {

CabinetListing ListCabinet(const Machine& machine, const std::string& path,
                           const std::string& name) {
  CabinetListing listing;
  const std::string cabinet_name = LessExtension(name);
  const auto cabinet = CABFile::Create(machine);
  cabinet->CabName = path;
  cabinet->FileFound = [&](const std::string& file, double /*date*/, std::int32_t /*size*/,
                           const std::string& folder) {
    listing.entries.push_back(folder + file);
    listing.rows.AddEntry(machine.text, cabinet_name, file);
  };
  try {
    cabinet->ListEntries();
  } catch (const CabError& error) {
    listing.fault = error;
  }
  return listing;
}

}  // namespace panelkit
