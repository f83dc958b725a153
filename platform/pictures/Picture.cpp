// SPDX-License-Identifier: MIT
#include "platform/pictures/Picture.h"

#include <QImage>
#include <cstring>

#include "platform/pictures/Parallel.h"
#include "platform/pictures/PixelMemory.h"

namespace brivolant {
namespace {

constexpr std::size_t Aligned(std::size_t bytes) {
  return (bytes + 63) / 64 * 64;
}

bool Possible(int width, int height) {
  return width > 0 && height > 0 && std::int64_t{width} * height <= Picture::kMostPixels;
}

/// True if nobody but these `uses` holds the bytes. What others read before they let go, on
/// whatever thread, is then done: looking at the count alone would not say so.
bool HeldBy(int uses, const std::shared_ptr<std::uint8_t>& bytes) {
  if (bytes.use_count() > uses) return false;
  const std::shared_ptr<std::uint8_t> ordered = bytes;  // NOLINT(*-unnecessary-copy-*)
  return true;
}

std::shared_ptr<std::uint8_t> Duplicate(const std::uint8_t* bytes, std::size_t stride, int height) {
  const std::size_t size = stride * static_cast<std::size_t>(height);
  std::shared_ptr<std::uint8_t> copy = PixelMemory::Allocate(size);
  if (!copy) throw std::bad_alloc();
  ParallelRows(height, 64, [&](int from, int to) {
    const std::size_t at = stride * static_cast<std::size_t>(from);
    std::memcpy(copy.get() + at, bytes + at, stride * static_cast<std::size_t>(to - from));
  });
  return copy;
}

}  // namespace

Plane::Plane(int width, int height, std::uint8_t value) : Plane(Uninitialized(width, height)) {
  if (!IsNil()) std::memset(bytes_.get(), value, stride_ * static_cast<std::size_t>(height_));
}

Plane Plane::Uninitialized(int width, int height) {
  Plane plane;
  if (!Possible(width, height)) return plane;
  plane.stride_ = Aligned(static_cast<std::size_t>(width));
  plane.bytes_ = PixelMemory::Allocate(plane.stride_ * static_cast<std::size_t>(height));
  if (!plane.bytes_) return {};
  plane.width_ = width;
  plane.height_ = height;
  return plane;
}

Grey Plane::Edit() {
  if (!HeldBy(1, bytes_)) bytes_ = Duplicate(bytes_.get(), stride_, height_);
  return {bytes_.get(), stride_, width_, height_};
}

Picture Picture::Uninitialized(int width, int height, int depth) {
  Picture picture;
  if (!Possible(width, height)) return picture;
  picture.stride_ = Aligned(static_cast<std::size_t>(width) * 4);
  picture.bytes_ = PixelMemory::Allocate(picture.stride_ * static_cast<std::size_t>(height));
  if (!picture.bytes_) return {};
  picture.width_ = width;
  picture.height_ = height;
  picture.depth_ = depth;
  return picture;
}

Color Picture::At(int x, int y) const {
  const std::uint8_t* pixel = View().Row(y) + std::size_t{4} * static_cast<std::size_t>(x);
  return {pixel[2], pixel[1], pixel[0]};
}

Pixels Picture::Edit() {
  if (!HeldBy(1, bytes_)) bytes_ = Duplicate(bytes_.get(), stride_, height_);
  return {bytes_.get(), stride_, width_, height_};
}

Picture::Rewriting Picture::Rewrite() {
  Rewriting both{bytes_, View(), {}};
  // One use is this picture's, one the copy just made.
  constexpr int kAlone = 2;
  if (!HeldBy(kAlone, bytes_)) {
    if (auto fresh = PixelMemory::Allocate(stride_ * static_cast<std::size_t>(height_))) {
      bytes_ = std::move(fresh);
    } else {
      bytes_ = Duplicate(bytes_.get(), stride_, height_);
    }
  }
  both.to = {bytes_.get(), stride_, width_, height_};
  return both;
}

QImage Picture::AsImage() const {
  if (IsNil()) return {};
  return {static_cast<const uchar*>(bytes_.get()), width_, height_, static_cast<qsizetype>(stride_),
          QImage::Format_RGB32};
}

QImage Picture::EditImage() {
  const Pixels pixels = Edit();
  return {pixels.data, width_, height_, static_cast<qsizetype>(stride_), QImage::Format_RGB32};
}

Plane* Picture::Mask(bool create) {
  if (!mask_ && create && !IsNil()) mask_.emplace(width_, height_, std::uint8_t{0});
  return mask_ ? &*mask_ : nullptr;
}

void Picture::SetMask(Plane mask) {
  if (mask.Width() == width_ && mask.Height() == height_ && !mask.IsNil()) {
    mask_ = std::move(mask);
  } else {
    mask_.reset();
  }
}

bool Picture::SameAs(const Picture& other) const {
  if (width_ != other.width_ || height_ != other.height_ ||
      mask_.has_value() != other.mask_.has_value()) {
    return false;
  }
  for (int y = 0; y < height_; ++y) {
    if (bytes_ != other.bytes_ && std::memcmp(View().Row(y), other.View().Row(y),
                                              static_cast<std::size_t>(width_) * 4) != 0) {
      return false;
    }
    if (mask_ && std::memcmp(mask_->View().Row(y), other.mask_->View().Row(y),
                             static_cast<std::size_t>(width_)) != 0) {
      return false;
    }
  }
  return true;
}

Picture NewPicture(int width, int height, int depth) {
  Picture picture = Picture::Uninitialized(width, height, depth);
  if (picture.IsNil()) return picture;
  const Pixels pixels = picture.Edit();
  std::memset(pixels.data, 255, pixels.stride * static_cast<std::size_t>(height));
  return picture;
}

}  // namespace brivolant
