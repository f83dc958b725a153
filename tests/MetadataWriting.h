// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Helpers.h"
#include "MetadataFiles.h"
#include "metadata/ImageMetaData.h"
#include "metadata/MetadataWriter.h"

namespace brivolant::test {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

using Files = MetadataFiles;
using Act = MetadataChange::Act;
using enum MetadataBlock;

inline constexpr std::string_view kPhotoshopMark("Photoshop 3.0\0", 14);
inline constexpr std::string_view kExifMark("Exif\0\0", 6);

struct Writing : testing::Test {
  std::string Content(const FolderItem& file) { return ReadFile(file).value_or(""); }
  std::unique_ptr<ImageMetaData> Read(const FolderItem& file) {
    auto data = std::make_unique<ImageMetaData>();
    data->ReadFile(file);
    return data;
  }
  static std::string Rest() {
    return Files::Segment(0xDB, std::string(65, '\1')) +
           Files::Segment(0xC0, Files::Big(8, 1) + Files::Big(30, 2) + Files::Big(40, 2) +
                                    Files::Big(3, 1) + std::string(9, '\0')) +
           Files::Segment(0xDA, "scan") +
           std::string("\xFF\0 scanned \xFF\xD9 and what stands behind", 36);
  }
  FolderItem Jpeg(const std::string& segments) {
    return folder.Write("a.jpg", "\xFF\xD8" + segments + Rest());
  }
  static std::string Jfif() {
    return Files::Segment(0xE0, std::string("JFIF\0\1\2\1\0\x48\0\x48\0\0", 14));
  }
  /// Expects that it is done.
  void Change(const FolderItem& file, const std::vector<MetadataChange>& changes) {
    EXPECT_EQ(MetadataWriter::Write(file, changes), "");
  }
  /// Expects a sentence that names the file, and the file as it was.
  void Refused(const FolderItem& file, const MetadataChange& change, const std::string& part) {
    const std::string before = Content(file);
    const std::string why = MetadataWriter::Write(file, std::vector{change});
    EXPECT_THAT(why, HasSubstr(file.Name()));
    EXPECT_THAT(why, HasSubstr(part));
    EXPECT_EQ(Content(file), before);
  }
  TemporaryFolder folder;
};

inline const MetadataChange kArtist{Act::kSet, kTiff, "013B", "Anna Beispiel"};

/// A structure in which a maker's note stands between other things, with a thumbnail at its end.
inline std::string WithMakerNote(const Files& files) {
  constexpr std::uint32_t kExifAt = 160;
  constexpr std::uint32_t kNoteAt = 300;
  constexpr std::uint32_t kThumbnailAt = 400;
  std::string bytes =
      files.Header() + files.Directory(8,
                                       {{0x010F, 2, 6, std::string("Maker\0", 6)},
                                        {0x011A, 5, 1, files.Number(100, 4) + files.Number(1, 4)},
                                        {0x8769, 4, 1, files.Number(kExifAt, 4)}},
                                       kThumbnailAt);
  bytes.resize(kExifAt);
  bytes += files.Directory(
      kExifAt, {{0x8827, 3, 1, files.Number(200, 2)}, {0x927C, 7, 90, std::string(90, 'n')}});
  // The directory puts the note right behind itself; it shall stand elsewhere.
  bytes.replace(kExifAt + 2 + 12 + 8, 4, files.Number(kNoteAt, 4));
  bytes.resize(kNoteAt);
  bytes += "note of a maker" + std::string(75, 'n');
  bytes.resize(kThumbnailAt);
  bytes += files.Directory(
      kThumbnailAt, {{0x0201, 4, 1, files.Number(460, 4)}, {0x0202, 4, 1, files.Number(30, 4)}});
  bytes.resize(460);
  return bytes + std::string(30, 't');
}

}  // namespace brivolant::test
