// Which addresses the pane may load.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace panelkit::windows {

/// Page files carry text of downloaded aircraft as it came, so a link in one could name any file of
/// the user's: no file loads but those that the program asked for.
class NavigationPolicy {
 public:
  /// Lets a file, given by its Windows path, load from now on.
  void Admit(std::wstring_view path);

  /// Whether the pane may load an address, written as a path or a URL: a web address, a page of
  /// the browser's own (about:blank, or an error page in "res:..."), or an admitted file.
  bool MayLoad(std::wstring_view address) const;

 private:
  std::set<std::wstring> files_;
};

/// Whether a text is an http or https address, in any case.
bool IsWebAddress(std::wstring_view text);

}  // namespace panelkit::windows
