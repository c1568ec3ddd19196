#include "platform/windows/cabinet_walk.h"

#include <windows.h>

// setupapi.h defines the names of cabinet_walk.h's constants as macros, so it comes last.
#include <setupapi.h>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <iterator>
#include <optional>

#include "platform/windows/handle.h"
#include "platform/windows/paths.h"
#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

// The service's records are packed in 32-bit programs and aligned in 64-bit ones.
constexpr bool k32Bit = sizeof(void*) == 4;
static_assert(sizeof(FILE_IN_CABINET_INFO_A) == (k32Bit ? 278 : 288));
static_assert(offsetof(FILE_IN_CABINET_INFO_A, FileSize) == sizeof(void*));
static_assert(offsetof(FILE_IN_CABINET_INFO_A, FullTargetName) == (k32Bit ? 18 : 22));
static_assert(sizeof(FILEPATHS_A) == (k32Bit ? 16 : 24));
static_assert(offsetof(FILEPATHS_A, Win32Error) == 2 * sizeof(void*));
static_assert(sizeof(FILE_IN_CABINET_INFO_A::FullTargetName) == kLongestTargetName + 1);

/// One walk, from the call of the service to its return.
class Walk {
 public:
  Walk(const Text& text, CabinetMsgHandler handler, std::uint32_t context)
      : text_(text), handler_(handler), context_(context) {}

  /// The error that the walk ended with: none for one that the handler aborted.
  bool Stopped() const { return stopped_; }
  DWORD Error() const { return error_; }
  void RaisePending() const {
    if (raised_) std::rethrow_exception(raised_);
  }

  /// Called by the service for each event. No exception leaves it: the frames between here and the
  /// caller are the system's, and cannot be unwound in a 32-bit program.
  static UINT CALLBACK Notify(PVOID walk, UINT notification, UINT_PTR param1, UINT_PTR param2) {
    return static_cast<Walk*>(walk)->Handle(notification, param1, param2);
  }

 private:
  UINT Handle(UINT notification, UINT_PTR param1, UINT_PTR param2) {
    // Some implementations go on after an abort or an error: the rest is held back from the
    // handler.
    if (stopped_) return notification == SPFILENOTIFY_FILEINCABINET ? FILEOP_ABORT : error_;
    try {
      switch (notification) {
        case SPFILENOTIFY_FILEINCABINET:
          return FileInCabinet(*reinterpret_cast<FILE_IN_CABINET_INFO_A*>(param1), param2);
        case SPFILENOTIFY_FILEEXTRACTED:
          return FileExtracted(*reinterpret_cast<const FILEPATHS_A*>(param1), param2);
        default:
          return handler_(context_, notification, param1, param2);
      }
    } catch (...) {
      raised_ = std::current_exception();
      stopped_ = true;
      return notification == SPFILENOTIFY_FILEINCABINET ? FILEOP_ABORT : ERROR_CANCELLED;
    }
  }

  UINT FileInCabinet(FILE_IN_CABINET_INFO_A& theirs, UINT_PTR param2) {
    const std::string name = text_.FromAnsi(theirs.NameInCabinet);
    panelkit::FILE_IN_CABINET_INFO ours;
    ours.NameInCabinet = name.c_str();
    ours.FileSize = theirs.FileSize;
    ours.DosDate = theirs.DosDate;
    ours.DosTime = theirs.DosTime;
    const UINT answer = handler_(context_, SPFILENOTIFY_FILEINCABINET,
                                 reinterpret_cast<std::uintptr_t>(&ours), param2);
    if (answer == FILEOP_DOIT) {
      const std::string target = text_.ToAnsi(ours.FullTargetName).substr(0, kLongestTargetName);
      *std::ranges::copy(target, theirs.FullTargetName).out = '\0';
    }
    if (answer == FILEOP_ABORT) stopped_ = true;
    return answer;
  }

  UINT FileExtracted(const FILEPATHS_A& theirs, UINT_PTR param2) {
    const std::string target = text_.FromAnsi(theirs.Target);
    const panelkit::FILEPATHS ours{target.c_str(), theirs.Win32Error};
    error_ = handler_(context_, SPFILENOTIFY_FILEEXTRACTED, reinterpret_cast<std::uintptr_t>(&ours),
                      param2);
    stopped_ = error_ != ERROR_SUCCESS;
    return error_;
  }

  const Text& text_;
  CabinetMsgHandler handler_;
  std::uint32_t context_;
  bool stopped_ = false;
  DWORD error_ = ERROR_SUCCESS;
  std::exception_ptr raised_;
};

/// The path in the narrow form that the service takes; by its short name where the code page lacks
/// a letter of it or it is too long.
std::optional<std::string> NarrowPath(const Text& text, const std::wstring& path) {
  const auto fits = [&text](const std::wstring& candidate) -> std::optional<std::string> {
    const std::string utf8 = Utf8(candidate);
    std::string narrow = text.ToAnsi(utf8);
    if (narrow.size() >= MAX_PATH || text.FromAnsi(narrow) != utf8) return std::nullopt;
    return narrow;
  };
  if (std::optional<std::string> narrow = fits(path)) return narrow;
  std::wstring short_path(GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
  short_path.resize(
      GetShortPathNameW(path.c_str(), short_path.data(), static_cast<DWORD>(short_path.size())));
  if (short_path.starts_with(L"\\\\?\\")) short_path.erase(0, 4);
  if (short_path.empty()) return std::nullopt;
  return fits(short_path);
}

/// What prevents reading the file: the service does not always say.
DWORD ReadError(const std::wstring& path) {
  if (path.empty()) return ERROR_FILE_NOT_FOUND;
  SetLastError(ERROR_SUCCESS);
  const windows::Handle file(CreateFileW(path.c_str(), GENERIC_READ,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                         nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  return file ? ERROR_SUCCESS : ::GetLastError();
}

}  // namespace

std::uint32_t WindowsCabinetWalk::SetupIterateCabinetA(const std::string& CabinetFile,
                                                       CabinetMsgHandler MsgHandler,
                                                       std::uint32_t Context) {
  const std::wstring path = FilePath(CabinetFile);
  last_error_ = static_cast<std::int32_t>(ReadError(path));
  if (last_error_ != ERROR_SUCCESS) return 0;
  const std::optional<std::string> narrow = NarrowPath(text_, path);
  if (!narrow) {
    last_error_ = ERROR_INVALID_NAME;
    return 0;
  }

  Walk walk(text_, MsgHandler, Context);
  SetLastError(ERROR_SUCCESS);
  const bool walked = ::SetupIterateCabinetA(narrow->c_str(), 0, &Walk::Notify, &walk) != 0;
  const DWORD service_error = ::GetLastError();
  walk.RaisePending();

  DWORD error = ERROR_SUCCESS;
  if (walk.Stopped()) {
    error = walk.Error();
  } else if (!walked) {
    // A file that is no cabinet may come back as a failure without a reason.
    error = service_error != ERROR_SUCCESS ? service_error : ERROR_INVALID_DATA;
  }
  last_error_ = static_cast<std::int32_t>(error);
  return error == ERROR_SUCCESS ? 1 : 0;
}

}  // namespace panelkit::windows
