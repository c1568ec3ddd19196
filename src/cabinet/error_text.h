// The wording of the cabinet reader's errors.
#pragma once

#include <cstdint>
#include <string>

namespace panelkit {

/// The text of a winerror.h code; "Unknown error." for a code without a text here.
std::string Win32ErrorText(std::int32_t Code);

/// The text of an error number of the cabinet reader itself; "Unknown error." for any other.
std::string CabErrorText(std::int32_t Number);

}  // namespace panelkit
