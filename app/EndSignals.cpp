// SPDX-License-Identifier: MIT
#include "app/EndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>

namespace brivolant {
namespace {

constexpr std::array kSignals{SIGTERM, SIGHUP, SIGINT};
/// A handler may do next to nothing: it wakes the loop through a pipe.
std::array<int, 2> wake{-1, -1};

void Wake(int) {
  const int before = errno;
  const char byte = 0;
  // A full pipe has woken it already.
  if (write(wake[1], &byte, 1) != 1) errno = before;
  errno = before;
}

}  // namespace

struct EndSignals::Before {
  std::array<struct sigaction, kSignals.size()> actions{};
};

EndSignals::EndSignals(std::function<void()> arrived) : before_(std::make_unique<Before>()) {
  if (pipe2(wake.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(wake[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [arrived = std::move(arrived)] {
                     std::array<char, 16> bytes{};
                     while (read(wake[0], bytes.data(), bytes.size()) > 0) {
                     }
                     arrived();
                   });
  struct sigaction action {};
  action.sa_handler = Wake;
  action.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals.at(i), &action, &before_->actions.at(i));
  }
}

EndSignals::~EndSignals() {
  if (!notifier_) return;
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals.at(i), &before_->actions.at(i), nullptr);
  }
  notifier_.reset();
  for (int& end : wake) close(std::exchange(end, -1));
}

}  // namespace brivolant
