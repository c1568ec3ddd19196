// The codes of winerror.h that a cabinet walk can fail with.
#pragma once

#include <cstdint>

namespace panelkit {

inline constexpr std::uint32_t ERROR_SUCCESS = 0;
inline constexpr std::uint32_t ERROR_FILE_NOT_FOUND = 2;
inline constexpr std::uint32_t ERROR_PATH_NOT_FOUND = 3;
inline constexpr std::uint32_t ERROR_TOO_MANY_OPEN_FILES = 4;
inline constexpr std::uint32_t ERROR_ACCESS_DENIED = 5;
inline constexpr std::uint32_t ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr std::uint32_t ERROR_INVALID_DATA = 13;
inline constexpr std::uint32_t ERROR_WRITE_PROTECT = 19;
inline constexpr std::uint32_t ERROR_CRC = 23;
inline constexpr std::uint32_t ERROR_WRITE_FAULT = 29;
inline constexpr std::uint32_t ERROR_READ_FAULT = 30;
inline constexpr std::uint32_t ERROR_SHARING_VIOLATION = 32;
inline constexpr std::uint32_t ERROR_HANDLE_DISK_FULL = 39;
inline constexpr std::uint32_t ERROR_CANNOT_MAKE = 82;
inline constexpr std::uint32_t ERROR_BUFFER_OVERFLOW = 111;
inline constexpr std::uint32_t ERROR_DISK_FULL = 112;
inline constexpr std::uint32_t ERROR_INVALID_NAME = 123;

/// The code for a value of errno; `otherwise`, which is not 0, for a value without one.
std::uint32_t Win32ErrorOf(int error, std::uint32_t otherwise);

}  // namespace panelkit
