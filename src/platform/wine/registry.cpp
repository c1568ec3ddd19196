#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/files.h"
#include "platform/wine/letter_case.h"
#include "platform/wine/native_file.h"
#include "platform/wine/services.h"

namespace panelkit {

namespace {

constexpr unsigned kDefaultCodePage = 1252;

class OpenHiveKey final : public RegistryKey {
 public:
  OpenHiveKey(std::shared_ptr<const Hive> hive, HiveKey key, const Text& text)
      : hive_(std::move(hive)), key_(std::move(key)), text_(text) {}

  std::optional<std::string> RegEnumKeyA(std::int32_t index) const override {
    const auto& names = key_.Subkeys();
    if (index < 0 || static_cast<std::size_t>(index) >= names.size()) return std::nullopt;
    const std::string& name = names[static_cast<std::size_t>(index)];
    const std::string bytes = text_.ToAnsi(name);
    if (bytes.size() + 1 > kRegistryBufferSize) return std::nullopt;
    return text_.FromAnsi(bytes);
  }

  std::optional<RegistryValue> RegQueryValueExA(std::string_view name) const override {
    auto found = key_.Value(text_.FromAnsi(text_.ToAnsi(name)));
    if (!found) return std::nullopt;
    RegistryValue value{found->type,
                        found->is_text ? text_.ToAnsi(found->content) : std::move(found->content)};
    if (value.bytes.size() > kRegistryBufferSize) return std::nullopt;
    return value;
  }

 private:
  std::shared_ptr<const Hive> hive_;
  HiveKey key_;
  const Text& text_;
};

/// Where a 32-bit program is led that asks a 64-bit Windows for `path`.
std::string Redirected(std::string_view path) {
  constexpr std::string_view kSoftware = "software";
  constexpr std::string_view kBelow32 = "wow6432node";
  std::string_view rest = path.substr(std::min(path.find_first_not_of('\\'), path.size()));
  const std::string lowered = Lowered(rest);
  if (lowered != kSoftware && !lowered.starts_with("software\\")) return std::string(path);
  rest.remove_prefix(kSoftware.size());
  rest.remove_prefix(std::min(rest.find_first_not_of('\\'), rest.size()));
  const std::string second = Lowered(rest.substr(0, rest.find('\\')));
  std::string redirected = "Software\\Wow6432Node\\";
  if (second == kBelow32) rest.remove_prefix(kBelow32.size());
  return redirected.append(rest);
}

}  // namespace

std::shared_ptr<const Hive> HiveFile::Current() {
  const auto status = StatusOf(path_);
  if (!status) return nullptr;
  if (!hive_ || !IsSameState(*status, read_)) {
    auto text = ReadPlainFile(path_, kLargestFile).bytes;
    if (!text) return nullptr;
    hive_ = std::make_shared<const Hive>(*std::move(text));
    read_ = *status;
  }
  return hive_;
}

std::unique_ptr<RegistryKey> WineRegistry::RegOpenKeyA(std::uint32_t root,
                                                       std::string_view path) const {
  if (root != HKEY_LOCAL_MACHINE_VALUE) return nullptr;
  auto hive = file_.Current();
  if (!hive) return nullptr;
  const std::string passed = text_.FromAnsi(text_.ToAnsi(path));
  auto key = hive->Find(hive->IsWin64() ? Redirected(passed) : passed);
  if (!key) return nullptr;
  return std::make_unique<OpenHiveKey>(std::move(hive), *std::move(key), text_);
}

unsigned CodePageOf(const Hive* hive) {
  if (!hive) return kDefaultCodePage;
  // The first path is a link to the second, which some versions of Wine do not write down.
  for (const char* path : {R"(System\CurrentControlSet\Control\Nls\CodePage)",
                           R"(System\ControlSet001\Control\Nls\CodePage)"}) {
    const auto key = hive->Find(path);
    const auto value = key ? key->Value("ACP") : std::nullopt;
    if (!value || !value->is_text) continue;
    unsigned page = 0;
    const char* const text = value->content.c_str();
    if (std::from_chars(text, text + value->content.size(), page).ec == std::errc()) return page;
  }
  return kDefaultCodePage;
}

}  // namespace panelkit
