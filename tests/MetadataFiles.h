// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brivolant::test {

/// Writes small files with metadata, to be read again.
struct MetadataFiles {
  bool little = false;

  std::string Number(std::uint64_t value, int size) const {
    std::string bytes;
    for (int i = 0; i < size; ++i) {
      bytes += static_cast<char>(value >> 8 * (little ? i : size - 1 - i));
    }
    return bytes;
  }
  struct Tag {
    int Tag;
    int Type;
    std::uint32_t Count;
    std::string Bytes;
  };
  /// A directory at `offset`; what is longer than four bytes stands behind it.
  std::string Directory(std::uint32_t offset, const std::vector<Tag>& tags,
                        std::uint32_t next = 0) const {
    std::string entries = Number(tags.size(), 2);
    std::string values;
    const auto area = static_cast<std::uint32_t>(offset + 2 + 12 * tags.size() + 4);
    for (const Tag& tag : tags) {
      entries += Number(static_cast<std::uint64_t>(tag.Tag), 2) +
                 Number(static_cast<std::uint64_t>(tag.Type), 2) + Number(tag.Count, 4);
      std::string bytes = tag.Bytes;
      if (bytes.size() <= 4) {
        bytes.resize(4);
        entries += bytes;
      } else {
        entries += Number(area + values.size(), 4);
        values += bytes;
      }
    }
    return entries + Number(next, 4) + values;
  }
  std::string Header(int mark = 42) const {
    return (little ? "II" : "MM") + Number(static_cast<std::uint64_t>(mark), 2) + Number(8, 4);
  }
  static std::string Big(std::uint64_t value, int size) {
    return MetadataFiles{false}.Number(value, size);
  }
  static std::string Segment(int marker, std::string_view payload) {
    return std::string("\xFF") + static_cast<char>(marker) + Big(payload.size() + 2, 2) +
           std::string(payload);
  }
  static std::string Resource(int id, std::string_view data) {
    return "8BIM" + Big(static_cast<std::uint64_t>(id), 2) + std::string(2, '\0') +
           Big(data.size(), 4) + std::string(data) + std::string(data.size() % 2, '\0');
  }
  static std::string Dataset(int record, int dataset, std::string_view value) {
    return std::string("\x1C") + static_cast<char>(record) + static_cast<char>(dataset) +
           Big(value.size(), 2) + std::string(value);
  }
  /// A TIFF structure with an Exif and a GPS directory, and a thumbnail's.
  std::string Tiff() const {
    const auto text = [](int tag, const std::string& value) {
      return Tag{tag, 2, static_cast<std::uint32_t>(value.size() + 1), value + '\0'};
    };
    const auto rational = [this](std::uint32_t n, std::uint32_t d) {
      return Number(n, 4) + Number(d, 4);
    };
    constexpr std::uint32_t kFirst = 8;
    constexpr std::uint32_t kExif = 200;
    constexpr std::uint32_t kGps = 400;
    constexpr std::uint32_t kThumbnail = 560;
    std::string file = Header();
    file += Directory(kFirst,
                      {text(0x010F, "Maker"),
                       {0x0112, 3, 1, Number(6, 2)},
                       {0x011A, 5, 1, rational(100, 1)},
                       {0x0128, 3, 1, Number(3, 2)},
                       text(0x013B, "J\xC3\xBCrgen"),
                       {0x8769, 4, 1, Number(kExif, 4)},
                       {0x8825, 4, 1, Number(kGps, 4)}},
                      kThumbnail);
    file.resize(kExif);
    file += Directory(kExif, {{0x829A, 5, 1, rational(1, 250)},
                              {0x8827, 3, 1, Number(200, 2)},
                              {0x9000, 7, 4, "0220"},
                              {0x9204, 10, 1, Number(0xFFFFFFFF, 4) + Number(3, 4)},
                              {0x9209, 3, 1, Number(1, 2)},
                              {0x920A, 12, 1, Number(0x4049000000000000, 8)}});
    file.resize(kGps);
    file +=
        Directory(kGps, {{0x0000, 1, 4, std::string("\2\2\0\0", 4)},
                         text(0x0001, "N"),
                         {0x0002, 5, 3, rational(51, 1) + rational(30, 1) + rational(264, 10)}});
    file.resize(kThumbnail);
    file += Directory(kThumbnail, {{0x0103, 3, 1, Number(6, 2)}});
    return file;
  }
};

}  // namespace brivolant::test
