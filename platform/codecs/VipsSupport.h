// SPDX-License-Identifier: MIT
#pragma once

#include <vips/vips.h>

#include <memory>
#include <string>

namespace brivolant::codecs {

/// Starts the library once; false if it cannot be.
bool StartVips();

struct UnrefVips {
  void operator()(void* object) const { g_object_unref(object); }
};
using VipsPicture = std::unique_ptr<VipsImage, UnrefVips>;

/// The library's own words, in one line.
std::string TakeVipsError();

}  // namespace brivolant::codecs
