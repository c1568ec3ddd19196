// Forms: windows described as data, and handles to the widgets that a window toolkit makes of them.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/browser.h"
#include "platform/strip.h"

namespace panelkit {

/// Length on screen: 1440 to the inch, so 15 to a pixel at 96 dots per inch.
using Twips = int;

/// The size of the text on every form, in points.
inline constexpr double kFormFontPoints = 8.25;

enum class Border {
  FixedDialog,      ///< Not resizable, only a close button, no task-bar entry.
  FixedToolWindow,  ///< The same with a small title bar.
};

enum class ControlKind { WebBrowser, Label, ProgressBar, PictureBox, CommandButton };

/// One control. `content` is a label's or button's text, or the name of a picture that the
/// executable holds. `accessible_name` is what a screen reader says for a control without text.
struct ControlDescription {
  std::string_view name;
  ControlKind kind;
  Twips left;
  Twips top;
  Twips width;
  Twips height;
  int tab_index;
  std::string_view content;
  std::string_view accessible_name;
};

/// One menu item, in the order of the bar. An item with an empty `parent` stands on the bar; one
/// there without entries acts at once on a click. The character behind "&" is the access key.
struct MenuDescription {
  std::string_view name;
  std::string_view caption;
  std::string_view parent;
};

/// A fixed-size window. `width` and `height` are its client area, without the menu bar.
struct FormDescription {
  std::string_view title;
  Twips width;
  Twips height;
  Border border;
  std::span<const ControlDescription> controls;
  std::span<const MenuDescription> menu;
  std::string_view help_menu = {};  ///< The item on the bar that F1 opens; empty if there is none.
};

class Label {
 public:
  virtual ~Label() = default;
  /// Shows `caption` as it is: "&" has no meaning in a label.
  virtual void SetCaption(const std::string& caption) = 0;
  virtual std::string Caption() const = 0;
};

class MenuItem {
 public:
  virtual ~MenuItem() = default;
  /// A disabled item is greyed; disabling one on the bar puts its entries out of reach too.
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool Enabled() const = 0;
  virtual void SetCaption(const std::string& caption) = 0;
  /// The caption as it was set, "&" included.
  virtual std::string Caption() const = 0;
};

/// A bar from Min to Max. Where Min == Max it is empty.
class ProgressBar {
 public:
  virtual ~ProgressBar() = default;
  virtual void SetMin(int min) = 0;
  virtual void SetMax(int max) = 0;
  virtual void SetValue(int value) = 0;
};

/// A window made from a description, not shown yet. Its destructor destroys the window. Asking for
/// a control or menu item that the description lacks is a fault of the program and throws
/// std::out_of_range.
class Form {
 public:
  virtual ~Form() = default;

  virtual Label& LabelNamed(std::string_view name) = 0;
  virtual MenuItem& MenuNamed(std::string_view name) = 0;
  virtual ProgressBar& ProgressBarNamed(std::string_view name) = 0;
  virtual WebBrowser& BrowserNamed(std::string_view name) = 0;

  /// The strip of the browser pane `name`, hidden at first.
  virtual Strip& StripOf(std::string_view name) = 0;

  /// Calls `handler` at each click on the menu item or button `name`, from the event loop and never
  /// from inside the toolkit's own dispatch. Without a handler a click does nothing.
  virtual void OnClick(std::string_view name, std::function<void()> handler) = 0;

  /// Calls `handler`, from the event loop, when the user closes the window. The window has left the
  /// screen by then; the handler may destroy the form.
  virtual void OnClose(std::function<void()> handler) = 0;

  /// Asks the user for folders, of which more than one can be picked where the system offers that,
  /// and waits for the answer; begins where downloads go. Windows paths; empty if the user picks
  /// none. `title` says what for. Events are delivered meanwhile.
  virtual std::vector<std::string> ChooseFolders(const std::string& title) = 0;

  /// Calls `handler`, from the event loop, with the Windows paths of files and folders that the
  /// user drops on the window, the browser pane included, which never goes there.
  virtual void OnDrop(std::function<void(const std::vector<std::string>& paths)> handler) = 0;

  /// Shows the window, in front; one that is shown already comes to the front.
  virtual void Show() = 0;
  virtual void Hide() = 0;

  /// The outer size, with the frame as far as the window system tells its size.
  virtual Twips Width() const = 0;
  virtual Twips Height() const = 0;

  /// Moves the outer top left corner. A window system that places windows by itself (Wayland) may
  /// ignore the place.
  virtual void MoveTo(Twips left, Twips top) = 0;
};

/// The widgets of one kind that a form holds, or its handlers, by name.
template <class Widget>
using ByName = std::map<std::string, Widget, std::less<>>;

/// The entry `name` of a ByName map; throws std::out_of_range with that name if there is none.
template <class Widgets>
auto& EntryNamed(Widgets& widgets, std::string_view name) {
  const auto found = widgets.find(name);
  if (found == widgets.end()) throw std::out_of_range("The form has no " + std::string(name));
  return found->second;
}

}  // namespace panelkit
