// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"
#include "platform/files/FolderItem.h"

namespace brivolant {

/// The relief of a material on the picture: a tile, embossed, in hard light.
class EffectModuleTexture final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleTexture.kName", "Texture"};

  static constexpr LocalizedText kTexture{"EffectModuleTexture.kTexture", "Texture:"};
  /// Names of the textures that come with the program, as their files are called.
  static constexpr LocalizedText kShipped[] = {
      {"EffectModuleTexture.kBrushedMetal", "Brushed Metal"},
      {"EffectModuleTexture.kCanvas", "Canvas"},
      {"EffectModuleTexture.kConcrete", "Concrete"},
      {"EffectModuleTexture.kCrumpledPaper", "Crumpled Paper"},
      {"EffectModuleTexture.kDust", "Dust"},
      {"EffectModuleTexture.kFilmGrain", "Film Grain"},
      {"EffectModuleTexture.kLeather", "Leather"},
      {"EffectModuleTexture.kLinen", "Linen"},
      {"EffectModuleTexture.kPaper", "Paper"},
      {"EffectModuleTexture.kPlaster", "Plaster"},
      {"EffectModuleTexture.kRain", "Rain"},
      {"EffectModuleTexture.kScratches", "Scratches"},
      {"EffectModuleTexture.kStone", "Stone"},
      {"EffectModuleTexture.kWood", "Wood"}};

  /// The texture by its file's name without the ending; empty for none.
  class Name final : public Parameter<std::string>, public ControlRow {
   public:
    explicit Name(EffectModuleTexture& owner);
    using Parameter<std::string>::operator=;
    EffectModuleControl Declare() const override;
    /// The index in the menu, -1 for none.
    Variant Shown() const override;
    void Set(const Variant& index) override;

   private:
    EffectModuleTexture& owner_;
  };
  Name loadedtextureName{*this};
  SliderParameter<float> Strength{*this,
                                  {"Strength", 1, 1, {-10, 10}},
                                  {EffectModuleSharedConstants::kStrength, {.divide = 100}}};
  SliderParameter<float> Scale{*this,
                               {"Scale", 1, 1, {-10, 10}},
                               {EffectModuleSharedConstants::kScale, {.divide = 50}, 0.5F}};

  /// Names of the textures in the folder, sorted.
  const std::vector<std::string>& Names() const { return names_; }
  /// Makes the texture of that name the chosen one. False, and nothing changes, if its file cannot
  /// be read.
  bool loadtexture(const std::string& name);

 protected:
  std::string getID() const override { return "4DD95F09-F9ED-A5C3-F38F-EC4F5C760FA0"; }
  std::string getName() const override { return kName.Text(); }
  void DeclareMyControls() override;
  void ApplyEffect(Picture& picture, double scale) override;

 private:
  FolderItem myTextureFolder;
  std::vector<std::string> names_;
  /// The texture of `loadedFrom_`, read when it is first needed.
  Picture LoadedTexture;
  std::string loadedFrom_;
};

}  // namespace brivolant
