// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include "app/session/EditSession.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

class QWidget;

namespace brivolant {

class Commands;
class CropEditor;
class CropModule;
class EditorPane;
class Panes;

/// The crop: its module while it is drawn, the palette under the photo, and what rests meanwhile.
class CropController {
 public:
  static constexpr LocalizedText kUndoCrop{"MainWindow.kUndoCrop", "Crop"};

  CropController(EditSession& session, Commands& commands, Panes& panes, EditorPane& pane);
  ~CropController();
  CropController(const CropController&) = delete;
  CropController& operator=(const CropController&) = delete;

  bool Cropping() const;
  /// Begins or ends the crop.
  void CropMethod();
  /// The palette goes with the window to the front and away from it.
  void WindowActivated(QWidget* active);
  CropEditor& Editor() { return *editor_; }

 private:
  void Begin();
  void End();
  void Lock(bool locked);

  EditSession& session_;
  Commands& commands_;
  Panes& panes_;
  EditorPane& pane_;
  std::unique_ptr<CropModule> crop_;
  std::unique_ptr<CropEditor> editor_;
  /// While the whole picture is not shown yet, on which the crop is drawn.
  std::shared_ptr<int> beginning_;
  EditSession::Pairs before_;
  std::vector<Listening> listening_;
};

}  // namespace brivolant
