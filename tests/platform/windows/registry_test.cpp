#include <windows.h>

#include <doctest/doctest.h>

#include "platform/disk.h"
#include "platform/registry_text.h"
#include "platform/windows/check_kit.h"

namespace panelkit::test {
namespace {

constexpr const char* kKey = "Software\\Panelkit test";

/// A key of the machine's settings in one of the two views, removed at the end.
struct TestKey {
  TestKey(const std::string& key_name, REGSAM key_view) : name(key_name), view(key_view) {
    RegCreateKeyExA(HKEY_LOCAL_MACHINE, name.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS | view, nullptr,
                    &key, nullptr);
  }
  ~TestKey() {
    RegCloseKey(key);
    RegDeleteKeyExA(HKEY_LOCAL_MACHINE, name.c_str(), view, 0);
  }
  void Set(const char* value, DWORD type, std::string_view bytes) const {
    RegSetValueExA(key, value, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                   static_cast<DWORD>(bytes.size()));
  }
  std::string name;
  REGSAM view;
  HKEY key = nullptr;
};

TEST_CASE_FIXTURE(Disk, "The registry is the one that a 32-bit simulator has written" *
                            kWritesToTheRegistry) {
  const Registry& registry = machine->Services().registry;
  const TestKey decoy(kKey, KEY_WOW64_64KEY);
  decoy.Set("Path", REG_SZ, {"C:\\wrong", 9});
  const TestKey key(kKey, KEY_WOW64_32KEY);
  const TestKey second(std::string(kKey) + "\\b", KEY_WOW64_32KEY);
  const TestKey first(std::string(kKey) + "\\H\xF6he", KEY_WOW64_32KEY);
  key.Set("Path", REG_SZ, {"C:\\H\xF6he", 8});
  key.Set("Empty", REG_SZ, {});
  key.Set("Fits", REG_BINARY, std::string(2048, 'x'));
  key.Set("Long", REG_BINARY, std::string(2049, 'x'));

  CHECK(Subkeys(registry, "SOFTWARE\\PANELKIT TEST\\") == "b|Höhe|");
  CHECK(Subkeys(registry, std::string(kKey) + "\\Höhe").empty());
  CHECK(Subkeys(registry, "Software\\No such key") == "(no key)");
  CHECK_FALSE(registry.RegOpenKeyA(0, kKey));
  CHECK(Value(registry, kKey, "path") == "1 C:\\H\xF6he$");
  CHECK(Value(registry, kKey, "Empty") == "1 ");
  CHECK(Value(registry, kKey, "Fits") == "3 " + std::string(2048, 'x'));
  CHECK(Value(registry, kKey, "Long") == "(none)");
}

}  // namespace
}  // namespace panelkit::test
