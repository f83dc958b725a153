// SPDX-License-Identifier: MIT
#include "formats/BinaryDictionary.h"

#include <algorithm>

#include "platform/files/AtomicFile.h"

namespace brivolant::BinaryDictionary {
namespace {

constexpr std::string_view kMagic = "bdicvlox";
constexpr std::string_view kRoot = "Root";
constexpr int kYearBase = 255;

enum Tag : std::uint8_t {
  kNil = 0,
  kInteger = 2,
  kLongInteger = 3,
  kSingle = 4,
  kDouble = 5,
  kCurrency = 6,
  kDate = 7,
  kString = 8,
  kBoolean = 11,
  kOldColor = 16,
  kDictionary = 18,
  kCollection = 20,
  kFileReference = 22,
  kColor = 23,
};

class Writer {
 public:
  void Entry(std::string_view key, const Variant& value, int depth) {
    Text(key);
    std::visit([&](const auto& held) { Value(held, depth); }, value.Get());
  }
  void Bytes(std::string_view bytes) { out_.Bytes(bytes); }
  std::string Take() { return out_.Take(); }

 private:
  void Text(std::string_view text) {
    out_.UInt32(static_cast<std::uint32_t>(text.size()));
    out_.Bytes(text);
  }
  void Value(std::monostate, int) { out_.UInt8(kNil); }
  void Value(std::int32_t value, int) {
    out_.UInt8(kInteger);
    out_.UInt32(static_cast<std::uint32_t>(value));
  }
  void Value(std::int64_t value, int) {
    out_.UInt8(kLongInteger);
    out_.UInt32(static_cast<std::uint32_t>(Variant(value).ToInt()));
  }
  void Value(float value, int) {
    out_.UInt8(kSingle);
    out_.Single(value);
  }
  void Value(double value, int) {
    out_.UInt8(kDouble);
    out_.Double(value);
  }
  void Value(Currency value, int) {
    out_.UInt8(kCurrency);
    out_.UInt64(static_cast<std::uint64_t>(value.TenThousandths));
  }
  void Value(const Date& value, int) {
    const int year = std::clamp(value.Year, 0, kYearBase * 255 + kYearBase - 1);
    out_.UInt8(kDate);
    out_.UInt8(static_cast<std::uint8_t>(year / kYearBase));
    out_.UInt8(static_cast<std::uint8_t>(year % kYearBase));
    for (const int field : {value.Month, value.Day, value.Hour, value.Minute, value.Second}) {
      out_.UInt8(static_cast<std::uint8_t>(field));
    }
  }
  void Value(const std::string& value, int) {
    out_.UInt8(kString);
    Text(value);
  }
  void Value(bool value, int) {
    out_.UInt8(kBoolean);
    out_.UInt8(value ? 1 : 0);
  }
  void Value(Color value, int) {
    out_.UInt8(kColor);
    for (const std::uint8_t channel : {value.Red, value.Green, value.Blue}) out_.UInt16(channel);
  }
  void Value(const Dictionary& value, int depth) {
    if (depth >= kDeepest) return out_.UInt8(kNil);
    out_.UInt8(kDictionary);
    out_.UInt32(static_cast<std::uint32_t>(value.Count()));
    for (int i = 0; i < value.Count(); ++i) {
      Entry(value.Key(i).ToText(), value.ValueAt(i), depth + 1);
    }
  }
  void Value(const Collection& value, int depth) {
    if (depth >= kDeepest) return out_.UInt8(kNil);
    out_.UInt8(kCollection);
    out_.UInt32(static_cast<std::uint32_t>(value.Count()));
    for (int i = 0; i < value.Count(); ++i) Entry({}, value.Item(i), depth + 1);
  }
  void Value(const FolderItem& value, int) {
    // The stand-alone form of a reference is the path's bytes.
    out_.UInt8(kFileReference);
    Text(value.ShellPath());
  }
  // A pair lives only in memory; the format has no place for it.
  void Value(Pair, int) { out_.UInt8(kNil); }

  ByteWriter out_;
};

/// Reads values; after a failure the stream says so and everything is nil.
class Reader {
 public:
  Reader(BinaryStream& stream, std::size_t most) : stream_(stream), left_(most) {}

