// SPDX-License-Identifier: MIT
#include <cstdlib>

#include "formats/BinaryDictionary.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brivolant::BinaryDictionary;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (const auto dictionary = BinaryDictionaryFromString(bytes)) {
    // What was read can be written and read again, to the same bytes.
    const std::string written = BinaryStringFromDictionary(*dictionary);
    const auto again = BinaryDictionaryFromString(written);
    if (!again || BinaryStringFromDictionary(*again) != written) std::abort();
  }
  return 0;
}
