// SPDX-License-Identifier: MIT
#include "app/Background.h"

#include <QEventLoop>
#include <exception>
#include <thread>

namespace brivolant {

void RunInBackground(const std::function<void()>& work) {
  QEventLoop loop;
  std::exception_ptr failure;
  std::thread thread([&] {
    try {
      work();
    } catch (...) {
      failure = std::current_exception();
    }
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
  });
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  thread.join();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace brivolant
