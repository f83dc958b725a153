// SPDX-License-Identifier: MIT
#include <cstdint>

#include "platform/services/SystemServices.h"
#include "sources/ThreadediPhotoReader.h"

namespace {
struct Quiet final : brivolant::Log {
  void Write(std::string_view) override {}
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Quiet log;
  brivolant::SystemRandom random(1);
  brivolant::ThreadediPhotoReader reader(log, random);
  (void)reader.ReadBytes({reinterpret_cast<const char*>(data), size});
  return 0;
}