  Dictionary ReadDictionary(std::uint32_t count, int depth) {
    Dictionary dictionary;
    if (!Plausible(count, depth)) return dictionary;
    for (std::uint32_t i = 0; i < count && !Failed(); ++i) {
      const std::string_view key = ReadBytes();
      dictionary.Value(key, ReadValue(depth));
    }
    return dictionary;
  }

  bool Failed() const { return failed_ || stream_.Failed(); }

 private:
  Collection ReadCollection(std::uint32_t count, int depth) {
    Collection collection;
    if (!Plausible(count, depth)) return collection;
    for (std::uint32_t i = 0; i < count && !Failed(); ++i) {
      ReadBytes();
      collection.Add(ReadValue(depth));
    }
    return collection;
  }

  std::string_view ReadBytes() { return stream_.Read(stream_.ReadUInt32()); }

  Date ReadDate() {
    Date date;
    const int high = stream_.ReadUInt8();
    date.Year = high * kYearBase + stream_.ReadUInt8();
    date.Month = stream_.ReadUInt8();
    date.Day = stream_.ReadUInt8();
    date.Hour = stream_.ReadUInt8();
    date.Minute = stream_.ReadUInt8();
    date.Second = stream_.ReadUInt8();
    return date.Normalized();
  }

  Color ReadColor(bool wide) {
    const auto channel = [&] {
      return wide ? static_cast<std::uint8_t>(std::min<int>(stream_.ReadUInt16(), 255))
                  : stream_.ReadUInt8();
    };
    Color color;
    color.Red = channel();
    color.Green = channel();
    color.Blue = channel();
    return color;
  }

  Variant ReadValue(int depth) {
    const std::uint8_t tag = stream_.ReadUInt8();
    switch (tag) {
      case kNil:
        return {};
      case kInteger:
      case kLongInteger:
        return static_cast<std::int32_t>(stream_.ReadUInt32());
      case kSingle:
        return static_cast<double>(stream_.ReadSingle());
      case kDouble:
        return stream_.ReadDouble();
      case kCurrency:
        return Currency{static_cast<std::int64_t>(stream_.ReadUInt64())};
      case kDate:
        return ReadDate();
      case kBoolean:
        return stream_.ReadUInt8() != 0;
      case kOldColor:
        return ReadColor(false);
      case kColor:
        return ReadColor(true);
      case kDictionary:
        return ReadDictionary(stream_.ReadUInt32(), depth + 1);
      case kCollection:
        return ReadCollection(stream_.ReadUInt32(), depth + 1);
      case kFileReference:
        return FolderItem(std::filesystem::path(ReadBytes()));
      default:
        return ReadBytes();
    }
  }

  /// An entry takes five bytes at least, so a count beyond that lies.
  bool Plausible(std::uint32_t count, int depth) {
    constexpr std::size_t kSmallestEntry = 5;
    failed_ = failed_ || depth > kDeepest || count > left_ ||
              count > stream_.Remaining() / kSmallestEntry;
    if (!failed_) left_ -= count;
    return !Failed();
  }

  BinaryStream& stream_;
  /// Entries that may still come.
  std::size_t left_;
  bool failed_ = false;
};

}  // namespace

std::string BinaryStringFromDictionary(const Dictionary& dictionary) {
  Writer writer;
  writer.Bytes(kMagic);
  writer.Entry(kRoot, dictionary, 0);
  return writer.Take();
}

std::optional<Dictionary> BinaryDictionaryFromString(std::string_view bytes, std::size_t most) {
  BinaryStream stream(bytes);
  return BinaryDictionaryFromStream(stream, most);
}

std::optional<Dictionary> BinaryDictionaryFromStream(BinaryStream& stream, std::size_t most) {
  stream.LittleEndian = true;
  if (stream.Read(kMagic.size()) != kMagic) return std::nullopt;
  Reader reader(stream, most);
  const Dictionary outer = reader.ReadDictionary(1, 0);
  const auto* root = outer.Value(kRoot).As<Dictionary>();
  if (reader.Failed() || root == nullptr) return std::nullopt;
  return *root;
}

std::optional<Dictionary> OpenAsBinaryDictionary(const FolderItem& file) {
  const auto bytes = ReadFile(file);
  return bytes ? BinaryDictionaryFromString(*bytes) : Dictionary();
}

bool SaveAsBinaryDictionary(const FolderItem& file, const Dictionary& dictionary, const FileType*) {
  return !WriteFileAtomically(file, BinaryStringFromDictionary(dictionary));
}

}  // namespace brivolant::BinaryDictionary
