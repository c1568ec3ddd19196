// Which addresses the pane may load, and what each one is.
#pragma once

#include <filesystem>
#include <set>

namespace panelkit {

enum class Address {
  PageFile,  ///< A file that the program itself has shown.
  Web,       ///< http or https.
  Blank,     ///< about:blank and the like: no content of its own.
  Refused,
};

/// Page files carry text of downloaded aircraft as it came, so a link in one could name any file
/// of the user's: no file loads but those that the program asked for.
class NavigationPolicy {
 public:
  /// Lets `file`, a native absolute path, load from now on.
  void Admit(const std::filesystem::path& file);

  /// What `uri` is; null is refused.
  Address KindOf(const char* uri) const;

 private:
  std::set<std::filesystem::path> pages_;
};

/// Whether a text is an http or https address, in any case.
bool IsWebAddress(const char* text);

}  // namespace panelkit
