// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "app/edit/ColorController.h"
#include "app/edit/CropController.h"
#include "app/edit/DocumentController.h"
#include "app/edit/EditorController.h"
#include "app/edit/EditorPane.h"
#include "app/edit/PhotoController.h"
#include "app/edit/StyleMenuController.h"
#include "app/edit/StylesController.h"
#include "app/edit/TilesController.h"
#include "app/edit/ZoomController.h"

namespace brivolant {

/// The editor's pane: its widgets, a controller for each concern, and how these hear of each other.
struct EditorParts {
  EditorParts(const Desk& desk, EditSession& session, Commands& commands, Panes& panes,
              QWidget* stage);
  EditorParts(const EditorParts&) = delete;
  EditorParts& operator=(const EditorParts&) = delete;

  EditorPane Pane;
  DocumentController Documents;
  PhotoController Photo;
  EditorController Editor;
  TilesController Tiles;
  StylesController Styles;
  StyleMenuController StyleMenu;
  CropController Crop;
  ColorController Colors;
  ZoomController Zoom;

 private:
  std::vector<Listening> listening_;
};

}  // namespace brivolant
