#include "platform/headless/headless_toolkit.h"

#include <algorithm>
#include <utility>

namespace panelkit {

void HeadlessProgressBar::SetValue(int value) {
  value_ = value;
  if (watcher_) watcher_(value_, max_);
}

std::string HeadlessStrip::Shown() const {
  std::string shown = content_.sentence;
  for (const StripButton& button : content_.buttons) shown += " [" + button.caption + "]";
  return shown;
}

void HeadlessStrip::Press(std::string_view caption) {
  const auto button = std::find_if(
      content_.buttons.begin(), content_.buttons.end(),
      [caption](const StripButton& candidate) { return candidate.caption == caption; });
  if (button == content_.buttons.end()) return;
  // A copy: the handler may show new content, which replaces the button.
  const auto on_click = button->on_click;
  on_click();
}

HeadlessForm::HeadlessForm(const FormDescription& description, HeadlessProgressBar::Watcher watcher)
    : description_(description) {
  for (const ControlDescription& control : description.controls) {
    const std::string name(control.name);
    switch (control.kind) {
      case ControlKind::Label:
        labels_[name].SetCaption(std::string(control.content));
        break;
      case ControlKind::ProgressBar:
        bars_.emplace(name, watcher);
        break;
      case ControlKind::WebBrowser:
        browsers_[name];
        strips_[name];
        break;
      case ControlKind::PictureBox:
      case ControlKind::CommandButton:
        break;
    }
  }
  for (const MenuDescription& item : description.menu) {
    menu_[std::string(item.name)].SetCaption(std::string(item.caption));
  }
}

void HeadlessForm::Click(std::string_view name) {
  const auto handler = on_click_.find(name);
  if (handler != on_click_.end() && IsReachable(name)) handler->second();
}

bool HeadlessForm::IsReachable(std::string_view item) const {
  const auto described =
      std::find_if(description_.menu.begin(), description_.menu.end(),
                   [item](const MenuDescription& row) { return row.name == item; });
  if (described == description_.menu.end()) return true;
  return EntryNamed(menu_, item).Enabled() &&
         (described->parent.empty() || IsReachable(described->parent));
}

void HeadlessForm::Close() {
  visible_ = false;
  // The handler may destroy this form.
  if (const auto handler = on_close_) handler();
}

HeadlessLabel& HeadlessForm::LabelNamed(std::string_view name) {
  return EntryNamed(labels_, name);
}

HeadlessMenuItem& HeadlessForm::MenuNamed(std::string_view name) {
  return EntryNamed(menu_, name);
}

HeadlessProgressBar& HeadlessForm::ProgressBarNamed(std::string_view name) {
  return EntryNamed(bars_, name);
}

HeadlessBrowser& HeadlessForm::BrowserNamed(std::string_view name) {
  return EntryNamed(browsers_, name);
}

void HeadlessForm::OnClick(std::string_view name, std::function<void()> handler) {
  on_click_[std::string(name)] = std::move(handler);
}

void HeadlessForm::MoveTo(Twips left, Twips top) {
  left_ = left;
  top_ = top;
}

HeadlessToolkit::HeadlessToolkit(EventLoop& loop, HeadlessProgressBar::Watcher watcher)
    : loop_(loop), watcher_(std::move(watcher)) {}

std::unique_ptr<Form> HeadlessToolkit::CreateForm(const FormDescription& description) {
  auto form = std::make_unique<HeadlessForm>(description, watcher_);
  forms_[std::string(description.title)] = form.get();
  return form;
}

HeadlessForm* HeadlessToolkit::FormTitled(std::string_view title) const {
  const auto found = forms_.find(title);
  return found == forms_.end() ? nullptr : found->second;
}

}  // namespace panelkit
