// The About window.
#pragma once

#include <memory>

#include "platform/toolkit.h"

namespace panelkit {

/// A small window that names the program. One object serves the whole run; its window is not
/// loaded, shown, or hidden.
class frmAbout {
 public:
  explicit frmAbout(Toolkit& toolkit) : toolkit_(toolkit) {}

  /// Shows the window, neither modal nor owned. One that is not loaded is loaded and centred first;
  /// a hidden one comes back where it last stood.
  void Show();

 private:
  void Load();
  void Form_Load();
  void Command1_Click();

  Toolkit& toolkit_;
  std::unique_ptr<Form> window_;
};

}  // namespace panelkit
