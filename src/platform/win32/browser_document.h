// The document that the browser control shows.
#pragma once

#include <windows.h>

#include <exdisp.h>

#include <string>
#include <string_view>

namespace panelkit::windows {

/// The address of the document's active element (document.activeElement.href); empty if that is no
/// link. For browsers that report a new window without its address.
std::wstring ActiveLink(IWebBrowser2& browser);

/// Replaces the content of an empty document (about:blank) by the bytes of an HTML page, through
/// IPersistStreamInit. Relative addresses in it then lead nowhere. False if it cannot.
bool LoadPage(IUnknown* document, std::string_view page);

}  // namespace panelkit::windows
