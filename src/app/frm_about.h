// The About window.
#pragma once

#include <memory>

#include "platform/toolkit.h"

namespace panelkit {

/// A small window that names the program. One object serves the whole run; its window is made at
/// the first Show, hidden by the button, and destroyed when the user closes it.
class frmAbout {
 public:
  /// `toolkit` must outlive the object.
  explicit frmAbout(Toolkit& toolkit) : toolkit_(toolkit) {}

  /// Shows the window, neither modal nor owned: centred if it has just been made, else where it
  /// last stood.
  void Show();

 private:
  void Load();
  void Form_Load();
  void Command1_Click();

  Toolkit& toolkit_;
  std::unique_ptr<Form> window_;
};

}  // namespace panelkit
