#include "search/cabinet_listing.h"

#include <utility>

#include "cabinet/cab_file.h"
#include "cabinet/mod_gauges.h"
#include "search/gauge_names.h"

namespace panelkit {
namespace {

// CABFile adds its rows to InstalledGauges; while this lives, that is another table.
class OtherInstalledGauges {
 public:
  explicit OtherInstalledGauges(GaugeTable& table) : table_(table) {
    std::swap(modGauges::InstalledGauges, table_);
  }
  ~OtherInstalledGauges() { std::swap(modGauges::InstalledGauges, table_); }
  OtherInstalledGauges(const OtherInstalledGauges&) = delete;
  OtherInstalledGauges& operator=(const OtherInstalledGauges&) = delete;

 private:
  GaugeTable& table_;
};

std::optional<CabError> FaultOf(CABFile& cabinet) {
  try {
    cabinet.FileCount();
  } catch (const CabError& error) {
    return error;
  }
  return std::nullopt;
}

}  // namespace

CabinetListing ListCabinet(const Machine& machine, const std::string& path,
                           const std::string& name) {
  CabinetListing listing;
  const auto cabinet = CABFile::Create(machine);
  cabinet->CabName = path;
  cabinet->FileFound = [&](const std::string& file, double /*date*/, std::int32_t /*size*/,
                           const std::string& folder) { listing.entries.push_back(folder + file); };
  const OtherInstalledGauges rows_go_to(listing.rows);
  modGauges::CurrentCabinet = LessExtension(name);
  if (!cabinet->GetInfo()) listing.fault = FaultOf(*cabinet);
  return listing;
}

}  // namespace panelkit
