// SPDX-License-Identifier: MIT
#include "platform/codecs/JpegEighth.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "platform/codecs/Cancellation.h"

namespace brivolant::codecs {
namespace {

enum Marker : std::uint8_t {
  kSOF0 = 0xC0,
  kSOF1 = 0xC1,
  kDHT = 0xC4,
  kRST0 = 0xD0,
  kSOI = 0xD8,
  kEOI = 0xD9,
  kSOS = 0xDA,
  kDQT = 0xDB,
  kDRI = 0xDD,
  kAPP0 = 0xE0,
  kAPP14 = 0xEE,
};

constexpr int kBlock = 8;
constexpr int kCoefficients = 64;
/// Bits of a code that one look in a table settles.
constexpr int kLook = 12;
constexpr int kLongestCode = 16;
constexpr int kWholeBlock = kCoefficients;

/// The bits of a scan. Behind its end, and at a marker, come zeros.
class BitReader {
 public:
  explicit BitReader(std::string_view bytes)
      : at_(reinterpret_cast<const std::uint8_t*>(bytes.data())), end_(at_ + bytes.size()) {}

  /// At least 56 bits are there afterwards.
  void Fill() {
    std::uint64_t next = 0;
    if (end_ - at_ >= static_cast<std::ptrdiff_t>(sizeof next)) {
      std::memcpy(&next, at_, sizeof next);
      if (!HoldsFF(next)) {
        // Bits of a byte that is not taken whole come again, the same, with the next fill.
        bits_ |= BigEndian(next) >> count_;
        const int taken = (63 - count_) >> 3;
        at_ += taken;
        count_ += 8 * taken;
        return;
      }
    }
    FillSlowly();
  }
  std::uint32_t Peek(int count) const { return static_cast<std::uint32_t>(bits_ >> (64 - count)); }
  void Skip(int count) {
    bits_ <<= count;
    count_ -= count;
  }
  /// False if more was read than there was.
  bool Good() const { return missing_ <= count_; }
  /// True if there are bytes before the next marker that nothing took: then blocks were read wrong.
  bool Left() const {
    return count_ - missing_ >= 8 || (end_ - at_ >= 2 && (at_[0] != 0xFF || at_[1] == 0));
  }
  /// True if the next marker is the end of the image, or the file just ends.
  bool AtEnd() {
    SkipFill();
    return end_ - at_ < 2 || at_[1] == kEOI;
  }
  /// Behind the next restart marker; false if another thing comes.
  bool Restart(int number) {
    if (Left()) return false;
    bits_ = 0;
    count_ = 0;
    missing_ = 0;
    SkipFill();
    if (end_ - at_ < 2 || at_[0] != 0xFF || at_[1] != kRST0 + number) return false;
    at_ += 2;
    return true;
  }

 private:
  void SkipFill() {
    while (end_ - at_ >= 2 && at_[0] == 0xFF && at_[1] == 0xFF) ++at_;
  }
  /// A byte of 0xFF begins a marker or is stuffed. May say so where there is none.
  static bool HoldsFF(std::uint64_t word) {
    return ((~word - 0x0101010101010101U) & word & 0x8080808080808080U) != 0;
  }
  static std::uint64_t BigEndian(std::uint64_t word) {
    return std::endian::native == std::endian::big ? word : __builtin_bswap64(word);
  }
  void FillSlowly() {
    while (count_ < 56) {
      std::uint64_t byte = 0;
      if (at_ < end_ && *at_ != 0xFF) {
        byte = *at_++;
      } else if (end_ - at_ >= 2 && at_[1] == 0) {
        byte = 0xFF;
        at_ += 2;
      } else {
        missing_ += 8;
      }
      bits_ |= byte << (56 - count_);
      count_ += 8;
    }
  }

  const std::uint8_t* at_;
  const std::uint8_t* end_;
  std::uint64_t bits_ = 0;
  int count_ = 0;
  /// Bits that were made up.
  int missing_ = 0;
};

/// The codes of one table of the file.
class Huffman {
 public:
  /// How far one look leads through a block.
  struct Step {
    /// Bits of the codes and of the values behind them; 0 if the code is longer than the look.
    std::uint8_t bits = 0;
    /// Coefficients that are behind one then, and kEndOfBlock if the block ends.
    std::uint8_t advance = 0;
  };

