// Permission bits do not bind the administrator, under whom tests may run.
#pragma once

#include <doctest/doctest.h>
#include <unistd.h>

namespace panelkit::test {

/// While it lives, the administrator is an ordinary user, but for the group.
struct OrdinaryUser {
  const uid_t before = geteuid();
  OrdinaryUser() { REQUIRE(seteuid(before == 0 ? 65534 : before) == 0); }
  ~OrdinaryUser() { CHECK(seteuid(before) == 0); }
};

}  // namespace panelkit::test
