// The file that the cabinet service extracts an entry to.
#pragma once

#include <cstdint>
#include <string>

#include "platform/text.h"
#include "platform/windows/file_errors.h"

namespace panelkit::windows {

/// A temporary file beside the entry's target, so that no half-written one stands under the
/// target's name. Deleted by the destructor unless it was kept.
class ExtractedFile {
 public:
  /// For the Windows path `target`; removes what killed runs left beside it.
  ExtractedFile(const Text& text, std::string target);
  ~ExtractedFile();
  ExtractedFile(const ExtractedFile&) = delete;
  ExtractedFile& operator=(const ExtractedFile&) = delete;

  const std::string& Target() const { return target_; }

  /// The path to hand to the service, in the ANSI code page and of at most kLongestTargetName
  /// bytes. The target's own where the temporary one would be longer.
  std::string NameForService() const;

  /// Gives the file the target's name, in place of a plain file there, read-only or not. 0 or a
  /// code of winerror.h.
  std::uint32_t Keep(const ShortLocks& locks);

 private:
  const Text& text_;
  std::string target_;
  std::wstring path_;       ///< Of the target.
  std::wstring temporary_;  ///< Empty once there is nothing to remove.
};

}  // namespace panelkit::windows