  bool Read(std::string_view counts, std::string_view symbols) {
    int code = 0;
    std::size_t next = 0;
    for (int length = 1; length <= kLongestCode; ++length) {
      const int count = static_cast<std::uint8_t>(counts[static_cast<std::size_t>(length - 1)]);
      first_[length] = code;
      offset_[length] = static_cast<int>(next);
      if (code + count > 1 << length || next + static_cast<std::size_t>(count) > symbols.size()) {
        return false;
      }
      count_[length] = count;
      next += static_cast<std::size_t>(count);
      code = (code + count) << 1;
    }
    for (std::size_t i = 0; i < next; ++i) symbols_[i] = static_cast<std::uint8_t>(symbols[i]);
    for (std::uint32_t prefix = 0; prefix < quick_.size(); ++prefix) {
      quick_[prefix] = Find(prefix << (kLongestCode - kLook), kLook);
    }
    MakeSteps();
    known_ = true;
    return true;
  }
  bool Known() const { return known_; }

  /// The next symbol, or -1 for a code that there is not; 16 bits must be there.
  int Symbol(BitReader& bits) const {
    Code found = quick_[bits.Peek(kLook)];
    if (found.length == 0) found = Find(bits.Peek(kLongestCode), kLongestCode);
    if (found.length == 0) return -1;
    bits.Skip(found.length);
    return found.symbol;
  }

  /// Steps over the rest of a block; false if it is none.
  bool SkipBlock(BitReader& bits) const {
    int k = 1;
    while (true) {
      bits.Fill();
      // What one fill gives is enough for two looks.
      if (!Advance(bits, k)) return false;
      if (k >= kWholeBlock) break;
      if (!Advance(bits, k)) return false;
      if (k >= kWholeBlock) break;
    }
    // An end of block leads far beyond it, a value never.
    return k == kWholeBlock || k >= kEndOfBlock;
  }

 private:
  static constexpr int kEndOfBlock = 128;
  struct Code {
    std::uint8_t length = 0;
    std::uint8_t symbol = 0;
  };

  bool Advance(BitReader& bits, int& k) const {
    const std::uint32_t prefix = bits.Peek(kLook);
    Step step = several_[prefix];
    // No code of several may begin behind the block.
    const int last = k + step.advance % kEndOfBlock + step.advance / kEndOfBlock;
    if (last > kWholeBlock) step = single_[prefix];
    if (step.bits != 0) {
      bits.Skip(step.bits);
      k += step.advance;
      return true;
    }
    bits.Fill();
    const int symbol = Symbol(bits);
    if (symbol < 0) return false;
    bits.Skip(symbol & 15);
    k += AdvanceOf(symbol);
    return true;
  }

  static int AdvanceOf(int symbol) {
    if ((symbol & 15) != 0 || symbol >> 4 == 15) return (symbol >> 4) + 1;
    return kEndOfBlock;
  }
  /// `bits` are 16, of which the first `known` are.
  Code Find(std::uint32_t bits, int known) const {
    for (int length = 1; length <= known; ++length) {
      const int code = static_cast<int>(bits >> (kLongestCode - length));
      if (code - first_[length] < count_[length] && code >= first_[length]) {
        return {static_cast<std::uint8_t>(length),
                symbols_[static_cast<std::size_t>(offset_[length] + code - first_[length])]};
      }
    }
    return {};
  }
  void MakeSteps() {
    for (std::uint32_t prefix = 0; prefix < single_.size(); ++prefix) {
      Step one;
      Step all;
      int used = 0;
      while (used < kLook && all.advance < kEndOfBlock) {
        const std::uint32_t rest = prefix << used & ((1U << kLook) - 1);
        const Code code = quick_[rest];
        // A code counts only if all of its bits are known.
        if (code.length == 0 || used + code.length > kLook) break;
        const int advance = AdvanceOf(code.symbol);
        if (all.advance + advance > 255) break;
        all.advance = static_cast<std::uint8_t>(all.advance + advance);
        used += code.length + (code.symbol & 15);
        all.bits = static_cast<std::uint8_t>(used);
        if (one.bits == 0) one = all;
      }
      single_[prefix] = one;
      several_[prefix] = all;
    }
  }

