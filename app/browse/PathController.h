// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "app/browse/BrowserController.h"
#include "platform/values/Event.h"
#include "platform/values/Variant.h"

namespace brivolant {

class BrowserPane;

/// The path to what the browser shows, and the way along it.
class PathController {
 public:
  PathController(BrowserPane& pane, BrowserController& browser);
  PathController(const PathController&) = delete;
  PathController& operator=(const PathController&) = delete;

  /// Shows the way to a container; back and forward lead there too, unless they are skipped.
  void DisplayPath(const BrowserContainer& container, bool skipHistory);

  /// The album of the library's events, or null.
  std::function<std::shared_ptr<iPhotoAlbum>()> Events;

 private:
  Variant TagOf(const BrowserContainer& container);
  BrowserContainer ContainerOf(const Variant& tag) const;

  BrowserPane& pane_;
  BrowserController& browser_;
  /// What pieces of the path stand for that are no folders; their tags are indexes.
  std::vector<BrowserContainer> pathTargets_;
  Listening listening_;
};

}  // namespace brivolant
