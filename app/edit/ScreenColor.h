// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>
#include <optional>

#include "platform/values/Color.h"

namespace brivolant {

class EditorDisplay;

/// Waits for one click anywhere and gives the colour under it. Nothing else takes a click or a key
/// meanwhile; Escape ends it.
class ScreenColor final : public QObject {
 public:
  /// `then` is called once, with nothing if it was given up.
  ScreenColor(EditorDisplay& display, std::function<void(const std::optional<Color>&)> then);
  ~ScreenColor() override;

  void Cancel();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Take(const QPoint& at);
  void End();

  EditorDisplay& display_;
  std::function<void(const std::optional<Color>&)> then_;
  std::optional<Color> color_;
};

}  // namespace brivolant
