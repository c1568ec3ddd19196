// Standing in for single system calls, for what no test can make the system do.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace panelkit::test {

/// Directs calls of the imported function `name` to `function` from now on and gives where they
/// went until now: the calls of this program or, with a `library`, of that one ("setupapi.dll").
/// Null if it does not import the function.
void* Redirect(const char* name, void* function, const wchar_t* library = nullptr) noexcept;

/// The name of a function, as a template argument.
template <std::size_t size>
struct FunctionName {
  // cppcheck-suppress noExplicitConstructor ; a template argument is converted.
  constexpr FunctionName(const char (&name)[size]) { std::copy_n(name, size, text); }
  char text[size];
};

/// While one of these lives, this program's calls of a system function go to a replacement. One at
/// a time for each function:
///   ReplacedCall<"DeleteFileW", BOOL(LPCWSTR)> pretended([](LPCWSTR) { return TRUE; });
template <FunctionName name, class Signature>
class ReplacedCall;

template <FunctionName name, class Result, class... Arguments>
class ReplacedCall<name, Result(Arguments...)> {
 public:
  using Replacement = std::function<Result(Arguments...)>;

  explicit ReplacedCall(Replacement replacement) : replacement_(std::move(replacement)) {
    now_ = &replacement_;
    system_ = Redirect(name.text, reinterpret_cast<void*>(&Call));
    if (system_ == nullptr) throw std::logic_error(std::string("not imported: ") + name.text);
  }
  ~ReplacedCall() { Redirect(name.text, system_); }
  ReplacedCall(const ReplacedCall&) = delete;
  ReplacedCall& operator=(const ReplacedCall&) = delete;

  /// The system's own function.
  static Result System(Arguments... arguments) {
    return reinterpret_cast<Result(WINAPI*)(Arguments...)>(system_)(arguments...);
  }

 private:
  static Result WINAPI Call(Arguments... arguments) { return (*now_)(arguments...); }

  Replacement replacement_;
  static inline const Replacement* now_ = nullptr;
  static inline void* system_ = nullptr;
};

/// A disk that keeps no short names: the call gives the long one.
struct NoShortNames : ReplacedCall<"GetShortPathNameW", DWORD(LPCWSTR, LPWSTR, DWORD)> {
  NoShortNames()
      : ReplacedCall([](LPCWSTR path, LPWSTR copy, DWORD size) {
          const std::wstring_view text(path);
          if (size <= text.size()) return static_cast<DWORD>(text.size()) + 1;
          *std::copy(text.begin(), text.end(), copy) = L'\0';
          return static_cast<DWORD>(text.size());
        }) {}
};

}  // namespace panelkit::test
