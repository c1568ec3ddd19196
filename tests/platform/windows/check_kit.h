// What the check kit, which a user runs on a Windows of their own, leaves out.
#pragma once

#include <doctest/doctest.h>

#include <cstdlib>

namespace panelkit::test {

/// For a test that is left out where `left_out` holds, for this reason.
struct LeftOut {
  bool left_out;
  const char* reason;

  void fill(doctest::detail::TestCase& test) const {
    if (!left_out) return;
    test.m_skip = true;
    test.m_description = reason;
  }
};

/// The kit changes nothing of the machine: check.cmd sets PANELKIT_CHECK.
inline const LeftOut kWritesToTheRegistry{std::getenv("PANELKIT_CHECK") != nullptr,
                                          "would write to the registry"};

}  // namespace panelkit::test
