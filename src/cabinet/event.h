// Events with subscribers.
#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace panelkit {

/// Something that an object tells whoever listens, in the order of subscribing. With no subscriber,
/// raising it does nothing. A subscriber's exception reaches whoever raised the event.
template <class... Arguments>
class Event {
 public:
  using Subscriber = std::function<void(Arguments...)>;

  void Subscribe(Subscriber subscriber) { subscribers_.push_back(std::move(subscriber)); }

  bool HasSubscribers() const { return !subscribers_.empty(); }

  void Raise(Arguments... arguments) const {
    for (const Subscriber& subscriber : subscribers_) subscriber(arguments...);
  }

 private:
  std::vector<Subscriber> subscribers_;
};

}  // namespace panelkit
