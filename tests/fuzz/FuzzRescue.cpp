// SPDX-License-Identifier: MIT
// Damaged TIFF, WebP, JPEG 2000, GIF, BMP and PNM files, by our own decoders, and by whatever opens
// them.
#include "FuzzImage.h"
#include "platform/codecs/CodecDetail.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brivolant;
  constexpr std::int64_t kMostPixelsPerByte = 4096;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  // Too short for any of them.
  if (size < 16) return 0;
  const bool tiff = bytes.starts_with(std::string_view("II*\0", 4)) ||
                    bytes.starts_with(std::string_view("MM\0*", 4));
  const bool webp = bytes.starts_with("RIFF") && bytes.substr(8, 4) == "WEBP";
  const bool pnm = bytes[0] == 'P' && bytes[1] >= '1' && bytes[1] <= '6';
  if (!tiff && !webp && !pnm && !bytes.starts_with(std::string_view("\0\0\0\x0CjP  ", 8)) &&
      !bytes.starts_with("GIF8") && !bytes.starts_with("BM")) {
    return 0;
  }
  const FolderItem file = fuzz::Folder().Child("a");
  fuzz::Write(file, data, size);
  for (int index = 0; index < (tiff ? 2 : 1); ++index) {
    const auto image = codecs::Rescue(file, index);
    fuzz::CheckVerdict(image, size + 1, kMostPixelsPerByte);
    if (!fuzz::Same(image, codecs::Rescue(file, index))) fuzz::Fail("rescued differently");
  }
  fuzz::CheckMemory();
  // Other libraries' decoders ask only what is allowed of whole files.
  constexpr std::int64_t kMostPixels = std::int64_t{1} << 20;
  fuzz::Decode(file, size, kMostPixels, kMostPixels);
  return 0;
}
