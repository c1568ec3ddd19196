// What the fuzzers share.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace panelkit::fuzz {

/// Ends the process, which counts as a finding, where a promise is broken.
inline void Require(bool promise) {
  if (!promise) std::abort();
}

inline std::string_view Bytes(const std::uint8_t* bytes, std::size_t size) {
  return {reinterpret_cast<const char*>(bytes), size};
}

}  // namespace panelkit::fuzz
