// What the inventory would take from a cabinet, wherever the cabinet lies.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cabinet/cab_error.h"
#include "gauges/gauge_table.h"
#include "platform/machine.h"

namespace panelkit {

/// One cabinet's entries and the rows of installed gauges that they stand for.
struct CabinetListing {
  GaugeTable rows;                   ///< It has overflowed if there are more than it can hold.
  std::vector<std::string> entries;  ///< Full names, in the cabinet's order.
  std::optional<CabError> fault;     ///< Why there may be more entries than these.
};

/// Lists the cabinet at `path` by CABFile, as if it lay in Gauges under the file name `name`.
CabinetListing ListCabinet(const Machine& machine, const std::string& path,
                           const std::string& name);

}  // namespace panelkit
