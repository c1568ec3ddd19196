#include "platform/win32/win32_toolkit.h"

#include <commctrl.h>
#include <ole2.h>

#include "platform/win32/win32_browser.h"
#include "platform/win32/win32_form.h"

namespace panelkit::windows {

Win32Toolkit::Win32Toolkit()
    : scale_(ScreenScale::OfScreen()),
      owner_(CreateWindowExW(0, L"STATIC", L"Panelkit", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                             GetModuleHandleW(nullptr), nullptr)) {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_PROGRESS_CLASS};
  InitCommonControlsEx(&controls);
  OleInitialize(nullptr);
  LockLocalPages();
}

Win32Toolkit::~Win32Toolkit() {
  DestroyWindow(owner_);
  OleUninitialize();
}

std::unique_ptr<Form> Win32Toolkit::CreateForm(const FormDescription& description) {
  return std::make_unique<Win32Form>(description, scale_, owner_, loop_);
}

ScreenSize Win32Toolkit::Screen() const {
  return {scale_.TwipsX(GetSystemMetrics(SM_CXSCREEN)),
          scale_.TwipsY(GetSystemMetrics(SM_CYSCREEN))};
}

}  // namespace panelkit::windows

namespace panelkit {

std::unique_ptr<Toolkit> OpenToolkit(const LocalMachine& /*machine*/) {
  return std::make_unique<windows::Win32Toolkit>();
}

void RunEventLoop(Toolkit& toolkit) {
  dynamic_cast<windows::Win32Toolkit&>(toolkit).Loop().Run();
}

}  // namespace panelkit
