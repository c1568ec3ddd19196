#include "platform/windows/replaced_call.h"

#include <cstring>

namespace panelkit::test {
namespace {

/// What lies at an address relative to the start of a program's or library's image.
template <class Record>
Record* InImage(HMODULE image, std::size_t offset) {
  return reinterpret_cast<Record*>(reinterpret_cast<std::byte*>(image) + offset);
}

/// The slot of the import table that calls of the function go through; null if there is none.
IMAGE_THUNK_DATA* FindSlot(HMODULE image, const char* function) {
  const auto& headers =
      *InImage<const IMAGE_NT_HEADERS>(image, InImage<const IMAGE_DOS_HEADER>(image, 0)->e_lfanew);
  const IMAGE_DATA_DIRECTORY& imports =
      headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  for (const auto* library = InImage<const IMAGE_IMPORT_DESCRIPTOR>(image, imports.VirtualAddress);
       library->Name != 0; ++library) {
    const auto* names = InImage<const IMAGE_THUNK_DATA>(image, library->OriginalFirstThunk);
    auto* slot = InImage<IMAGE_THUNK_DATA>(image, library->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      const auto* import = InImage<const IMAGE_IMPORT_BY_NAME>(image, names->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(import->Name), function) == 0) return slot;
    }
  }
  return nullptr;
}

}  // namespace

void* Redirect(const char* name, void* function, const wchar_t* library) noexcept {
  IMAGE_THUNK_DATA* slot = FindSlot(GetModuleHandleW(library), name);
  if (slot == nullptr) return nullptr;
  DWORD protection = 0;
  VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
  return reinterpret_cast<void*>(
      std::exchange(slot->u1.Function, reinterpret_cast<ULONG_PTR>(function)));
}

}  // namespace panelkit::test
