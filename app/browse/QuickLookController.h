// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "platform/values/Event.h"

namespace brivolant {

class BrowserController;
class BrowserPane;
class Commands;
class Panes;
class Picture;
class QuickLookWindow;
struct QuickLookItem;

/// The windows that show photos large: what is selected in the browser, and the photo in the editor
/// on the whole screen.
class QuickLookController {
 public:
  QuickLookController(const Desk& desk, Commands& commands, Panes& panes, BrowserPane& pane,
                      BrowserController& browser);
  ~QuickLookController();
  QuickLookController(const QuickLookController&) = delete;
  QuickLookController& operator=(const QuickLookController&) = delete;

  void QuickLookMethod();
  void ShowFullScreen(const Picture& picture, const std::string& title);
  /// The main window closes.
  void Close();
  /// Null until they are first shown.
  QuickLookWindow* QuickLook() { return quickLook_.get(); }
  QuickLookWindow* FullScreen() { return fullScreen_.get(); }

 private:
  std::vector<QuickLookItem> Items() const;
  void Follow();
  std::string Caption() const;

  Desk desk_;
  Panes& panes_;
  BrowserPane& pane_;
  std::unique_ptr<QuickLookWindow> quickLook_;
  /// Shows the photo of the editor.
  std::unique_ptr<QuickLookWindow> fullScreen_;
  Listening listening_;
};

}  // namespace brivolant
