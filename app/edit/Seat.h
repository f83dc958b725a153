// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>

namespace brivolant {

/// A widget that tells of its size and is filled with the window's colour.
class Seat final : public QWidget {
 public:
  explicit Seat(QWidget* parent) : QWidget(parent) { setAutoFillBackground(true); }
  std::function<void()> Resized;

 protected:
  void resizeEvent(QResizeEvent*) override {
    if (Resized) Resized();
  }
};

}  // namespace brivolant
