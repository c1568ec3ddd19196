// The addresses that the pane meets on Windows: what each leads to, and what page files may load.
#pragma once

#include <mutex>
#include <set>
#include <string>
#include <string_view>

#include "pane/pane_policy.h"

namespace panelkit::windows {

/// Knows the page files of the program. May be called from any thread.
class PageAddresses {
 public:
  /// Makes the file at `path` a page of the program's, with its pictures beside it.
  void Add(std::wstring_view path);

  /// A load of `address`, written as a path or a URL, for PanePolicy.
  LoadRequest Load(std::wstring_view address, Place place, bool by_user) const;

  /// Whether a page of the program's may load `address`: itself and the program's pictures, and
  /// what the control needs to print it, which are resources of the system's own browser libraries
  /// and a copy of the page in the user's temporary folder on this computer.
  bool MayLoad(std::wstring_view address) const;

 private:
  mutable std::mutex mutex_;
  std::set<std::wstring> pages_;
  std::set<std::wstring> pictures_;
};

}  // namespace panelkit::windows
