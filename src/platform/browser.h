// Seam 1, browser pane.
#pragma once

#include <string>

namespace panelkit {

/// The pane that shows pages.
class WebBrowser {
 public:
  virtual ~WebBrowser() = default;

  /// Starts showing a page, given the Windows path of a local file or an http or https address;
  /// returns at once. Scripts are off for files and on for web addresses. What cannot be loaded is
  /// the pane's own affair.
  virtual void Navigate(const std::string& address) = 0;
};

}  // namespace panelkit
