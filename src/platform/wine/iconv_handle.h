// The C library's conversion between encodings.
#pragma once

#include <iconv.h>

#include <cstdint>
#include <string>

namespace panelkit {

/// An open conversion, closed at its end.
class IconvHandle {
 public:
  IconvHandle(const std::string& to, const std::string& from)
      : handle_(iconv_open(to.c_str(), from.c_str())) {}
  ~IconvHandle() {
    if (IsOpen()) iconv_close(handle_);
  }
  IconvHandle(const IconvHandle&) = delete;
  IconvHandle& operator=(const IconvHandle&) = delete;

  /// False where the C library does not know one of the encodings.
  bool IsOpen() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }
  iconv_t Get() const { return handle_; }

 private:
  iconv_t handle_;
};

}  // namespace panelkit
