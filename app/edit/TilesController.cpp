// SPDX-License-Identifier: MIT
#include "app/edit/TilesController.h"

#include <algorithm>
#include <cmath>

#include "app/edit/EditorPane.h"
#include "app/edit/StylePreviews.h"
#include "app/edit/StyleTiles.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "engine/ui/EditorDisplay.h"
#include "formats/BrivolantDocument.h"
#include "kit/DesktopServices.h"
#include "kit/templateSelector.h"

namespace brivolant {
namespace {

/// A tile is rendered so many times as large and shrunk: what works in single pixels, such as
/// sharpening, would overdo it at the tile's own size.
constexpr int kTileDetail = 2;

}  // namespace

TilesController::TilesController(const Desk& desk, EditSession& session, EditorPane& pane)
    : desk_(desk),
      session_(session),
      pane_(pane),
      bar_(*pane.myStylesBar),
      previews_(std::make_unique<StylePreviews>()),
      tiles_(std::make_unique<StyleTiles>()),
      hoverTile_(std::make_unique<StyleTiles>()) {
  bar_.Hovered = [this](int index) { HoverStyle(index); };
  bar_.Scrolled = [this] { OrderTiles(); };
  previews_->Ready = [this](const std::string& id, const Picture& preview) {
    PreviewReady(id, preview);
  };
  tiles_->Ready = [this](const std::string& id, const Picture& tile) { TileReady(id, tile); };
  hoverTile_->Ready = [this](const std::string& id, const Picture& shown) {
    if (id == hoverID_) pane_.MyDisplay->ShowInstead(shown);
  };
  listening_ = session_.Rendered.Listen([this] {
    // A new preview is what is to be seen now, wherever the pointer rests.
    HoverStyle(-1);
    RefreshTiles();
  });
}

TilesController::~TilesController() = default;

void TilesController::Show(const std::string& id, const QImage& picture) {
  for (int i = 0; i < bar_.Count(); ++i) {
    if (bar_.Item(i).Tag == id) bar_.Preview(i, picture);
  }
}

void TilesController::PreviewReady(const std::string& id, const Picture& preview) {
  if (preview.IsNil()) return;
  for (const auto& style : desk_.Styles.Wonders()) {
    if (style->ID == id) style->PreviewDecoded(preview);
  }
  if (!readyTiles_.contains(id)) Show(id, ImageFromPicture(preview));
}

void TilesController::TileReady(const std::string& id, const Picture& tile) {
  QImage image = ImageFromPicture(
      SharedPictureEffects::Scale(tile, TileSide(), TileSide(), SharedPictureEffects::kScaleToFit));
  image.setDevicePixelRatio(bar_.devicePixelRatioF());
  readyTiles_[id] = image;
  Show(id, image);
}

QImage TilesController::PictureOf(const OneClickWonder& style) {
  const auto ready = readyTiles_.find(style.ID);
  if (ready != readyTiles_.end()) return ready->second;
  if (style.PreviewIsDecoded()) return ImageFromPicture(style.Preview());
  previews_->Decode(style);
  return {};
}

int TilesController::TileSide() const {
  return static_cast<int>(std::lround(templateSelector::kPicture * bar_.devicePixelRatioF()));
}

double TilesController::ScaleOf(BrivolantDocument& document, const Picture& reduced) {
  return brivolantProcessorLite::PreviewScale(document.ImageOriginal(), document.Geometry(),
                                              reduced);
}

void TilesController::RefreshTiles() {
  if (session_.Document() == nullptr) return tiles_->Photo({}, 1, {});
  BrivolantDocument& document = *session_.Document();
  const Picture& base = document.PreviewBase;
  PastedFiles pasted = document.PastedImages();
  if (base.IsNil() || (base.SharesPixelsWith(tilesOf_) && pasted == tilesPasted_)) return;
  tilesOf_ = base;
  tilesPasted_ = pasted;
  readyTiles_.clear();
  const int side = kTileDetail * TileSide();
  const Picture small =
      SharedPictureEffects::Scale(base, side, side, SharedPictureEffects::kScaleToFit);
  tiles_->Photo(small, ScaleOf(document, small), std::move(pasted));
  OrderTiles();
}

void TilesController::OrderTiles() {
  if (session_.Document() == nullptr || !bar_.isVisible()) return;
  const auto [first, last] = bar_.Visible();
  std::vector<StyleTiles::Order> orders;
  const OneClickWonderStorage& store = desk_.Styles;
  const auto order = [&](int from, int to) {
    for (int i = std::max(from, 0); i <= std::min(to, bar_.Count() - 1); ++i) {
      const auto style = store.item(i);
      if (style != nullptr) orders.push_back({style->ID, style->StyleData});
    }
  };
  // What is in view, then what a turn of the wheel brings, then the rest.
  order(first, last);
  order(last + 1, bar_.Count() - 1);
  order(0, first - 1);
  tiles_->Render(orders);
}

void TilesController::HoverStyle(int index) {
  hoverID_.clear();
  const auto style = index < 0 ? nullptr : desk_.Styles.item(index);
  if (session_.Document() == nullptr || style == nullptr || session_.HalfDone || session_.Busy()) {
    pane_.MyDisplay->ShowInstead({});
    return;
  }
  hoverID_ = style->ID;
  BrivolantDocument& document = *session_.Document();
  hoverTile_->Photo(document.PreviewBase, ScaleOf(document, document.PreviewBase),
                    document.PastedImages());
  hoverTile_->Render({{style->ID, style->StyleData}});
}

}  // namespace brivolant
