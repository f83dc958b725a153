// SPDX-License-Identifier: MIT
#include "effects/EffectRegistry.h"

#include <array>

#include "effects/PendingModule.h"
#include "effects/artistic/EffectModuleConfetti.h"
#include "effects/artistic/EffectModuleLineArt.h"
#include "effects/artistic/EffectModuleMosaic.h"
#include "effects/artistic/EffectModuleOilPainting.h"
#include "effects/artistic/EffectModuleSegment.h"
#include "effects/artistic/EffectModuleString.h"
#include "effects/artistic/EffectModuleTexture.h"
#include "effects/finishes/EffectModuleGloss.h"
#include "effects/finishes/EffectModuleOutline.h"
#include "effects/finishes/EffectModuleOverlay.h"
#include "effects/finishes/EffectModuleReflection.h"
#include "effects/finishes/EffectModuleVignette.h"
#include "effects/fixes/EffectModuleAutoContrast.h"
#include "effects/fixes/EffectModuleAutoLevels.h"
#include "effects/fixes/EffectModuleBrightnessContrast.h"
#include "effects/fixes/EffectModuleChannelContrast.h"
#include "effects/fixes/EffectModuleColorAdjuster.h"
#include "effects/fixes/EffectModuleDigitalFlash.h"
#include "effects/fixes/EffectModuleExposure.h"
#include "effects/fixes/EffectModuleHueSaturation.h"
#include "effects/fixes/EffectModuleLevels.h"
#include "effects/fixes/EffectModuleShadowsHighlight.h"
#include "effects/fixes/EffectModuleStraighten.h"
#include "effects/fixes/EffectModuleWhiteBalance.h"
#include "effects/geometry/EffectModuleBackgroundScale.h"
#include "effects/geometry/EffectModuleBarrelDistortion.h"
#include "effects/geometry/EffectModuleDiffuse.h"
#include "effects/geometry/EffectModuleFlip.h"
#include "effects/geometry/EffectModuleForegroundScale.h"
#include "effects/geometry/EffectModuleGaussianBlur.h"
#include "effects/geometry/EffectModuleInterlace.h"
#include "effects/geometry/EffectModuleMotionBlur.h"
#include "effects/geometry/EffectModuleSharpen.h"
#include "effects/geometry/EffectModuleWaterdrops.h"
#include "effects/geometry/EffectModuleWave.h"
#include "effects/looks/EffectModuleBitDepth.h"
#include "effects/looks/EffectModuleColorize.h"
#include "effects/looks/EffectModuleDuoTone.h"
#include "effects/looks/EffectModuleGreyScale.h"
#include "effects/looks/EffectModuleInverse.h"
#include "effects/looks/EffectModuleOverBurn.h"
#include "effects/looks/EffectModulePopArt.h"
#include "effects/looks/EffectModulePosterize.h"
#include "effects/looks/EffectModuleSepia.h"
#include "effects/looks/EffectModuleTechnicolor.h"
#include "effects/text/EffectModuleText.h"

