// SPDX-License-Identifier: MIT
#include "app/browse/BrowserPane.h"

#include <QHBoxLayout>
#include <QSplitter>
#include <QVBoxLayout>

#include "app/browse/OwnPreviews.h"
#include "app/commands/Menus.h"
#include "browser/PhotoFactsCache.h"
#include "browser/ui/Sidebar.h"
#include "formats/FileTypes.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkPathBar.h"
#include "kit/ifkSearchField.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"

namespace brivolant {
namespace {

using ItemPointer = std::shared_ptr<browserItem>;

constexpr int kSideBarWidth = 200;
constexpr int kMargin = 8;

}  // namespace

BrowserPane::BrowserPane(QWidget* stage) {
  BrowserSeat = new QWidget(stage);
  BrowserSeat->setAutoFillBackground(true);
  auto* whole = new QVBoxLayout(BrowserSeat);
  whole->setContentsMargins(0, 0, 0, 0);
  auto* split = new QSplitter(Qt::Horizontal, BrowserSeat);
  split->setHandleWidth(1);
  split->setChildrenCollapsible(false);
  whole->addWidget(split);
  mySideBar = new Sidebar(split);
  mySideBar->setMinimumWidth(140);
  auto* part = new QWidget(split);
  BuildBar(part);
  imageBrowser = new multiViewFileBrowser(NewThumbnailMaker(), NewFilePreviewer(), part);
  imageBrowser->Facts = std::make_shared<PhotoFactsCache>(PhotoFactsCache::DefaultFile());
  imageBrowser->DocumentExtension =
      std::string(InternalFileTypes::BrivolantPhotosDocument.Extensions);
  Column->addWidget(imageBrowser, 1);
  split->setStretchFactor(0, 0);
  split->setStretchFactor(1, 1);
  split->setSizes({kSideBarWidth, 1000});
}

void BrowserPane::BuildBar(QWidget* part) {
  Column = new QVBoxLayout(part);
  Column->setContentsMargins(0, 0, 0, 0);
  Column->setSpacing(0);
  auto* bar = new QHBoxLayout;
  bar->setContentsMargins(0, 2, kMargin, 2);
  bar->setSpacing(kMargin);
  myPathBar = new ifkPathBar(part);
  browserViewStyle = new ifkSegmentView(part);
  browserViewStyle->AddSegment({}, SvgIcon(QStringLiteral("ViewIcons")), 0).ToolTip =
      Shown(Menus::kViewAsIcons);
  browserViewStyle->AddSegment({}, SvgIcon(QStringLiteral("ViewList")), 1).ToolTip =
      Shown(Menus::kViewAsList);
  browserViewStyle->AddSegment({}, SvgIcon(QStringLiteral("ViewColumns")), 2).ToolTip =
      Shown(Menus::kViewAsColumns);
  browserViewStyle->setFixedSize(120, 28);
  iconSize = new ifkSlider(part);
  iconSize->setFixedSize(112, 24);
  iconSize->setAccessibleName(Shown(kIconSize));
  iconSize->setToolTip(Shown(kIconSize));
  browserSearchField = new ifkSearchField(part);
  browserSearchField->setFixedWidth(196);
  bar->addWidget(myPathBar, 1);
  bar->addWidget(iconSize);
  bar->addWidget(browserViewStyle);
  bar->addWidget(browserSearchField);
  Column->addLayout(bar);
}

std::vector<FolderItem> BrowserPane::SelectedFiles() const {
  std::vector<FolderItem> files;
  for (const BrowserPayload& payload : imageBrowser->SelectedItems()) {
    FolderItem file;
    if (const auto* item = std::get_if<ItemPointer>(&payload)) file = (*item)->File();
    if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) {
      file = (*photo)->File();
    }
    if (file) files.push_back(file);
  }
  return files;
}

}  // namespace brivolant
