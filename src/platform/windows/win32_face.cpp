#include "platform/windows/win32_face.h"

#include <commctrl.h>
#include <ole2.h>

#include "platform/windows/win32_browser.h"
#include "platform/windows/win32_form.h"

namespace panelkit::windows {

Win32Face::Win32Face()
    : scale_(ScreenScale::OfScreen()),
      owner_(CreateWindowExW(0, L"STATIC", L"Panelkit", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                             GetModuleHandleW(nullptr), nullptr)) {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_PROGRESS_CLASS};
  InitCommonControlsEx(&controls);
  OleInitialize(nullptr);
  LockLocalPages();
}

Win32Face::~Win32Face() {
  DestroyWindow(owner_);
  OleUninitialize();
}

std::unique_ptr<Form> Win32Face::CreateForm(const FormDescription& description) {
  return std::make_unique<Win32Form>(description, scale_, owner_, loop_);
}

ScreenSize Win32Face::Screen() const {
  return {scale_.TwipsX(GetSystemMetrics(SM_CXSCREEN)),
          scale_.TwipsY(GetSystemMetrics(SM_CYSCREEN))};
}

}  // namespace panelkit::windows
