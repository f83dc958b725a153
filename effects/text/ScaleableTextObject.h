// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "engine/EffectModuleSharedConstants.h"
#include "engine/RangedNumber.h"
#include "platform/values/Color.h"
#include "platform/values/Pair.h"
#include "platform/values/Text.h"
#include "platform/values/Variant.h"

class QPainter;

namespace brivolant {

/// What a point on a picture hits of a box of text.
enum TextHit {
  kHitNothing = 0,
  kHitText = 1,
  kHitTopLeft = 2,
  kHitTopRight = 3,
  kHitBottomRight = 4,
  kHitBottomLeft = 5,
  kHitFrame = 6,
};

/// One box of text on a picture. Its place is in fractions of the picture and its type is as large
/// as the box allows, so that it looks alike at every size of the picture.
///
/// Positions count characters as people see them (grapheme clusters of Unicode Annex 29); the end
/// of a line is one character.
class ScaleableTextObject {
 public:
  /// The shapes behind the text, in the order of their numbers.
  static constexpr LocalizedText kCaptions[] = {
      {"EffectModuleText.kNone", "None"},
      {"EffectModuleText.kSpeech", "Speech"},
      {"EffectModuleText.kOvalSpeech", "Oval Speech"},
      {"EffectModuleText.kOvalThought", "Oval Thought"},
      {"EffectModuleText.kThought", "Thought"},
      EffectModuleSharedConstants::kShapeNameSquares,
      EffectModuleSharedConstants::kShapeNameCircles,
      EffectModuleSharedConstants::kShapeNameRoundedSquares};

  ScaleableTextObject();
  ~ScaleableTextObject();
  ScaleableTextObject(const ScaleableTextObject&) = delete;
  ScaleableTextObject& operator=(const ScaleableTextObject&) = delete;

  /// How far a box may lie from the picture, and how large it may be, in pictures.
  static constexpr Range<float> kPlaces{-100, 100};
  // Fractions of the picture's width and height.
  RangedNumber<float> Left{kPlaces, 0.25F};
  RangedNumber<float> Top{kPlaces, 0.25F};
  RangedNumber<float> Width{kPlaces, 0.5F};
  RangedNumber<float> Height{kPlaces, 0.5F};
  Color TextColor = kBlack;
  /// 0 to 7, see kCaptions; -1 where a style knows another.
  MenuIndex Caption{std::size(kCaptions), 0};

  const std::string& Font() const { return mFont; }
  void Font(const std::string& name);
  const std::string& Text() const { return iText; }
  void Text(const std::string& text);
  /// The text broken at the ends of its lines; at least one.
  const std::vector<std::string>& line() const { return line_; }
  int lineCount() const { return static_cast<int>(line_.size()); }
  int TextLength() const { return static_cast<int>(boundaries_.size()) - 1; }
  /// Size of the text in pixels at 12 points.
  int BaseWidth() const { return static_cast<int>(baseWidth_); }
  int BaseHeight() const { return static_cast<int>(baseHeight_); }
  /// Pixels of the type when it was last drawn.
  float Size() const { return size_; }

  int SelStart() const { return mSelstart; }
  int Sellength() const { return mSellength; }
  /// Both are limited to the text.
  void Select(int start, int length);
  /// Ends of the selection as (line, character in it).
  Pair SelStartLineChar() const { return LineCharFromPosition(mSelstart); }
  Pair SelEndLineChar() const { return LineCharFromPosition(mSelstart + mSellength); }

  /// True for what stands between words.
  static bool IsBlank(const std::string& character);
  /// The characters from `start` on.
  std::string Part(int start, int length) const;
  /// Puts `text` in their place and gives the position after it.
  int Replace(int start, int length, const std::string& text);

  /// Draws on a picture of that size. With `editing` the frame and, while `caret` is set, the caret
  /// or the selection are drawn too; `marks` is the size of a unit of the frame in pixels.
  void Draw(QPainter& painter, const Pair& source, bool editing, bool caret, double marks);

  Pair LineCharFromPosition(int position) const;
  /// First position and length of a line.
  Pair LineDimensions(int line) const;
  /// First position and length of the word at a position: what lies between blanks.
  Pair WordDimensions(int position) const;
  /// The character at a point given in fractions of a picture of that size.
  int PositionFromXY(const Pair& source, float x, float y) const;
  /// The foot of the caret at a position, in pixels of a picture of that size.
  Point XYFromPoistion(const Pair& source, int position) const;
  /// By the length of the line, not by columns.
  void MoveCursorDown();
  void MoveCursorUp();
  /// True if the line at the position reads from right to left.
  bool ReadsLeftward(int position) const;

  /// A TextHit of a point given in fractions of a picture of that size.
  int isWithin(const Pair& source, float x, float y, double marks) const;

  Dictionary Settings() const;
  /// Missing values take their defaults.
  void Settings(const Dictionary& settings);

 private:
  struct Lines;
  struct Layout;
  Layout LayoutFor(const Pair& source) const;
  void RecalculateVitals();
  void DrawFrame(QPainter& painter, const Layout& at, const Pair& source, double marks) const;

  std::string mFont = "Arial";
  std::string iText;
  std::vector<std::string> line_{std::string()};
  /// Bytes of iText before each character, and all bytes.
  std::vector<std::size_t> boundaries_{0};
  double baseWidth_ = 0;
  double baseHeight_ = 0;
  float size_ = 0;
  int mSelstart = 0;
  int mSellength = 0;
  std::unique_ptr<Lines> lines_;
};

}  // namespace brivolant