namespace brivolant {
namespace {

/// What a heading or a module without an effect of its own yet is told by.
struct Named {
  std::string_view id;
  LocalizedText name;
  std::string_view icon;
};

template <class Module>
constexpr ModuleEntry Effect(std::string_view name) {
  return {name, name,
          [](Stack) -> std::unique_ptr<effectModule> { return std::make_unique<Module>(); }};
}

template <const Named& kNamed>
constexpr ModuleEntry Divider() {
  return {"EffectModuleDivider", "EffectModuleDivider", [](Stack) -> std::unique_ptr<effectModule> {
            return std::make_unique<EffectModuleDivider>(
                kNamed.name.Text(), std::string(kNamed.icon), std::string(kNamed.id));
          }};
}

template <const Named& kNamed>
constexpr ModuleEntry Pending(std::string_view name) {
  return {name, name, [](Stack) -> std::unique_ptr<effectModule> {
            return std::make_unique<PendingModule>(kNamed.id, kNamed.name);
          }};
}

/// A module that is another one in each stack.
template <class ForegroundModule, class BackgroundModule>
constexpr ModuleEntry Each(std::string_view foreground, std::string_view background) {
  return {foreground, background, [](Stack stack) -> std::unique_ptr<effectModule> {
            if (stack == kForeground) return std::make_unique<ForegroundModule>();
            return std::make_unique<BackgroundModule>();
          }};
}

constexpr Named kFixes{"13800731-3A58-8384-7FA5-1EE8C82249C9",
                       {"EffectModuleDivider.kFixes", "Fixing Tools"},
                       "effectListFixes.png"};
constexpr Named kColors{"5D6A43D1-EB89-E23C-1600-5B1C06E12029",
                        {"EffectModuleDivider.kColorAdjustments", "Color Adjustments"},
                        "effectListColorAdjustments.png"};
constexpr Named kArtistic{"21EA7113-A6A5-D680-B118-D50157D910B9",
                          {"EffectModuleDivider.kArtisticAdjustments", "Artistic Adjustments"},
                          "effectListArtisticAdjustments.png"};
constexpr Named kFinishes{"0756B539-CD93-AD22-CB8D-D02A2FF15DA5",
                          {"EffectModuleDivider.kFinishes", "Finishing Touches"},
                          "effectListFinishes.png"};

#define BRIVOLANT_PENDING(constant, id, key, text) \
  constexpr Named constant {                       \
    id, {key, text}, {}                            \
  }
BRIVOLANT_PENDING(kBorder, "722F92BB-914A-BE34-7B81-40D006AE5CE4", "EffectModuleBorder.kName",
                  "Borders");
#undef BRIVOLANT_PENDING

constexpr std::array kEntries{
    Divider<kFixes>(),
    Effect<EffectModuleAutoContrast>("EffectModuleAutoContrast"),
    Effect<EffectModuleAutoLevels>("EffectModuleAutoLevels"),
    Effect<EffectModuleBarrelDistortion>("EffectModuleBarrelDistortion"),
    Effect<EffectModuleBrightnessContrast>("EffectModuleBrightnessContrast"),
    Effect<EffectModuleColorAdjuster>("EffectModuleColorAdjuster"),
    Effect<EffectModuleWhiteBalance>("EffectModuleWhiteBalance"),
    Effect<EffectModuleDigitalFlash>("EffectModuleDigitalFlash"),
    Effect<EffectModuleExposure>("EffectModuleExposure"),
    Effect<EffectModuleLevels>("EffectModuleLevels"),
    Effect<EffectModuleShadowsHighlight>("EffectModuleShadowsHighlight"),
    Effect<EffectModuleSharpen>("EffectModuleSharpen"),
    Effect<EffectModuleStraighten>("EffectModuleStraighten"),
    Divider<kColors>(),
    Effect<EffectModuleBitDepth>("EffectModuleBitDepth"),
    Effect<EffectModuleDuoTone>("EffectModuleDuoTone"),
    Effect<EffectModuleChannelContrast>("EffectModuleChannelContrast"),
    Effect<EffectModuleColorize>("EffectModuleColorize"),
    Effect<EffectModuleTechnicolor>("EffectModuleTechnicolor"),
    Effect<EffectModuleGreyScale>("EffectModuleGreyScale"),
    Effect<EffectModuleHueSaturation>("EffectModuleHueSaturation"),
    Effect<EffectModuleInterlace>("EffectModuleInterlace"),
    Effect<EffectModuleInverse>("EffectModuleInverse"),
    Effect<EffectModuleOverBurn>("EffectModuleOverBurn"),
    Effect<EffectModuleOverlay>("EffectModuleOverlay"),
    Effect<EffectModulePosterize>("EffectModulePosterize"),
    Effect<EffectModuleSepia>("EffectModuleSepia"),
    Divider<kArtistic>(),
    Effect<EffectModuleGaussianBlur>("EffectModuleGaussianBlur"),
    Effect<EffectModuleMotionBlur>("EffectModuleMotionBlur"),
    Effect<EffectModuleConfetti>("EffectModuleConfetti"),
    Effect<EffectModuleDiffuse>("EffectModuleDiffuse"),
    Effect<EffectModuleFlip>("EffectModuleFlip"),
    Effect<EffectModuleLineArt>("EffectModuleLineArt"),
    Effect<EffectModuleMosaic>("EffectModuleMosaic"),
    Effect<EffectModuleOilPainting>("EffectModuleOilPainting"),
    Effect<EffectModulePopArt>("EffectModulePopArt"),
    Each<EffectModuleForegroundScale, EffectModuleBackgroundScale>("EffectModuleForegroundScale",
                                                                   "EffectModuleBackgroundScale"),
    Effect<EffectModuleSegment>("EffectModuleSegment"),
    Effect<EffectModuleString>("EffectModuleString"),
    Effect<EffectModuleText>("EffectModuleText"),
    Effect<EffectModuleTexture>("EffectModuleTexture"),
    Effect<EffectModuleWave>("EffectModuleWave"),
    Effect<EffectModuleWaterdrops>("EffectModuleWaterdrops"),
    Divider<kFinishes>(),
    Effect<EffectModuleOutline>("EffectModuleOutline"),
    Effect<EffectModuleVignette>("EffectModuleVignette"),
    Effect<EffectModuleGloss>("EffectModuleGloss"),
    Pending<kBorder>("EffectModuleBorder"),
    Effect<EffectModuleReflection>("EffectModuleReflection"),
};

}  // namespace

ModuleRegistry EffectRegistry() {
  return kEntries;
}

}  // namespace brivolant
