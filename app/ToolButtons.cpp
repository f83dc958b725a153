// SPDX-License-Identifier: MIT
#include "app/ToolButtons.h"

#include <QAction>
#include <QToolBar>

#include "app/Menus.h"
#include "app/core/GlobalApplicationSpecificProperties.h"

namespace brivolant::ToolButtons {
namespace {

constexpr LocalizedText kBrowser{"ToolButtons.kBrowser", "Back To Browser"};
constexpr LocalizedText kBrowserHelp{"ToolButtons.kBrowserHelp",
                                     "Return to browser to find images"};
constexpr LocalizedText kEditor{"ToolButtons.kEditor", "Return To Editor"};
constexpr LocalizedText kEditorHelp{
    "ToolButtons.kEditorHelp",
    "Opens the selected images in the editor, where effects can be applied to the photo."};
constexpr LocalizedText kOpen{"ToolButtons.kOpen", "Open"};
constexpr LocalizedText kOpenHelp{"ToolButtons.kOpenHelp", "Choose a photo to edit."};
constexpr LocalizedText kFavoritesAddHelp{"ToolButtons.kFavoritesAddHelp",
                                          "Adds the selected files/folders to your favorites."};
constexpr LocalizedText kQuickLookHelp{"ToolButtons.kQuickLookHelp",
                                       "Open the picture for a bigger look than the file browser."};
constexpr LocalizedText kSave{"ToolButtons.kSave", "Save"};
constexpr LocalizedText kSaveHelp{"ToolButtons.kSaveHelp",
                                  "Save the picture with the changes that have been made."};
constexpr LocalizedText kSaveCopy{"ToolButtons.kSaveCopy", "Save Copy"};
constexpr LocalizedText kSaveCopyHelp{"ToolButtons.kSaveCopyHelp",
                                      "Writes the finished picture as an image file."};
constexpr LocalizedText kCopy{"ToolButtons.kCopy", "Copy"};
constexpr LocalizedText kCopyHelp{
    "ToolButtons.kCopyHelp",
    "Copies the image as it is to the clipboard for use with other applications."};
constexpr LocalizedText kCrop{"ToolButtons.kCrop", "Crop"};
constexpr LocalizedText kCropHelp{
    "ToolButtons.kCropHelp",
    "Trim the fat from the picture to focus in or change the aspect ratio."};
constexpr LocalizedText kRotate{"ToolButtons.kRotate", "Rotate"};
constexpr LocalizedText kRotateHelp{"ToolButtons.kRotateHelp", "Rotate or Flip the whole image"};
constexpr LocalizedText kUndoHelp{"ToolButtons.kUndoHelp",
                                  "Undoes the last action you performed if available"};
constexpr LocalizedText kBeforeAfterHelp{"ToolButtons.kBeforeAfterHelp",
                                         "Shows the photo beside itself before the changes."};
constexpr LocalizedText kBeforeAfter{"ToolButtons.kBeforeAfter", "Before"};

constexpr int kIconSize = 24;
constexpr int kSmallIconSize = 18;
constexpr const char* kSizeProperty = "displaySize";

}  // namespace

const ToolItem& Browser() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.backToBrowser",
                                 &kBrowser,
                                 &kBrowserHelp,
                                 "BacktoBrowser",
                                 kPushButton,
                                 true};
  return item;
}
const ToolItem& Editor() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.openInEditor",
                                 &kEditor,
                                 &kEditorHelp,
                                 "ReturnEditor",
                                 kPushButton,
                                 true};
  return item;
}
const ToolItem& Open() {
  static constexpr ToolItem item{
      "com.quillmere.brivolantPhotos.open", &kOpen, &kOpenHelp, "Open", kPushButton, true};
  return item;
}
const ToolItem& QuickLook() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.QuickLook",
                                 &Menus::kQuickLook,
                                 &kQuickLookHelp,
                                 "QuickLook",
                                 kPushButton,
                                 false};
  return item;
}
const ToolItem& FavoritesAdd() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.favoritesAdd",
                                 &Menus::kFileAddToFavorites,
                                 &kFavoritesAddHelp,
                                 "Favorites",
                                 kPushButton,
                                 false};
  return item;
}
const ToolItem& Save() {
  static constexpr ToolItem item{
      "com.quillmere.brivolantPhotos.save", &kSave, &kSaveHelp, "Save", kPushButton, false};
  return item;
}
const ToolItem& SaveCopy() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.saveCopy",
                                 &kSaveCopy,
                                 &kSaveCopyHelp,
                                 "SaveCopy",
                                 kPushButton,
                                 true};
  return item;
}
const ToolItem& Copy() {
  static constexpr ToolItem item{
      "com.quillmere.brivolantPhotos.copy", &kCopy, &kCopyHelp, "Copy", kButtonWithMenu, true};
  return item;
}
const ToolItem& Rewind() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.Rewind",
                                 &Menus::kFileRestoreToOriginal,
                                 &Menus::kFileRestoreToOriginalBalloonHelp,
                                 "Rewind",
                                 kPushButton,
                                 true};
  return item;
}
const ToolItem& Crop() {
  static constexpr ToolItem item{
      "com.quillmere.brivolantPhotos.crop", &kCrop, &kCropHelp, "Crop", kPushButton, true};
  return item;
}
const ToolItem& Rotate() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.rotate",
                                 &kRotate,
                                 &kRotateHelp,
                                 "Rotate",
                                 kButtonWithMenu,
                                 true};
  return item;
}
const ToolItem& Undo() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhtotos.undo",
                                 &Menus::kEditUndo,
                                 &kUndoHelp,
                                 "Undo",
                                 kPushButton,
                                 false};
  return item;
}
const ToolItem& BeforeAfter() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.beforeAfter",
                                 &kBeforeAfter,
                                 &kBeforeAfterHelp,
                                 "BeforeAfter",
                                 kPushButton,
                                 true};
  return item;
}
const ToolItem& Quillmere() {
  static constexpr ToolItem item{
      "TempHolder", &GlobalApplicationSpecificProperties::ApplicationPublisherName,
      nullptr,      "Quillmere",
      kMenuButton,  true};
  return item;
}

