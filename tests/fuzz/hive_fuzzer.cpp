// Any bytes as a prefix's registry, and the simulator found in it.
#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/fuzz.h"
#include "platform/linux/code_page_text.h"
#include "platform/linux/hive_registry.h"
#include "platform/linux/utf8.h"
#include "shell/simulator_location.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace panelkit;
  using fuzz::Require;
  static const CodePageText text(1252);
  const int memory = memfd_create("system.reg", MFD_CLOEXEC);
  Require(memory >= 0 && write(memory, bytes, size) == static_cast<ssize_t>(size));
  HiveFile file("/proc/self/fd/" + std::to_string(memory));
  Require(file.Current() != nullptr);
  CodePageOf(file.Current().get());
  const HiveRegistry registry(file, text);
  Require(utf8::IsValid(FindSimulator(registry, text)));
  // The first text of the input as a path and as a value's notation.
  const std::string_view input = fuzz::Bytes(bytes, size);
  const std::string path(input.substr(0, input.find('\n')));
  const auto key = registry.RegOpenKeyA(HKEY_LOCAL_MACHINE_VALUE, path);
  for (int index = 0; key && key->RegEnumKeyA(index); ++index) Require(index < 20000);
  if (const auto value = key ? key->RegQueryValueExA(path) : std::nullopt) {
    Require(value->bytes.size() <= kRegistryBufferSize);
  }
  ReadHiveValue(input);
  close(memory);
  return 0;
}
