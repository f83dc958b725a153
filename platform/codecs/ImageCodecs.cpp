// SPDX-License-Identifier: MIT
#include "platform/codecs/ImageCodecs.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>

#include "platform/codecs/Cancellation.h"
#include "platform/codecs/CodecDetail.h"
#include "platform/files/AtomicFile.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/ScaleKernels.h"
#include "platform/pictures/kernels/TurnKernels.h"

namespace brivolant {
namespace {

/// What turns each TIFF orientation upright, from 1 to 8.
constexpr std::array<kernels::Turn, 8> kTurns{{{false, false, false},
                                               {false, true, false},
                                               {false, true, true},
                                               {false, false, true},
                                               {true, false, false},
                                               {true, true, false},
                                               {true, true, true},
                                               {true, false, true}}};

thread_local const std::atomic<bool>* cancellation = nullptr;

}  // namespace

DecodeCancellation::DecodeCancellation(const std::atomic<bool>& flag)
    : before_(std::exchange(cancellation, &flag)) {}
DecodeCancellation::~DecodeCancellation() {
  cancellation = before_;
}
const std::atomic<bool>* DecodeCancellation::Flag() {
  return cancellation;
}

namespace codecs {
namespace {

std::string EncodePdf(const FolderItem& file, std::span<const EncodeImage> pictures) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setResolution(72);
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    for (const EncodeImage& image : pictures) {
      const Picture picture = Flattened(image.Pixels);
      const QImage shown = image.Grey ? picture.AsImage().convertToFormat(QImage::Format_Grayscale8)
                                      : picture.AsImage();
      const QSizeF points(picture.Width() * 72.0 / std::max(1, picture.HorizontalResolution),
                          picture.Height() * 72.0 / std::max(1, picture.VerticalResolution));
      writer.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch));
      if (painter.isActive()) {
        writer.newPage();
      } else if (!painter.begin(&writer)) {
        return CodecMessage(codecTexts::kUnknownFormat, file);
      }
      painter.drawImage(QRectF(0, 0, writer.width(), writer.height()), shown);
    }
  }
  const std::error_code error = WriteFileAtomically(
      file, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
  return error ? CodecMessage(codecTexts::kCannotWrite, file, error.message()) : std::string();
}

}  // namespace

std::string TooLarge(const FolderItem& file, int width, int height) {
  if (width > 0 && height > 0 && std::max(width, height) <= kLongestSide &&
      std::int64_t{width} * height <= Picture::kMostPixels) {
    return {};
  }
  return WithPlaceholders(
      CodecMessage(codecTexts::kTooLarge, file),
      {{"<width>", std::to_string(width)}, {"<height>", std::to_string(height)}});
}

Expected<Picture> Allocate(const FolderItem& file, int width, int height) {
  std::string refusal = TooLarge(file, width, height);
  if (!refusal.empty()) return Expected<Picture>::Failure(std::move(refusal));
  Picture picture = Picture::Uninitialized(width, height, 32);
  if (picture.IsNil()) {
    return Expected<Picture>::Failure(CodecMessage(codecTexts::kNoMemory, file));
  }
  return {std::move(picture), {}};
}

void PaintMissing(Picture& picture, int first, int last) {
  constexpr int kMissing = 128;
  const Pixels pixels = picture.Edit();
  for (int y = std::max(0, first); y < std::min(last, pixels.height); ++y) {
    std::uint8_t* row = pixels.Row(y);
    std::fill_n(row, std::ptrdiff_t{4} * pixels.width, std::uint8_t{kMissing});
    for (int x = 0; x < pixels.width; ++x) row[4 * x + 3] = 255;
  }
}

bool IsBlank(const Picture& picture) {
  // The largest block of a JPEG, but not all of a small picture.
  constexpr std::int64_t kTrace = 256;
  constexpr int kUnseen = 8;
  const ConstPixels pixels = picture.View();
  std::int64_t left = std::min(kTrace, std::int64_t{pixels.width} * pixels.height / 16);
  const std::uint8_t* last = pixels.Row(pixels.height - 1) + std::ptrdiff_t{4} * (pixels.width - 1);
  for (int y = 0; y < pixels.height; ++y) {
    const std::uint8_t* row = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, row += 4) {
      const bool seen = std::abs(row[0] - last[0]) > kUnseen ||
                        std::abs(row[1] - last[1]) > kUnseen ||
                        std::abs(row[2] - last[2]) > kUnseen;
      if (seen && --left < 0) return false;
    }
  }
  return true;
}

Expected<DecodedImage> ReadInPart(const FolderItem& file, DecodedImage image,
                                  std::string_view reason, std::int64_t rows) {
  if (image.Pixels.IsNil() || (rows <= 0 && IsBlank(image.Pixels))) {
    return Expected<DecodedImage>::Failure(CodecMessage(codecTexts::kDamaged, file, reason));
  }
  image.Damage = {CodecMessage(codecTexts::kReadInPart, file, reason),
                  CodecMessage(codecTexts::kDamaged, file, reason)};
  return {std::move(image), {}};
}

