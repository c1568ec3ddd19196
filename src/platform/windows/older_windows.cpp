// What the compiler's thread library asks of Windows beyond Windows XP. It imports GetTickCount64,
// which XP lacks, and a program with an import that is not there does not start. This file takes
// the import's place.
#include <windows.h>

namespace panelkit::windows {
namespace {

using TickCount = ULONGLONG WINAPI();

/// Milliseconds since the system's start; on XP they start again from 0 after 49 days.
ULONGLONG WINAPI TickCountOfAnyWindows() {
  const auto newer = reinterpret_cast<TickCount*>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetTickCount64")));
  return newer != nullptr ? newer() : GetTickCount();
}

}  // namespace

extern "C" {
extern TickCount* const kTickCountImport __asm__("__imp__GetTickCount64@0");
TickCount* const kTickCountImport = &TickCountOfAnyWindows;
}

}  // namespace panelkit::windows
