#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include "platform/wine/letter_case.h"
#include "platform/wine/services.h"
#include "text/utf8.h"

namespace panelkit {

namespace {

constexpr unsigned kUtf8Page = 65001;
constexpr unsigned kDefaultPage = 1252;
constexpr char32_t kUndefined = 0xFFFFFFFF;
constexpr char32_t kLeadByte = 0xFFFFFFFE;
constexpr unsigned kFirstTrailByte = 0x30;
constexpr char32_t kPrivateUse = 0xF0000;

char32_t Placeholder(unsigned char byte) {
  return byte < 0xA0 ? byte : kPrivateUse + byte;
}

bool IsPrivatePlaceholder(char32_t c) {
  return c >= kPrivateUse + 0x80 && c <= kPrivateUse + 0xFF;
}

/// What the bytes of one character become; nullopt if they are undefined. `errno` is EINVAL then
/// where more bytes must follow.
template <typename Output>
std::optional<Output> ConvertOne(const IconvHandle& conversion, std::string_view bytes) {
  Output output{};
  std::array<char, 16> input{};
  bytes.copy(input.data(), input.size());
  char* in = input.data();
  std::size_t in_left = bytes.size();
  auto* out = reinterpret_cast<char*>(&output);
  std::size_t out_left = sizeof output;
  iconv(conversion.Get(), nullptr, nullptr, nullptr, nullptr);
  errno = 0;
  // The second call takes out what some pages hold back in case an accent follows.
  const bool converted = iconv(conversion.Get(), &in, &in_left, &out, &out_left) == 0 &&
                         iconv(conversion.Get(), nullptr, nullptr, &out, &out_left) == 0;
  if (!converted || out_left == sizeof output) return std::nullopt;
  return output;
}

/// Code pages whose name on the web is not "windows-" and their number.
constexpr std::pair<unsigned, const char*> kCharsets[] = {
    {932, "shift_jis"}, {936, "gbk"}, {949, "euc-kr"}, {950, "big5"}, {kUtf8Page, "utf-8"},
};

std::string IconvName(unsigned page) {
  return "CP" + std::to_string(page);
}

bool IconvKnows(unsigned page) {
  return IconvHandle("WCHAR_T", IconvName(page)).IsOpen();
}

}  // namespace

WineText::WineText(unsigned page)
    : page_(page == kUtf8Page || IconvKnows(page) ? page : kDefaultPage) {
  if (page_ != kUtf8Page) ReadTables();
}

void WineText::AddSingle(unsigned char byte, char32_t code_point) {
  singles_.at(byte) = code_point;
  bytes_.emplace(code_point, byte);
}

void WineText::ReadTables() {
  const IconvHandle from_page("WCHAR_T", IconvName(page_));
  singles_.assign(0x100, kUndefined);
  for (unsigned byte = 0; byte < 0x100; ++byte) {
    const auto c = static_cast<char>(byte);
    if (byte < 0x80) {
      AddSingle(byte, byte);
    } else if (const auto found = ConvertOne<wchar_t>(from_page, {&c, 1})) {
      AddSingle(byte, static_cast<char32_t>(*found));
    } else if (errno == EINVAL) {
      singles_[byte] = kLeadByte;
      pairs_.resize(0x10000, kUndefined);
    }
  }
  if (!pairs_.empty()) ReadPairs(from_page);
  for (unsigned byte = 0x80; byte < 0x100; ++byte) {
    if (singles_[byte] == kUndefined) AddSingle(byte, Placeholder(byte));
    if (singles_[byte] == kLeadByte) bytes_.emplace(Placeholder(byte), byte);
  }
}

void WineText::ReadPairs(const IconvHandle& from_page) {
  const IconvHandle to_page(IconvName(page_), "WCHAR_T");
  for (unsigned pair = 0x8000; pair < pairs_.size(); ++pair) {
    if (singles_[pair >> 8U] != kLeadByte || (pair & 0xFFU) < kFirstTrailByte) continue;
    const std::array<char, 2> bytes = {static_cast<char>(pair >> 8U), static_cast<char>(pair)};
    const auto found = ConvertOne<wchar_t>(from_page, {bytes.data(), bytes.size()});
    if (!found) continue;
    const auto code_point = static_cast<char32_t>(*found);
    pairs_[pair] = code_point;
    if (bytes_.emplace(code_point, pair).second) continue;
    // Some characters stand in a page twice; the way back is iconv's choice.
    const auto back = ConvertOne<std::array<unsigned char, 2>>(
        to_page, {reinterpret_cast<const char*>(&*found), sizeof *found});
    if (back && (*back)[0] * 0x100U + (*back)[1] == pair) bytes_[code_point] = pair;
  }
}

char32_t WineText::Decode(std::string_view bytes, std::size_t& position) const {
  const auto byte = static_cast<unsigned char>(bytes[position]);
  if (page_ == kUtf8Page) {
    std::size_t next = position;
    const char32_t c = TakeCodePoint(bytes, next);
    // Text that already holds a placeholder is taken as bytes, so that it comes back as it was.
    const bool as_byte = c == kNoCodePoint || IsPrivatePlaceholder(c);
    position = as_byte ? position + 1 : next;
    return as_byte ? kPrivateUse + byte : c;
  }
  ++position;
  if (singles_[byte] != kLeadByte) return singles_[byte];
  if (position < bytes.size()) {
    const char32_t c = pairs_[byte * 0x100U + static_cast<unsigned char>(bytes[position])];
    if (c != kUndefined) {
      ++position;
      return c;
    }
  }
  return Placeholder(byte);
}

std::string WineText::Charset() const {
  for (const auto& [page, name] : kCharsets) {
    if (page == page_) return name;
  }
  return "windows-" + std::to_string(page_);
}

std::string WineText::FromAnsi(std::string_view bytes) const {
  std::size_t position = AsciiLength(bytes);
  std::string text(bytes.substr(0, position));
  while (position < bytes.size()) AppendCodePoint(text, Decode(bytes, position));
  return text;
}

std::string WineText::ToAnsi(std::string_view text) const {
  std::size_t position = AsciiLength(text);
  std::string bytes;
  bytes.reserve(text.size() + 2);  // Room for a line end, so that no page is copied to get its own.
  bytes = text.substr(0, position);
  while (position < text.size()) {
    const std::size_t start = position;
    const char32_t c = TakeCodePoint(text, position);
    if (page_ == kUtf8Page && c != kNoCodePoint) {
      if (IsPrivatePlaceholder(c)) {
        bytes += static_cast<char>(c - kPrivateUse);
      } else {
        bytes += text.substr(start, position - start);
      }
      continue;
    }
    const auto found = bytes_.find(c);
    if (found == bytes_.end()) {
      bytes += '?';
      continue;
    }
    if (found->second > 0xFF) bytes += static_cast<char>(found->second >> 8U);
    bytes += static_cast<char>(found->second);
  }
  return bytes;
}

std::string WineText::Lower(std::string_view text) const {
  return Lowered(text);
}

std::string WineText::Upper(std::string_view text) const {
  if (page_ == kUtf8Page) return Uppered(text);
  std::size_t position = AsciiLength(text);
  std::string upper = Uppered(text.substr(0, position));
  while (position < text.size()) {
    const std::size_t start = position;
    TakeCodePoint(text, position);
    const std::string_view letter = text.substr(start, position - start);
    const std::string capital = Uppered(letter);
    const bool only_small = ToAnsi(capital) == "?" && ToAnsi(letter) != "?";
    upper += only_small ? letter : capital;
  }
  return upper;
}

}  // namespace panelkit