QAction* itemViaIdentifier(const QToolBar& toolbar, const char* identifier) {
  for (QAction* action : toolbar.actions()) {
    if (action->objectName() == QLatin1String(identifier)) return action;
  }
  return nullptr;
}

void ChangeButtonEnabled(const QToolBar& toolbar, const char* identifier, bool enabled) {
  if (QAction* action = itemViaIdentifier(toolbar, identifier)) action->setEnabled(enabled);
}

int DisplayMode(const QToolBar& toolbar) {
  switch (toolbar.toolButtonStyle()) {
    case Qt::ToolButtonIconOnly:
      return 2;
    case Qt::ToolButtonTextOnly:
      return 3;
    default:
      return 1;
  }
}

void DisplayMode(QToolBar& toolbar, int mode) {
  toolbar.setToolButtonStyle(mode == 2   ? Qt::ToolButtonIconOnly
                             : mode == 3 ? Qt::ToolButtonTextOnly
                                         : Qt::ToolButtonTextUnderIcon);
}

int DisplaySize(const QToolBar& toolbar) {
  return toolbar.property(kSizeProperty).toInt();
}

void DisplaySize(QToolBar& toolbar, int size) {
  toolbar.setProperty(kSizeProperty, size);
  const int side = size == 2 ? kSmallIconSize : kIconSize;
  toolbar.setIconSize(QSize(side, side));
  QFont font = toolbar.font();
  font.setPointSizeF(QFont().pointSizeF() * (size == 2 ? 0.8 : 0.9));
  toolbar.setFont(font);
}

}  // namespace brivolant::ToolButtons
