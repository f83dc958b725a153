// SPDX-License-Identifier: MIT
#include "app/edit/StyleMenuController.h"

#include <QPoint>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/edit/EditorPane.h"
#include "app/edit/OneClickEditor.h"
#include "app/edit/StylesController.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "files/FolderitemExtensions.h"
#include "formats/DocumentParts.h"
#include "kit/DesktopServices.h"
#include "kit/templateSelector.h"
#include "platform/values/SharedComponents.h"

namespace brivolant {

StyleMenuController::StyleMenuController(const Desk& desk, EditSession& session, Commands& commands,
                                         Panes& panes, EditorPane& pane, StylesController& styles)
    : desk_(desk), session_(session), panes_(panes), styles_(styles), bar_(*pane.myStylesBar) {
  PresentMenu = PopUpMenu;
  bar_.ContextMenu = [this](int index, const QPoint& at) { StyleMenu(index, at); };
  commands.Add({{"FileSaveStyleAs", &Menus::kFileSaveStyleAs, "", kInEditor,
                 [this] { SaveStyleAs(); }, [this] { return session_.Document() != nullptr; }}});
}

void StyleMenuController::StyleMenu(int index, const QPoint& at) {
  const EditSession::Hold hold(session_);
  const auto style = desk_.Styles.item(index);
  if (style == nullptr) return;
  if (style->Locked()) return TellLocked(*style);
  MenuItem menu;
  menu.Children.push_back(
      otherSharedComponents::createMenuItem(kEditStyle.Text(), "EDIT", {}, false, true));
  menu.Children.push_back(otherSharedComponents::createMenuItem("-", {}, {}, false, true));
  menu.Children.push_back(
      otherSharedComponents::createMenuItem(kShareStyle.Text(), "SHARE", {}, false, true));
  menu.Children.push_back(otherSharedComponents::createMenuItem("-", {}, {}, false, true));
  menu.Children.push_back(
      otherSharedComponents::createMenuItem(kRemove.Text(), "REMOVE", {}, false, true));
  const auto chosen = PresentMenu(menu, at.x(), at.y());
  if (!chosen) return;
  const std::string& tag = menu.Children.at(static_cast<std::size_t>(*chosen)).Tag;
  if (tag == "EDIT") {
    if (oneClickEditor(desk_, &panes_.Window()).edit1Click(*style, {})) styles_.updateStylesList();
  } else if (tag == "SHARE") {
    if (!desk_.SendViaEmail(style->File, keMail1ClickMessage.Text())) {
      desk_.Services.Dialogs.Message(kNoMailProgram.Text(), {});
    }
  } else if (tag == "REMOVE") {
    RemoveStyle(style);
  }
}

void StyleMenuController::TellLocked(const OneClickWonder& style) {
  const auto named = [&](const LocalizedText& text) {
    return WithPlaceholders(text.Text(), {{"<filename>", style.Name()}});
  };
  const Question question{named(kLocked1ClickMessage),
                          named(kLocked1ClickExplaination),
                          kShowInFinder.Text(),
                          kCancel.Text(),
                          {}};
  if (desk_.Services.Dialogs.Ask(question) == Answer::kAction) {
    (void)FolderitemExtensions::Reveal(style.File, desk_.Desktop);
  }
}

void StyleMenuController::RemoveStyle(const std::shared_ptr<OneClickWonder>& style) {
  const Question question{
      WithPlaceholders(kDelete1ClickMessage.Text(), {{"<filename>", style->Name()}}),
      kDelete1ClickExplaination.Text(),
      kRemove.Text(),
      kCancel.Text(),
      {}};
  if (desk_.Services.Dialogs.Ask(question) != Answer::kAction) return;
  if (!FolderitemExtensions::MoveToTrash(style->File)) {
    desk_.Services.Dialogs.Message(WithPlaceholders(documentTexts::kCannotReplace.Text(),
                                                    {{"<filename>", style->File.DisplayName()}}),
                                   {});
    return;
  }
  // While the menu and the question were open, other styles may have come and gone.
  for (int index = 0; index < desk_.Styles.Count(); ++index) {
    if (desk_.Styles.item(index) == style) {
      bar_.Remove(index);
      break;
    }
  }
  desk_.Styles.Remove(*style);
  session_.SelectStyle(bar_.SelectedItem < 0 ? -1 : styles_.SelectionOf(bar_.SelectedItem));
}

void StyleMenuController::SaveStyleAs() {
  if (session_.Document() == nullptr) return;
  const EditSession::Hold hold(session_);
  styles_.LoadStyles();
  auto style = std::make_shared<OneClickWonder>(desk_.Services);
  style->Creator = desk_.Services.UserDetails.FullName();
  style->ContactLink = desk_.Services.UserDetails.ContactLink();
  style->StyleData = session_.Processor().StyleData();
  style->Category = OneClickWonderStorage::kUsersCategory;
  if (!oneClickEditor(desk_, &panes_.Window())
           .edit1Click(*style, oneClickEditor::kTitleCreateOneClickWonder.Text())) {
    return;
  }
  (void)desk_.Styles.Add(style);
  styles_.ShowStyle(*style);
  for (int i = 0; i < bar_.Count(); ++i) {
    if (bar_.Item(i).Tag == style->ID) session_.SelectStyle(styles_.SelectionOf(i));
  }
  bar_.ScrollTo(bar_.SelectedItem);
  bar_.update();
}

}  // namespace brivolant
