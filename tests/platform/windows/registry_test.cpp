#include "platform/registry.h"

#include <windows.h>

#include <doctest/doctest.h>

#include "support/machine_here.h"

using namespace panelkit;

namespace {

constexpr const char* kKey = "Software\\Panelkit test";

/// A key of the machine's settings in one of the two views, removed at the end.
class TestKey {
 public:
  TestKey(const std::string& name, REGSAM view) : name_(name), view_(view) {
    RegCreateKeyExA(HKEY_LOCAL_MACHINE, name.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS | view, nullptr,
                    &key_, nullptr);
  }
  ~TestKey() {
    RegCloseKey(key_);
    using DeleteKey = LONG WINAPI(HKEY, LPCSTR, REGSAM, DWORD);
    const auto erase = reinterpret_cast<DeleteKey*>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"advapi32.dll"), "RegDeleteKeyExA")));
    erase(HKEY_LOCAL_MACHINE, name_.c_str(), view_, 0);
  }

  void Set(const char* value, DWORD type, std::string_view bytes) {
    RegSetValueExA(key_, value, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                   static_cast<DWORD>(bytes.size()));
  }

 private:
  std::string name_;
  REGSAM view_;
  HKEY key_ = nullptr;
};

}  // namespace

TEST_CASE("The registry is the one that a 32-bit simulator has written") {
  const auto machine = test::OpenMachineAt({}, {});
  const Registry& registry = machine->Services().registry;
  TestKey decoy(kKey, KEY_WOW64_64KEY);
  decoy.Set("Path", REG_SZ, {"C:\\wrong", 9});
  TestKey key(kKey, KEY_WOW64_32KEY);
  TestKey second(std::string(kKey) + "\\b", KEY_WOW64_32KEY);
  TestKey first(std::string(kKey) + "\\H\xF6he", KEY_WOW64_32KEY);
  key.Set("Path", REG_SZ, {"C:\\H\xF6he", 8});
  key.Set("Number", REG_DWORD, {"\x07\0\0\0", 4});
  key.Set("Empty", REG_SZ, {});
  key.Set("Fits", REG_BINARY, std::string(2048, 'x'));
  key.Set("Long", REG_BINARY, std::string(2049, 'x'));

  const auto opened = registry.RegOpenKeyA(HKEY_LOCAL_MACHINE_VALUE, "SOFTWARE\\PANELKIT TEST\\");
  REQUIRE(opened);
  CHECK(opened->RegEnumKeyA(0) == "b");
  CHECK(opened->RegEnumKeyA(1) == "Höhe");
  CHECK_FALSE(opened->RegEnumKeyA(2));
  CHECK_FALSE(opened->RegEnumKeyA(-1));

  const auto bytes = [&opened](std::string_view name) -> std::string {
    const auto value = opened->RegQueryValueExA(name);
    return value ? std::to_string(value->type) + ":" + value->bytes : "none";
  };
  CHECK(bytes("path") == std::string("1:C:\\H\xF6he\0", 10));
  CHECK(bytes("Number") == std::string("4:\x07\0\0\0", 6));
  CHECK(bytes("Empty") == "1:");
  CHECK(bytes("Fits") == "3:" + std::string(2048, 'x'));
  CHECK(bytes("Long") == "none");
  CHECK(bytes("Absent") == "none");

  CHECK(registry.RegOpenKeyA(HKEY_LOCAL_MACHINE_VALUE, std::string(kKey) + "\\Höhe"));
  CHECK_FALSE(registry.RegOpenKeyA(HKEY_LOCAL_MACHINE_VALUE, "Software\\No such key"));
  CHECK_FALSE(registry.RegOpenKeyA(0, kKey));
}
