#include "platform/terminal.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>

#include "platform/windows/text.h"
#include "platform/windows/wide.h"

namespace panelkit::terminal {
namespace {

/// Bytes, or UTF-16 units of a console, that one write moves at most: older consoles refuse more.
constexpr std::size_t kBlock = std::size_t{8} * 1024;

bool IsConsole(HANDLE stream) {
  DWORD mode = 0;
  return GetConsoleMode(stream, &mode) != 0;
}

bool WriteBytes(HANDLE stream, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto block = static_cast<DWORD>(std::min(bytes.size(), kBlock));
    if (!WriteFile(stream, bytes.data(), block, &written, nullptr)) return false;
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

/// Pipes and files get the code page of the console that they belong to, the ANSI page without one.
bool WriteText(HANDLE stream, std::string_view text) {
  const std::string lines = WithCrLf(text);
  if (IsConsole(stream)) return WriteToConsole(stream, windows::Wide(lines));
  const UINT page = GetConsoleOutputCP();
  return WriteBytes(stream, windows::WindowsText(page != 0 ? page : GetACP()).ToAnsi(lines));
}

}  // namespace

std::vector<std::string> Arguments(int, char**) {
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  arguments.reserve(count);
  for (int i = 0; i < count; ++i) arguments.push_back(windows::Utf8(wide[i]));
  LocalFree(static_cast<HLOCAL>(wide));
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

bool ErrorIsTerminal() {
  return IsConsole(GetStdHandle(STD_ERROR_HANDLE));
}

}  // namespace panelkit::terminal
