// The functions of libarchive, looked up at their first use.
#pragma once

#include <archive.h>
#include <archive_entry.h>

#include <memory>

namespace panelkit::libarchive {

/// libarchive's functions by their own names. It is loaded when an archive is read, and not when
/// the program starts: it brings a dozen libraries with it, which would make each start several
/// times as long, and not every system has it.
struct Library {
  // NOLINTBEGIN(cppcoreguidelines-macro-usage,bugprone-macro-parentheses): members and look-ups are
  // both made from this one list.
#define PANELKIT_ARCHIVE_CALLS(CALL)       \
  CALL(archive_entry_filetype)             \
  CALL(archive_entry_hardlink)             \
  CALL(archive_entry_is_encrypted)         \
  CALL(archive_entry_mtime)                \
  CALL(archive_entry_pathname)             \
  CALL(archive_entry_pathname_utf8)        \
  CALL(archive_entry_size)                 \
  CALL(archive_entry_symlink)              \
  CALL(archive_format)                     \
  CALL(archive_read_data)                  \
  CALL(archive_read_free)                  \
  CALL(archive_read_has_encrypted_entries) \
  CALL(archive_read_new)                   \
  CALL(archive_read_next_header)           \
  CALL(archive_read_open1)                 \
  CALL(archive_read_open_memory)           \
  CALL(archive_read_set_callback_data)     \
  CALL(archive_read_set_read_callback)     \
  CALL(archive_read_set_seek_callback)     \
  CALL(archive_read_set_skip_callback)
#define PANELKIT_ARCHIVE_MEMBER(name) decltype(&::name) name = nullptr;
  PANELKIT_ARCHIVE_CALLS(PANELKIT_ARCHIVE_MEMBER)
#undef PANELKIT_ARCHIVE_MEMBER
  // NOLINTEND(cppcoreguidelines-macro-usage,bugprone-macro-parentheses)
};

/// The loaded library; null if this system has none.
const Library* LoadedLibrary();

/// Has `reader` understand the formats and the compressions that this build of the library can
/// unpack by itself. Those for which it would start another program are left out.
void SupportFormats(archive* reader);

// What each system's back end implements:

/// The address of a function of the system's libarchive; null if the library or the function is
/// not there. The library stays loaded.
void* FindArchiveCall(const char* function);

/// While it lives, names of entries convert to UTF-8 on this thread whatever the locale.
std::shared_ptr<void> ConvertNamesToUtf8();

}  // namespace panelkit::libarchive
