#include "platform/wine/cabinet/cabinet_walk.h"

#include <cstddef>
#include <optional>

#include "platform/wine/cabinet/cabinet_extractor.h"
#include "platform/wine/cabinet/cabinet_files.h"
#include "platform/wine/cabinet/header_reader.h"
#include "platform/wine/cabinet/win32_error.h"
#include "text/utf8.h"

namespace panelkit {

namespace {

// One walk. No call of libmspack is in progress during a notification, so an exception out of
// MsgHandler unwinds our own frames alone.
class Walk {
 public:
  Walk(const PathResolver& paths, const Text& text, const std::string& cabinet_path,
       CabinetMsgHandler handler, std::uint32_t context)
      : paths_(paths),
        text_(text),
        folder_(cabinet_path.substr(0, cabinet_path.find_last_of("\\/:") + 1)),
        handler_(handler),
        context_(context),
        cabinet_(OpenCabinet(paths, cabinet_path)) {}

  // 0 or the walk's error (a code of winerror.h).
  std::uint32_t Run() {
    if (cabinet_.error != 0) return cabinet_.error;
    HeaderReader entries(*cabinet_.file);
    last_folder_ = entries.Folders() - 1;
    for (std::size_t index = 0; const auto entry = entries.Next(); ++index) {
      if (entry->folder == kContinuedFromPrevious ||
          entry->folder == kContinuedFromPreviousToNext) {
        continue;
      }
      const std::string name = NameOf(*entry);
      FILE_IN_CABINET_INFO info{.NameInCabinet = name.c_str(),
                                .FileSize = entry->size,
                                .DosDate = entry->date,
                                .DosTime = entry->time,
                                .FullTargetName = {}};
      const std::uint32_t answer = Notify(SPFILENOTIFY_FILEINCABINET, &info);
      if (answer == FILEOP_ABORT) return ERROR_SUCCESS;
      if (answer != FILEOP_DOIT) continue;
      if (const auto error = Extract(index, *entry, info.FullTargetName)) return error;
    }
    return entries.Error();
  }

 private:
  std::uint32_t Notify(std::uint32_t notification, const void* record) {
    return handler_(context_, notification, reinterpret_cast<std::uintptr_t>(record), 0);
  }

  // A name that is flagged as UTF-8 but no valid UTF-8 is read by the code page instead, which
  // loses none of its bytes.
  std::string NameOf(const StoredEntry& entry) const {
    const bool is_utf8 = (entry.attributes & kNameIsUtf8) != 0 && IsUtf8(entry.name);
    return is_utf8 ? std::string(entry.name) : text_.FromAnsi(entry.name);
  }

  // 0 to go on, else the error that stops the walk.
  std::uint32_t Extract(std::size_t index, const StoredEntry& entry, const std::string& target) {
    const std::uint32_t error = Write(index, entry, target);
    if (stopped_by_ != 0) return stopped_by_;
    // After a failure libmspack's position in the folder is wrong for the entries that follow.
    if (error != 0) extractor_.reset();
    const FILEPATHS outcome{.Target = target.c_str(), .Win32Error = error};
    return Notify(SPFILENOTIFY_FILEEXTRACTED, &outcome);
  }

  std::uint32_t Write(std::size_t index, const StoredEntry& entry, const std::string& target) {
    if (!PathResolver::IsPossible(target)) return ERROR_INVALID_NAME;
    const std::optional<std::string> native = target_paths_.Find(target);
    if (!native) return ERROR_PATH_NOT_FOUND;

    if (!extractor_) StartExtractor();
    if (goes_on_ && (entry.folder == kContinuedToNext || entry.folder == last_folder_)) {
      if (!rest_error_) rest_error_ = AddRestOfSet();
      // An entry that ends in this cabinet does not need the rest of the set.
      const bool needed = stopped_by_ != 0 || entry.folder == kContinuedToNext;
      if (needed && *rest_error_ != 0) return *rest_error_;
    }
    TargetFile file(*native, (entry.attributes & kReadOnly) != 0);
    if (file.Error() != 0) return file.Error();
    if (const auto error = extractor_->Extract(index, entry.size, file.File())) return error;
    file.SetTime(entry.date, entry.time);
    return file.Commit();
  }

  void StartExtractor() {
    extractor_.emplace(*cabinet_.file);
    goes_on_ = !extractor_->NextCabinet().empty() && ReadContinuation(*cabinet_.file).begins;
    rest_error_.reset();
  }

  // Adds the cabinets that hold the rest of the last folder.
  std::uint32_t AddRestOfSet() {
    for (bool goes_on = true; goes_on;) {
      const std::string name = text_.FromAnsi(extractor_->NextCabinet());
      if (name.empty()) return ERROR_INVALID_DATA;
      stopped_by_ = Notify(SPFILENOTIFY_NEEDNEWCABINET, nullptr);
      if (stopped_by_ != 0) return stopped_by_;
      if (name.find_first_of("\\/:") != std::string::npos) return ERROR_FILE_NOT_FOUND;
      OpenedCabinet next = OpenCabinet(paths_, folder_ + name);
      if (next.error != 0) return next.error;
      const Continuation continuation = ReadContinuation(*next.file);
      if (continuation.error != 0) return continuation.error;
      goes_on = continuation.runs_on;
      if (const auto error = extractor_->Append(std::move(next.file))) return error;
    }
    return ERROR_SUCCESS;
  }

  const PathResolver& paths_;
  const Text& text_;
  const std::string folder_;  // The cabinet's, with the separator at its end.
  CabinetMsgHandler handler_;
  std::uint32_t context_;
  OpenedCabinet cabinet_;
  TargetPaths target_paths_{paths_};
  int last_folder_ = 0;
  std::optional<CabinetExtractor> extractor_;  // Made for the first extraction.
  bool goes_on_ = false;                       // The last folder goes on in the next cabinet.
  std::optional<std::uint32_t> rest_error_;    // Result of AddRestOfSet, which runs once.
  std::uint32_t stopped_by_ = 0;               // Answer other than 0 to a further cabinet.
};

}  // namespace

std::uint32_t WineCabinetWalk::SetupIterateCabinetA(const std::string& CabinetFile,
                                                    CabinetMsgHandler MsgHandler,
                                                    std::uint32_t Context) {
  last_error_ = 0;  // For a walk that ends by an exception.
  const std::uint32_t error = Walk(paths_, text_, CabinetFile, MsgHandler, Context).Run();
  if (error == 0) return 1;
  last_error_ = static_cast<std::int32_t>(error);
  return 0;
}

}  // namespace panelkit
