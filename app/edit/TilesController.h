// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "app/session/EditSession.h"
#include "platform/values/Event.h"

namespace brivolant {

class EditorPane;
class OneClickWonder;
class StylePreviews;
class StyleTiles;
class templateSelector;

/// The pictures of styles: the open photo in each of them as tiles of the bar, and in the one on
/// which the pointer rests on the display.
class TilesController {
 public:
  TilesController(const Desk& desk, EditSession& session, EditorPane& pane);
  ~TilesController();
  TilesController(const TilesController&) = delete;
  TilesController& operator=(const TilesController&) = delete;

  /// What is there to show for a style; the rest comes when it is ready.
  QImage PictureOf(const OneClickWonder& style);
  /// Other tiles are in the bar, or in view.
  void OrderTiles();

 private:
  int TileSide() const;
  static double ScaleOf(BrivolantDocument& document, const Picture& reduced);
  void Show(const std::string& id, const QImage& picture);
  void PreviewReady(const std::string& id, const Picture& preview);
  void TileReady(const std::string& id, const Picture& tile);
  void RefreshTiles();
  void HoverStyle(int index);

  Desk desk_;
  EditSession& session_;
  EditorPane& pane_;
  templateSelector& bar_;
  std::unique_ptr<StylePreviews> previews_;
  std::unique_ptr<StyleTiles> tiles_;
  std::unique_ptr<StyleTiles> hoverTile_;
  /// Of which the tiles are, and those that are ready by the styles' IDs.
  Picture tilesOf_;
  PastedFiles tilesPasted_;
  std::map<std::string, QImage> readyTiles_;
  /// The style that the photo is shown in for as long as the pointer rests on it.
  std::string hoverID_;
  Listening listening_;
};

}  // namespace brivolant
