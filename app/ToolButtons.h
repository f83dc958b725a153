// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <span>

#include "platform/values/Text.h"

class QAction;
class QToolBar;

namespace brivolant {

/// The items of the toolbar, one accessor each, and what is done with them.
namespace ToolButtons {

enum ToolStyle { kPushButton = 0, kButtonWithMenu = 3, kMenuButton = 4 };

struct ToolItem {
  const char* Identifier;
  const LocalizedText* Caption;
  const LocalizedText* HelpTag;
  /// Name of the drawing.
  const char* Icon;
  int Style;
  bool Enabled;
};

const ToolItem& Browser();
const ToolItem& Editor();
const ToolItem& Open();
const ToolItem& QuickLook();
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

/// Null if the toolbar has no such item now.
QAction* itemViaIdentifier(const QToolBar& toolbar, const char* identifier);
void ChangeButtonEnabled(const QToolBar& toolbar, const char* identifier, bool enabled);

/// 1 icon and text, 2 icon only, 3 text only; 0 counts as 1.
int DisplayMode(const QToolBar& toolbar);
void DisplayMode(QToolBar& toolbar, int mode);
/// 2 small, anything else normal.
int DisplaySize(const QToolBar& toolbar);
void DisplaySize(QToolBar& toolbar, int size);

}  // namespace ToolButtons
}  // namespace brivolant
