// SPDX-License-Identifier: MIT
// The commands of the editor's pane.
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/edit/EditorController.h"
#include "app/edit/EditorPane.h"
#include "app/session/ManyEdits.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "engine/ui/EditorDisplay.h"
#include "formats/BrivolantDocument.h"

namespace brivolant {
namespace {

std::string With(const LocalizedText& word, const std::string& name) {
  return name.empty() ? word.Text() : word.Text() + " " + name;
}

}  // namespace

void EditorController::AddCommands() {
  using namespace Menus;
  const auto editing = [this] { return Editing(); };
  const auto beside = [this, editing](bool (EditSession::*also)() const) {
    return [this, editing, also] { return editing() && (session_.*also)(); };
  };
  UndoHandler& undo = session_.UndoGizmo();
  commands_.Add({
      {"FileNewFromClipboard", &kFileNewFromClipboard, "Ctrl+N", kAllPanes,
       [this] { NewFromClipboard(); }, [this] { return desk_.Clipboard.HasPicture(); }},
      {"FileOpen", &kFileOpen, "Ctrl+O", kAllPanes, [this] { ChooseAndOpen(); }},
      {"FileSave", &kFileSave, "Ctrl+S", kInEditor, [this] { SaveMethod([](bool) {}); },
       beside(&EditSession::Dirty)},
      {"FileSaveACopyAs", &kFileSaveCopyAs, "Ctrl+Shift+S", kInEditor, [this] { SaveACopyAs(); },
       editing},
      {"FileRevertToOriginal", &kFileRestoreToOriginal, "Ctrl+R", kInEditor,
       [this] { session_.PerformRewind(); }, editing},
      // The toolbar's: there is nothing to rewind in a photo that was just read.
      {"Rewind", &kFileRestoreToOriginal, "", kInEditor, [this] { session_.PerformRewind(); },
       beside(&EditSession::Rewindable)},
      {"EditUndo", &kEditUndo, "Ctrl+Z", kInEditor, [this] { session_.Undo(); },
       [&undo, editing] { return editing() && undo.UndoAvailable(); }, nullptr,
       [&undo] { return With(kEditUndo, undo.UndoName()); }},
      {"EditRedo", &kEditRedo, "Ctrl+Shift+Z", kInEditor, [this] { session_.Redo(); },
       [&undo, editing] { return editing() && undo.RedoAvailable(); }, nullptr,
       [&undo] { return With(kEditRedo, undo.RedoName()); }},
      {"EditCopy", &kEditCopy, "Ctrl+C", kInEditor,
       [this] {
         session_.WhenRendered([this] {
           if (!Editing()) return;
           desk_.Clipboard.Picture(
               SharedPictureEffects::Clone(session_.Document()->PreviewAfter, 24, false));
         });
       },
       editing},
      {"EditCopyStyle", &kEditCopyStyle, "Ctrl+Alt+C", kInEditor,
       [this] {
         session_.Copied = std::make_shared<const CopiedEdits>(session_.Edits());
         desk_.Clipboard.Set({}, CopiedEdits::kStyleType, session_.Copied->StyleData);
       },
       editing},
      {"EditPaste", &kEditPaste, "Ctrl+V", kInEditor,
       [this] { session_.PastePicture(desk_.Clipboard.Picture()); },
       [this, editing] { return editing() && desk_.Clipboard.HasPicture(); }},
      {"EditPasteStyle", &kEditPasteStyle, "Ctrl+Alt+V", kInEditor,
       [this] { session_.PasteStyle(desk_.Clipboard.Data(CopiedEdits::kStyleType)); },
       [this, editing] { return editing() && desk_.Clipboard.Has(CopiedEdits::kStyleType); }},
      {"EditClearStyle", &kEditClearStyle, "", kInEditor, [this] { session_.ClearStyle(); },
       editing},
      {"FileApplyLastStyle", &kFileApplyLastStyle, "Ctrl+Shift+R", kInEditor,
       [this] { session_.ApplyLastStyle(); },
       [this, editing] { return editing() && !session_.LastStyle().empty(); }},
      {"ViewBeforeAfter", &kViewBeforeAndAfter, "Ctrl+Shift+B", kInEditor,
       [this] {
         pane_.MyDisplay->ShowBefore = !pane_.MyDisplay->ShowBefore;
         pane_.MyDisplay->Update(true);
       },
       editing, [this] { return pane_.MyDisplay->ShowBefore; }},
      {"ViewFullScreen", &kViewFullScreenPicture, "F11", kInEditor, [this] { FullScreenMethod(); },
       editing},
      {"Viewadvanced", &kViewAdvancedOptions, "Ctrl+Shift+E", kInEditor,
       [this] { ShowHideEffects(!pane_.EffectsShown()); }, editing,
       [this] { return pane_.EffectsShown(); }},
  });
}

void EditorController::AddTurns() {
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
    commands_.Add({{turn.name, &turn.text, turn.shortcut, kInEditor,
                    [this, field = turn.field, value = turn.value] { session_.Turn(field, value); },
                    [this] { return Editing(); },
                    [this, field = turn.field, value = turn.value] {
                      const BrivolantDocument* document = session_.Document();
                      return document != nullptr && document->*field == value;
                    }}});
  }
}

}  // namespace brivolant
