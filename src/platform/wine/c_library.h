// Two handles of the C library, closed at their end: a conversion between encodings, a locale.
#pragma once

#include <iconv.h>

#include <clocale>
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

/// The locale that the environment names, without touching the process's own; C where it is not
/// installed. Each category is a file to load, so only those asked for are of the user.
class UserLocale {
 public:
  /// `categories` as for newlocale(3): LC_TIME_MASK, ...
  explicit UserLocale(int categories) : locale_(newlocale(categories, "", nullptr)) {
    if (!locale_) locale_ = newlocale(categories, "C", nullptr);
  }
  ~UserLocale() { freelocale(locale_); }
  UserLocale(const UserLocale&) = delete;
  UserLocale& operator=(const UserLocale&) = delete;

  locale_t Get() const { return locale_; }

 private:
  locale_t locale_;
};

}  // namespace panelkit
