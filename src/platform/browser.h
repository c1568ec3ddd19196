// The browser pane of a form.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

namespace panelkit {

/// The pictures that page files show. Each lies beside the page file or, if that is not in the
/// program's own folder, with the program. A page file loads nothing else, neither from the net nor
/// from the disk.
inline constexpr std::array<std::string_view, 3> kPagePictures{"confused.gif", "madhack.gif",
                                                               "easy.gif"};

/// The pane that shows pages.
class WebBrowser {
 public:
  virtual ~WebBrowser() = default;

  /// Starts showing a page, given the Windows path of a local file or an http or https address;
  /// returns at once. Scripts are off for files and on for web addresses. What cannot be loaded is
  /// the pane's own affair.
  virtual void Navigate(const std::string& address) = 0;

  /// Shows a page that could not be written to its file: `page` is what the file would hold, and is
  /// shown as that file would be. A pane that only shows files stays as it is.
  virtual void ShowFromMemory(const std::string& /*page*/) {}

  /// Calls `handler`, from the event loop, when the user has clicked a link that is to open in the
  /// user's own browser and none could be started for it.
  virtual void OnLinkNotOpened(std::function<void()> handler) = 0;
};

}  // namespace panelkit
