#include "platform/terminal.h"

#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "platform/wine/c_library.h"
#include "platform/wine/native_file.h"
#include "text/utf8.h"

namespace panelkit::terminal {

namespace {

std::string TerminalEncoding() {
  const UserLocale locale(LC_CTYPE_MASK);
  const std::string encoding = nl_langinfo_l(CODESET, locale.Get());
  // Without a locale (C, POSIX) nothing tells what the terminal takes. Nearly all take UTF-8.
  return encoding == "ANSI_X3.4-1968" ? "UTF-8" : encoding;
}

/// `text` in another encoding. What cannot be converted gives `substitute` and goes on one
/// character of UTF-8, or one byte, later.
std::string Converted(std::string_view text, const std::string& to, const std::string& from,
                      std::string_view substitute) {
  const IconvHandle conversion(to, from);
  if (!conversion.IsOpen()) return std::string(text);
  std::string source(text);
  std::string converted;
  char* in = source.data();
  std::size_t in_left = source.size();
  std::array<char, 4096> buffer{};
  bool at_end = false;
  while (!at_end) {
    at_end = in_left == 0;  // One more call then, for what a shifting encoding ends with.
    char* out = buffer.data();
    std::size_t out_left = buffer.size();
    const bool failed = iconv(conversion.Get(), at_end ? nullptr : &in, &in_left, &out,
                              &out_left) == static_cast<std::size_t>(-1);
    converted.append(buffer.data(), buffer.size() - out_left);
    if (failed && errno != E2BIG && !at_end) {
      converted += substitute;
      std::size_t length = 0;
      TakeCodePoint({in, in_left}, length);
      in += length;
      in_left -= length;
    }
  }
  return converted;
}

/// Ignores SIGPIPE, so that write(2) reports a closed pipe instead of ending the process.
void IgnoreClosedPipes() {
  static const auto previous = std::signal(SIGPIPE, SIG_IGN);
  static_cast<void>(previous);
}

bool Write(int descriptor, std::string_view bytes) {
  IgnoreClosedPipes();
  return WriteAll(descriptor, bytes) || errno == EPIPE;
}

volatile std::sig_atomic_t interrupted = 0;

/// What SIGINT did before the guard that lives now.
struct sigaction before_guard {};

void NoteInterrupt(int) {
  interrupted = 1;
}

bool WriteText(int descriptor, std::string_view text) {
  const std::string encoding = TerminalEncoding();
  if (encoding == "UTF-8") return Write(descriptor, text);
  return Write(descriptor, Converted(text, encoding, "UTF-8", "?"));
}

}  // namespace

std::vector<std::string> Arguments(int argc, char** argv) {
  const std::string encoding = TerminalEncoding();
  std::vector<std::string> arguments(argv, argv + argc);
  for (std::string& argument : arguments) {
    if (!IsUtf8(argument)) argument = Converted(argument, "UTF-8", encoding, "\uFFFD");
  }
  return arguments;
}

bool WriteOut(std::string_view text) {
  return WriteText(STDOUT_FILENO, text);
}

bool WriteOutBytes(std::string_view bytes) {
  return Write(STDOUT_FILENO, bytes);
}

void WriteError(std::string_view text) {
  WriteText(STDERR_FILENO, text);
}

int ErrorColumns() {
  constexpr int kUsual = 80;  // Of a terminal that does not say, as a serial line.
  if (isatty(STDERR_FILENO) != 1) return 0;
  winsize size = {};
  const bool is_told = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return is_told ? size.ws_col : kUsual;
}

bool OutIsTerminal() {
  return isatty(STDOUT_FILENO) == 1;
}

InterruptGuard::InterruptGuard() {
  sigaction(SIGINT, nullptr, &before_guard);
  // A shell has its background commands ignore Ctrl-C, which stays so.
  if (before_guard.sa_handler == SIG_IGN) return;
  struct sigaction note {};
  note.sa_handler = NoteInterrupt;
  note.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
  sigaction(SIGINT, &note, nullptr);
}

InterruptGuard::~InterruptGuard() {
  sigaction(SIGINT, &before_guard, nullptr);
}

bool Interrupted() {
  return interrupted != 0;
}

}  // namespace panelkit::terminal