  std::array<Code, 1U << kLook> quick_{};
  std::array<Step, 1U << kLook> single_{};
  std::array<Step, 1U << kLook> several_{};
  std::array<int, kLongestCode + 1> first_{};
  std::array<int, kLongestCode + 1> offset_{};
  std::array<int, kLongestCode + 1> count_{};
  std::array<std::uint8_t, 256> symbols_{};
  bool known_ = false;
};

struct Component {
  int identifier = 0;
  int horizontal = 1;
  int vertical = 1;
  int quantization = 0;
  int dc = 0;
  int ac = 0;
  int predictor = 0;
  /// Blocks of a line, whole MCUs.
  int stride = 0;
  std::vector<std::uint8_t> means;
};

class Decoder {
 public:
  explicit Decoder(std::string_view bytes) : bytes_(bytes) {}

  Picture Decode() {
    if (!ReadHeaders() || !ReadScan()) return {};
    return Assemble();
  }

 private:
  int Byte(std::size_t at) const { return static_cast<std::uint8_t>(bytes_[at]); }
  int Word(std::size_t at) const { return Byte(at) << 8 | Byte(at + 1); }

  /// Up to the first scan; false if the file is none of those that are decoded here.
  bool ReadHeaders() {
    if (bytes_.size() < 4 || Byte(0) != 0xFF || Byte(1) != kSOI) return false;
    std::size_t at = 2;
    while (at + 4 <= bytes_.size()) {
      if (Byte(at) != 0xFF) return false;
      const int marker = Byte(at + 1);
      if (marker == 0xFF) {
        ++at;
        continue;
      }
      const auto length = static_cast<std::size_t>(Word(at + 2));
      if (length < 2 || at + 2 + length > bytes_.size()) return false;
      const std::string_view segment = bytes_.substr(at + 4, length - 2);
      at += 2 + length;
      bool good = true;
      switch (marker) {
        case kDHT:
          good = ReadTables(segment);
          break;
        case kDQT:
          good = ReadQuantization(segment);
          break;
        case kDRI:
          good = segment.size() >= 2;
          if (good) restart_ = At(segment, 0) << 8 | At(segment, 1);
          break;
        case kSOF0:
        case kSOF1:
          good = ReadFrame(segment);
          break;
        case kAPP14:
          // Another colour transform than the usual one is left to others.
          good = !segment.starts_with("Adobe") || segment.size() < 12 || At(segment, 11) == 1 ||
                 components_.size() == 1;
          break;
        case kSOS:
          scan_ = bytes_.substr(at);
          return ReadScanHeader(segment);
        default:
          // Progressive, lossless and arithmetic files.
          good = marker < kSOF0 || marker > 0xCF;
          good = good && marker != kEOI && marker != kSOI;
          break;
      }
      if (!good) return false;
    }
    return false;
  }

  static int At(std::string_view segment, std::size_t at) {
    return static_cast<std::uint8_t>(segment[at]);
  }

  bool ReadTables(std::string_view segment) {
    while (segment.size() > kLongestCode) {
      const int which = At(segment, 0);
      std::size_t symbols = 0;
      for (std::size_t i = 1; i <= kLongestCode; ++i) {
        symbols += static_cast<std::size_t>(At(segment, i));
      }
      if ((which & 0xEC) != 0 || symbols > 256 || segment.size() < 1 + kLongestCode + symbols) {
        return false;
      }
      auto& table =
          tables_[static_cast<std::size_t>(which >> 4)][static_cast<std::size_t>(which & 3)];
      if (!table.Read(segment.substr(1, kLongestCode), segment.substr(1 + kLongestCode, symbols))) {
        return false;
      }
      segment.remove_prefix(1 + kLongestCode + symbols);
    }
    return segment.empty();
  }

  bool ReadQuantization(std::string_view segment) {
    while (!segment.empty()) {
      const bool wide = At(segment, 0) >> 4 != 0;
      const std::size_t size = 1 + std::size_t{kCoefficients} * (wide ? 2 : 1);
      if (segment.size() < size || (At(segment, 0) & 15) > 3) return false;
      quantization_[static_cast<std::size_t>(At(segment, 0) & 15)] =
          wide ? At(segment, 1) << 8 | At(segment, 2) : At(segment, 1);
      segment.remove_prefix(size);
    }
    return true;
  }

