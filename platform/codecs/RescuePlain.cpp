// SPDX-License-Identifier: MIT
// BMP and PNM, whose pixels lie in a file as they are: what is cut off is made up, so that the
// usual decoder takes the file, and painted over as missing.
#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <limits>

#include "platform/codecs/RescueCodec.h"
#include "platform/files/BinaryStream.h"

namespace brivolant::codecs {
namespace {

/// A file of which at least so much must be there, since nothing is packed.
constexpr std::uint64_t kMostClaimedPerByte = 200;
constexpr char kMissing = '\x80';

/// What is known of a file of plain rows.
struct PlainRows {
  std::string bytes;
  /// How many of all are stored whole.
  int rows = 0;
  bool upwards = false;
};

/// Goes on after the end of `bytes` as far as `height` rows of `line` bytes from `begin` on need;
/// nothing if they are there, or nearly all are not.
std::optional<PlainRows> Padded(std::string bytes, std::uint64_t begin, std::uint64_t line,
                                std::uint64_t height) {
  constexpr std::uint64_t kMostSide = std::uint64_t{1} << 31U;
  const std::uint64_t length = bytes.size();
  if (line == 0 || line > kMostSide || height == 0 || height > kMostSide || begin >= length ||
      line * height > kMostClaimedPerByte * length || begin + line * height <= length) {
    return std::nullopt;
  }
  const auto rows = static_cast<int>((length - begin) / line);
  bytes.resize(static_cast<std::size_t>(begin + line * height), kMissing);
  return PlainRows{std::move(bytes), rows, false};
}

std::optional<PlainRows> PadBmp(std::string bytes) {
  constexpr std::uint32_t kOldHeader = 12;
  BinaryStream stream(bytes);
  stream.LittleEndian = true;
  stream.Position(10);
  const std::uint64_t begin = stream.ReadUInt32();
  const bool old = stream.ReadUInt32() == kOldHeader;
  const std::int64_t width =
      old ? stream.ReadUInt16() : static_cast<std::int32_t>(stream.ReadUInt32());
  const std::int64_t height =
      old ? stream.ReadUInt16() : static_cast<std::int32_t>(stream.ReadUInt32());
  stream.ReadUInt16();
  const std::int64_t bits = stream.ReadUInt16();
  const std::uint32_t packing = old ? 0 : stream.ReadUInt32();
  // Of what is packed nobody knows where the rows end.
  constexpr std::uint32_t kBitFields = 3;
  if (stream.Failed() || width <= 0 || bits > 32 || (packing != 0 && packing != kBitFields)) {
    return std::nullopt;
  }
  const auto line = static_cast<std::uint64_t>((width * bits + 31) / 32 * 4);
  auto padded = Padded(std::move(bytes), begin, line, static_cast<std::uint64_t>(std::abs(height)));
  if (padded) {
    ByteWriter length;
    length.UInt32(static_cast<std::uint32_t>(padded->bytes.size()));
    padded->bytes.replace(2, 4, length.Take());
  }
  // A profile lies behind the pixels, so that it is not there either: sRGB, and no profile.
  constexpr std::size_t kHeaderWithProfile = 14 + 124;
  if (padded && !old && begin >= kHeaderWithProfile) {
    padded->bytes.replace(70, 4, "BGRs").replace(126, 8, 8, '\0');
  }
  if (padded) padded->upwards = height > 0;
  return padded;
}

/// The words of a header or of pixels that are written as text, without comments.
class Words {
 public:
  explicit Words(std::string_view text) : text_(text) {}

  /// Empty at the end.
  std::string_view Next() {
    while (at_ < text_.size() && (IsBlank(text_[at_]) || text_[at_] == '#')) {
      if (text_[at_] == '#') at_ = std::min(text_.find('\n', at_), text_.size() - 1);
      ++at_;
    }
    const std::size_t begin = at_;
    while (at_ < text_.size() && !IsBlank(text_[at_])) ++at_;
    return text_.substr(begin, at_ - begin);
  }
  /// A number of at most nine digits, 0 for anything else.
  std::uint64_t Number() {
    constexpr std::size_t kMostDigits = 9;
    const std::string_view word = Next();
    std::uint64_t number = 0;
    if (word.size() > kMostDigits) return 0;
    for (const char digit : word) {
      if (digit < '0' || digit > '9') return 0;
      number = 10 * number + static_cast<std::uint64_t>(digit - '0');
    }
    return number;
  }
  std::size_t At() const { return at_; }

