// What the pane may go to, fetch and run, by what it shows.
#pragma once

#include <mutex>
#include <set>
#include <string>
#include <string_view>

namespace panelkit::windows {

/// Page files hold text of downloaded aircraft, unescaped. So nothing in one may navigate the pane,
/// open a file of the user's, or fetch anything but the program's own pictures; only the program
/// and the user's own clicks lead from one page to another. May be called from any thread.
class NavigationPolicy {
 public:
  /// Lets the pane show an address that the program asks for: the path of a page file, with the
  /// pictures beside it, or a web address.
  void Admit(std::wstring_view address);

  /// Whether the pane's main frame may go to an address, written as a path or a URL: to what the
  /// program admitted, to the web by the user's own action, or to the system's own error pages.
  /// From a web page the web is open.
  bool MayShow(std::wstring_view address, bool user_acted) const;

  /// Whether a frame inside the page may go there: only to the web, from the web.
  bool MayShowInFrame(std::wstring_view address) const;

  /// The main frame is going to an address that it may show.
  void Going(std::wstring_view address);

  /// True while the main frame shows, or goes to, a page file; at first too.
  bool ShowsPageFile() const;

  /// Whether what the pane shows may load an address: anything for a web page; for a page file
  /// itself and the program's pictures beside it.
  bool MayFetch(std::wstring_view address) const;

 private:
  mutable std::mutex mutex_;
  std::set<std::wstring> pages_;
  std::set<std::wstring> pictures_;
  std::wstring asked_for_;  ///< The web address that the program asked for last.
  bool shows_page_file_ = true;
};

/// Whether a text is an http or https address, in any case.
bool IsWebAddress(std::wstring_view text);

}  // namespace panelkit::windows
