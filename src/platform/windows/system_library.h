// Calls that not every Windows has: looked up while the program runs, so that it starts without
// them.
#pragma once

#include <string>

namespace panelkit::windows {

/// The address of `function` in the library `name` ("urlmon.dll") of the system folder; null where
/// this Windows lacks either. The library stays loaded.
void* FindSystemCall(const std::wstring& name, const char* function);

/// The same with the function's type.
template <typename Function>
Function* SystemCall(const std::wstring& name, const char* function) {
  return reinterpret_cast<Function*>(FindSystemCall(name, function));
}

}  // namespace panelkit::windows
