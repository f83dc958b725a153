// SPDX-License-Identifier: MIT
#include "FuzzDocument.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brivolant;
  const FolderItem file = fuzz::Folder().Child("b.brvPhoto");
  fuzz::Write(file, data, size);
  fuzz::Load(file);
  return 0;
}
