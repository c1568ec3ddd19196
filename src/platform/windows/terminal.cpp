#include "platform/terminal.h"

#include <windows.h>

#include <algorithm>
#include <atomic>

#include "platform/windows/wide.h"
#include "platform/windows/windows_machine.h"

namespace panelkit::terminal {
namespace {

/// Bytes, or UTF-16 units of a console, that one write moves at most: older consoles refuse more.
constexpr std::size_t kBlock = std::size_t{8} * 1024;

bool IsConsole(HANDLE stream) {
  DWORD mode = 0;
  return GetConsoleMode(stream, &mode) != 0;
}

/// What the thread that Windows starts for Ctrl-C has noted.
std::atomic<bool> interrupted = false;
std::atomic<bool> noted_by_this_guard = false;

/// TRUE keeps the process alive.
BOOL WINAPI NoteInterrupt(DWORD event) {
  if (event != CTRL_C_EVENT) return FALSE;
  interrupted = true;
  return noted_by_this_guard.exchange(true) ? FALSE : TRUE;
}

/// Whether the other end of a pipe is closed.
bool NobodyReads(DWORD error) {
  return error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA;
}

bool WriteBytes(HANDLE stream, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto block = static_cast<DWORD>(std::min(bytes.size(), kBlock));
    if (!WriteFile(stream, bytes.data(), block, &written, nullptr)) {
      return NobodyReads(GetLastError());
    }
    bytes.remove_prefix(written);
  }
  return true;
}

bool WriteToConsole(HANDLE console, std::wstring_view text) {
  while (!text.empty()) {
    DWORD written = 0;
    const auto block = static_cast<DWORD>(std::min(text.size(), kBlock));
    if (!WriteConsoleW(console, text.data(), block, &written, nullptr)) return false;
    text.remove_prefix(written);
  }
  return true;
}

/// Line ends as text files of Windows have them.
std::string WithCrLf(std::string_view text) {
  std::string lines;
  for (const char c : text) {
    if (c == '\n' && !lines.ends_with('\r')) lines += '\r';
    lines += c;
  }
  return lines;
}

/// Whether this is a program of windows, which Windows gives no streams when a click starts it.
bool IsOfWindows() {
  const auto* program = reinterpret_cast<const char*>(GetModuleHandleW(nullptr));
  const auto* start = reinterpret_cast<const IMAGE_DOS_HEADER*>(program);
  const auto* header = reinterpret_cast<const IMAGE_NT_HEADERS*>(program + start->e_lfanew);
  return header->OptionalHeader.Subsystem == IMAGE_SUBSYSTEM_WINDOWS_GUI;
}

/// Pipes and files get the code page of the console that they belong to, the ANSI page without one.
bool WriteText(HANDLE stream, std::string_view text) {
  const std::string lines = WithCrLf(text);
  if (GetFileType(stream) == FILE_TYPE_UNKNOWN && IsOfWindows()) {
    return MessageBoxW(nullptr, windows::Wide(lines).c_str(), L"Panelkit", MB_SETFOREGROUND) != 0;
  }
  if (IsConsole(stream)) return WriteToConsole(stream, windows::Wide(lines));
  const UINT page = GetConsoleOutputCP();
  return WriteBytes(stream, windows::WindowsText(page != 0 ? page : GetACP()).ToAnsi(lines));
}

}  // namespace

// No argument of ours holds a quotation mark, but many end in a backslash, which the usual rules
// (CommandLineToArgvW) take together with the mark that closes "C:\FS2002\": so here a backslash is
// a backslash, and a mark opens or closes.
std::vector<std::string> Arguments(int, char**) {
  std::vector<std::string> arguments;
  std::wstring argument;
  bool inside = false;
  bool quoted = false;
  const auto finish = [&] {
    if (inside) arguments.push_back(windows::Utf8(argument));
    argument.clear();
    inside = false;
  };
  for (const wchar_t letter : std::wstring_view(GetCommandLineW())) {
    if (!quoted && (letter == L' ' || letter == L'\t')) {
      finish();
      continue;
    }
    inside = true;
    if (letter == L'"') {
      quoted = !quoted;
    } else {
      argument += letter;
    }
  }
  finish();
  return arguments;
}

bool WriteOut(std::string_view text) {
  return WriteText(GetStdHandle(STD_OUTPUT_HANDLE), text);
}

bool WriteOutBytes(std::string_view bytes) {
  return WriteBytes(GetStdHandle(STD_OUTPUT_HANDLE), bytes);
}

void WriteError(std::string_view text) {
  WriteText(GetStdHandle(STD_ERROR_HANDLE), text);
}

int ErrorColumns() {
  CONSOLE_SCREEN_BUFFER_INFO console = {};
  if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &console)) return 0;
  return console.dwSize.X;
}

bool OutIsTerminal() {
  return IsConsole(GetStdHandle(STD_OUTPUT_HANDLE));
}

InterruptGuard::InterruptGuard() {
  noted_by_this_guard = false;
  SetConsoleCtrlHandler(NoteInterrupt, TRUE);
}

InterruptGuard::~InterruptGuard() {
  SetConsoleCtrlHandler(NoteInterrupt, FALSE);
}

bool Interrupted() {
  return interrupted;
}

}  // namespace panelkit::terminal
