// SPDX-License-Identifier: MIT
#include <cstdlib>

#include "formats/IFFData.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  brivolant::IFFData container;
  if (container.Data(std::string_view(reinterpret_cast<const char*>(data), size))) {
    brivolant::IFFData again;
    const std::string written = container.Data();
    if (!again.Data(std::string_view(written).substr(4)) || again.Data() != written) std::abort();
  }
  return 0;
}
