// SPDX-License-Identifier: MIT
// The rows by which edits go to many.
#include "app/browse/EditsController.h"

#include <QMenu>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "kit/InterfaceKitSupport.h"

namespace brivolant {

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
