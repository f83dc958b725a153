// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdlib>

#include "effects/borders/BorderModuleItem.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  brivolant::BorderModuleItem border;
  border.Name = "before";
  // What cannot be read changes nothing but the message.
  if (!border.LoadBytes(bytes, "fuzz") &&
      (border.Name != "before" || border.LastErrorMessage.empty())) {
    std::abort();
  }
  return 0;
}
