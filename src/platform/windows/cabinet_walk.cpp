#include <windows.h>

#include "platform/windows/windows_machine.h"

// setupapi.h defines the names of cabinet_walk.h's constants as macros, so it comes last.
#include <setupapi.h>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <iterator>
#include <optional>

#include "platform/windows/extracted_file.h"
#include "platform/windows/handle.h"
#include "platform/windows/native_file.h"
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
  Walk(const Text& text, const ShortLocks& locks, CabinetMsgHandler handler, std::uint32_t context)
      : text_(text), locks_(locks), handler_(handler), context_(context) {}

  /// Whether the handler, or an error of ours, ended the walk before its end.
  bool Stopped() const { return stopped_; }

  /// The error that a stopped walk ends with: 0 if the handler aborted it.
  DWORD Error() const { return error_; }

  /// Throws the exception that the handler threw, if it did.
  void RaisePending() const {
    if (raised_) std::rethrow_exception(raised_);
  }

  /// Called by the service for each event. No exception leaves it: the frames between here and the
  /// caller are the system's, and cannot be unwound in a 32-bit program.
  static UINT CALLBACK Notify(PVOID walk, UINT notification, UINT_PTR param1, UINT_PTR /*param2*/) {
    return static_cast<Walk*>(walk)->Handle(notification, param1);
  }

 private:
  UINT Handle(UINT notification, UINT_PTR record) {
    // Some implementations go on after an abort or an error; the handler does not see the rest.
    if (stopped_) return notification == SPFILENOTIFY_FILEINCABINET ? FILEOP_ABORT : error_;
    try {
      switch (notification) {
        case SPFILENOTIFY_FILEINCABINET:
          return FileInCabinet(*reinterpret_cast<FILE_IN_CABINET_INFO_A*>(record));
        case SPFILENOTIFY_FILEEXTRACTED:
          return FileExtracted(*reinterpret_cast<const FILEPATHS_A*>(record));
        case SPFILENOTIFY_NEEDNEWCABINET:
          return NeedNewCabinet(*reinterpret_cast<const CABINET_INFO_A*>(record));
        default:
          return handler_(context_, notification, record, 0);
      }
    } catch (...) {
      raised_ = std::current_exception();
      stopped_ = true;
      return notification == SPFILENOTIFY_FILEINCABINET ? FILEOP_ABORT : ERROR_CANCELLED;
    }
  }

  UINT FileInCabinet(FILE_IN_CABINET_INFO_A& theirs) {
    const std::string name = text_.FromAnsi(theirs.NameInCabinet);
    panelkit::FILE_IN_CABINET_INFO ours;
    ours.NameInCabinet = name.c_str();
    ours.FileSize = theirs.FileSize;
    ours.DosDate = theirs.DosDate;
    ours.DosTime = theirs.DosTime;
    const UINT answer =
        handler_(context_, SPFILENOTIFY_FILEINCABINET, reinterpret_cast<std::uintptr_t>(&ours), 0);
    if (answer == FILEOP_DOIT) {
      file_.emplace(text_, ours.FullTargetName);
      *std::ranges::copy(file_->NameForService(), theirs.FullTargetName).out = '\0';
    }
    if (answer == FILEOP_ABORT) stopped_ = true;
    return answer;
  }

  UINT FileExtracted(const FILEPATHS_A& theirs) {
    const std::string target = file_ ? file_->Target() : text_.FromAnsi(theirs.Target);
    DWORD outcome = theirs.Win32Error;
    if (file_ && outcome == ERROR_SUCCESS) outcome = file_->Keep(locks_);
    file_.reset();
    const panelkit::FILEPATHS ours{target.c_str(), outcome};
    error_ =
        handler_(context_, SPFILENOTIFY_FILEEXTRACTED, reinterpret_cast<std::uintptr_t>(&ours), 0);
    stopped_ = error_ != ERROR_SUCCESS;
    return error_;
  }

  /// The service looks for the next cabinet in the folder of this one and asks again, without end,
  /// for one that is not there.
  UINT NeedNewCabinet(const CABINET_INFO_A& theirs) {
    const std::string name = theirs.CabinetFile == nullptr ? "" : theirs.CabinetFile;
    error_ = name == asked_for_ ? ERROR_FILE_NOT_FOUND
                                : handler_(context_, SPFILENOTIFY_NEEDNEWCABINET,
                                           reinterpret_cast<std::uintptr_t>(&theirs), 0);
    asked_for_ = name;
    stopped_ = error_ != ERROR_SUCCESS;
    return error_;
  }

  const Text& text_;
  const ShortLocks& locks_;
  CabinetMsgHandler handler_;
  std::uint32_t context_;
  std::optional<ExtractedFile> file_;     // Being written.
  std::optional<std::string> asked_for_;  // The next cabinet that the service last asked for.
  bool stopped_ = false;
  DWORD error_ = ERROR_SUCCESS;
  std::exception_ptr raised_;
};

/// A path (of FilePath) in the narrow form that the service takes: by its short name if the code
/// page lacks a letter of it or it is too long. nullopt if neither name fits.
std::optional<std::string> NarrowPath(const Text& text, const std::wstring& path) {
  const auto narrowed = [&text](const std::wstring& candidate) -> std::optional<std::string> {
    const std::string utf8 = Utf8(PlainForm(candidate));
    std::string narrow = text.ToAnsi(utf8);
    if (narrow.empty() || narrow.size() >= MAX_PATH || text.FromAnsi(narrow) != utf8) {
      return std::nullopt;
    }
    return narrow;
  };
  if (std::optional<std::string> narrow = narrowed(path)) return narrow;
  std::wstring short_path(GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
  short_path.resize(
      GetShortPathNameW(path.c_str(), short_path.data(), static_cast<DWORD>(short_path.size())));
  return narrowed(short_path);
}

/// What prevents reading the file: the service does not always say.
DWORD ReadError(const std::wstring& path, const ShortLocks& locks) {
  const windows::Handle file = locks.Try([&path] { return Open(path, GENERIC_READ, 0); });
  if (file) return ERROR_SUCCESS;
  return ::GetLastError() == ERROR_DIRECTORY ? ERROR_ACCESS_DENIED : ::GetLastError();
}

}  // namespace

std::uint32_t WindowsCabinetWalk::SetupIterateCabinetA(const std::string& CabinetFile,
                                                       CabinetMsgHandler MsgHandler,
                                                       std::uint32_t Context) {
  const std::wstring path = FilePath(CabinetFile);
  last_error_ = static_cast<std::int32_t>(ReadError(path, locks_));
  if (last_error_ != ERROR_SUCCESS) return 0;
  const std::optional<std::string> narrow = NarrowPath(text_, path);
  if (!narrow) {
    last_error_ = ERROR_INVALID_NAME;
    return 0;
  }

  Walk walk(text_, locks_, MsgHandler, Context);
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
