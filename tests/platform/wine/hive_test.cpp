// The registry of a prefix: what Wine writes into system.reg, and what is left of a damaged one.

#include <doctest/doctest.h>

#include "platform/disk.h"
#include "platform/registry_text.h"

namespace panelkit::test {
namespace {

struct PrefixRegistry : Disk {
  const Registry& registry = machine->Services().registry;

  void Write(const std::string& content) const {
    Put(folder / "system.reg", "WINE REGISTRY Version 2\n;; All keys relative to\n" + content);
  }
};

TEST_CASE_FIXTURE(PrefixRegistry, "Every kind of value that Wine writes is read") {
  const std::string long_text(kRegistryBufferSize - 1, 'x');
  const struct {
    std::string notation, name, value;
  } kinds[] = {
      {R"(@="unnamed")", "", "1 unnamed$"},
      {R"("P"="C:\\é \xe9\"q\" \x65e5\xd83d\xde00\t\1012")", "p", "1 C:\\\xE9 \xE9\"q\" ??\tA2$"},
      {R"("Expand"=str(2):"%ProgramFiles%\\FS")", "EXPAND", "2 %ProgramFiles%\\FS$"},
      {R"("Multi"=str(7):"a\0b\0")", "Multi", "7 a$b$$"},
      {R"("Dword"=dword:64636261)", "Dword", "4 abcd"},
      {"\"Bytes\"=hex:61,62,63,\\\n  64,65", "Bytes", "3 abcde"},
      {R"("Wide"=hex(2):41,00,e9,00,00,00)", "Wide", "2 A\xE9$"},
      {R"("Empty"=hex(1):)", "Empty", "1 "},
      {R"("na\"me"="quoted")", "na\"me", "1 quoted$"},
      {"\"Fits\"=\"" + long_text + '"', "Fits", "1 " + long_text + '$'},
      {"\"Long\"=\"x" + long_text + '"', "Long", "(none)"},
      {R"("Last"="no line end")", "Last", "1 no line end$"},
  };
  std::string hive = "[Software\\\\Kinds] 1795558569\n#time=1dd7c616892b9ca";
  for (const auto& kind : kinds) hive += '\n' + kind.notation;
  Write(hive);
  for (const auto& kind : kinds) {
    CAPTURE(kind.notation);
    CHECK(Value(registry, R"(software\KINDS\)", kind.name) == kind.value);
  }
  CHECK(registry.RegOpenKeyA(0x80000001, R"(Software\Kinds)") == nullptr);
}

TEST_CASE_FIXTURE(PrefixRegistry,
                  "Subkeys come in upper-cased order, as the prefix's 32-bit programs see them") {
  const std::string keys = R"(
[Software\\Dir\\_a] 1
[Software\\Dir\\zoo\\Deep] 1
[Software\\Dir\\Flight \[x\] \xe4\x20ac\xd83d\xde00] 1
"Path"="C:\\Other"
[Software\\Dir\\Flight \[x\] \xe4\x20ac] 1
"Path"="C:\\FS"
[Software\\Dir\\apple] 1
[Software\\DirOther] 1
[Software\\Wow6432Node\\Dir\\Only32] 1
[System\\Select] 1
"Current"=dword:00000031
)";
  Write("#arch=win32\n" + keys);
  CHECK(Subkeys(registry, R"(SOFTWARE\dir)") == "apple|Flight [x] ä€|Flight [x] ä€?|zoo|_a|");
  CHECK(Subkeys(registry, R"(Software\Di)") == "(no key)");
  CHECK(Value(registry, R"(Software\Dir\FLIGHT [X] Ä€)", "path") == "1 C:\\FS$");
  for (const char* letter : {"?", "😀"}) {
    CHECK(Value(registry, R"(Software\Dir\Flight [x] ä€)" + std::string(letter), "Path") ==
          "(none)");
  }
  Write("#arch=win64\n" + keys);
  CHECK(Subkeys(registry, R"(SOFTWARE\dir)") == "Only32|");
  CHECK(Subkeys(registry, R"(software\WOW6432NODE\Dir)") == "Only32|");
  CHECK(Value(registry, R"(System\Select)", "current") == "4 1$$$");
}

TEST_CASE_FIXTURE(PrefixRegistry, "A damaged hive gives what stands around the damage") {
  const std::string before = "[Software\\\\A] 1\n\"Path\"=\"C:\\\\FS\"\n\n";
  const std::string whole =
      before + "[Software\\\\\\x42] 1\n\"V\"=hex:01,\\\n  02\n\"D\"=dword:04030201\n";
  for (std::size_t length = before.size(); length <= whole.size(); ++length) {
    CAPTURE(length);
    Write(whole.substr(0, length));
    CHECK(Value(registry, R"(Software\A)", "Path") == "1 C:\\FS$");
    for (const auto& [name, complete] : {std::pair{"V", "3 \1\2"}, {"D", "4 \1\2\3\4"}}) {
      const std::string value = Value(registry, R"(Software\B)", name);
      CHECK((value == complete || (value == "(none)" && length < whole.size())));
    }
  }
  Write(
      "\xFF\xFE[\n[Cut\n\"V\"=\"lost\"\n[After] 1\n\"V\"=\"a\\\n\"V\"=hex(zz):1\n"
      "\"V\"=dword:g\n\"W\"=\"ok\"\n\"V");
  CHECK(Subkeys(registry, "Cut") == "(no key)");
  CHECK(Value(registry, "After", "V") == "(none)");
  CHECK(Value(registry, "After", "W") == "1 ok$");
}

}  // namespace
}  // namespace panelkit::test