 private:
  static bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

  std::string_view text_;
  std::size_t at_ = 0;
};

std::optional<PlainRows> PadPnm(std::string bytes) {
  const char kind = bytes[1];
  Words words(bytes);
  words.Next();
  const std::uint64_t width = words.Number();
  const std::uint64_t height = words.Number();
  const std::uint64_t most = kind == '1' || kind == '4' ? 1 : words.Number();
  if (width == 0 || height == 0 || most == 0 || most > 65535) return std::nullopt;
  const std::uint64_t samples = width * (kind == '3' || kind == '6' ? 3 : 1);
  if (kind >= '4') {
    const std::uint64_t line = kind == '4' ? (width + 7) / 8 : samples * (most > 255 ? 2 : 1);
    // One blank stands before the pixels.
    return Padded(std::move(bytes), words.At() + 1, line, height);
  }
  if (samples > std::numeric_limits<std::uint64_t>::max() / height ||
      samples * height > kMostClaimedPerByte * bytes.size()) {
    return std::nullopt;
  }
  if (kind == '1') return std::nullopt;
  // A last number at the very end may be the begin of a larger one.
  std::uint64_t count = 0;
  std::size_t end = words.At();
  while (count < samples * height && !words.Next().empty() && words.At() < bytes.size()) {
    ++count;
    end = words.At();
  }
  if (count == samples * height) return std::nullopt;
  PlainRows padded{std::move(bytes), static_cast<int>(count / samples), false};
  padded.bytes.resize(end);
  const std::string missing = "\n" + std::to_string(most / 2);
  for (; count < samples * height; ++count) padded.bytes += missing;
  return padded;
}

void PaintMissingRows(Picture& picture, const PlainRows& plain) {
  const int first = plain.upwards ? 0 : plain.rows;
  const int last = plain.upwards ? picture.Height() - plain.rows : picture.Height();
  PaintMissing(picture, first, last);
  if (picture.Mask() == nullptr) return;
  Plane mask = *picture.Mask();
  const Grey opaque = mask.Edit();
  for (int y = first; y < last; ++y) std::fill_n(opaque.Row(y), opaque.width, std::uint8_t{0});
  picture.SetMask(std::move(mask));
}

}  // namespace

bool TextEndsEarly(const FolderItem& file) {
  const std::optional<std::string> bytes = ReadFile(file, kMostRescuedBytes);
  if (!bytes || bytes->size() < 2 || bytes->front() != 'P' || (*bytes)[1] < '1' ||
      (*bytes)[1] > '3') {
    return false;
  }
  Words words(*bytes);
  const bool bits = words.Next() == "P1";
  const std::uint64_t width = words.Number();
  const std::uint64_t height = words.Number();
  const std::uint64_t wanted = width * height * ((*bytes)[1] == '3' ? 3U : 1U);
  if (!bits) words.Next();
  std::uint64_t count = 0;
  for (std::string_view word = words.Next(); count < wanted && !word.empty(); word = words.Next()) {
    // The digits of black and white may stand without a blank between them.
    count += bits ? word.size() : 1;
  }
  return count < wanted;
}

Expected<DecodedImage> RescuePlain(const FolderItem& file) {
  std::optional<std::string> bytes = ReadFile(file, kMostRescuedBytes);
  if (!bytes || bytes->size() < 2) return {};
  const auto plain = bytes->front() == 'B' ? PadBmp(std::move(*bytes)) : PadPnm(std::move(*bytes));
  if (!plain) return {};
  Expected<DecodedImage> image = DecodeWithVips(file, plain->bytes);
  if (!image) return {};
  PaintMissingRows(image->Pixels, *plain);
  return ReadInPart(file, std::move(*image), codecTexts::kEndsEarly.Text(), plain->rows);
}

}  // namespace brivolant::codecs
