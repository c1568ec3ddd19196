// Leaving hidden files out of a listing.
#pragma once

#include <string>
#include <vector>

namespace panelkit {

/// The names of entries of the native folder, less those of hidden and system entries. Asking for
/// an entry's attributes is most of the work of a listing, so all processors share it.
std::vector<std::string> WithoutHidden(const std::string& folder, std::vector<std::string> names);

}  // namespace panelkit
