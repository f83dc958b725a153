// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <span>

#include "platform/values/Text.h"

class QAction;
class QToolBar;

namespace brivolant {

class Commands;

/// The items of the toolbar, one accessor each, and what is done with them.
namespace ToolButtons {

/// One item of the toolbar.
struct ToolItem {
  const char* Identifier;
  const LocalizedText* Caption;
  const LocalizedText* HelpTag;
  /// Name of the drawing.
  const char* Icon;
  /// What a click does; a button shows whether it can be done. Null for a button that only opens
  /// its menu.
  const char* Command;
  /// Commands of the attached menu, null for a separator between them; its first decides for a
  /// button without a command.
  std::span<const char* const> Menu{};
};

const ToolItem& Browser();
const ToolItem& Editor();
const ToolItem& Open();
const ToolItem& QuickLook();
const ToolItem& Info();
const ToolItem& FavoritesAdd();
const ToolItem& Save();
const ToolItem& SaveCopy();
const ToolItem& Copy();
const ToolItem& Rewind();
const ToolItem& Crop();
const ToolItem& Rotate();
const ToolItem& Undo();
const ToolItem& BeforeAfter();
const ToolItem& Quillmere();

/// Fills the toolbar for a pane, a DisplayMode; `document` if there is a photo to return to.
void Build(QToolBar& toolbar, int mode, bool document, Commands& commands);
/// Null if the toolbar has no such item now.
QAction* itemViaIdentifier(const QToolBar& toolbar, const char* identifier);

/// 1 icon and text, 2 icon only, 3 text only; 0 counts as 1.
int DisplayMode(const QToolBar& toolbar);
void DisplayMode(QToolBar& toolbar, int mode);
/// 2 small, anything else normal.
int DisplaySize(const QToolBar& toolbar);
void DisplaySize(QToolBar& toolbar, int size);

}  // namespace ToolButtons
}  // namespace brivolant
