// SPDX-License-Identifier: MIT
#include "app/edit/EditorParts.h"

namespace brivolant {

EditorParts::EditorParts(const Desk& desk, EditSession& session, Commands& commands, Panes& panes,
                         QWidget* stage)
    : Pane(stage),
      Documents(desk, session, commands, panes),
      Photo(desk, session, commands, panes, Pane),
      Editor(desk, session, commands, panes, Pane, Documents),
      Tiles(desk, session, Pane),
      Styles(desk, session, commands, panes, Pane, Tiles),
      StyleMenu(desk, session, commands, panes, Pane, Styles),
      Crop(session, commands, panes, Pane),
      Colors(desk, session, commands, Pane),
      Zoom(desk, session, commands, Pane) {
  listening_.push_back(Editor.FullScreenWanted.Listen([this] { Photo.FullScreenMethod(); }));
  listening_.push_back(
      Editor.StylesToggled.Listen([this](bool visible) { Styles.ShowHideStyles(visible); }));
}

}  // namespace brivolant
