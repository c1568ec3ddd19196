// How the console companion ends.
#pragma once

namespace panelkit {

inline constexpr int kExitDone = 0;           ///< Nothing is missing, or the command is done.
inline constexpr int kExitGaugesMissing = 1;  ///< The report names missing gauges.
inline constexpr int kExitError = 2;  ///< Something could not be done; standard error says what.

}  // namespace panelkit
