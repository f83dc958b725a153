// SPDX-License-Identifier: MIT
#include "engine/StyleData.h"

#include <cmath>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  brivolant::StyleFault fault = brivolant::StyleFault::kNone;
  const auto content =
      brivolant::ReadStyleData(std::string_view(reinterpret_cast<const char*>(data), size), fault);
  if (content.BlendAlpha && !(*content.BlendAlpha >= 0 && *content.BlendAlpha <= 1)) std::abort();
  return 0;
}
