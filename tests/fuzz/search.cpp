// Hands libFuzzer's inputs to the fuzzer.
#include <cstdint>

#include "fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  panelkit::fuzz::Try({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
