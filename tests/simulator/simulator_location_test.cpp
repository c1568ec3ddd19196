#include "simulator/simulator_location.h"

#include <doctest/doctest.h>

#include "support/simulator.h"

namespace panelkit::test {
namespace {

TEST_CASE("the last application that names the simulator decides its folder") {
  Simulator simulator;
  const auto find = [&](std::vector<ScriptedApplication> applications) {
    simulator.registry.applications = std::move(applications);
    return FindSimulator(simulator.registry, simulator.Services().text);
  };
  const RegistryValue a = TextValue(R"(C:\A)");
  const RegistryValue b = TextValue(R"(C:\B\)");
  CHECK(find({{"Flight Sim", a}}) == "");
  CHECK(find({{"MICROSOFT FLIGHT SIMULATOR", a}, {"flight simulator 98", b}}) == R"(C:\B\)");
  CHECK(find({{"Flight Simulator", a}, {"Flight Simulator 2", {}}}) == "Not Found");
  CHECK(find({{"Flight Simulator", a}, {"Not Found", {}}, {"Flight Simulator 2", b}}) == R"(C:\A)");
  CHECK(find({{"not found", {}}, {"Flight Simulator 2", b}, {"Zoo", a}}) == R"(C:\B\)");
  CHECK(find({{"Flight Simulator", TextValue("")}}) == "");
}

TEST_CASE("a registry value is rendered by its type") {
  using namespace std::string_literals;
  Simulator simulator;
  const auto value = [&](const std::string& name) {
    return modGauges::GetRegValue(simulator.registry, simulator.Services().text,
                                  HKEY_LOCAL_MACHINE_VALUE,
                                  R"(Software\Microsoft\DirectPlay\Applications\x)", name);
  };
  const auto rendered = [&](std::uint32_t type, const std::string& bytes) {
    simulator.registry.applications = {{"x", RegistryValue{type, bytes}}};
    return value("Path");
  };
  CHECK(value("Path") == "Not Found");
  CHECK(rendered(2, "%windir%\0"s) == "%windir%");
  CHECK(rendered(7, "a\0b\0\0"s) == "a\0b\0"s);
  CHECK(rendered(3, "\x0A\xFF"s) == "0AFF");
  CHECK(rendered(4, "\x07\0\0\0"s) == "007");
  CHECK(rendered(4, "\xD2\x04\0\0"s) == "123");
  CHECK(rendered(4, "\xFF\xFF\xFF\xFF"s) == "429");
  CHECK(rendered(1, "") == "");
  CHECK(value("Version") == "Not Found");
}

}  // namespace
}  // namespace panelkit::test
