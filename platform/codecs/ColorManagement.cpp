// SPDX-License-Identifier: MIT
#include <lcms2.h>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include "platform/codecs/CodecDetail.h"
#include "platform/pictures/Parallel.h"

namespace brivolant::codecs {
namespace {

struct CloseProfile {
  void operator()(void* profile) const { cmsCloseProfile(profile); }
};
using Profile = std::unique_ptr<void, CloseProfile>;

struct DeleteTransform {
  void operator()(void* transform) const { cmsDeleteTransform(transform); }
};
using Transform = std::unique_ptr<void, DeleteTransform>;

Profile Open(std::string_view icc) {
  return Profile(cmsOpenProfileFromMem(icc.data(), static_cast<cmsUInt32Number>(icc.size())));
}

}  // namespace

SourceProfile::SourceProfile(std::string_view icc) : icc_(icc) {
  const Profile profile = icc_.empty() ? nullptr : Open(icc_);
  if (!profile) return;
  const cmsColorSpaceSignature space = cmsGetColorSpace(profile.get());
  space_ = space == cmsSigRgbData    ? Space::kRGB
           : space == cmsSigGrayData ? Space::kGrey
                                     : Space::kOther;
  std::array<char, 256> name{};
  cmsGetProfileInfoASCII(profile.get(), cmsInfoDescription, "en", "US", name.data(),
                         static_cast<cmsUInt32Number>(name.size() - 1));
  name_ = EnsureUTF8(name.data());
}

void SourceProfile::ConvertToSRGB(Picture& picture, bool grey) const {
  const bool greys = space_ == Space::kGrey && grey;
  if ((!IsRGB() && !greys) || FindIgnoringCase(name_, "srgb") != std::string::npos) return;
  const Profile from = Open(icc_);
  const Profile to(cmsCreate_sRGBProfile());
  const Transform transform(
      cmsCreateTransform(from.get(), greys ? TYPE_GRAY_8 : TYPE_BGRA_8, to.get(), TYPE_BGRA_8,
                         INTENT_PERCEPTUAL, cmsFLAGS_NOCACHE | (greys ? 0 : cmsFLAGS_COPY_ALPHA)));
  if (!transform) return;
  const Pixels pixels = picture.Edit();
  ParallelRows(pixels.height, 16, [&](int first, int last) {
    std::vector<std::uint8_t> line(greys ? static_cast<std::size_t>(pixels.width) : 0);
    for (int y = first; y < last; ++y) {
      std::uint8_t* row = pixels.Row(y);
      for (std::size_t x = 0; x < line.size(); ++x) line[x] = row[4 * x];
      cmsDoTransform(transform.get(), greys ? line.data() : row, row,
                     static_cast<cmsUInt32Number>(pixels.width));
    }
  });
}

std::string_view SRGBProfile() {
  static const std::string icc = [] {
    const Profile profile(cmsCreate_sRGBProfile());
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile.get(), nullptr, &size);
    std::string bytes(size, '\0');
    cmsSaveProfileToMem(profile.get(), bytes.data(), &size);
    // The header's date of creation: a fixed one, so that equal pictures give equal files.
    constexpr std::string_view kDate("\x07\xD0\0\x01\0\x01\0\0\0\0\0\0", 12);
    std::copy(kDate.begin(), kDate.end(), bytes.begin() + 24);
    return bytes;
  }();
  return icc;
}

}  // namespace brivolant::codecs
