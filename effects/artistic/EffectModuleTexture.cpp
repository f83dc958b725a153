// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleTexture.h"

#include <algorithm>
#include <cmath>

#include "engine/pictures/BlendEffect.h"
#include "engine/pictures/ConvolutionEffect.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/ImageFile.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/ScaleKernels.h"
#include "platform/services/SharedFolders.h"

namespace brivolant {
namespace {

constexpr std::string_view kEnding = ".jpg";
/// Pixels of relief around a tile, so that what looks at neighbours sees no border.
constexpr int kMargin = 3;

/// The tile with `margin` pixels of its repetition on every side.
Picture Repeated(const Picture& tile, int margin) {
  const int w = tile.Width();
  const int h = tile.Height();
  Picture repeated = Picture::Uninitialized(w + 2 * margin, h + 2 * margin);
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
  const Picture around = Repeated(texture, margin);
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

/// Covers the target with the relief, `enlarge` pixels for one.
void LayTiles(const Picture& texture, const ReliefSize& size, double enlarge, Picture& target) {
  const int width = std::max(static_cast<int>(size.width * enlarge), 1);
  const int height = std::max(static_cast<int>(size.height * enlarge), 1);
  // Of a tile larger than the picture only what shows is made.
  const int w = std::min(width, target.Width());
  const int h = std::min(height, target.Height());
  const double stepX = 1.0 * size.width / width;
  const double stepY = 1.0 * size.height / height;
  const Picture relief = Relief(texture, size, static_cast<int>(w * stepX) + kMargin,
                                static_cast<int>(h * stepY) + kMargin);
  Picture tile = Picture::Uninitialized(w, h);
  if (relief.IsNil() || tile.IsNil()) return;
  kernels::Scale(relief.View(), {kMargin, kMargin, w * stepX, h * stepY}, tile.Edit());
  for (int y = 0; y < target.Height(); y += height) {
    for (int x = 0; x < target.Width(); x += width) {
      kernels::Compose(target.Edit(), tile.View(), {}, x, y);
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
  Picture fill;
  if (Scale == 0.0F) {
    fill = ConvolutionEffect().Emboss(
        SharedPictureEffects::Scale(LoadedTexture, w, h, SharedPictureEffects::kScaleExactly));
  } else {
    // The relief is worked out at the size of the reference and enlarged with the picture: worked
    // out at full size it would be fainter in an export than in the preview.
    const double own = std::max(std::abs(static_cast<double>(Scale)), 0.01);
    fill = Picture::Uninitialized(w, h);
    if (fill.IsNil()) return;
    LayTiles(LoadedTexture, ReliefSize(LoadedTexture, own), scale, fill);
  }
  if (fill.IsNil()) return;
  BlendEffect blender;
  constexpr int kHardLight = 9;
  blender.BlendMode = kHardLight;
  picture = blender.Apply(std::move(picture), fill, Strength);
}

}  // namespace brivolant
