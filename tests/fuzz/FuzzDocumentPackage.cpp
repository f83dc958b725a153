// SPDX-License-Identifier: MIT
#include "FuzzDocument.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brivolant;
  const FolderItem package = fuzz::Folder().Child("a.brvPhoto");
  if (package.CreateAsFolder()) std::abort();
  fuzz::Write(package.Child(BrivolantDocument::kSettingsName), data, size);
  fuzz::Load(package);
  return 0;
}