  bool ReadFrame(std::string_view segment) {
    if (segment.size() < 6 || !components_.empty() || At(segment, 0) != 8) return false;
    height_ = At(segment, 1) << 8 | At(segment, 2);
    width_ = At(segment, 3) << 8 | At(segment, 4);
    const auto count = static_cast<std::size_t>(At(segment, 5));
    if (width_ == 0 || height_ == 0 || (count != 1 && count != 3) ||
        segment.size() < 6 + 3 * count) {
      return false;
    }
    for (std::size_t i = 0; i < count; ++i) {
      Component component;
      component.identifier = At(segment, 6 + 3 * i);
      component.horizontal = At(segment, 7 + 3 * i) >> 4;
      component.vertical = At(segment, 7 + 3 * i) & 15;
      component.quantization = At(segment, 8 + 3 * i);
      if (component.quantization > 3) return false;
      components_.push_back(std::move(component));
    }
    Component& luma = components_.front();
    // A scan of one component has no sampling, whatever the frame says.
    if (count == 1) luma.horizontal = luma.vertical = 1;
    if (luma.horizontal < 1 || luma.horizontal > 2 || luma.vertical < 1 || luma.vertical > 2) {
      return false;
    }
    for (std::size_t i = 1; i < count; ++i) {
      if (components_[i].horizontal != 1 || components_[i].vertical != 1) return false;
    }
    // Files of R, G and B say so by the names of their components.
    return count == 1 || luma.identifier != 'R';
  }

  bool ReadScanHeader(std::string_view segment) {
    const std::size_t count = components_.size();
    if (count == 0 || segment.size() < 4 + 2 * count || At(segment, 0) != static_cast<int>(count)) {
      return false;
    }
    for (std::size_t i = 0; i < count; ++i) {
      Component& component = components_[i];
      component.dc = At(segment, 2 + 2 * i) >> 4;
      component.ac = At(segment, 2 + 2 * i) & 15;
      if (At(segment, 1 + 2 * i) != component.identifier || component.dc > 3 || component.ac > 3 ||
          !Dc(component).Known() || !Ac(component).Known()) {
        return false;
      }
    }
    return At(segment, 1 + 2 * count) == 0 && At(segment, 2 + 2 * count) == kCoefficients - 1;
  }

  const Huffman& Dc(const Component& c) const { return tables_[0][static_cast<std::size_t>(c.dc)]; }
  const Huffman& Ac(const Component& c) const { return tables_[1][static_cast<std::size_t>(c.ac)]; }

  bool ReadScan() {
    const int across = kBlock * components_.front().horizontal;
    const int down = kBlock * components_.front().vertical;
    const int columns = (width_ + across - 1) / across;
    const int rows = (height_ + down - 1) / down;
    // Every block takes bits: a header cannot claim more than the file can hold.
    if (static_cast<std::uint64_t>(columns) * static_cast<std::uint64_t>(rows) >
        8 * static_cast<std::uint64_t>(scan_.size())) {
      return false;
    }
    for (Component& c : components_) {
      c.stride = columns * c.horizontal;
      c.means.resize(static_cast<std::size_t>(c.stride) *
                     static_cast<std::size_t>(rows * c.vertical));
    }
    BitReader bits(scan_);
    int left = restart_;
    int number = 0;
    for (int row = 0; row < rows; ++row) {
      if (DecodeCancellation::Requested()) return false;
      for (int column = 0; column < columns; ++column) {
        if (restart_ > 0 && left == 0) {
          if (!bits.Good() || !bits.Restart(number)) return false;
          number = (number + 1) % 8;
          left = restart_;
          for (Component& c : components_) c.predictor = 0;
        }
        --left;
        if (!ReadUnit(bits, row, column)) return false;
      }
      if (!bits.Good()) return false;
    }
    // What is left over, other decoders look at, and tell.
    return !bits.Left() && bits.AtEnd();
  }

