// The registry of a prefix: what Wine writes into system.reg, and what is left of a damaged one.
#include <doctest/doctest.h>

#include <filesystem>
#include <string>

#include "platform/linux/code_page_text.h"
#include "platform/linux/hive_registry.h"
#include "support/temp_folder.h"

namespace panelkit {
namespace {

using test::Put;
using test::TempFolder;

constexpr auto kHklm = HKEY_LOCAL_MACHINE_VALUE;
const std::string kApplications = R"(SOFTWARE\Microsoft\DirectPlay\Applications)";

/// A registry over a file that the test writes.
struct PrefixRegistry {
  explicit PrefixRegistry(std::string_view content = {}) { Put(path, content); }

  std::string Names(std::string_view key) const {
    const auto open = registry.RegOpenKeyA(kHklm, key);
    if (!open) return "(no key)";
    std::string names;
    for (int i = 0; const auto name = open->RegEnumKeyA(i); ++i) names += *name + '|';
    return names;
  }

  /// Type and bytes of a value, the closing 0 as "$".
  std::string Value(std::string_view key, std::string_view name) const {
    const auto open = registry.RegOpenKeyA(kHklm, key);
    const auto value = open ? open->RegQueryValueExA(name) : std::nullopt;
    if (!value) return "(none)";
    std::string bytes = value->bytes;
    for (char& c : bytes) c = c == '\0' ? '$' : c;
    return std::to_string(value->type) + ' ' + bytes;
  }

