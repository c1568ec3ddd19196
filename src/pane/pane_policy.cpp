#include "pane/pane_policy.h"

#include <algorithm>

namespace panelkit {
namespace {

std::string Lowered(std::string_view text) {
  std::string lowered(text);
  std::transform(lowered.begin(), lowered.end(), lowered.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
  return lowered;
}

/// The site of a web address, as "host:port"; any other address as it is. Toolkits do not agree on
/// the spelling of a whole web address.
std::string KeyOf(std::string_view address) {
  if (!IsWebAddress(address)) return std::string(address);
  address.remove_prefix(address.find("//") + 2);
  address = address.substr(0, address.find_first_of("/?#\\"));
  return Lowered(address.substr(address.rfind('@') + 1));
}

}  // namespace

void PanePolicy::Expect(const std::string& address) {
  const std::lock_guard lock(mutex_);
  expected_.insert(KeyOf(address));
}

Answer PanePolicy::Decide(const LoadRequest& load) {
  const bool strict = IsStrict();
  const bool scripts = MayRunScripts();
  const std::lock_guard lock(mutex_);
  const bool stands_on_web = stands_ == Target::Web;
  if (load.place == Place::NewWindow) {
    // Without scripts only the user opens a link, also by means that look like none: a screen
    // reader, a finger.
    const bool by_user = load.by_user || (!scripts && !stands_on_web);
    return by_user && load.target == Target::Web ? Answer::OpenInUsersBrowser : Answer::Refuse;
  }
  const bool is_of_web = load.target == Target::Web || load.target == Target::Inline;
  if (load.place == Place::Frame) return !strict && is_of_web ? Answer::Show : Answer::Refuse;
  // A browser may ask twice for one load.
  const bool is_under_way = comes_ && comes_->address == load.address;
  const bool is_wanted = is_under_way || TakeExpected(KeyOf(load.address)) || load.by_user;
  const bool may_show =
      load.target == Target::ErrorPage || (stands_on_web && is_of_web) ||
      (is_wanted && (load.target == Target::Web || load.target == Target::OwnPage));
  if (!may_show) return Answer::Refuse;
  comes_ = Load{load.target, load.address};
  return Answer::Show;
}

bool PanePolicy::TakeExpected(const std::string& key) {
  const auto expected = expected_.find(key);
  if (expected == expected_.end()) return false;
  expected_.erase(expected);
  return true;
}

void PanePolicy::HasCome(Target page) {
  const std::lock_guard lock(mutex_);
  stands_ = page;
  comes_.reset();
}

void PanePolicy::HasFailed() {
  const std::lock_guard lock(mutex_);
  comes_.reset();
}

bool PanePolicy::IsStrict() const {
  const std::lock_guard lock(mutex_);
  return stands_ != Target::Web || (comes_ && comes_->target != Target::Web);
}

bool PanePolicy::MayRunScripts() const {
  const std::lock_guard lock(mutex_);
  return (comes_ ? comes_->target : stands_) == Target::Web;
}

bool PanePolicy::Awaits(std::string_view address) const {
  const std::lock_guard lock(mutex_);
  return comes_ && comes_->target == Target::Web && IsWebAddress(address) &&
         KeyOf(comes_->address) == KeyOf(address);
}

bool IsWebAddress(std::string_view text) {
  const std::string start = Lowered(text.substr(0, 8));
  return start.starts_with("http://") || start.starts_with("https://");
}

}  // namespace panelkit
