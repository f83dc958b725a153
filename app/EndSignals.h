// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace brivolant {

/// Makes an event of the main loop of what ends a program from outside: SIGTERM, SIGHUP, SIGINT.
/// One object at a time; when it goes the signals do again what they did before.
class EndSignals {
 public:
  explicit EndSignals(std::function<void()> arrived);
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

 private:
  struct Before;
  std::unique_ptr<Before> before_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace brivolant
