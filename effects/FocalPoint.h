// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// A point of the picture that an effect spares: a disc, and around it a band as wide over which
/// the effect comes in. Declared by a module behind its own parameters.
class FocalPoint {
 public:
  explicit FocalPoint(effectModule& owner);

  /// The mask for a picture of that size, 255 where the effect has none, or null while there is no
  /// focus. Kept until the size or the focus changes.
  const Plane* MaskFor(const Picture& picture);
  /// The disc's outline in white, for a copy of the preview.
  void DrawOn(MarkCanvas& canvas) const;
  /// Puts the focus at a position, as fractions of the picture. True: the press is taken.
  bool MoveTo(float x, float y);
  void ResetCache() { filterMask = {}; }

 private:
  /// The slider of the diameter: touching it means that a focus is wanted.
  class Diameter final : public SliderParameter<float> {
   public:
    Diameter(effectModule& owner, CheckBoxParameter& focal);
    void Set(const Variant& position) override;

   private:
    CheckBoxParameter& focal_;
  };
  /// The disc in pixels.
  struct Disc {
    int left;
    int top;
    int diameter;
    friend bool operator==(const Disc&, const Disc&) = default;
  };
  Disc DiscOn(int width, int height) const;

 public:
  CheckBoxParameter isFocal;
  /// A diameter as a fraction of the picture's width.
  Diameter focalRadius;
  Parameter<float> focalXOffset;
  Parameter<float> focalYOffset;

 private:
  Plane filterMask;
  Disc maskDisc_{};
};

}  // namespace brivolant
