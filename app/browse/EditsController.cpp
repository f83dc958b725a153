// SPDX-License-Identifier: MIT
#include "app/browse/EditsController.h"

#include <QMenu>
#include <QTimer>
#include <algorithm>

#include "app/browse/BrowserPane.h"
#include "app/browse/PasteEditsSheet.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/session/EditSession.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "kit/InterfaceKitSupport.h"

namespace brivolant {
namespace {

/// The kinds of more files are not looked up at every key.
constexpr int kMostLooked = 16;

bool TakesEdits(const FolderItem& file) {
  return BrivolantDocument::IsDocument(file) || FolderitemExtensions::NamesPicture(file.Name());
}

}  // namespace

EditsController::EditsController(const Desk& desk, EditSession& session, Commands& commands,
                                 BrowserPane& pane, FileHistory& history)
    : desk_(desk),
      session_(session),
      commands_(commands),
      pane_(pane),
      giver_(desk, session, pane, history) {
  AddCommands(commands);
}

EditsController::~EditsController() {
  delete sheet_.data();
}

void EditsController::AddCommands(Commands& commands) {
  using namespace Menus;
  commands.Add({
      {"EditCopyStyle", &kEditCopyEdits, "", kInBrowser, [this] { CopyEdits(); },
       [this] { return DocumentSelected() && !giver_.Work().Busy(); }},
      {"EditPasteStyle", &kEditPasteEdits, "", kInBrowser, [this] { PasteEdits(); },
       [this] { return desk_.Clipboard.Has(CopiedEdits::kStyleType) && PhotosSelected(); }},
      {"EditApplyStyle", &kEditApplyStyle, "", kInBrowser, nullptr,
       [this] { return PhotosSelected(); }},
  });
}

std::vector<FolderItem> EditsController::Photos() const {
  std::vector<FolderItem> photos = pane_.SelectedFiles();
  std::erase_if(photos, [](const FolderItem& file) { return !TakesEdits(file); });
  return photos;
}

bool EditsController::PhotosSelected() const {
  const std::vector<FolderItem> files = pane_.SelectedFiles();
  const auto looked = files.begin() + std::min<std::ptrdiff_t>(std::ssize(files), kMostLooked);
  return std::ssize(files) > kMostLooked || std::any_of(files.begin(), looked, TakesEdits);
}

FolderItem EditsController::DocumentSelected() const {
  if (pane_.imageBrowser->SelectedCount() != 1) return {};
  const std::vector<FolderItem> files = pane_.SelectedFiles();
  return files.size() == 1 && BrivolantDocument::IsDocument(files.front()) ? files.front()
                                                                           : FolderItem();
}

// Copying.

void EditsController::Keep(CopiedEdits edits) {
  desk_.Clipboard.Set({}, CopiedEdits::kStyleType, edits.StyleData);
  session_.Copied = std::make_shared<const CopiedEdits>(std::move(edits));
  commands_.Changed();
}

void EditsController::CopyEdits() {
  const FolderItem file = DocumentSelected();
  if (!file) return;
  // As they are in the editor, saved or not.
  if (session_.LiesIn(file)) return Keep(session_.Edits());
  const auto edits = std::make_shared<CopiedEdits>();
  const auto failed = std::make_shared<std::vector<ManyEdits::Failure>>();
  giver_.Work().Start({{},
                       false,
                       [this, file, edits, failed](Jobs::Control&) {
                         BrivolantDocument document(giver_.Worker().All());
                         if (!document.Load(file)) {
                           failed->push_back({file, document.lastErrorMessage});
                           return;
                         }
                         document.HoldFiles();
                         *edits = CopiedEdits::Of(document, document.StyleData);
                       },
                       [this, edits, failed](Jobs::End end, const std::string&) {
                         for (const WorkerServices::Told& told : giver_.Worker().Take()) {
                           desk_.Services.Dialogs.Message(told.Message, told.Explanation);
                         }
                         if (!failed->empty() && !failed->front().Why.empty()) {
                           desk_.Services.Dialogs.Message(failed->front().Why,
                                                          failed->front().Item.DisplayName());
                         }
                         if (end == Jobs::End::kDone && failed->empty()) Keep(std::move(*edits));
                       }});
}

CopiedEdits EditsController::OnClipboard() const {
  CopiedEdits edits;
  edits.StyleData = desk_.Clipboard.Data(CopiedEdits::kStyleType);
  // What another program's clipboard or an earlier run left has neither pictures nor a crop.
  const auto& copied = session_.Copied;
  return copied && copied->StyleData == edits.StyleData ? *copied : edits;
}

// Pasting.

void EditsController::PasteEdits() {
  AskAndGive(OnClipboard());
}

void EditsController::ApplyStyle(const OneClickWonder& style) {
  CopiedEdits edits;
  edits.Name = style.Name();
  edits.StyleData = style.StyleData;
  AskAndGive(std::move(edits));
}

PasteEditsSheet* EditsController::Sheet() const {
  return static_cast<PasteEditsSheet*>(sheet_.data());
}

void EditsController::AskAndGive(CopiedEdits edits) {
  ManyEdits::Order order;
  order.Items = Photos();
  order.Edits = std::move(edits);
  if (order.Items.empty() || order.Edits.StyleData.empty()) return;
  delete sheet_.data();
  auto* sheet = new PasteEditsSheet(*pane_.imageBrowser->window(), order, desk_.Preferences);
  sheet_ = sheet;
  // The sheet has closed before the next question opens.
  sheet->Accepted = [this](const ManyEdits::Order& chosen) {
    QTimer::singleShot(0, pane_.imageBrowser, [this, chosen] { giver_.Give(chosen); });
  };
  sheet->open();
}

// The rows by which edits go to many.

void EditsController::StyleMenu(QMenu& menu) {
  QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this, &menu] {
    menu.clear();
    desk_.Styles.Load();
    std::vector<QMenu*> categories;
    categories.reserve(OneClickWonderStorage::CategoryName.size());
    for (const LocalizedText& name : OneClickWonderStorage::CategoryName) {
      categories.push_back(menu.addMenu(Shown(name)));
    }
    for (const auto& style : desk_.Styles.Wonders()) {
      if (style->Category < 0 || style->Category >= std::ssize(categories)) continue;
      QString name = ToQString(style->Name());
      name.replace(QLatin1Char('&'), QStringLiteral("&&"));
      QMenu& category = *categories[static_cast<std::size_t>(style->Category)];
      QObject::connect(category.addAction(name), &QAction::triggered, &menu,
                       [this, style] { ApplyStyle(*style); });
    }
    for (QMenu* category : categories) category->menuAction()->setVisible(!category->isEmpty());
  });
}

void EditsController::AddRows(QMenu& menu) {
  if (!PhotosSelected()) return;
  menu.addSeparator();
  for (const char* name : {"EditCopyStyle", "EditPasteStyle"}) {
    QAction& action = commands_.Action(name);
    if (action.isEnabled()) menu.addAction(&action);
  }
  StyleMenu(*menu.addMenu(Shown(Menus::kEditApplyStyle)));
}

}  // namespace brivolant
