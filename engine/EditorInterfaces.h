// SPDX-License-Identifier: MIT
#pragma once

namespace brivolant {

class effectModule;
enum class MouseCursor;

/// The display keeps this much free around the preview, both sides together, in the desktop's
/// coordinates.
inline constexpr int kPreviewMargin = 20;

/// What modules and the processor need of the effect panel.
class EffectPanel {
 public:
  virtual ~EffectPanel() = default;
  /// A module is about to change itself.
  virtual void AboutToChange(effectModule& module) = 0;
  /// The index of the selected row; -1 for none.
  virtual void selectedEffect(int index) = 0;
  /// Reads the stack anew.
  virtual void Update() = 0;
  /// Draws anew.
  virtual void Invalidate() = 0;
};

/// What the processor needs of the editor's display.
class PreviewDisplay {
 public:
  virtual ~PreviewDisplay() = default;
  /// Pixels of the screen, not of the desktop's scaled coordinates.
  virtual int Width() const = 0;
  virtual int Height() const = 0;
  /// Pixels of the screen in one unit of the desktop's coordinates; 1 on a plain screen.
  virtual double PixelRatio() const { return 1; }
  virtual void ShowCursor(MouseCursor) {}
  /// Keys come to the selected module from now on.
  virtual void TakeFocus() {}
  /// Shows the processor's preview; `full` when everything was rendered anew.
  virtual void Update(bool full) = 0;
};

/// Renders the previews of a processor elsewhere, and tells it of them by BeginPreview and
/// EndPreview.
class PreviewMaker {
 public:
  virtual ~PreviewMaker() = default;
  /// A preview of what the processor holds is wanted; `full` if everything is to be made anew.
  virtual void Request(bool full) = 0;
  /// One is being rendered.
  virtual bool Running() const = 0;
};

}  // namespace brivolant
