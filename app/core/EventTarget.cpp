// SPDX-License-Identifier: MIT
#include "app/core/EventTarget.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

namespace brivolant {

void EventTarget::Post(std::function<void()> call) {
  {
    const std::lock_guard lock(mutex_);
    calls_.push_back(std::move(call));
  }
  QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void EventTarget::customEvent(QEvent*) {
  std::function<void()> call;
  {
    const std::lock_guard lock(mutex_);
    call = std::move(calls_.front());
    calls_.pop_front();
  }
  call();
}

}  // namespace brivolant
