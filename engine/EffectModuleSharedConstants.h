// SPDX-License-Identifier: MIT
#pragma once

#include "platform/values/Text.h"

/// Captions that several modules use.
namespace brivolant::EffectModuleSharedConstants {

inline constexpr LocalizedText kbackColor{"EffectModuleSharedConstants.kbackColor", "Back Color:"};
inline constexpr LocalizedText kColor{"EffectModuleSharedConstants.kColor", "Color:"};
inline constexpr LocalizedText kDropShadow{"EffectModuleSharedConstants.kDropShadow",
                                           "Drop Shadow:"};
inline constexpr LocalizedText kShape{"EffectModuleSharedConstants.kShape", "Shape:"};
inline constexpr LocalizedText kOpacity{"EffectModuleSharedConstants.kOpacity", "Opacity:"};
inline constexpr LocalizedText kType{"EffectModuleSharedConstants.kType", "Type:"};
inline constexpr LocalizedText kAngle{"EffectModuleSharedConstants.kAngle", "Angle:"};
inline constexpr LocalizedText kRadius{"EffectModuleSharedConstants.kRadius", "Radius:"};
inline constexpr LocalizedText kBlur{"EffectModuleSharedConstants.kBlur", "Blur:"};
inline constexpr LocalizedText kDiameter{"EffectModuleSharedConstants.kDiameter", "Diameter:"};
inline constexpr LocalizedText kScale{"EffectModuleSharedConstants.kScale", "Scale:"};
inline constexpr LocalizedText kStrength{"EffectModuleSharedConstants.kStrength", "Strength:"};
inline constexpr LocalizedText kThreshold{"EffectModuleSharedConstants.kThreshold", "Threshold:"};
inline constexpr LocalizedText kRandom{"EffectModuleSharedConstants.kRandom", "Random"};
inline constexpr LocalizedText kShapeNameSquares{"EffectModuleSharedConstants.kShapeNameSquares",
                                                 "Square"};
inline constexpr LocalizedText kShapeNameRoundedSquares{
    "EffectModuleSharedConstants.kShapeNameRoundedSquares", "Rounded Square"};
inline constexpr LocalizedText kShapeNameCircles{"EffectModuleSharedConstants.kShapeNameCircles",
                                                 "Oval"};
inline constexpr LocalizedText kShapeNameFlower{"EffectModuleSharedConstants.kShapeNameFlower",
                                                "Flower"};
inline constexpr LocalizedText kShapeNameHeart{"EffectModuleSharedConstants.kShapeNameHeart",
                                               "Heart"};
inline constexpr LocalizedText kEffect{"EffectModuleSharedConstants.kEffect", "Effect:"};
inline constexpr LocalizedText kNone{"EffectModuleSharedConstants.kNone", "None"};
inline constexpr LocalizedText kQuantity{"EffectModuleSharedConstants.kQuantity", "Quantity:"};
inline constexpr LocalizedText kMaxSize{"EffectModuleSharedConstants.kMaxSize", "Max Size:"};
inline constexpr LocalizedText kuseFocalPoint{"EffectModuleSharedConstants.kuseFocalPoint",
                                              "Use a Focal Point"};

}  // namespace brivolant::EffectModuleSharedConstants
