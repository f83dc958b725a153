// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <atomic>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "formats/PastedFiles.h"
#include "platform/pictures/Picture.h"

class QThreadPool;

namespace brivolant {

/// Renders one photo in many styles on all cores, away from the window: what was asked for last
/// comes first, and another photo ends what is still to do.
class StyleTiles final : public QObject {
 public:
  /// What is to be rendered.
  struct Order {
    /// Comes back with the picture.
    std::string ID;
    std::string StyleData;
  };

  StyleTiles();
  ~StyleTiles() override;

  /// The photo from now on, at the scale that its full picture gives it, and what was pasted into
  /// its document. Nil ends all work.
  void Photo(const Picture& photo, double scale, PastedFiles pasted);
  /// Renders these, in their order, before anything ordered earlier. What is under way or done for
  /// this photo is not rendered again.
  void Render(const std::vector<Order>& orders);
  /// Nothing is left to do.
  bool Idle() const;

  /// A picture is ready; on the thread of the object.
  std::function<void(const std::string& id, const Picture& tile)> Ready;

 private:
  struct Work;
  void Start();

  std::shared_ptr<Work> work_;
  std::unique_ptr<QThreadPool> pool_;
};

}  // namespace brivolant
