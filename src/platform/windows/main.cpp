// The program with its window.
#include <windows.h>

#include <exception>

#include "platform/local_machine.h"
#include "platform/windows/win32_face.h"
#include "shell/frm_gauges.h"

namespace panelkit {
namespace {

constexpr int kCannotRun = 2;

[[noreturn]] void RunWithWindow() {
  const std::unique_ptr<LocalMachine> machine =
      OpenLocalMachine([](const Machine&) { return true; });
  windows::Win32Face face;
  frmGauges program(face, machine->Services());
  program.Show();
  face.Loop().Run();
}

}  // namespace
}  // namespace panelkit

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  try {
    panelkit::RunWithWindow();
  } catch (const std::exception&) {
    return panelkit::kCannotRun;
  }
}
