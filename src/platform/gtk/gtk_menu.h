// A form's menu bar, and access keys.
#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "platform/form.h"

namespace panelkit {

/// `caption` as GTK writes it: "&" before the access key becomes "_", "&&" a plain "&", and each
/// underscore is doubled so that it stays one.
std::string MnemonicOf(std::string_view caption);

class GtkMenuEntry final : public MenuItem {
 public:
  explicit GtkMenuEntry(std::string_view caption);

  void SetEnabled(bool enabled) override;
  bool Enabled() const override;
  void SetCaption(const std::string& caption) override;
  std::string Caption() const override { return caption_; }

  /// Owned by the menu that it is put into.
  GtkMenuItem* Widget() const { return widget_; }

 private:
  std::string caption_;
  GtkMenuItem* widget_;
};

/// The bar with its menus. Calls `clicked`, from inside GTK's dispatch, for items without entries.
class GtkFormMenu {
 public:
  using Clicked = std::function<void(const std::string& name)>;

  GtkFormMenu(std::span<const MenuDescription> menu, Clicked clicked);

  /// The item `name`; throws std::out_of_range if there is none.
  GtkMenuEntry& Named(std::string_view name);

  /// Opens the menu of the bar's item `name`, as its access key does, if it is enabled.
  void Open(std::string_view name);

  /// Owned by the window that it is put into.
  GtkWidget* Widget() const { return bar_; }

 private:
  void Add(const MenuDescription& description);
  GtkMenuShell* EntriesOf(std::string_view parent);
  static void Activated(GtkMenuItem* item, gpointer self);

  Clicked clicked_;
  GtkWidget* bar_;
  ByName<GtkMenuEntry> items_;
};

}  // namespace panelkit
