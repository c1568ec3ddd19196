// The errors of the cabinet reader: numbers, and their texts.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace panelkit {

/// An error of a CABFile operation.
class CabError : public std::exception {
 public:
  CabError(std::int32_t number, std::string source, std::string description)
      : Number(number), Source(std::move(source)), Description(std::move(description)) {}

  const char* what() const noexcept override { return Description.c_str(); }

  std::int32_t Number;      ///< A code of winerror.h or one of the numbers below.
  std::string Source;       ///< kCabFileSource, "CabFile.GetXML" or "CabFile.CabCallBack".
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

/// The text of a winerror.h code; "Unknown error." for a code that has none here.
std::string Win32ErrorText(std::int32_t Code);

/// The text of CabNameMissing; "Unknown error." for any other number.
std::string CabErrorText(std::int32_t Number);

}  // namespace panelkit
