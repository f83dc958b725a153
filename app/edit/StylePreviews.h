// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>

#include "platform/pictures/Picture.h"

class QThreadPool;

namespace brivolant {

class OneClickWonder;

/// Decodes the previews that styles bring along on a thread of its own: a style's file may come
/// from anyone, and the window does not wait for it. Lives on the window's thread.
class StylePreviews final : public QObject {
 public:
  /// A preview, nil if it cannot be decoded, of the style with that ID.
  std::function<void(const std::string& id, const Picture& preview)> Ready;

  StylePreviews();
  ~StylePreviews() override;

  /// Decodes the style's preview unless it has been.
  void Decode(const OneClickWonder& style);
  /// Nothing is under way.
  bool Idle() const { return pending_ == 0; }

 private:
  std::unique_ptr<QThreadPool> pool_;
  int pending_ = 0;
};

}  // namespace brivolant
