#include "platform/win32/win32_menu.h"

#include <algorithm>

#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

constexpr UINT kFirstCommand = 100;

}  // namespace

void Win32MenuItem::SetEnabled(bool enabled) {
  enabled_ = enabled;
  EnableMenuItem(menu_, position_, MF_BYPOSITION | (enabled ? MF_ENABLED : MF_GRAYED));
  if (bar_of_ != nullptr) DrawMenuBar(bar_of_);
}

void Win32MenuItem::SetCaption(const std::string& caption) {
  caption_ = caption;
  std::wstring text = Wide(caption);
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_STRING;
  item.dwTypeData = text.data();
  SetMenuItemInfoW(menu_, position_, TRUE, &item);
  if (bar_of_ != nullptr) DrawMenuBar(bar_of_);
}

Win32Menu::Win32Menu(HWND window, std::span<const MenuDescription> items) {
  if (items.empty()) return;
  std::map<std::string_view, HMENU> menus{{"", CreateMenu()}};
  UINT command = kFirstCommand;
  for (const MenuDescription& item : items) {
    const HMENU menu = menus.at(item.parent);
    const bool has_entries = std::any_of(items.begin(), items.end(), [&item](const auto& other) {
      return other.parent == item.name;
    });
    UINT_PTR target = command;
    if (has_entries) {
      target = reinterpret_cast<UINT_PTR>(menus[item.name] = CreatePopupMenu());
    } else {
      commands_.emplace(command++, item.name);
    }
    const auto position = static_cast<UINT>(GetMenuItemCount(menu));
    AppendMenuW(menu, has_entries ? MF_POPUP : MF_STRING, target, Wide(item.caption).c_str());
    items_.try_emplace(std::string(item.name), menu, position,
                       item.parent.empty() ? window : nullptr, std::string(item.caption));
  }
  SetMenu(window, menus.at(""));
}

Win32MenuItem& Win32Menu::Named(std::string_view name) {
  return EntryNamed(items_, name);
}

std::optional<std::string> Win32Menu::NameOf(UINT command) const {
  const auto found = commands_.find(command);
  if (found == commands_.end()) return std::nullopt;
  return found->second;
}

}  // namespace panelkit::windows
