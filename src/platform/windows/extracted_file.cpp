#include "platform/windows/extracted_file.h"

#include "platform/cabinet_walk.h"
#include "platform/windows/file_replacement.h"
#include "platform/windows/native_file.h"
#include "platform/windows/new_file.h"
#include "platform/windows/paths.h"
#include "platform/windows/wide.h"

namespace panelkit::windows {

ExtractedFile::ExtractedFile(const Text& text, std::string target)
    : text_(text), target_(std::move(target)), path_(FilePath(target_)) {
  RemoveStaleBeside(path_);
  temporary_ = TemporaryPathBeside(path_);
  if (text_.ToAnsi(Utf8(PlainForm(temporary_))).size() > kLongestTargetName) temporary_ = path_;
}

ExtractedFile::~ExtractedFile() {
  if (temporary_.empty() || temporary_ == path_) return;
  SetFileAttributesW(temporary_.c_str(), FILE_ATTRIBUTE_NORMAL);
  DeleteFileW(temporary_.c_str());
}

std::string ExtractedFile::NameForService() const {
  return temporary_ == path_ ? text_.ToAnsi(target_).substr(0, kLongestTargetName)
                             : text_.ToAnsi(Utf8(PlainForm(temporary_)));
}

std::uint32_t ExtractedFile::Keep(const ShortLocks& locks) {
  if (temporary_ != path_ && !MoveOver(temporary_, path_, locks)) {
    return GetLastError() == ERROR_DIRECTORY ? ERROR_ACCESS_DENIED : GetLastError();
  }
  temporary_.clear();
  return ERROR_SUCCESS;
}

}  // namespace panelkit::windows
