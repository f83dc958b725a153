// SPDX-License-Identifier: MIT
#pragma once

#include <sys/resource.h>

#include "FuzzDocument.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant::fuzz {

/// Says what does not hold, and ends the run.
[[noreturn]] inline void Fail(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

inline std::int64_t PixelsOf(const Picture& picture) {
  return std::int64_t{picture.Width()} * picture.Height();
}

/// What is known to hold of any picture that came out of `size` bytes.
inline void CheckPicture(const Picture& picture, std::size_t size, std::int64_t pixelsPerByte) {
  if (picture.IsNil() || PixelsOf(picture) > static_cast<std::int64_t>(size) * pixelsPerByte) {
    Fail("more pixels than bytes can hold");
  }
}

/// A verdict is a picture, with both sentences or none on its damage, or one sentence alone.
inline void CheckVerdict(const Expected<DecodedImage>& image, std::size_t size,
                         std::int64_t pixelsPerByte) {
  if (!image) {
    if (image.error.find('\n') != std::string::npos) Fail("more than one line");
    return;
  }
  CheckPicture(image.value->Pixels, size, pixelsPerByte);
  const PictureDamage& damage = image.value->Damage;
  if (!image.error.empty() || damage.Warning.empty() != damage.Refusal.empty()) {
    Fail("half a verdict");
  }
}

inline bool Same(const Expected<DecodedImage>& a, const Expected<DecodedImage>& b) {
  if (a.error != b.error || a.value.has_value() != b.value.has_value()) return false;
  return !a.value || (a.value->Damage.Warning == b.value->Damage.Warning &&
                      a.value->Pixels.SameAs(b.value->Pixels));
}

/// Small files must not cost the memory that they claim.
inline void CheckMemory() {
  constexpr long kMostKilobytes = 1L << 20U;
  rusage usage{};
  if (getrusage(RUSAGE_SELF, &usage) != 0 || usage.ru_maxrss > kMostKilobytes) {
    Fail("took more than a gigabyte of memory");
  }
}

/// Opens and decodes the file in every way twice: equal bytes must give equal verdicts and pixels.
inline void Decode(const FolderItem& file, std::size_t size, std::int64_t pixelsPerByte,
                   std::int64_t mostPixels) {
  const auto source = ImageSource::Open(file);
  const auto again = ImageSource::Open(file);
  if (source.error != again.error) Fail("opened differently");
  if (!source) {
    if (source.error.empty()) Fail("refused without a sentence");
    return;
  }
  const ImageSource& one = **source.value;
  const ImageSource& other = **again.value;
  if (one.Type() != other.Type() || one.Count() < 1 || one.Count() != other.Count()) {
    Fail("another kind");
  }
  const auto properties = one.Properties(0);
  if (!properties ||
      std::int64_t{properties.value->Width} * properties.value->Height > mostPixels) {
    return;
  }
  const auto whole = one.Decode(0);
  CheckVerdict(whole, size, pixelsPerByte);
  if (!whole && whole.error.empty()) Fail("refused without a sentence");
  const auto repeated = other.Decode(0);
  if (!Same(whole, repeated)) {
    const auto told = [](const Expected<DecodedImage>& image) {
      return image ? "\"" + image.value->Damage.Warning + "\"" : image.error;
    };
    Fail(("decoded differently: " + one.Type() + ", " + told(whole) + ", " + told(repeated))
             .c_str());
  }
  constexpr int kSide = 5;
  const auto small = one.Thumbnail(kSide);
  const auto smallAgain = other.Thumbnail(kSide);
  if (small.error != smallAgain.error || small.value.has_value() != smallAgain.value.has_value()) {
    Fail("shrunk with another verdict");
  }
  CheckMemory();
  if (!small) return;
  CheckPicture(*small.value, kSide, kSide);
  if (!small.value->SameAs(*smallAgain.value)) Fail("shrunk differently");
}

}  // namespace brivolant::fuzz
