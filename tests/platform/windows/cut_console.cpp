// The console companion as a process that is killed: it ends with status 137 at the n-th change
// that it makes to a disk, n being PANELKIT_ENDS_AT; a write or a copy is done by half. Renames to
// a path that ends in PANELKIT_KEEPS are refused, as where a file may be written but not replaced.
#include <windows.h>

#include <cstdlib>
#include <string>

#include "platform/windows/replaced_call.h"

namespace panelkit::test {
namespace {

/// Whether this is the change at which the process ends.
bool IsLast() {
  static const char* const last = std::getenv("PANELKIT_ENDS_AT");
  static long left = last != nullptr ? std::strtol(last, nullptr, 10) : 0;
  return --left == 0;
}

BOOL End() {
  constexpr UINT kKilled = 137;
  return TerminateProcess(GetCurrentProcess(), kKilled);
}

/// A call that changes a disk; the process ends before it.
template <FunctionName name, class Signature>
struct Change;

template <FunctionName name, class... Arguments>
struct Change<name, BOOL(Arguments...)> : ReplacedCall<name, BOOL(Arguments...)> {
  Change() : ReplacedCall<name, BOOL(Arguments...)>(CallOrEnd) {}

  static BOOL CallOrEnd(Arguments... arguments) {
    return IsLast() ? End() : Change::System(arguments...);
  }
};

const Change<"DeleteFileW", BOOL(LPCWSTR)> deletes;
const Change<"SetEndOfFile", BOOL(HANDLE)> resizes;
const Change<"FlushFileBuffers", BOOL(HANDLE)> flushes;
const Change<"SetFileAttributesW", BOOL(LPCWSTR, DWORD)> attributes;
const Change<"CreateDirectoryW", BOOL(LPCWSTR, LPSECURITY_ATTRIBUTES)> folders;

const ReplacedCall<"MoveFileExW", BOOL(LPCWSTR, LPCWSTR, DWORD)> moves([](LPCWSTR from, LPCWSTR to,
                                                                          DWORD flags) {
  static const wchar_t* const kept = _wgetenv(L"PANELKIT_KEEPS");
  if (kept != nullptr && std::wstring_view(to).ends_with(kept)) {
    SetLastError(ERROR_NOT_SUPPORTED);  // Nothing that is worth a wait.
    return FALSE;
  }
  return IsLast() ? End() : decltype(moves)::System(from, to, flags);
});

const ReplacedCall<"CopyFileW", BOOL(LPCWSTR, LPCWSTR, BOOL)> copies([](LPCWSTR from, LPCWSTR to,
                                                                        BOOL only_new) {
  const bool ends = IsLast();
  const BOOL copied = decltype(copies)::System(from, to, only_new);
  if (!ends) return copied;
  HANDLE file = CreateFileW(to, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  SetFilePointer(file, static_cast<LONG>(GetFileSize(file, nullptr) / 2), nullptr, FILE_BEGIN);
  decltype(resizes)::System(file);
  return End();
});

using Write = BOOL WINAPI(HANDLE, LPCVOID, DWORD, LPDWORD, LPOVERLAPPED);
Write* system_write = nullptr;

BOOL WINAPI WriteOrEnd(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written,
                       LPOVERLAPPED overlapped) {
  const bool ends = GetFileType(file) == FILE_TYPE_DISK && IsLast();
  const BOOL result = system_write(file, bytes, ends ? size / 2 : size, written, overlapped);
  return ends ? End() : result;
}

/// Those of this program, and those of the system's cabinet service.
const bool writes_are_replaced = [] {
  void* const replacement = reinterpret_cast<void*>(&WriteOrEnd);
  for (const wchar_t* module : {static_cast<const wchar_t*>(nullptr), L"setupapi.dll"}) {
    system_write = reinterpret_cast<Write*>(Redirect("WriteFile", replacement, module));
    if (system_write == nullptr) std::abort();
  }
  return true;
}();

}  // namespace
}  // namespace panelkit::test
