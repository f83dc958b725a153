// SPDX-License-Identifier: MIT
#include <cstdint>

#include "formats/iconObject.h"

namespace {
struct Quiet final : brivolant::Log {
  void Write(std::string_view) override {}
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Quiet log;
  brivolant::iconObject icon(log);
  icon.OpenAsIcon({}, {reinterpret_cast<const char*>(data), size});
  for (const int side : {12, 16, 24, 32, 48, 128, 256, 512}) (void)icon.RetrieveData(side);
  return 0;
}
