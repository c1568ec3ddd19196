// A menu bar of Windows.
#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/form.h"

namespace panelkit::windows {

/// One item, addressed by its position in its menu.
class Win32MenuItem final : public MenuItem {
 public:
  /// `bar_of` is the window whose bar the item stands on, null for an entry.
  Win32MenuItem(HMENU menu, UINT position, HWND bar_of, std::string caption)
      : menu_(menu), position_(position), bar_of_(bar_of), caption_(std::move(caption)) {}

  void SetEnabled(bool enabled) override;
  bool Enabled() const override { return enabled_; }
  void SetCaption(const std::string& caption) override;
  std::string Caption() const override { return caption_; }

 private:
  HMENU menu_;
  UINT position_;
  HWND bar_of_;
  std::string caption_;
  bool enabled_ = true;
};

/// The whole bar. Items without entries carry a command; those on the bar act at once on a click.
class Win32Menu {
 public:
  /// Makes the bar and gives it to `window`, which destroys it with itself. No bar for no items.
  Win32Menu(HWND window, std::span<const MenuDescription> items);

  Win32MenuItem& Named(std::string_view name);

  /// The name of the item that a WM_COMMAND comes from.
  std::optional<std::string> NameOf(UINT command) const;

 private:
  ByName<Win32MenuItem> items_;
  std::map<UINT, std::string> commands_;
};

}  // namespace panelkit::windows