Picture FitWithin(const Picture& picture, int longest) {
  const int side = std::max(picture.Width(), picture.Height());
  if (picture.IsNil() || side <= longest) return picture;
  const double scale = static_cast<double>(longest) / side;
  const int width = std::max(1, static_cast<int>(std::lround(picture.Width() * scale)));
  const int height = std::max(1, static_cast<int>(std::lround(picture.Height() * scale)));
  const kernels::SourceArea all{0, 0, static_cast<double>(picture.Width()),
                                static_cast<double>(picture.Height())};
  Picture small = Picture::Uninitialized(width, height, picture.Depth());
  if (small.IsNil()) return small;
  kernels::Scale(picture.View(), all, small.Edit());
  if (const Plane* mask = picture.Mask()) {
    Plane scaled = Plane::Uninitialized(width, height);
    if (!scaled.IsNil()) kernels::Scale(mask->View(), all, scaled.Edit());
    small.SetMask(std::move(scaled));
  }
  return small;
}

Picture Flattened(const Picture& picture) {
  const Plane* mask = picture.Mask();
  if (mask == nullptr) return picture;
  Picture flat = NewPicture(picture.Width(), picture.Height(), picture.Depth());
  if (flat.IsNil()) return flat;
  flat.HorizontalResolution = picture.HorizontalResolution;
  flat.VerticalResolution = picture.VerticalResolution;
  kernels::Compose(flat.Edit(), picture.View(), mask->View(), 0, 0);
  return flat;
}

}  // namespace codecs

namespace codecs {

DecodedImage SmallOf(DecodedImage image, int longest) {
  image.Pixels = UprightPicture(FitWithin(image.Pixels, longest), image.Properties.Orientation);
  return image;
}

}  // namespace codecs

Picture UprightPicture(const Picture& picture, int orientation) {
  if (picture.IsNil() || orientation <= 1 || orientation > 8) return picture;
  const kernels::Turn turn = kTurns[static_cast<std::size_t>(orientation - 1)];
  const int width = turn.exchange ? picture.Height() : picture.Width();
  const int height = turn.exchange ? picture.Width() : picture.Height();
  Picture upright = Picture::Uninitialized(width, height, picture.Depth());
  if (upright.IsNil()) return upright;
  kernels::TurnPixels(picture.View(), upright.Edit(), turn);
  upright.HorizontalResolution =
      turn.exchange ? picture.VerticalResolution : picture.HorizontalResolution;
  upright.VerticalResolution =
      turn.exchange ? picture.HorizontalResolution : picture.VerticalResolution;
  if (const Plane* mask = picture.Mask()) {
    Plane turned = Plane::Uninitialized(width, height);
    if (!turned.IsNil()) kernels::TurnPlane(mask->View(), turned.Edit(), turn);
    upright.SetMask(std::move(turned));
  }
  return upright;
}

std::string CodecMessage(const LocalizedText& text, const FolderItem& file,
                         std::string_view reason) {
  return WithPlaceholders(text.Text(), {{"<filename>", file.DisplayName()}, {"<reason>", reason}});
}

Expected<std::unique_ptr<ImageSource>> ImageSource::Open(const FolderItem& file) {
  using Result = Expected<std::unique_ptr<ImageSource>>;
  if (!file.Exists()) return Result::Failure(CodecMessage(codecTexts::kMissing, file));
  // Nobody may ever write into a pipe, and a device has no end.
  std::error_code unknown;
  if (!std::filesystem::is_regular_file(file.Path(), unknown) || !file.IsReadable()) {
    return Result::Failure(CodecMessage(codecTexts::kUnreadable, file));
  }
  std::unique_ptr<ImageSource> source;
  if (codecs::HasRawExtension(file)) source = codecs::OpenRaw(file);
  if (!source) source = codecs::OpenJpeg(file);
  if (!source) source = codecs::OpenPng(file);
  if (!source) source = codecs::OpenWithVips(file);
  if (!source) source = codecs::OpenDamaged(file);
  if (!source) {
    return Result::Failure(codecs::EndsEarly(file) ? CodecMessage(codecTexts::kDamaged, file,
                                                                  codecTexts::kEndsEarly.Text())
                                                   : CodecMessage(codecTexts::kUnreadable, file));
  }
  return {std::move(source), {}};
}

Expected<Picture> ImageSource::Thumbnail(int longest) const {
  Expected<DecodedImage> small = Small(longest);
  if (!small) return Expected<Picture>::Failure(std::move(small.error));
  return {std::move(small->Pixels), {}};
}

std::string EncodeImageFile(const FolderItem& file, std::string_view identifier,
                            std::span<const EncodeImage> pictures) {
  for (const EncodeImage& image : pictures) {
    if (image.Pixels.IsNil()) return CodecMessage(codecTexts::kNoMemory, file);
  }
  if (pictures.empty()) return CodecMessage(codecTexts::kUnknownFormat, file);
  if (identifier == "public.jpeg") return codecs::EncodeJpeg(file, pictures.front());
  if (identifier == "com.adobe.pdf") return codecs::EncodePdf(file, pictures);
  if (codecs::WrittenByMagick(identifier)) {
    return codecs::EncodeWithMagick(file, identifier, pictures.front());
  }
  return codecs::EncodeWithVips(file, identifier, pictures);
}

Picture DecodeImageBytes(std::string_view bytes, int longest) {
  constexpr std::string_view kJpeg2000{"\0\0\0\x0CjP  ", 8};
  return bytes.starts_with(kJpeg2000) ? codecs::DecodeWithVips(bytes, longest)
                                      : codecs::DecodePng(bytes, longest);
}

Picture DecodeJpegBytes(std::string_view bytes, int atLeast, std::int64_t most) {
  return codecs::DecodeJpegPreview(bytes, atLeast, most);
}

std::string EncodeJpegBytes(const EncodeImage& image) {
  return codecs::EncodeJpegToMemory(image);
}

void ShutDownCodecs() {
  codecs::ShutDownVips();
}

}  // namespace brivolant
