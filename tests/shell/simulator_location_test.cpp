#include "shell/simulator_location.h"

#include <doctest/doctest.h>

#include "shell/mod_gauges.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

constexpr const char* kKey = R"(Software\Microsoft\DirectPlay\Applications\)";

std::string Find(const Machine& machine, std::vector<ScriptedApplication> applications) {
  ScriptedRegistry registry;
  registry.applications = std::move(applications);
  return FindSimulator(registry, machine.text);
}

TEST_CASE("the last application that names the simulator decides its folder") {
  Simulator simulator;
  const Machine machine = simulator.Services();
  const RegistryValue a = TextValue(R"(C:\A)");
  const RegistryValue b = TextValue(R"(C:\B\)");
  CHECK(Find(machine, {}) == "");
  CHECK(Find(machine, {{"Flight Sim", a}}) == "");
  CHECK(Find(machine, {{"Microsoft Flight Simulator 2002", a}}) == R"(C:\A)");
  CHECK(Find(machine, {{"MICROSOFT FLIGHT SIMULATOR", a}, {"flight simulator 98", b}}) ==
        R"(C:\B\)");
  CHECK(Find(machine, {{"Flight Simulator", a}, {"Flight Simulator 2", {}}}) == "Not Found");
  CHECK(Find(machine, {{"Flight Simulator", a}, {"Zoo", b}}) == R"(C:\A)");
  CHECK(Find(machine, {{"Flight Simulator", a}, {"Not Found", {}}, {"Flight Simulator 2", b}}) ==
        R"(C:\A)");
  CHECK(Find(machine, {{"not found", {}}, {"Flight Simulator 2", b}}) == R"(C:\B\)");
  CHECK(Find(machine, {{"Flight Simulator", TextValue("")}}) == "");
}

TEST_CASE("a registry value is rendered by its type") {
  Simulator simulator;
  ScriptedRegistry registry;
  const auto rendered = [&](std::uint32_t type, std::string bytes) {
    registry.applications = {{"x", RegistryValue{type, std::move(bytes)}}};
    return modGauges::GetRegValue(registry, simulator.Services().text, HKEY_LOCAL_MACHINE_VALUE,
                                  std::string(kKey) + "X", "Path");
  };
  using namespace std::string_literals;
  CHECK(rendered(1, "C:\\FS\0"s) == "C:\\FS");
  CHECK(rendered(2, "%windir%\0"s) == "%windir%");
  CHECK(rendered(7, "a\0b\0\0"s) == "a\0b\0"s);
  CHECK(rendered(3, "\x0A\xFF"s) == "0AFF");
  CHECK(rendered(4, "\x07\0\0\0"s) == "007");
  CHECK(rendered(4, "\xD2\x04\0\0"s) == "123");
  CHECK(rendered(4, "\xFF\xFF\xFF\xFF"s) == "429");
  CHECK(rendered(1, "") == "");

  const auto missing = [&](std::uint32_t root, const std::string& key, const std::string& value) {
    return modGauges::GetRegValue(registry, simulator.Services().text, root, key, value);
  };
  CHECK(missing(HKEY_LOCAL_MACHINE_VALUE, std::string(kKey) + "x", "Version") == "Not Found");
  CHECK(missing(HKEY_LOCAL_MACHINE_VALUE, std::string(kKey) + "y", "Path") == "Not Found");
  CHECK(missing(0, std::string(kKey) + "x", "Path") == "Not Found");
  CHECK(modGauges::GetRegSubKey(registry, HKEY_LOCAL_MACHINE_VALUE, "Elsewhere", 0) == "Not Found");
}

}  // namespace
}  // namespace panelkit::test