  TempFolder folder;
  std::filesystem::path path = folder / "system.reg";
  CodePageText text{1252};
  HiveFile file{path.native()};
  HiveRegistry registry{file, text};
};

constexpr std::string_view kHead =
    "WINE REGISTRY Version 2\n;; All keys relative to REGISTRY\\\\Machine\n\n";

TEST_CASE("Every kind of value that Wine writes is read") {
  const std::string long_text(kRegistryBufferSize - 1, 'x');
  const PrefixRegistry wine(
      std::string(kHead) +
      "#arch=win32\n\n[Software\\\\Kinds] 1795558569\n#time=1dd7c616892b9ca\n" +
      R"(@="unnamed"
"Path"="C:\\FS \xe9\"q\" \x65e5\xd83d\xde00 \x00e9e\t\1012"
"Raw"="né"
"Expand"=str(2):"%ProgramFiles%\\FS"
"Multi"=str(7):"a\0b\0"
"Dword"=dword:64636261
"Bytes"=hex:61,62,63,\
  64,65
"Link"=hex(6):5c,00
"Wide"=hex(2):e9,00,41,00,00,00
"Open"=hex(1):41,00,42,00
"Empty"=hex(1):
"na\"me"="quoted"
"Fits"=")" +
      long_text + "\"\n\"Long\"=\"x" + long_text + "\"\n\"Last\"=\"no line end\"");
  const std::pair<const char*, std::string> cases[] = {
      {"", "1 unnamed$"},
      {"PATH",
       "1 C:\\FS \xE9\"q\" ?? \xE9"
       "e\tA2$"},
      {"raw", "1 n\xE9$"},
      {"Expand", "2 %ProgramFiles%\\FS$"},
      {"Multi", "7 a$b$$"},
      {"Dword", "4 abcd"},
      {"Bytes", "3 abcde"},
      {"Link", "6 \\$"},
      {"Wide",
       "2 \xE9"
       "A$"},
      {"Open", "1 AB"},
      {"Empty", "1 "},
      {"na\"me", "1 quoted$"},
      {"Fits", "1 " + long_text + '$'},
      {"Long", "(none)"},
      {"Last", "1 no line end$"},
      {"Absent", "(none)"},
  };
  for (const auto& value : cases) {
    CAPTURE(value.first);
    CHECK(wine.Value(R"(software\KINDS\)", value.first) == value.second);
  }
  CHECK(wine.registry.RegOpenKeyA(0x80000001, R"(Software\Kinds)") == nullptr);
}

TEST_CASE("Subkeys come in upper-cased order, implied and escaped ones too") {
  PrefixRegistry wine(std::string(kHead) + "#arch=win32\n" + R"(
[Software\\Microsoft\\DirectPlay\\Applications\\_a] 1
"Path"="C:\\A"

[Software\\Microsoft\\DirectPlay\\Applications\\zoo\\Deep] 1

[Software\\Microsoft\\DirectPlay\\Applications\\Microsoft Flight \[x\] \xe4\x20ac\xd83d\xde00] 1
"Path"="C:\\FS"

[Software\\Microsoft\\DirectPlay\\Applications\\apple] 1

[Software\\Microsoft\\DirectPlay\\ApplicationsOther] 1
)");
  CHECK(wine.Names(kApplications) == "apple|Microsoft Flight [x] ä€😀|zoo|_a|");
  CHECK(wine.Value(kApplications + "\\MICROSOFT flight [X] Ä€😀", "path") == "1 C:\\FS$");
  CHECK(wine.Names(kApplications + "\\zoo") == "Deep|");
  CHECK(wine.Names(kApplications + "\\oo") == "(no key)");
  CHECK(wine.registry.RegOpenKeyA(kHklm, kApplications)->RegEnumKeyA(-1) == std::nullopt);

  Put(wine.path, "[Software\\\\Microsoft\\\\DirectPlay\\\\Applications\\\\New] 1\n");
  CHECK(wine.Names(kApplications) == "New|");
  std::filesystem::remove(wine.path);
  CHECK(wine.Names(kApplications) == "(no key)");
}

TEST_CASE("A 64-bit prefix shows what its 32-bit programs see") {
  const PrefixRegistry wine(std::string(kHead) + "#arch=win64\n" + R"(
[Software\\Microsoft\\DirectPlay\\Applications\\Only64] 1

[Software\\Wow6432Node\\Microsoft\\DirectPlay\\Applications\\Only32] 1

[System\\Select] 1
"Current"=dword:00000031
)");
  CHECK(wine.Names(kApplications) == "Only32|");
  CHECK(wine.Names(R"(software\WOW6432NODE\Microsoft\DirectPlay\Applications)") == "Only32|");
  CHECK(wine.Names("Software") == "Microsoft|");
  CHECK(wine.Value(R"(System\Select)", "current") == "4 1$$$");
}

TEST_CASE("A hive cut anywhere gives what stands before the cut") {
  const std::string before = std::string(kHead) + "[Software\\\\A] 1\n\"Path\"=\"C:\\\\FS\"\n\n";
  const std::string whole =
      before + "[Software\\\\\\x42] 1\n\"V\"=hex:01,\\\n  02\n\"W\"=str(2):\"\\x41\"\n" +
      "\"D\"=dword:04030201\n";
  for (std::size_t length = before.size(); length <= whole.size(); ++length) {
    CAPTURE(length);
    const Hive hive(whole.substr(0, length));
    const auto key = hive.Find(R"(Software\A)");
    REQUIRE(key);
    CHECK(key->Value("Path")->content == std::string("C:\\FS\0", 6));
    if (const auto cut = hive.Find(R"(Software\B)")) {
      for (const auto& [name, content] : {std::pair("V", "\1\2"), {"D", "\1\2\3\4"}}) {
        const auto value = cut->Value(name);
        CHECK((!value || value->content == content));
      }
    }
  }
  const Hive noisy(
      "\xFF\xFE[\n[Software\\\\Cut\n\"V\"=\"lost\"\n[S\\\\" + std::string(100000, 'x') +
      "\n[Software\\\\After] 1\n\"V\"=\"a\\\n\"V\"=hex(zz):1\n\"V\"=dword:g\n\"W\"=\"ok\"\n\"V");
  CHECK_FALSE(noisy.Find(R"(Software\Cut)"));
  const auto after = noisy.Find(R"(Software\After)");
  REQUIRE(after);
  CHECK_FALSE(after->Value("V"));
  CHECK(after->Value("W")->content == std::string("ok\0", 3));
}

TEST_CASE("The code page is found under both names of its key, else it is 1252") {
  const std::string value = R"(\\Control\\Nls\\CodePage] 1
"ACP"="932")";
  CHECK(CodePageOf(std::make_unique<Hive>("[System\\\\ControlSet001" + value).get()) == 932);
  CHECK(CodePageOf(std::make_unique<Hive>("[System\\\\CurrentControlSet" + value).get()) == 932);
  CHECK(CodePageOf(std::make_unique<Hive>("[System\\\\Other" + value).get()) == 1252);
  CHECK(CodePageOf(nullptr) == 1252);
}

}  // namespace
}  // namespace panelkit
