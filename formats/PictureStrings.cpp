// SPDX-License-Identifier: MIT
#include "formats/PictureStrings.h"

#include <QBuffer>
#include <QImage>

#include "platform/codecs/ImageCodecs.h"
#include "platform/files/AtomicFile.h"

namespace brivolant {
namespace {

Picture FromFile(const FolderItem& file, Picture (*open)(std::string_view)) {
  const auto bytes = ReadFile(file);
  return bytes ? open(*bytes) : Picture();
}

bool ToFile(const FolderItem& file, const std::string& bytes) {
  return !bytes.empty() && !WriteFileAtomically(file, bytes);
}

}  // namespace

Picture JpegImporter::OpenFromString(std::string_view bytes) {
  return DecodeJpegBytes(bytes);
}
Picture JpegImporter::OpenFromFile(const FolderItem& file) {
  return FromFile(file, OpenFromString);
}

Picture JpegImporter::PreviewFromString(std::string_view bytes, int side) {
  return DecodeJpegBytes(bytes, side, kMostPreviewPixels);
}

Picture JpegImporter::PreviewFromFile(const FolderItem& file, int side) {
  constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 24;
  const auto bytes = ReadFile(file, kMostBytes);
  return bytes ? PreviewFromString(*bytes, side) : Picture();
}

Picture PngImporter::OpenFromString(std::string_view bytes) {
  QImage image = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()),
                                  static_cast<int>(bytes.size()), "PNG");
  if (image.isNull()) return {};
  image.convertTo(QImage::Format_ARGB32);
  Picture picture = Picture::Uninitialized(image.width(), image.height(), 32);
  if (picture.IsNil()) return picture;
  Plane mask(image.width(), image.height(), 0);
  const Pixels pixels = picture.Edit();
  const Grey alpha = mask.Edit();
  bool transparent = false;
  for (int y = 0; y < image.height(); ++y) {
    const auto* from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    auto* to = reinterpret_cast<QRgb*>(pixels.Row(y));
    for (int x = 0; x < image.width(); ++x) {
      to[x] = from[x] | 0xFF000000U;
      alpha.Row(y)[x] = static_cast<std::uint8_t>(255 - qAlpha(from[x]));
      transparent = transparent || qAlpha(from[x]) != 255;
    }
  }
  if (transparent) picture.SetMask(std::move(mask));
  return picture;
}
Picture PngImporter::OpenFromFile(const FolderItem& file) {
  return FromFile(file, OpenFromString);
}

std::string JpegExporter::SaveToString(const Picture& picture) const {
  return picture.IsNil() ? std::string() : EncodeJpegBytes({picture, Quality / 100.0});
}
bool JpegExporter::SaveToFile(const FolderItem& file, const Picture& picture) const {
  return ToFile(file, SaveToString(picture));
}

std::string PngExporter::SaveToString(const Picture& picture) const {
  QImage image = picture.AsImage();
  if (const Plane* mask = picture.Mask()) {
    image.convertTo(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
      auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
      for (int x = 0; x < image.width(); ++x) {
        row[x] = (row[x] & 0x00FFFFFFU) | static_cast<QRgb>(255 - mask->At(x, y)) << 24;
      }
    }
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG")) return {};
  return bytes.toStdString();
}
bool PngExporter::SaveToFile(const FolderItem& file, const Picture& picture) const {
  return ToFile(file, SaveToString(picture));
}

}  // namespace brivolant
