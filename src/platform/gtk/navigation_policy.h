// The navigation policy of the pane: which addresses it may load, and on whose word.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "platform/gtk/page_files.h"

namespace panelkit {

/// What causes a load.
enum class Cause {
  User,  ///< A click or key of the user's, and where the server then redirects to.
  Page,  ///< The page by itself: a refresh, a frame, a script.
};

/// A page file holds text of downloaded aircraft, so only the program and the user may replace it
/// by another page. A page of the web may load other ones by itself.
class NavigationPolicy {
 public:
  /// `pages` must outlive the policy.
  explicit NavigationPolicy(const PageFiles& pages) : pages_(pages) {}

  /// The program is about to load `address`, written as WebKit does (a host's root with its slash):
  /// one load of it is allowed, also where another one comes before it.
  void Expect(std::string address) { expected_.insert(std::move(address)); }

  /// The user is about to load the shown page again.
  void ExpectReload() { Expect(shown_); }

  /// Whether `address` may be loaded now.
  bool Allows(std::string_view address, Cause cause);

  /// The pane shows `address` from now on.
  void Shown(std::string address) { shown_ = std::move(address); }

 private:
  const PageFiles& pages_;
  std::multiset<std::string, std::less<>> expected_;
  std::string shown_;
};

/// Whether a text is an http or https address, in any case.
bool IsWebAddress(std::string_view text);

}  // namespace panelkit
