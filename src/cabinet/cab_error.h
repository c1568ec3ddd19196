// The error of the cabinet reader.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace panelkit {

/// An error of a CABFile operation, told by number as well as in words.
class CabError : public std::exception {
 public:
  CabError(std::int32_t number, std::string source, std::string description)
      : Number(number), Source(std::move(source)), Description(std::move(description)) {}

  const char* what() const noexcept override { return Description.c_str(); }

  std::int32_t Number;      ///< A code of winerror.h, CabNameMissing, 6 (overflow) or 9 (range).
  std::string Source;       ///< "CabFile", with the operation behind a dot where it was passed on.
  std::string Description;  ///< One sentence in English.
};

/// The source of every error that a CABFile raises itself.
inline constexpr const char* kCabFileSource = "CabFile";

/// Number of an operation without a CabName: 0x800407A4.
inline constexpr std::int32_t CabNameMissing = -2147219548;

/// Number of a table that cannot grow past its 16-bit index.
inline constexpr std::int32_t kOverflow = 6;

/// Number of an index outside its array.
inline constexpr std::int32_t kSubscriptOutOfRange = 9;

}  // namespace panelkit
