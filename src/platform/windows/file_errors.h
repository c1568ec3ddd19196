// What the error of a failed file call means: a fault to report, or a lock that may pass.
#pragma once

#include <windows.h>

#include <utility>

#include "platform/files.h"

namespace panelkit::windows {

/// The fault that an error of winerror.h stands for; FileFault::None for ERROR_SUCCESS.
FileFault FaultOf(DWORD error);

/// Waits for the locks that other programs (virus scanners, the browser control, the simulator)
/// hold on files for a moment. Nothing else happens meanwhile: a click must not end the program in
/// the middle of what the caller does with files.
class ShortLocks {
 public:
  /// Gives what `step` gives: something true or, with its error in GetLastError, false. While that
  /// error may be a lock's (5, 32, 33, 1175), the step is tried again for about a second.
  template <class Step>
  auto Try(Step step) const {
    for (int round = 0;; ++round) {
      auto result = step();
      if (result && round > 0) denied_in_vain_ = 0;
      if (result || !Wait(GetLastError(), round)) return result;
    }
  }

 private:
  /// Waits for one round; false, with `error` in GetLastError again, if there is no point in it.
  bool Wait(DWORD error, int round) const;

  mutable int denied_in_vain_ = 0;  ///< Denied accesses in a row that outlasted a wait.
};

}  // namespace panelkit::windows
