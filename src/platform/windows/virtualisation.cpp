#include "platform/windows/virtualisation.h"

#include "platform/windows/native_file.h"

namespace panelkit::windows {
namespace {

Handle TokenOfThisProcess() {
  HANDLE token = nullptr;
  OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY | TOKEN_ADJUST_DEFAULT, &token);
  return Handle(token);
}

bool SetPrivateCopies(const Handle& token, DWORD enabled) {
  return SetTokenInformation(token.Get(), TokenVirtualizationEnabled, &enabled, sizeof enabled) !=
         0;
}

}  // namespace

FilesOfAllUsers::FilesOfAllUsers() : token_(TokenOfThisProcess()) {
  DWORD enabled = 0;
  DWORD size = sizeof enabled;
  const bool is_off =
      !token_ ||
      !GetTokenInformation(token_.Get(), TokenVirtualizationEnabled, &enabled, size, &size) ||
      enabled == 0;
  if (is_off || !SetPrivateCopies(token_, FALSE)) token_.Close();
}

FilesOfAllUsers::~FilesOfAllUsers() {
  const DWORD error = GetLastError();
  if (token_) SetPrivateCopies(token_, TRUE);
  SetLastError(error);
}

Seen OthersSee(const std::wstring& path) {
  const Handle ours = OpenAny(path);
  const FilesOfAllUsers files_of_all;
  if (!files_of_all.HidesCopies()) return Seen::TheSame;
  const Handle theirs = OpenAny(path);
  if (!theirs) return Seen::Nothing;
  return IsSameFile(ours, theirs) ? Seen::TheSame : Seen::Another;
}

}  // namespace panelkit::windows
