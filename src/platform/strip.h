// The strip along the lower edge of a browser pane, which offers the next steps.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace panelkit {

/// A button of a strip. The character behind "&" in its caption is the access key: none that an
/// item of the window's menu bar has.
struct StripButton {
  std::string caption;
  std::function<void()> on_click;
};

/// One sentence, which may take two lines, and at most two buttons.
struct StripContent {
  std::string sentence;
  std::vector<StripButton> buttons;
};

/// Takes its room from the pane while it is shown, and never takes the keyboard by itself: the user
/// goes there by Tab or by an access key. A button of its own closes it, and so does Escape while
/// it has the keyboard, which goes to the pane then.
class Strip {
 public:
  virtual ~Strip() = default;

  /// Shows `content` in place of what the strip showed, and tells screen readers. A button's
  /// function is called from the event loop and never from inside the toolkit's own dispatch.
  virtual void Show(StripContent content) = 0;

  virtual void Hide() = 0;
};

}  // namespace panelkit
