// SPDX-License-Identifier: MIT
#include "app/commands/ToolButtons.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/core/GlobalApplicationSpecificProperties.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"

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
constexpr LocalizedText kInfo{"ToolButtons.kInfo", "Get Info"};
constexpr LocalizedText kInfoHelp{"ToolButtons.kInfoHelp",
                                  "Displays information about the selected file."};
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

constexpr const char* kCopyMenu[] = {"EditCopy", "EditCopyStyle", nullptr, "EditPasteStyle"};
constexpr const char* kRotateMenu[] = {
    "RotateAndFlipRotate90",         "RotateAndFlipRotate180",
    "RotateAndFlipRotate270",        nullptr,
    "EditChangeOrientationTo",       nullptr,
    "RotateAndFlipFlipHorizontally", "RotateAndFlipFlipVertially"};
constexpr const char* kMakerMenu[] = {"HelpappNameWebPage"};

constexpr int kGap = 16;

void AddSpace(QToolBar& toolbar, bool flexible) {
  auto* filler = new QWidget(&toolbar);
  filler->setSizePolicy(flexible ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                        QSizePolicy::Preferred);
  if (!flexible) filler->setFixedWidth(kGap);
  toolbar.addWidget(filler)->setEnabled(false);
}

/// A button shows whether its command can be given, and its mark.
void Mirror(QAction& button, QAction& command, bool marked) {
  const auto mirror = [&button, &command, marked] {
    button.setEnabled(command.isEnabled());
    button.setCheckable(marked && command.isCheckable());
    button.setChecked(command.isChecked());
  };
  mirror();
  QObject::connect(&command, &QAction::changed, &button, mirror);
}

void AddMenu(QToolButton& button, const ToolItem& item, Commands& commands) {
  auto* popup = new QMenu(&button);
  for (const char* name : item.Menu) {
    if (name == nullptr) {
      popup->addSeparator();
    } else {
      popup->addAction(&commands.Action(name));
    }
  }
  QObject::connect(popup, &QMenu::aboutToShow, [&commands] { commands.RefreshForMenu(); });
  button.setMenu(popup);
  button.setPopupMode(item.Command == nullptr ? QToolButton::InstantPopup
                                              : QToolButton::MenuButtonPopup);
}

void Add(QToolBar& toolbar, const ToolItem& item, Commands& commands) {
  QString caption = ToQString(item.Caption->Text());
  caption.remove(QLatin1Char('&'));
  QAction* action = toolbar.addAction(SvgIcon(QString::fromLatin1(item.Icon)), caption);
  action->setObjectName(QString::fromLatin1(item.Identifier));
  action->setToolTip(item.HelpTag == nullptr ? caption : Shown(*item.HelpTag));
  const bool menuOnly = item.Command == nullptr;
  Mirror(*action, commands.Action(menuOnly ? item.Menu.front() : item.Command), !menuOnly);
  auto* button = qobject_cast<QToolButton*>(toolbar.widgetForAction(action));
  button->setFocusPolicy(Qt::TabFocus);
  button->setAccessibleName(caption);
  if (!item.Menu.empty()) AddMenu(*button, item, commands);
  if (menuOnly) return;
  QObject::connect(action, &QAction::triggered, [&commands, action, name = item.Command] {
    commands.Run(name);
    // The click has put a mark of its own.
    action->setChecked(commands.Action(name).isChecked());
  });
}

}  // namespace

const ToolItem& Browser() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.backToBrowser", &kBrowser,
                                 &kBrowserHelp, "BacktoBrowser", "ViewBrowseMyPhotos"};
  return item;
}
const ToolItem& Editor() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.openInEditor", &kEditor,
                                 &kEditorHelp, "ReturnEditor", "ViewBrowseMyPhotos"};
  return item;
}
const ToolItem& Open() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.open", &kOpen, &kOpenHelp, "Open",
                                 "FileOpen"};
  return item;
}
const ToolItem& QuickLook() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.QuickLook", &Menus::kQuickLook,
                                 &kQuickLookHelp, "QuickLook", "FileQuickLook"};
  return item;
}
const ToolItem& Info() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.getInfo", &kInfo, &kInfoHelp,
                                 "info", "FileGetInfo"};
  return item;
}
const ToolItem& FavoritesAdd() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.favoritesAdd",
                                 &Menus::kFileAddToFavorites, &kFavoritesAddHelp, "Favorites",
                                 "FileAddToFavorites"};
  return item;
}
const ToolItem& Save() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.save", &kSave, &kSaveHelp, "Save",
                                 "FileSave"};
  return item;
}
const ToolItem& SaveCopy() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.saveCopy", &kSaveCopy,
                                 &kSaveCopyHelp, "SaveCopy", "FileSaveACopyAs"};
  return item;
}
const ToolItem& Copy() {
  static constexpr ToolItem item{
      "com.quillmere.brivolantPhotos.copy", &kCopy, &kCopyHelp, "Copy", "EditCopy", kCopyMenu};
  return item;
}
const ToolItem& Rewind() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.Rewind",
                                 &Menus::kFileRestoreToOriginal,
                                 &Menus::kFileRestoreToOriginalBalloonHelp, "Rewind", "Rewind"};
  return item;
}
const ToolItem& Crop() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.crop", &kCrop, &kCropHelp, "Crop",
                                 "EditCrop"};
  return item;
}
const ToolItem& Rotate() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.rotate",
                                 &kRotate,
                                 &kRotateHelp,
                                 "Rotate",
                                 nullptr,
                                 kRotateMenu};
  return item;
}
const ToolItem& Undo() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhtotos.undo", &Menus::kEditUndo,
                                 &kUndoHelp, "Undo", "EditUndo"};
  return item;
}
const ToolItem& BeforeAfter() {
  static constexpr ToolItem item{"com.quillmere.brivolantPhotos.beforeAfter", &kBeforeAfter,
                                 &kBeforeAfterHelp, "BeforeAfter", "ViewBeforeAfter"};
  return item;
}
const ToolItem& Quillmere() {
  static constexpr ToolItem item{
      "TempHolder", &GlobalApplicationSpecificProperties::ApplicationPublisherName,
      nullptr,      "Quillmere",
      nullptr,      kMakerMenu};
  return item;
}

void Build(QToolBar& toolbar, int mode, bool document, Commands& commands) {
  // What the toolbar has made itself it does not take away; a button may be asking for this.
  for (QAction* action : toolbar.actions()) {
    toolbar.removeAction(action);
    action->deleteLater();
  }
  const auto add = [&](std::initializer_list<const ToolItem*> items) {
    for (const ToolItem* item : items) Add(toolbar, *item, commands);
  };
  if (mode == kEditorPane) {
    add({&Browser()});
    AddSpace(toolbar, true);
    add({&Save(), &SaveCopy(), &Copy(), &Rewind(), &Undo()});
    AddSpace(toolbar, false);
    add({&BeforeAfter(), &Rotate(), &Crop()});
    AddSpace(toolbar, true);
    add({&Quillmere()});
    return;
  }
  add({&Quillmere()});
  AddSpace(toolbar, true);
  add({&Open(), &QuickLook(), &Info(), &FavoritesAdd()});
  AddSpace(toolbar, true);
  if (!document) return;
  add({&Editor()});
  AddSpace(toolbar, false);
}

QAction* itemViaIdentifier(const QToolBar& toolbar, const char* identifier) {
  for (QAction* action : toolbar.actions()) {
    if (action->objectName() == QLatin1String(identifier)) return action;
  }
  return nullptr;
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
