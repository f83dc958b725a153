// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class QWidget;

namespace brivolant {

/// The working areas of the main window, of which one is in view.
enum DisplayMode { kBrowserPane = 0, kEditorPane = 1, kLayoutPane = 2 };

/// Bits of panes.
constexpr int PaneBit(DisplayMode pane) {
  return 1 << pane;
}
inline constexpr int kInBrowser = PaneBit(kBrowserPane);
inline constexpr int kInEditor = PaneBit(kEditorPane);
inline constexpr int kAllPanes = kInBrowser | kInEditor | PaneBit(kLayoutPane);

/// What a part of the main window may ask of the whole.
class Panes {
 public:
  virtual ~Panes() = default;
  /// The pane in view, a DisplayMode.
  virtual int Pane() const = 0;
  /// Brings a pane into view.
  virtual void SwapDisplay(int mode) = 0;
  /// The line under the panes.
  virtual void Info(const std::string& text) = 0;
  virtual QWidget& Window() = 0;
};

}  // namespace brivolant
