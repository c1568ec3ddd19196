// Names in archives of former days, whose code page nobody wrote down.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"

namespace panelkit {

/// What a name may be, the likeliest first, each once. `as_437` is the name as code page 437 reads
/// it, in UTF-8. A name whose bytes are valid UTF-8 is that alone: packers on Unix wrote it. Any
/// other is in the code page of DOS, 437 or 850, or in the ANSI code page.
std::vector<std::string> PossibleNames(std::string_view as_437, const Text& text);

/// A name whose bytes became characters of the same numbers, as in the "C" locale of Windows: what
/// it is in UTF-8. Every other name stays as it is.
std::string NameOfBytes(const std::string& name);

/// A name as ArchiveEntry has it.
std::string Tidied(std::string name);

}  // namespace panelkit
