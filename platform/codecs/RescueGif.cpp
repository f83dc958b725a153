// SPDX-License-Identifier: MIT
#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include "platform/codecs/RescueCodec.h"

namespace brivolant::codecs {
namespace {

struct CloseGif {
  void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};

/// What the library has not read yet.
struct GifInput {
  std::string_view rest;
  bool ended = false;
};

int ReadInput(GifFileType* gif, GifByteType* to, int count) {
  auto& input = *static_cast<GifInput*>(gif->UserData);
  const std::size_t got =
      input.rest.copy(reinterpret_cast<char*>(to), static_cast<std::size_t>(std::max(count, 0)));
  input.rest.remove_prefix(got);
  input.ended = input.ended || got < static_cast<std::size_t>(count);
  return static_cast<int>(got);
}

/// Goes to the first picture and gives the colour that is transparent in it, -1 if none is; nothing
/// if there is no picture.
std::optional<int> FindPicture(GifFileType* gif) {
  int transparent = NO_TRANSPARENT_COLOR;
  GifRecordType record = UNDEFINED_RECORD_TYPE;
  while (DGifGetRecordType(gif, &record) == GIF_OK && record == EXTENSION_RECORD_TYPE) {
    int code = 0;
    GifByteType* block = nullptr;
    if (DGifGetExtension(gif, &code, &block) != GIF_OK) return std::nullopt;
    while (block != nullptr) {
      GraphicsControlBlock control{};
      // A block begins with its length.
      if (code == GRAPHICS_EXT_FUNC_CODE &&
          DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK) {
        transparent = control.TransparentColor;
      }
      if (DGifGetExtensionNext(gif, &block) != GIF_OK) return std::nullopt;
    }
  }
  if (record != IMAGE_DESC_RECORD_TYPE || DGifGetImageDesc(gif) != GIF_OK) return std::nullopt;
  return transparent;
}

/// Where the rows of a picture are painted.
struct GifTarget {
  Canvas& canvas;
  const GifImageDesc& frame;
  const ColorMapObject& colors;
  int transparent;

  /// Paints a row of the picture `times` times, which is how the gaps of an interlaced one are
  /// filled until their own rows come.
  void Paint(const std::vector<GifPixelType>& line, int row, int times) const {
    const Pixels pixels = canvas.picture.Edit();
    const int left = frame.Left;
    const int width = std::min(frame.Width, pixels.width - left);
    const int end =
        std::min({row + times, static_cast<int>(frame.Height), pixels.height - frame.Top});
    for (int y = frame.Top + row; y < frame.Top + end; ++y) {
      std::uint8_t* to = pixels.Row(y) + std::ptrdiff_t{4} * left;
      std::uint8_t* mask = canvas.mask.IsNil() ? nullptr : canvas.mask.Edit().Row(y) + left;
      for (int x = 0; x < width; ++x, to += 4) {
        const int index = line[static_cast<std::size_t>(x)];
        const GifColorType color =
            index < colors.ColorCount ? colors.Colors[index] : GifColorType{0, 0, 0};
        to[0] = color.Blue;
        to[1] = color.Green;
        to[2] = color.Red;
        if (mask != nullptr) mask[x] = index == transparent ? 255 : 0;
      }
    }
  }
};

/// The next row; false if not all of it can be read. With the very last pixel the library looks for
/// the end of the data, and what is wrong there takes nothing from the row.
bool ReadLine(GifFileType* gif, std::vector<GifPixelType>& line, bool last) {
  const int width = static_cast<int>(line.size());
  if (!last || width < 2) return DGifGetLine(gif, line.data(), width) == GIF_OK || last;
  if (DGifGetLine(gif, line.data(), width - 1) != GIF_OK) return false;
  line.back() = line[line.size() - 2];
  (void)DGifGetLine(gif, &line.back(), 1);
  return true;
}

/// Reads the rows that come before the first bad code, and gives how many.
int ReadRows(GifFileType* gif, const GifTarget& target) {
  struct Pass {
    int first, step;
  };
  constexpr std::array<Pass, 4> kPasses{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
  const int height = target.frame.Height;
  std::vector<GifPixelType> line(static_cast<std::size_t>(target.frame.Width));
  int read = 0;
  const auto next = [&](int row, int times) {
    if (!ReadLine(gif, line, read + 1 == height)) return false;
    target.Paint(line, row, times);
    ++read;
    return true;
  };
  if (!target.frame.Interlace) {
    while (read < height && next(read, 1)) {
    }
    return read;
  }
  for (const Pass& pass : kPasses) {
    for (int row = pass.first; row < height; row += pass.step) {
      if (!next(row, pass.first == 0 ? pass.step : pass.first)) return read;
    }
  }
  return read;
}

}  // namespace

Expected<DecodedImage> RescueGif(const FolderItem& file) {
  const std::optional<std::string> bytes = ReadFile(file, kMostRescuedBytes);
  if (!bytes) return {};
  GifInput input{*bytes};
  const std::unique_ptr<GifFileType, CloseGif> gif(DGifOpen(&input, ReadInput, nullptr));
  if (!gif) return {};
  const std::optional<int> transparent = FindPicture(gif.get());
  if (!transparent) return {};
  const GifImageDesc frame = gif->Image;
  const ColorMapObject* colors = frame.ColorMap != nullptr ? frame.ColorMap : gif->SColorMap;
  if (colors == nullptr || frame.Left < 0 || frame.Top < 0 || frame.Width <= 0 ||
      frame.Height <= 0) {
    return {};
  }
  // The screen of the file, or the picture where that is larger.
  const int width = std::max<int>(gif->SWidth, frame.Left + frame.Width);
  const int height = std::max<int>(gif->SHeight, frame.Top + frame.Height);
  const bool alpha = *transparent >= 0 || frame.Width < width || frame.Height < height;
  auto canvas = NewCanvas(file, width, height, alpha);
  if (!canvas) return Expected<DecodedImage>::Failure(canvas.error);
  if (alpha) {
    // Around the picture there is nothing to be missed.
    const Grey mask = canvas->mask.Edit();
    for (int y = 0; y < height; ++y) {
      const bool beside = y < frame.Top || y >= frame.Top + frame.Height;
      std::fill_n(mask.Row(y), beside ? width : frame.Left, std::uint8_t{255});
      if (beside) continue;
      const int right = frame.Left + frame.Width;
      std::fill_n(mask.Row(y) + right, width - right, std::uint8_t{255});
    }
  }
  const int rows = ReadRows(gif.get(), {*canvas, frame, *colors, *transparent});
  ImageProperties properties;
  properties.HasAlpha = alpha;
  return ReadInPart(file, canvas->Take(properties),
                    (input.ended ? codecTexts::kEndsEarly : codecTexts::kBadData).Text(), rows);
}

}  // namespace brivolant::codecs
