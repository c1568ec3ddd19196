// Permission bits do not bind the administrator, under whom tests may run.
#pragma once

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace panelkit::test {

/// What `check` gives in a process of its own that has no rights beyond an ordinary user's.
template <typename Check>
bool AsOrdinaryUser(Check check) {
  constexpr unsigned kNobody = 65534;
  const pid_t child = fork();
  if (child == 0) {
    const bool is_bound = getuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 &&
                                            setuid(kNobody) == 0);
    _exit(is_bound && check() ? 0 : 1);
  }
  int status = 0;
  return waitpid(child, &status, 0) == child && status == 0;
}

}  // namespace panelkit::test
