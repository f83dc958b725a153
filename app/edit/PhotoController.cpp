// SPDX-License-Identifier: MIT
#include "app/edit/PhotoController.h"

#include <QScreen>
#include <QWidget>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/edit/EditorPane.h"
#include "app/session/EditSession.h"
#include "app/session/ManyEdits.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "formats/BrivolantDocument.h"

namespace brivolant {
namespace {

std::string With(const LocalizedText& word, const std::string& name) {
  return name.empty() ? word.Text() : word.Text() + " " + name;
}

}  // namespace

PhotoController::PhotoController(const Desk& desk, EditSession& session, Commands& commands,
                                 Panes& panes, EditorPane& pane)
    : desk_(desk), session_(session), panes_(panes), pane_(pane) {
  AddHistory(commands);
  AddExchange(commands);
  AddViews(commands);
  AddTurns(commands);
}

bool PhotoController::Editing() const {
  return session_.Document() != nullptr;
}

void PhotoController::EndGestures() {
  // What the mouse is drawing is an entry of its own.
  pane_.MyDisplay->EndGesture();
  pane_.AdvancedPanel->EndGesture();
}

void PhotoController::AddHistory(Commands& commands) {
  using namespace Menus;
  const auto editing = [this] { return Editing(); };
  UndoHandler& undo = session_.UndoGizmo();
  commands.Add({
      {"FileRevertToOriginal", &kFileRestoreToOriginal, "Ctrl+R", kInEditor,
       [this] { session_.PerformRewind(); }, editing},
      // The toolbar's: there is nothing to rewind in a photo that was just read.
      {"Rewind", &kFileRestoreToOriginal, "", kInEditor, [this] { session_.PerformRewind(); },
       [this] { return Editing() && session_.Rewindable(); }},
      {"EditUndo", &kEditUndo, "Ctrl+Z", kInEditor,
       [this] {
         EndGestures();
         session_.Undo();
       },
       [&undo, editing] { return editing() && undo.UndoAvailable(); }, nullptr,
       [&undo] { return With(kEditUndo, undo.UndoName()); }},
      {"EditRedo", &kEditRedo, "Ctrl+Shift+Z", kInEditor,
       [this] {
         EndGestures();
         session_.Redo();
       },
       [&undo, editing] { return editing() && undo.RedoAvailable(); }, nullptr,
       [&undo] { return With(kEditRedo, undo.RedoName()); }},
  });
}

void PhotoController::AddExchange(Commands& commands) {
  using namespace Menus;
  const auto editing = [this] { return Editing(); };
  commands.Add({
      {"EditCopy", &kEditCopy, "Ctrl+C", kInEditor, [this] { CopyPicture(); }, editing},
      {"EditCopyStyle", &kEditCopyStyle, "Ctrl+Alt+C", kInEditor, [this] { CopyStyle(); }, editing},
      {"EditPaste", &kEditPaste, "Ctrl+V", kInEditor,
       [this] { session_.PastePicture(desk_.Clipboard.PastedPicture()); },
       [this] { return Editing() && desk_.Clipboard.HasPicture(); }},
      {"EditPasteStyle", &kEditPasteStyle, "Ctrl+Alt+V", kInEditor,
       [this] { session_.PasteStyle(desk_.Clipboard.Data(CopiedEdits::kStyleType)); },
       [this] { return Editing() && desk_.Clipboard.Has(CopiedEdits::kStyleType); }},
      {"EditClearStyle", &kEditClearStyle, "", kInEditor, [this] { session_.ClearStyle(); },
       editing},
      {"FileApplyLastStyle", &kFileApplyLastStyle, "Ctrl+Shift+R", kInEditor,
       [this] { session_.ApplyLastStyle(); },
       [this] { return Editing() && !session_.LastStyle().empty(); }},
  });
}

void PhotoController::CopyPicture() {
  session_.WhenRendered([this] {
    if (!Editing()) return;
    desk_.Clipboard.Picture(
        SharedPictureEffects::Clone(session_.Document()->PreviewAfter, 24, false));
  });
}

void PhotoController::CopyStyle() {
  session_.Copied = std::make_shared<const CopiedEdits>(session_.Edits());
  desk_.Clipboard.Set({}, CopiedEdits::kStyleType, session_.Copied->StyleData);
}

void PhotoController::AddViews(Commands& commands) {
  using namespace Menus;
  const auto editing = [this] { return Editing(); };
  EditorDisplay& display = *pane_.MyDisplay;
  commands.Add({
      {"ViewBeforeAfter", &kViewBeforeAndAfter, "Ctrl+Shift+B", kInEditor,
       [&display] {
         display.ShowBefore = !display.ShowBefore;
         display.Update(true);
       },
       editing, [&display] { return display.ShowBefore; }},
      {"ViewFullScreen", &kViewFullScreenPicture, "F11", kInEditor, [this] { FullScreenMethod(); },
       editing},
  });
}

void PhotoController::AddTurns(Commands& commands) {
  using namespace Menus;
  struct Turn {
    const char* name;
    const LocalizedText& text;
    const char* shortcut;
    int BrivolantDocument::*field;
    int value;
  };
  for (const Turn& turn :
       {Turn{"RotateAndFlipRotate90", kRotateAndFlipRotate90, "Ctrl+]",
             &BrivolantDocument::Rotation, 1},
        {"RotateAndFlipRotate180", kRotateAndFlipRotate180, "", &BrivolantDocument::Rotation, 2},
        {"RotateAndFlipRotate270", kRotateAndFlipRotate270, "Ctrl+[", &BrivolantDocument::Rotation,
         3},
        {"EditChangeOrientationTo", kEditChangeOrientation, "", &BrivolantDocument::Orientation, 1},
        {"RotateAndFlipFlipHorizontally", kRotateAndFlipFlipHorizontally, "",
         &BrivolantDocument::Flip, 1},
        {"RotateAndFlipFlipVertially", kRotateAndFlipFlipVertically, "", &BrivolantDocument::Flip,
         2}}) {
    commands.Add({{turn.name, &turn.text, turn.shortcut, kInEditor,
                   [this, field = turn.field, value = turn.value] { session_.Turn(field, value); },
                   [this] { return Editing(); },
                   [this, field = turn.field, value = turn.value] {
                     const BrivolantDocument* document = session_.Document();
                     return document != nullptr && document->*field == value;
                   }}});
  }
}

void PhotoController::FullScreenMethod() {
  if (!Editing() || session_.Busy() || session_.HalfDone) return;
  const QScreen* on = panes_.Window().screen();
  const QSize pixels = on->size() * on->devicePixelRatio();
  session_.RenderFor(pixels.width(), pixels.height(),
                     [this, name = session_.Document()->Name](const Picture& picture) {
                       FullScreenReady(picture, name);
                     });
}

}  // namespace brivolant
