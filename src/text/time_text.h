// Times as text.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace panelkit {

/// "2026-11-25 20:11:05", in UTC.
std::string TimeText(std::chrono::sys_seconds time);

/// The length of that text.
inline constexpr std::size_t kTimeTextLength = 19;

/// The time of this call.
std::chrono::sys_seconds Now();

}  // namespace panelkit
