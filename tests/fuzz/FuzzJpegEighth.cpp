// SPDX-License-Identifier: MIT
#include <cstdint>

#include "platform/codecs/JpegEighth.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  (void)brivolant::codecs::DecodeJpegEighth({reinterpret_cast<const char*>(data), size});
  return 0;
}
