// The page that stands where another one could not be shown.
#pragma once

#include <string>
#include <string_view>

namespace panelkit {

/// Tells, in HTML, that the page at `address` could not be shown, and why. Offers a web address to
/// the user's own browser, by a link that asks for a new window, and a way to the page at `back`,
/// unless that is empty. All texts are UTF-8 and are escaped.
std::string FailurePage(std::string_view address, std::string_view reason, std::string_view back);

}  // namespace panelkit
