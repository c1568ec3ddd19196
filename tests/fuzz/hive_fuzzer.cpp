// Any bytes as a prefix's registry, and the simulator found in it.
#include "fuzz/fuzz.h"
#include "simulator/simulator_location.h"
#include "text/utf8.h"

void panelkit::fuzz::Try(std::string_view input) {
  static const test::TempFolder folder;
  static const WineText text(1252);
  test::Put(folder / "system.reg", input);
  HiveFile file((folder / "system.reg").native());
  CodePageOf(file.Current().get());
  const WineRegistry registry(file, text);
  Require(IsUtf8(FindSimulator(registry, text)));
  // The first line also as the path of a key and as the name of a value.
  const std::string_view line = input.substr(0, input.find('\n'));
  if (const auto key = registry.RegOpenKeyA(HKEY_LOCAL_MACHINE_VALUE, line)) {
    for (int index = 0; key->RegEnumKeyA(index); ++index) Require(index < 20000);
    const auto value = key->RegQueryValueExA(line);
    Require(!value || value->bytes.size() <= kRegistryBufferSize);
  }
  ReadHiveValue(input);
}
