// A window toolkit without windows: captions, menu states and the bar live in memory.
#pragma once

#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/toolkit.h"

namespace panelkit {

/// The event loop of a program without a window: there are no events, and End ends the process.
class QuietLoop : public EventLoop {
 public:
  void ProcessPending() override {}
  [[noreturn]] void End() override { std::_Exit(EXIT_SUCCESS); }
};

class HeadlessLabel : public Label {
 public:
  void SetCaption(const std::string& caption) override { caption_ = caption; }
  std::string Caption() const override { return caption_; }

 private:
  std::string caption_;
};

class HeadlessMenuItem : public MenuItem {
 public:
  void SetEnabled(bool enabled) override { enabled_ = enabled; }
  bool Enabled() const override { return enabled_; }
  void SetCaption(const std::string& caption) override { caption_ = caption; }
  std::string Caption() const override { return caption_; }

 private:
  std::string caption_;
  bool enabled_ = true;
};

class HeadlessProgressBar : public ProgressBar {
 public:
  /// Called with value and max at each change of the value.
  using Watcher = std::function<void(int value, int max)>;

  explicit HeadlessProgressBar(Watcher watcher) : watcher_(std::move(watcher)) {}

  void SetMin(int /*min*/) override {}
  void SetMax(int max) override { max_ = max; }
  void SetValue(int value) override;
  int Max() const { return max_; }
  int Value() const { return value_; }

 private:
  Watcher watcher_;
  int max_ = 100;
  int value_ = 0;
};

class HeadlessBrowser : public WebBrowser {
 public:
  void Navigate(const std::string& address) override { address_ = address; }
  void OnLinkNotOpened(std::function<void()> handler) override {
    on_link_not_opened_ = std::move(handler);
  }
  /// The address that was navigated to last.
  const std::string& Address() const { return address_; }
  /// Acts as a pane in which the user clicked a link that no browser could be started for.
  void FailToOpenLink() { on_link_not_opened_(); }

 private:
  std::string address_;
  std::function<void()> on_link_not_opened_;
};

/// A strip whose buttons are pressed by the program that owns the toolkit.
class HeadlessStrip : public Strip {
 public:
  void Show(StripContent content) override { content_ = std::move(content); }
  void Hide() override { content_ = {}; }
  /// The sentence and the captions, "A sentence. [&One] [&Two]"; empty while it is hidden.
  std::string Shown() const;
  /// Presses a button as a user would; nothing happens if there is none of that caption.
  void Press(std::string_view caption);

 private:
  StripContent content_;
};

/// A form whose clicks come from the program that owns the toolkit.
class HeadlessForm : public Form {
 public:
  HeadlessForm(const FormDescription& description, HeadlessProgressBar::Watcher watcher);

  /// Clicks a menu item or button as a user would: nothing happens if it, or the menu that it
  /// stands in, is disabled, or if it has no handler.
  void Click(std::string_view name);
  /// Closes the window as its title bar would.
  void Close();
  bool Visible() const { return visible_; }

  HeadlessLabel& LabelNamed(std::string_view name) override;
  HeadlessMenuItem& MenuNamed(std::string_view name) override;
  HeadlessProgressBar& ProgressBarNamed(std::string_view name) override;
  HeadlessBrowser& BrowserNamed(std::string_view name) override;
  HeadlessStrip& StripOf(std::string_view name) override { return EntryNamed(strips_, name); }
  void OnClick(std::string_view name, std::function<void()> handler) override;
  void OnClose(std::function<void()> handler) override { on_close_ = std::move(handler); }
  /// Gives what the owner of the toolkit has put there for the next question.
  std::vector<std::string> ChooseFolders(const std::string&) override { return std::move(choice); }
  void OnDrop(std::function<void(const std::vector<std::string>&)> handler) override {
    drop = std::move(handler);
  }
  std::vector<std::string> choice;
  std::function<void(const std::vector<std::string>& paths)> drop;

  void Show() override { visible_ = true; }
  void Hide() override { visible_ = false; }
  Twips Width() const override { return description_.width; }
  Twips Height() const override { return description_.height; }
  void MoveTo(Twips left, Twips top) override;
  Twips Left() const { return left_; }
  Twips Top() const { return top_; }

 private:
  bool IsReachable(std::string_view item) const;

  FormDescription description_;
  ByName<HeadlessLabel> labels_;
  ByName<HeadlessMenuItem> menu_;
  ByName<HeadlessProgressBar> bars_;
  ByName<HeadlessBrowser> browsers_;
  ByName<HeadlessStrip> strips_;
  ByName<std::function<void()>> on_click_;
  std::function<void()> on_close_;
  bool visible_ = false;
  Twips left_ = 0;
  Twips top_ = 0;
};

/// The toolkit of the console companion, and of tests that need no window.
class HeadlessToolkit : public Toolkit {
 public:
  /// `watcher` is called at each move of a progress bar. `loop` must outlive the toolkit.
  explicit HeadlessToolkit(EventLoop& loop, HeadlessProgressBar::Watcher watcher = {});

  std::unique_ptr<Form> CreateForm(const FormDescription& description) override;
  EventLoop& Loop() override { return loop_; }
  ScreenSize Screen() const override { return {1024 * 15, 768 * 15}; }

  /// The form made last with this title, or null; not to be used after it is destroyed.
  HeadlessForm* FormTitled(std::string_view title) const;

 private:
  EventLoop& loop_;
  HeadlessProgressBar::Watcher watcher_;
  std::map<std::string, HeadlessForm*, std::less<>> forms_;
};

}  // namespace panelkit
