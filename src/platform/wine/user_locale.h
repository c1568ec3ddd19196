// The user's locale, without touching the process's own.
#pragma once

#include <clocale>

namespace panelkit {

/// The locale that the environment names; C where it is not installed. Each category is a file to
/// load, so only those asked for are of the user.
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
