// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <deque>
#include <functional>
#include <mutex>

namespace brivolant {

/// Where other threads leave calls for the thread that made it, whose event loop makes them in
/// their order. They go with it.
class EventTarget final : public QObject {
 public:
  /// On any thread.
  void Post(std::function<void()> call);

 protected:
  void customEvent(QEvent* event) override;

 private:
  std::mutex mutex_;
  std::deque<std::function<void()>> calls_;
};

}  // namespace brivolant