  bool ReadUnit(BitReader& bits, int row, int column) {
    for (Component& c : components_) {
      const int quantization = quantization_[static_cast<std::size_t>(c.quantization)];
      const Huffman& dc = Dc(c);
      const Huffman& ac = Ac(c);
      for (int v = 0; v < c.vertical; ++v) {
        std::uint8_t* out =
            c.means.data() +
            static_cast<std::size_t>(row * c.vertical + v) * static_cast<std::size_t>(c.stride) +
            static_cast<std::size_t>(column * c.horizontal);
        for (int h = 0; h < c.horizontal; ++h) {
          bits.Fill();
          const int size = dc.Symbol(bits);
          if (size < 0 || size > 11) return false;
          if (size > 0) {
            const int value = static_cast<int>(bits.Peek(size));
            bits.Skip(size);
            c.predictor += value < 1 << (size - 1) ? value - (1 << size) + 1 : value;
            // Sixteen bits are all that a predictor has in a file that is whole.
            if (c.predictor < -32768 || c.predictor > 32767) return false;
          }
          if (!ac.SkipBlock(bits)) return false;
          // The first coefficient is eight times the mean.
          out[h] = static_cast<std::uint8_t>(
              std::clamp(((c.predictor * quantization + 4) >> 3) + 128, 0, 255));
        }
      }
    }
    return true;
  }

  /// Chroma of one line at the resolution of luma; halved lines are interpolated.
  void ChromaLine(const Component& c, int y, int width, std::vector<std::uint8_t>& line) const {
    const Component& luma = components_.front();
    const int lines = static_cast<int>(c.means.size()) / c.stride;
    const auto row = [&](int at) {
      return c.means.data() + static_cast<std::ptrdiff_t>(std::clamp(at, 0, lines - 1)) * c.stride;
    };
    const std::uint8_t* near = row(y / luma.vertical);
    const std::uint8_t* far = luma.vertical == 1 ? near : row(y / 2 + (y % 2 == 0 ? -1 : 1));
    const auto value = [&](int x) {
      const int at = std::clamp(x, 0, c.stride - 1);
      return 3 * near[at] + far[at];
    };
    for (int x = 0; x < width; ++x) {
      line[static_cast<std::size_t>(x)] =
          luma.horizontal == 1
              ? static_cast<std::uint8_t>((value(x) + 2) / 4)
              : static_cast<std::uint8_t>(
                    (3 * value(x / 2) + value(x / 2 + (x % 2 == 0 ? -1 : 1)) + 8) / 16);
    }
  }

  Picture Assemble() const {
    const int width = (width_ + kBlock - 1) / kBlock;
    const int height = (height_ + kBlock - 1) / kBlock;
    Picture picture = Picture::Uninitialized(width, height);
    if (picture.IsNil()) return picture;
    const Pixels pixels = picture.Edit();
    const Component& luma = components_.front();
    const bool grey = components_.size() == 1;
    std::vector<std::uint8_t> blue(static_cast<std::size_t>(width), 128);
    std::vector<std::uint8_t> red(static_cast<std::size_t>(width), 128);
    const auto clamped = [](int value) {
      return static_cast<std::uint8_t>(std::clamp(value >> 16, 0, 255));
    };
    for (int y = 0; y < height; ++y) {
      const std::uint8_t* light = luma.means.data() + static_cast<std::ptrdiff_t>(y) * luma.stride;
      if (!grey) {
        ChromaLine(components_[1], y, width, blue);
        ChromaLine(components_[2], y, width, red);
      }
      std::uint8_t* out = pixels.Row(y);
      for (int x = 0; x < width; ++x, out += 4) {
        // The factors of JFIF, times 65536.
        const int level = (light[x] << 16) + (1 << 15);
        const int cb = blue[static_cast<std::size_t>(x)] - 128;
        const int cr = red[static_cast<std::size_t>(x)] - 128;
        out[0] = clamped(level + 116130 * cb);
        out[1] = clamped(level - 22554 * cb - 46802 * cr);
        out[2] = clamped(level + 91881 * cr);
        out[3] = 255;
      }
    }
    return picture;
  }

  std::string_view bytes_;
  std::string_view scan_;
  int width_ = 0;
  int height_ = 0;
  int restart_ = 0;
  std::vector<Component> components_;
  std::array<int, 4> quantization_{};
  /// First those of the first coefficients, then of the others.
  std::array<std::array<Huffman, 4>, 2> tables_;
};

}  // namespace

Picture DecodeJpegEighth(std::string_view bytes) {
  // The tables are a quarter of a megabyte: too much for a thread's stack.
  return std::make_unique<Decoder>(bytes)->Decode();
}

}  // namespace brivolant::codecs
