// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/pictures/Views.h"
#include "platform/values/Color.h"

class QImage;

namespace brivolant {

/// An 8-bit plane. As the mask of a picture, 255 is transparent and 0 opaque. A value: copies
/// share their bytes until one is written; a default plane is nil.
class Plane {
 public:
  Plane() = default;
  /// Every byte is `value`. Nil if the size is not positive or memory runs out.
  Plane(int width, int height, std::uint8_t value);
  /// The content is undefined.
  static Plane Uninitialized(int width, int height);

  bool IsNil() const { return width_ == 0; }
  int Width() const { return width_; }
  int Height() const { return height_; }
  std::uint8_t At(int x, int y) const { return View().Row(y)[x]; }

  ConstGrey View() const { return {bytes_.get(), stride_, width_, height_}; }
  /// For writing; takes the bytes for its own first.
  Grey Edit();

 private:
  std::shared_ptr<std::uint8_t> bytes_;
  std::size_t stride_ = 0;
  int width_ = 0;
  int height_ = 0;
};

/// The program's bitmap: 32-bit pixels, an optional mask, and a resolution. A value: copies share
/// their pixels until one is written; a default picture is nil.
class Picture {
 public:
  /// The largest picture that is made: 2^29 pixels, 2 GiB.
  static constexpr std::int64_t kMostPixels = std::int64_t{1} << 29;

  Picture() = default;
  /// The content is undefined. Nil if the size is not positive, too large or memory runs out.
  static Picture Uninitialized(int width, int height, int depth = 24);

  bool IsNil() const { return width_ == 0; }
  int Width() const { return width_; }
  int Height() const { return height_; }
  /// 24 for processing, 32 for decoded images; 1 for a picture that holds only black and white.
  /// The pixels are stored alike.
  int Depth() const { return depth_; }
  void Depth(int depth) { depth_ = depth; }

  /// Pixels per inch.
  int HorizontalResolution = 72;
  int VerticalResolution = 72;

  Color At(int x, int y) const;

  ConstPixels View() const { return {bytes_.get(), stride_, width_, height_}; }
  /// For writing; takes the pixels for its own first.
  Pixels Edit();
  /// Both sides of a change that makes every pixel from the one at its place. Unlike Edit it does
  /// not copy shared pixels first.
  struct Rewriting {
    std::shared_ptr<const std::uint8_t> held;
    ConstPixels from;
    Pixels to;
  };
  Rewriting Rewrite();
  /// The pixels as an image of the toolkit, without a copy. It must not outlive this picture's
  /// pixels.
  QImage AsImage() const;
  /// The same for drawing.
  QImage EditImage();

  /// The mask, made opaque if missing and `create` is set; null if there is none.
  Plane* Mask(bool create);
  const Plane* Mask() const { return mask_ ? &*mask_ : nullptr; }
  /// Sets or removes (nil) the mask; it must have the picture's size.
  void SetMask(Plane mask);

  /// True if both show the same pixels by sharing them.
  bool SharesPixelsWith(const Picture& other) const { return bytes_ == other.bytes_; }
  /// True if size, pixels and mask are equal.
  bool SameAs(const Picture& other) const;

 private:
  std::shared_ptr<std::uint8_t> bytes_;
  std::size_t stride_ = 0;
  int width_ = 0;
  int height_ = 0;
  int depth_ = 24;
  std::optional<Plane> mask_;
};

/// A white picture without a mask; nil if the size is not positive, too large or memory runs out.
Picture NewPicture(int width, int height, int depth);

}  // namespace brivolant
