// The link that the user is on, for browsers that ask for a new window without telling its address.
#pragma once

#include <windows.h>

#include <exdisp.h>

#include <string>

namespace panelkit::windows {

/// The address of the page's active element (document.activeElement.href); empty if that is no
/// link.
std::wstring ActiveLink(IWebBrowser2& browser);

}  // namespace panelkit::windows
