// The user's locale, without touching the process's own.
#pragma once

#include <clocale>

namespace panelkit {

/// The locale that the environment names; C where it is not installed.
class UserLocale {
 public:
  UserLocale() : locale_(newlocale(LC_ALL_MASK, "", nullptr)) {
    if (!locale_) locale_ = newlocale(LC_ALL_MASK, "C", nullptr);
  }
  ~UserLocale() { freelocale(locale_); }
  UserLocale(const UserLocale&) = delete;
  UserLocale& operator=(const UserLocale&) = delete;

  locale_t Get() const { return locale_; }

 private:
  locale_t locale_;
};

}  // namespace panelkit
