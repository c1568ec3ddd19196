// Ownership of a kernel handle.
#pragma once

#include <windows.h>

#include <utility>

namespace panelkit::windows {

/// Closes its handle at its end. Both values that Windows uses for "no handle" are false.
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  Handle& operator=(Handle&&) = delete;
  ~Handle() { Close(); }

  explicit operator bool() const { return handle_ != nullptr; }
  HANDLE Get() const { return handle_; }
  void Close() {
    if (handle_ != nullptr) CloseHandle(std::exchange(handle_, nullptr));
  }

 private:
  HANDLE handle_;
};

}  // namespace panelkit::windows
