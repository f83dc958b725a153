// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace brivolant {

/// Keeps a listener at its event: it hears nothing more once this is gone.
using Listening = std::shared_ptr<void>;

/// A hook with any number of listeners, told in the order in which they came. A listener may come
/// or go while the event is raised, and either side may be gone first.
template <typename... Arguments>
class Event {
 public:
  using Listener = std::function<void(Arguments...)>;

  Event() = default;
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  [[nodiscard]] Listening Listen(Listener listener) {
    auto held = std::make_shared<Listener>(std::move(listener));
    listeners_.push_back(held);
    return held;
  }

  void operator()(Arguments... arguments) {
    std::erase_if(listeners_, [](const auto& listener) { return listener.expired(); });
    // Of a copy: what is called may listen itself, or be the end of this object's owner.
    const auto told = listeners_;
    for (const auto& listener : told) {
      if (const auto alive = listener.lock()) (*alive)(arguments...);
    }
  }

 private:
  std::vector<std::weak_ptr<Listener>> listeners_;
};

}  // namespace brivolant
