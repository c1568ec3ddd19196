#include "platform/libarchive/library.h"

#include <array>

namespace panelkit::libarchive {
namespace {

template <typename Function>
bool Find(Function*& call, const char* name) {
  call = reinterpret_cast<Function*>(FindArchiveCall(name));
  return call != nullptr;
}

bool FindAll(Library& library) {
  bool found = true;
#define PANELKIT_ARCHIVE_FIND(name) found = Find(library.name, #name) && found;
  PANELKIT_ARCHIVE_CALLS(PANELKIT_ARCHIVE_FIND)
#undef PANELKIT_ARCHIVE_FIND
  return found;
}

using Support = int(archive*);

// Some came with later versions of the library.
constexpr std::array kSupports{
    "archive_read_support_format_zip",  "archive_read_support_format_7zip",
    "archive_read_support_format_rar",  "archive_read_support_format_rar5",
    "archive_read_support_format_tar",  "archive_read_support_format_cab",
    "archive_read_support_filter_gzip", "archive_read_support_filter_bzip2",
    "archive_read_support_filter_xz",   "archive_read_support_filter_lzma",
    "archive_read_support_filter_zstd", "archive_read_support_filter_compress",
};

}  // namespace

const Library* LoadedLibrary() {
  static const struct Loaded : Library { bool is_whole = FindAll(*this); } loaded;
  return loaded.is_whole ? &loaded : nullptr;
}

void SupportFormats(archive* reader) {
  const Library& library = *LoadedLibrary();
  for (const char* name : kSupports) {
    Support* support = nullptr;
    if (!Find(support, name)) continue;
    // ARCHIVE_WARN says that another program would do the work.
    archive* const trial = library.archive_read_new();
    const bool is_built_in = support(trial) == ARCHIVE_OK;
    library.archive_read_free(trial);
    if (is_built_in) support(reader);
  }
}

}  // namespace panelkit::libarchive
