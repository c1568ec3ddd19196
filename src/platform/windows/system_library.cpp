#include "platform/windows/system_library.h"

#include <windows.h>

#include <array>

namespace panelkit::windows {

void* FindSystemCall(const std::wstring& name, const char* function) {
  HMODULE library = GetModuleHandleW(name.c_str());
  if (library == nullptr) {
    // By its whole path: a file of that name beside the program must not be loaded in its place.
    std::array<wchar_t, MAX_PATH> folder{};
    if (GetSystemDirectoryW(folder.data(), MAX_PATH) == 0) return nullptr;
    library = LoadLibraryW((std::wstring(folder.data()) + L"\\" + name).c_str());
  }
  if (library == nullptr) return nullptr;
  return reinterpret_cast<void*>(GetProcAddress(library, function));
}

}  // namespace panelkit::windows
