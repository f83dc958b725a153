// SPDX-License-Identifier: MIT
#include "effects/EffectRegistry.h"

#include <array>

#include "effects/PendingModule.h"
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
template <const Named& kForegroundNamed, const Named& kBackgroundNamed>
constexpr ModuleEntry PendingEach(std::string_view foreground, std::string_view background) {
  return {foreground, background, [](Stack stack) -> std::unique_ptr<effectModule> {
            const Named& named = stack == kForeground ? kForegroundNamed : kBackgroundNamed;
            return std::make_unique<PendingModule>(named.id, named.name);
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
BRIVOLANT_PENDING(kBarrel, "22BEFEB7-2944-6DE5-F57E-DFE98DF1D845", "EffectModuleBarrelDistortion.kName",
                  "Barrel Distortion");
BRIVOLANT_PENDING(kSharpen, "5B350827-F6A9-3E34-0A70-990F7B550769", "EffectModuleSharpen.kName",
                  "Sharpen");
BRIVOLANT_PENDING(kBitDepth, "33062761-D902-8058-6FCB-FBC98920EB69", "EffectModuleBitDepth.kName",
                  "Bit Depth Simulation");
BRIVOLANT_PENDING(kDuoTone, "7FFFFFFF-B14F-1B2D-4590-F6C1B320F535", "EffectModuleDuoTone.kName",
                  "Duo Tone");
BRIVOLANT_PENDING(kColorize, "7FFFFFFF-A1B9-D227-53EC-6E7D15F7730F", "EffectModuleColorize.kName",
                  "Colorize");
BRIVOLANT_PENDING(kTechnicolor, "4B18AC97-40EB-1A45-D413-5669FE074678", "EffectModuleTechnicolor.kName",
                  "2-Strip Technicolor Simulation");
BRIVOLANT_PENDING(kGreyScale, "285DB39F-1FBB-67F7-B156-71124CE02033", "EffectModuleGreyScale.kName",
                  "Greyscale");
BRIVOLANT_PENDING(kInterlace, "4C386BB9-0C28-4107-7F97-388615A83F8E", "EffectModuleInterlace.kName",
                  "Interlace");
BRIVOLANT_PENDING(kInverse, "6902E1AB-3C2D-F66E-1413-7CAEA8384889", "EffectModuleInverse.kName",
                  "Inverse");
BRIVOLANT_PENDING(kOverBurn, "18110E6D-07CA-7871-7EE9-71B6A16624F7", "EffectModuleOverBurn.kName",
                  "Over Burn");
BRIVOLANT_PENDING(kOverlay, "7FFFFFFF-B371-0D5F-E410-E0CB34849A08", "EffectModuleOverlay.kName",
                  "Overlay");
BRIVOLANT_PENDING(kPosterize, "7FFFFFFF-5A23-EC46-53CB-10904CD03FA0", "EffectModulePosterize.kName",
                  "Posterize");
BRIVOLANT_PENDING(kSepia, "0E53677B-85AE-A580-B18B-AB374768FB98", "EffectModuleSepia.kName", "Sepia");
BRIVOLANT_PENDING(kBlur, "5BC0BD23-CAC0-7375-3F22-5342E05745D7", "EffectModuleGaussianBlur.kName",
                  "Blur");
BRIVOLANT_PENDING(kMotionBlur, "3305A849-B86A-A505-407A-ECC1375B21D3", "EffectModuleMotionBlur.kName",
                  "Motion Blur");
BRIVOLANT_PENDING(kConfetti, "629ACFD7-A1C2-325C-767F-1972350657FD", "EffectModuleConfetti.kName",
                  "Confetti");
BRIVOLANT_PENDING(kDiffuse, "4DEE873B-66F0-3E98-B850-11CD1F0AEAF9", "EffectModuleDiffuse.kName",
                  "Diffuse");
BRIVOLANT_PENDING(kFlip, "26D1E39D-9DB6-4458-0001-5DB554AFEE5B", "EffectModuleFlip.kName", "Flip");
BRIVOLANT_PENDING(kLineArt, "0BDF9AD3-852D-855C-82F2-D7830B635FD6", "EffectModuleLineArt.kName",
                  "Line Art");
BRIVOLANT_PENDING(kMosaic, "7FFFFFFF-0A01-FC1E-5CF8-D5EBC600183D", "EffectModuleMosaic.kName", "Mosaic");
BRIVOLANT_PENDING(kOilPainting, "7FFFFFFF-023A-4E6B-9007-9285482F4F50", "EffectModuleOilPainting.kName",
                  "Oil Painting");
BRIVOLANT_PENDING(kPopArt, "5271AE9B-A57E-1FD4-D2CC-2970B29CD03F", "EffectModulePopArt.kName", "Pop Art");
BRIVOLANT_PENDING(kForegroundScale, "6538471D-51C4-6A7B-FE80-6B09BA5EAC32",
                  "EffectModuleForegroundScale.kName", "Scale Layer");
BRIVOLANT_PENDING(kBackgroundScale, "404C05B7-3F0B-1122-DAF4-1948DA9032F3",
                  "EffectModuleBackgroundScale.kName", "Scale Layer");
BRIVOLANT_PENDING(kSegment, "3C80E86B-331A-3C40-B7DF-2C5AA2E88F87", "EffectModuleSegment.kName",
                  "Segment");
BRIVOLANT_PENDING(kString, "7FFFFFFF-0F4A-DF74-A393-4BA94AC514F7", "EffectModuleString.kName", "Strings");
BRIVOLANT_PENDING(kText, "150B71E5-A262-009C-42A9-CD07B87C0B76", "EffectModuleText.kName", "Text");
BRIVOLANT_PENDING(kTexture, "4DD95F09-F9ED-A5C3-F38F-EC4F5C760FA0", "EffectModuleTexture.kName",
                  "Texture");
BRIVOLANT_PENDING(kWave, "7FFFFFFF-9141-7F3B-2928-36DFC5F5CC73", "EffectModuleWave.kName", "Wave");
BRIVOLANT_PENDING(kWaterdrops, "7FFFFFFF-6EDA-E3AC-9108-9A3086CD24E7", "EffectModuleWaterdrops.kName",
                  "Water Drops");
BRIVOLANT_PENDING(kOutline, "70325F49-FB0D-5FA0-251B-1CF7387C3762", "EffectModuleOutline.kName", "Matte");
BRIVOLANT_PENDING(kVignette, "0F62EDAB-27E1-55C8-F332-BDA8872B9C70", "EffectModuleVignette.kName",
                  "Vignette");
BRIVOLANT_PENDING(kGloss, "17629B63-4AC7-83B3-B805-B7D5CE5360B0", "EffectModuleGloss.kName", "Gloss");
BRIVOLANT_PENDING(kBorder, "722F92BB-914A-BE34-7B81-40D006AE5CE4", "EffectModuleBorder.kName", "Borders");
BRIVOLANT_PENDING(kReflection, "7FFFFFFF-868D-CF59-2D15-F7BDFA4F5D04", "EffectModuleReflection.kName",
                  "Reflection");
#undef BRIVOLANT_PENDING

constexpr std::array kEntries{
    Divider<kFixes>(),
    Effect<EffectModuleAutoContrast>("EffectModuleAutoContrast"),
    Effect<EffectModuleAutoLevels>("EffectModuleAutoLevels"),
    Pending<kBarrel>("EffectModuleBarrelDistortion"),
    Effect<EffectModuleBrightnessContrast>("EffectModuleBrightnessContrast"),
    Effect<EffectModuleColorAdjuster>("EffectModuleColorAdjuster"),
    Effect<EffectModuleWhiteBalance>("EffectModuleWhiteBalance"),
    Effect<EffectModuleDigitalFlash>("EffectModuleDigitalFlash"),
    Effect<EffectModuleExposure>("EffectModuleExposure"),
    Effect<EffectModuleLevels>("EffectModuleLevels"),
    Effect<EffectModuleShadowsHighlight>("EffectModuleShadowsHighlight"),
    Pending<kSharpen>("EffectModuleSharpen"),
    Effect<EffectModuleStraighten>("EffectModuleStraighten"),
    Divider<kColors>(),
    Pending<kBitDepth>("EffectModuleBitDepth"),
    Pending<kDuoTone>("EffectModuleDuoTone"),
    Effect<EffectModuleChannelContrast>("EffectModuleChannelContrast"),
    Pending<kColorize>("EffectModuleColorize"),
    Pending<kTechnicolor>("EffectModuleTechnicolor"),
    Pending<kGreyScale>("EffectModuleGreyScale"),
    Effect<EffectModuleHueSaturation>("EffectModuleHueSaturation"),
    Pending<kInterlace>("EffectModuleInterlace"),
    Pending<kInverse>("EffectModuleInverse"),
    Pending<kOverBurn>("EffectModuleOverBurn"),
    Pending<kOverlay>("EffectModuleOverlay"),
    Pending<kPosterize>("EffectModulePosterize"),
    Pending<kSepia>("EffectModuleSepia"),
    Divider<kArtistic>(),
    Pending<kBlur>("EffectModuleGaussianBlur"),
    Pending<kMotionBlur>("EffectModuleMotionBlur"),
    Pending<kConfetti>("EffectModuleConfetti"),
    Pending<kDiffuse>("EffectModuleDiffuse"),
    Pending<kFlip>("EffectModuleFlip"),
    Pending<kLineArt>("EffectModuleLineArt"),
    Pending<kMosaic>("EffectModuleMosaic"),
    Pending<kOilPainting>("EffectModuleOilPainting"),
    Pending<kPopArt>("EffectModulePopArt"),
    PendingEach<kForegroundScale, kBackgroundScale>("EffectModuleForegroundScale",
                                                    "EffectModuleBackgroundScale"),
    Pending<kSegment>("EffectModuleSegment"),
    Pending<kString>("EffectModuleString"),
    Pending<kText>("EffectModuleText"),
    Pending<kTexture>("EffectModuleTexture"),
    Pending<kWave>("EffectModuleWave"),
    Pending<kWaterdrops>("EffectModuleWaterdrops"),
    Divider<kFinishes>(),
    Pending<kOutline>("EffectModuleOutline"),
    Pending<kVignette>("EffectModuleVignette"),
    Pending<kGloss>("EffectModuleGloss"),
    Pending<kBorder>("EffectModuleBorder"),
    Pending<kReflection>("EffectModuleReflection"),
};

}  // namespace

ModuleRegistry EffectRegistry() {
  return kEntries;
}

}  // namespace brivolant
