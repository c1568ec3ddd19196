// find: its result as text.
#pragma once

#include <string>

#include "console/command_line.h"
#include "platform/local_machine.h"
#include "search/find_result.h"

namespace panelkit {

/// The required files with the candidates for each, the best first; those that have none, with
/// candidates of similar names; what was passed over; what was, or would be, installed in Gauges,
/// and for which aircraft; what is missing then.
std::string TextOf(LocalMachine& machine, const CommandLine& line, const std::string& gauges,
                   const FindResult& result);

}  // namespace panelkit
