// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleTexture.h"

#include <algorithm>
#include <cmath>

#include "engine/pictures/BlendEffect.h"
#include "engine/pictures/ConvolutionEffect.h"
#include "formats/ImageFile.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/ScaleKernels.h"
#include "platform/services/SharedFolders.h"

namespace brivolant {
namespace {

constexpr std::string_view kEnding = ".jpg";
/// Pixels of relief around a tile, so that what looks at neighbours sees no border.
constexpr int kMargin = 3;

/// `width` by `height` pixels of the tile's repetition, and `margin` more on every side.
Picture Repeated(const Picture& tile, int width, int height, int margin) {
  const int w = tile.Width();
  const int h = tile.Height();
  Picture repeated = Picture::Uninitialized(width + 2 * margin, height + 2 * margin);
  if (repeated.IsNil()) return repeated;
  for (int y = margin % h - h; y < repeated.Height(); y += h) {
    for (int x = margin % w - w; x < repeated.Width(); x += w) {
      kernels::Compose(repeated.Edit(), tile.View(), {}, x, y);
    }
  }
  return repeated;
}

/// The size of a texture's relief in pixels of the reference.
struct ReliefSize {
  ReliefSize(int w, int h) : width(w), height(h) {}
  ReliefSize(const Picture& texture, double own)
      : width(std::max(static_cast<int>(texture.Width() * own), 1)),
        height(std::max(static_cast<int>(texture.Height() * own), 1)) {}
  int width;
  int height;
};

/// The top left `across` by `down` pixels of the relief, with kMargin pixels around.
Picture Relief(const Picture& texture, const ReliefSize& size, int across, int down) {
  // How much of the texture a pixel of the relief is made of.
  const double stepX = 1.0 * texture.Width() / size.width;
  const double stepY = 1.0 * texture.Height() / size.height;
  const int margin = static_cast<int>(kMargin * std::max(stepX, stepY)) + 2;
  const Picture around = Repeated(texture, texture.Width(), texture.Height(), margin);
  Picture scaled = Picture::Uninitialized(std::min(across, size.width) + 2 * kMargin,
                                          std::min(down, size.height) + 2 * kMargin);
  if (around.IsNil() || scaled.IsNil()) return {};
  kernels::Scale(around.View(),
                 {margin - kMargin * stepX, margin - kMargin * stepY, scaled.Width() * stepX,
                  scaled.Height() * stepY},
                 scaled.Edit());
  // Detail of single pixels would come out fainter the more it is enlarged.
  return ConvolutionEffect().Blur(ConvolutionEffect().Emboss(std::move(scaled)));
}

/// The pixels between two places that need not be whole. Those of neighbours meet.
struct Span {
  Span(double start, double end, int most)
      : from(static_cast<int>(std::lround(start))),
        length(static_cast<int>(std::lround(std::min(end, 1.0 * most))) - from) {}
  int from;
  int length;
};

/// Covers the target with the relief in tiles of that many pixels, which need not be whole: cut to
/// whole ones, the pattern would drift the further from the corner the smaller the picture is.
void LayTiles(const Picture& texture, const ReliefSize& size, double width, double height,
              Picture& target) {
  width = std::max(width, 1.0);
  height = std::max(height, 1.0);
  const double stepX = size.width / width;
  const double stepY = size.height / height;
  // Of a tile larger than the picture only what shows is made.
  Picture relief = Relief(
      texture, size, static_cast<int>(std::min(width, 1.0 * target.Width()) * stepX) + kMargin,
      static_cast<int>(std::min(height, 1.0 * target.Height()) * stepY) + kMargin);
  // Small tiles are laid many at a time.
  constexpr double kBlock = 256;
  const int across = std::max(static_cast<int>(kBlock / width), 1);
  const int down = std::max(static_cast<int>(kBlock / height), 1);
  if (across > 1 || down > 1) {
    Picture tile =
        Picture::Uninitialized(relief.Width() - 2 * kMargin, relief.Height() - 2 * kMargin);
    if (relief.IsNil() || tile.IsNil()) return;
    kernels::Compose(tile.Edit(), relief.View(), {}, -kMargin, -kMargin);
    relief = Repeated(tile, across * tile.Width(), down * tile.Height(), kMargin);
  }
  if (relief.IsNil()) return;
  width *= across;
  height *= down;
  for (int j = 0; j * height < target.Height(); ++j) {
    const Span rows(j * height, (j + 1) * height, target.Height());
    for (int i = 0; i * width < target.Width(); ++i) {
      const Span columns(i * width, (i + 1) * width, target.Width());
      if (rows.length < 1 || columns.length < 1) continue;
      Picture tile = Picture::Uninitialized(columns.length, rows.length);
      if (tile.IsNil()) return;
      kernels::Scale(
          relief.View(),
          {kMargin + (columns.from - i * width) * stepX, kMargin + (rows.from - j * height) * stepY,
           columns.length * stepX, rows.length * stepY},
          tile.Edit());
      kernels::Compose(target.Edit(), tile.View(), {}, columns.from, rows.from);
    }
  }
}

}  // namespace

EffectModuleTexture::Name::Name(EffectModuleTexture& owner)
    : Parameter<std::string>(owner, {"loadedtextureName", "", ""}),
      ControlRow(owner),
      owner_(owner) {}

EffectModuleControl EffectModuleTexture::Name::Declare() const {
  MenuItem menu;
  for (const std::string& name : owner_.Names()) {
    MenuItem& item = menu.Children.emplace_back();
    item.Text = name;
    item.Tag = name;
    for (const LocalizedText& text : kShipped) {
      if (name == text.English) item.Text = text.Text();
    }
  }
  return {kTexture.Text(), kControlMenu, std::move(menu), 0};
}

Variant EffectModuleTexture::Name::Shown() const {
  const auto& names = owner_.Names();
  const auto found = std::find(names.begin(), names.end(), Value());
  return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

void EffectModuleTexture::Name::Set(const Variant& index) {
  const int chosen = index.ToInt();
  if (chosen < 0 || chosen >= static_cast<int>(owner_.Names().size())) return;
  (void)owner_.loadtexture(owner_.Names()[static_cast<std::size_t>(chosen)]);
}

void EffectModuleTexture::DeclareMyControls() {
  myTextureFolder = otherSharedComponents::ResourcesFolder().Child("Textures");
  names_.clear();
  for (const FolderItem& file : myTextureFolder.Children()) {
    const std::string name = file.Name();
    if (name.size() > kEnding.size() && name.ends_with(kEnding)) {
      names_.push_back(name.substr(0, name.size() - kEnding.size()));
    }
  }
  std::sort(names_.begin(), names_.end());
  // Until a setting says otherwise, the last one is chosen.
  if (loadedtextureName.Value().empty() && !names_.empty()) loadedtextureName = names_.back();
  effectModule::DeclareMyControls();
}

bool EffectModuleTexture::loadtexture(const std::string& name) {
  // A name comes from a style, which may come from anyone: it must be one of the folder's.
  if (std::find(names_.begin(), names_.end(), name) == names_.end()) return false;
  if (loadedFrom_ != name || LoadedTexture.IsNil()) {
    std::string ignored;
    Picture texture = ImageIO::OpenAsPictureUsingImageIO(
        myTextureFolder.Child(name + std::string(kEnding)), ignored);
    if (texture.IsNil()) return false;
    LoadedTexture = std::move(texture);
    loadedFrom_ = name;
  }
  loadedtextureName = name;
  return true;
}

void EffectModuleTexture::ApplyEffect(Picture& picture, double scale) {
  if (loadedtextureName.Value().empty() || !loadtexture(loadedtextureName.Value())) return;
  const int w = picture.Width();
  const int h = picture.Height();
  Picture fill = Picture::Uninitialized(w, h);
  if (fill.IsNil()) return;
  // The relief is worked out at the size of the reference and enlarged with the picture: worked out
  // at full size it would be fainter in an export than in the preview.
  if (Scale == 0.0F) {
    // One tile, stretched over the picture.
    constexpr double kMost = 4096;
    const auto length = [&](int pixels) {
      return static_cast<int>(std::clamp(std::round(pixels / scale), 1.0, kMost));
    };
    LayTiles(LoadedTexture, ReliefSize(length(w), length(h)), w, h, fill);
  } else {
    const double own = std::max(std::abs(static_cast<double>(Scale)), 0.01);
    const ReliefSize size(LoadedTexture, own);
    LayTiles(LoadedTexture, size, size.width * scale, size.height * scale, fill);
  }
  if (fill.IsNil()) return;
  BlendEffect blender;
  constexpr int kHardLight = 9;
  blender.BlendMode = kHardLight;
  picture = blender.Apply(std::move(picture), fill, Strength);
}

}  // namespace brivolant
