// SPDX-License-Identifier: MIT
#include "FuzzImage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brivolant;
  // No byte of a coded PNG holds more: eight pixels of one bit, packed 1032 times.
  constexpr std::int64_t kMostPixelsPerByte = std::int64_t{8} * 1032;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  // Others are opened as whatever they are.
  if (!bytes.starts_with("\x89PNG\r\n\x1A\n")) return 0;
  const FolderItem file = fuzz::Folder().Child("a.png");
  fuzz::Write(file, data, size);
  fuzz::Decode(file, size, kMostPixelsPerByte, Picture::kMostPixels);
  const Picture whole = DecodeImageBytes(bytes);
  if (whole.IsNil()) return 0;
  fuzz::CheckPicture(whole, size, kMostPixelsPerByte);
  // What is whole in memory is whole in a file.
  const auto source = ImageSource::Open(file);
  if (!source) fuzz::Fail("whole in memory only");
  const auto again = (*source.value)->Decode(0);
  if (!again || again.value->Damage || !again.value->Pixels.SameAs(whole)) {
    fuzz::Fail("not as in memory");
  }
  return 0;
}
