// SPDX-License-Identifier: MIT
#include "metadata/MetadataParts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "metadata/IPTCRecords.h"
#include "metadata/ImageMetaData.h"
#include "metadata/TagCatalog.h"
#include "metadata/XMPEditor.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

using Directory = DirectoryEditor::Directory;

struct Wanted {
  Directory Where;
  int Tag;
  int Type;
  std::string_view Bytes;
};

/// What Exif 2.3 demands of a directory of its own; big-endian.
constexpr std::array kWanted{
    Wanted{DirectoryEditor::kFirst, 0x011A, kRationalType, {"\0\0\0\110\0\0\0\1", 8}},
    Wanted{DirectoryEditor::kFirst, 0x011B, kRationalType, {"\0\0\0\110\0\0\0\1", 8}},
    Wanted{DirectoryEditor::kFirst, 0x0128, kShortType, {"\0\2", 2}},
    Wanted{DirectoryEditor::kFirst, 0x0213, kShortType, {"\0\1", 2}},
    Wanted{DirectoryEditor::kExif, 0x9000, kUndefinedType, "0232"},
    Wanted{DirectoryEditor::kExif, 0x9101, kUndefinedType, {"\1\2\3\0", 4}},
    Wanted{DirectoryEditor::kExif, 0xA000, kUndefinedType, "0100"},
    Wanted{DirectoryEditor::kExif, 0xA001, kShortType, "\xFF\xFF"},
    Wanted{DirectoryEditor::kGps, 0x0000, kByteType, {"\2\3\0\0", 4}},
    Wanted{DirectoryEditor::kInterop, 0x0001, kAsciiType, {"R98\0", 4}},
    Wanted{DirectoryEditor::kInterop, 0x0002, kUndefinedType, "0100"}};

/// A value says nothing without this other tag; what it is if nothing was said.
constexpr std::array<std::pair<int, Wanted>, 8> kReferences{
    {{0x0002, {DirectoryEditor::kGps, 0x0001, kAsciiType, {"N\0", 2}}},
     {0x0004, {DirectoryEditor::kGps, 0x0003, kAsciiType, {"E\0", 2}}},
     {0x0006, {DirectoryEditor::kGps, 0x0005, kByteType, {"\0", 1}}},
     {0x000D, {DirectoryEditor::kGps, 0x000C, kAsciiType, {"K\0", 2}}},
     {0x000F, {DirectoryEditor::kGps, 0x000E, kAsciiType, {"T\0", 2}}},
     {0x0011, {DirectoryEditor::kGps, 0x0010, kAsciiType, {"T\0", 2}}},
     {0x0018, {DirectoryEditor::kGps, 0x0017, kAsciiType, {"T\0", 2}}},
     {0x001A, {DirectoryEditor::kGps, 0x0019, kAsciiType, {"K\0", 2}}}}};

std::optional<int> TagNumber(std::string_view text) {
  if (text.size() != 4) return {};
  unsigned number = 0;
  const auto end = text.data() + text.size();
  if (std::from_chars(text.data(), end, number, 16).ptr != end) return {};
  return static_cast<int>(number);
}

/// What leads elsewhere, or is of the pixels: a text cannot change it.
bool Structural(Directory directory, int tag) {
  constexpr std::array kTags{0x00FE, 0x00FF, 0x0100, 0x0101, 0x0102, 0x0103, 0x0106, 0x0111,
                             0x0115, 0x0116, 0x0117, 0x011C, 0x013D, 0x0140, 0x0142, 0x0143,
                             0x0144, 0x0145, 0x014A, 0x015B, 0x0201, 0x0202, 0x0153, 0x02BC,
                             0x83BB, 0x8649, 0x8769, 0x8773, 0x8825, 0xA005};
  if (directory == DirectoryEditor::kExif && tag == 0x927C) return true;
  return directory != DirectoryEditor::kInterop && directory != DirectoryEditor::kGps &&
         std::ranges::find(kTags, tag) != kTags.end();
}

/// Types that the catalogue leaves to the file that holds the tag, and those of Exif 2.3 and of
/// Windows.
int LaterType(Directory directory, int tag) {
  constexpr auto kFirst = DirectoryEditor::kFirst;
  constexpr auto kExif = DirectoryEditor::kExif;
  struct Row {
    Directory Where;
    int Tag;
    int Type;
  };
  static constexpr std::array kRows{
      Row{kFirst, 0x011A, kRationalType}, Row{kFirst, 0x011B, kRationalType},
      Row{kFirst, 0x0132, kAsciiType},    Row{kFirst, 0x013B, kAsciiType},
      Row{kFirst, 0x4746, kShortType},    Row{kFirst, 0x4749, kShortType},
      Row{kFirst, 0x9C9B, kByteType},     Row{kFirst, 0x9C9C, kByteType},
      Row{kFirst, 0x9C9D, kByteType},     Row{kFirst, 0x9C9E, kByteType},
      Row{kFirst, 0x9C9F, kByteType},     Row{kExif, 0x8830, kShortType},
      Row{kExif, 0x8831, kLongType},      Row{kExif, 0x8832, kLongType},
      Row{kExif, 0x9010, kAsciiType},     Row{kExif, 0x9011, kAsciiType},
      Row{kExif, 0x9012, kAsciiType},     Row{kExif, 0x9290, kAsciiType},
      Row{kExif, 0x9291, kAsciiType},     Row{kExif, 0x9292, kAsciiType},
      Row{kExif, 0xA430, kAsciiType},     Row{kExif, 0xA431, kAsciiType},
      Row{kExif, 0xA432, kRationalType},  Row{kExif, 0xA433, kAsciiType},
      Row{kExif, 0xA434, kAsciiType},     Row{kExif, 0xA435, kAsciiType}};
  for (const Row& row : kRows) {
    if (row.Tag == tag && (row.Where == directory || directory == DirectoryEditor::kThumbnail)) {
      return row.Type;
    }
  }
  return 0;
}

int CatalogType(Directory directory, int tag) {
  if (const int type = LaterType(directory, tag); type != 0) return type;
  const std::string text = Hexadecimal(static_cast<std::uint64_t>(tag), 4);
  switch (directory) {
    case DirectoryEditor::kExif:
      return TagCatalog::TypeOf(TagCatalog::Exif(), text);
    case DirectoryEditor::kGps:
      return TagCatalog::TypeOf(TagCatalog::Gps(), text);
    case DirectoryEditor::kInterop:
      return TagCatalog::TypeOf(TagCatalog::Interoperability(), text);
    default:
      return TagCatalog::TypeOf(TagCatalog::Tiff(), text);
  }
}

/// Tags that came with a later version of Exif belong into a file of that version.
bool RaiseVersion(DirectoryEditor& editor, Directory directory, int tag) {
  constexpr int kVersion = 0x9000;
  const bool of23 = (tag >= 0x8830 && tag <= 0x8835) || (tag >= 0xA430 && tag <= 0xA435);
  const bool of231 = tag >= 0x9010 && tag <= 0x9012;
  if (directory != DirectoryEditor::kExif || (!of23 && !of231)) return true;
  const std::string needed = of231 ? "0231" : "0230";
  const std::string held = editor.BytesOf(directory, kVersion);
  if (held.size() == needed.size() && held >= needed) return true;
  return editor.Set(directory, kVersion, kUndefinedType, needed);
}

}  // namespace

void FilePlan::Take(std::uint64_t from, std::uint64_t length) {
  if (length == 0) return;
  Length += length;
  if (!Pieces.empty() && Pieces.back().Bytes.empty() &&
      Pieces.back().From + Pieces.back().Length == from) {
    Pieces.back().Length += length;
  } else {
    Pieces.push_back({from, length});
  }
}

void FilePlan::Take(std::string bytes) {
  if (bytes.empty()) return;
  Length += bytes.size();
  const std::uint64_t length = bytes.size();
  Pieces.push_back({0, length, std::move(bytes)});
}

DirectoryEditor& MetadataParts::Directories() {
  if (!tiff_) {
    tiff_ = std::make_unique<DirectoryEditor>();
    newStructure_ = true;
  }
  tiffChanged_ = true;
  return *tiff_;
}

bool MetadataParts::Apply(const MetadataChange& change) {
  switch (change.Block) {
    case MetadataBlock::kTiff:
      return ApplyToDirectory(change, DirectoryEditor::kFirst);
    case MetadataBlock::kExif:
      return ApplyToDirectory(change, DirectoryEditor::kExif);
    case MetadataBlock::kGps:
      return ApplyToDirectory(change, DirectoryEditor::kGps);
    case MetadataBlock::kInterop:
      return ApplyToDirectory(change, DirectoryEditor::kInterop);
    case MetadataBlock::kThumbnail:
      return ApplyToDirectory(change, DirectoryEditor::kThumbnail);
    case MetadataBlock::kIptc:
      return ApplyToIPTC(change);
    case MetadataBlock::kXmp:
      return ApplyToXMP(change);
    case MetadataBlock::kComment:
      return ApplyToComment(change);
  }
  return false;
}

bool MetadataParts::ApplyToDirectory(const MetadataChange& change, Directory directory) {
  const auto tag = TagNumber(change.Tag);
  if (!tag || Structural(directory, *tag)) return false;
  const bool removes = change.What == MetadataChange::Act::kRemove || !change.Text;
  if (removes) {
    if (!tiff_ || !tiff_->Has(directory, *tag)) return true;
    return Directories().Remove(directory, *tag);
  }
  // A thumbnail's directory without a thumbnail describes nothing.
  const bool there = tiff_ && tiff_->Has(directory);
  if (directory == DirectoryEditor::kThumbnail && !there) return false;
  DirectoryEditor& editor = Directories();
  int type = editor.TypeOf(directory, *tag);
  const int standard = CatalogType(directory, *tag);
  // Some write text as bytes: the standard's type holds what the user means.
  if (SizeOfType(type) == 0 || (standard == kAsciiType && type != kAsciiType)) type = standard;
  if (SizeOfType(type) == 0) return false;
  auto bytes = TagBytesFromText(*tag, type, *change.Text, editor.LittleEndian());
  if (!bytes) return false;
  if (change.What == MetadataChange::Act::kAdd && editor.TypeOf(directory, *tag) == type) {
    *bytes = editor.BytesOf(directory, *tag) + *bytes;
  }
  return editor.Set(directory, *tag, type, std::move(*bytes)) && Complete(directory, there) &&
         RaiseVersion(editor, directory, *tag);
}

bool MetadataParts::Complete(Directory directory, bool wasThere) {
  DirectoryEditor& editor = *tiff_;
  const auto want = [&](const Wanted& wanted) {
    if (editor.Has(wanted.Where, wanted.Tag)) return true;
    std::string bytes(wanted.Bytes);
    if (editor.LittleEndian()) bytes = DirectoryEditor::Swapped(wanted.Type, std::move(bytes));
    return editor.Set(wanted.Where, wanted.Tag, wanted.Type, std::move(bytes));
  };
  for (const Wanted& wanted : kWanted) {
    const bool first = wanted.Where == DirectoryEditor::kFirst && newStructure_;
    const bool fresh =
        wanted.Where == directory && !wasThere && directory != DirectoryEditor::kFirst;
    if ((first || fresh) && !want(wanted)) return false;
  }
  if (directory != DirectoryEditor::kGps) return true;
  for (const auto& [tag, reference] : kReferences) {
    if (editor.Has(DirectoryEditor::kGps, tag) && !want(reference)) return false;
  }
  return true;
}

bool MetadataParts::ApplyToIPTC(const MetadataChange& change) {
  constexpr int kLast = 255;
  int dataset = 0;
  for (const char c : change.Tag) {
    if (c < '0' || c > '9' || dataset > kLast) return false;
    dataset = dataset * 10 + (c - '0');
  }
  if (change.Tag.empty() || dataset < 1 || dataset > kLast) return false;
  const std::string old = IPTC();
  IPTCRecords records(old);
  if (!records.Whole()) return false;
  if (change.What == MetadataChange::Act::kAdd && change.Text) {
    records.Add(dataset, EnsureUTF8(*change.Text));
  } else if (change.What == MetadataChange::Act::kSet && change.Text) {
    records.Set(dataset, {EnsureUTF8(*change.Text)});
  } else {
    records.Set(dataset, {});
  }
  return IPTC(records.Bytes());
}

bool MetadataParts::IPTC(std::string bytes) {
  if (!resources_.Whole()) return false;
  if (bytes == resources_.Data(ImageResources::kIptc)) return true;
  bytes.empty() ? resources_.Remove(ImageResources::kIptc)
                : resources_.Set(ImageResources::kIptc, std::move(bytes));
  resourcesChanged_ = true;
  return true;
}

bool MetadataParts::ApplyToXMP(const MetadataChange& change) {
  std::vector<std::string> texts;
  if (change.What == MetadataChange::Act::kAdd) {
    XMPProperties properties;
    if (!xmp_.empty() && !ReadXMP(xmp_, properties, XMPNames::kUsual)) return false;
    for (const auto& [name, held] : properties) {
      if (name == change.Tag) texts = held;
    }
  }
  if (change.Text && change.What != MetadataChange::Act::kRemove) texts.push_back(*change.Text);
  const std::string old = xmp_;
  if (!XMPEditor::Set(xmp_, change.Tag, texts)) return false;
  xmpChanged_ = xmpChanged_ || xmp_ != old;
  return true;
}

bool MetadataParts::StripPlace() {
  if (tiff_ && tiff_->Has(DirectoryEditor::kGps) &&
      (!Directories().Drop(DirectoryEditor::kGps) || tiff_->Left())) {
    return false;
  }
  const auto without = [](const std::string& bytes) {
    IPTCRecords records(bytes);
    records.RemovePlace();
    return records.Bytes();
  };
  const std::string old = IPTC();
  if (const std::string now = without(old); now != old && !IPTC(now)) return false;
  const std::string held(resources_.Data(ImageResources::kIptc));
  if (const std::string now = without(held); now != held && !MetadataParts::IPTC(now)) return false;
  const std::string packet = xmp_;
  if (!XMPEditor::RemoveLike(xmp_, {kPlaces.begin(), kPlaces.end()})) return false;
  xmpChanged_ = xmpChanged_ || xmp_ != packet;
  StripFurther();
  return true;
}

namespace {

constexpr std::array kCarriedResources{0x040A, 0x040B};

}  // namespace

std::vector<std::pair<int, std::string>> MetadataParts::Resources() const {
  std::vector<std::pair<int, std::string>> held;
  for (const int id : kCarriedResources) {
    if (resources_.Has(id)) held.emplace_back(id, resources_.Data(id));
  }
  return held;
}

bool MetadataParts::TakeTexts(CarriedData& data) {
  // What the file said before is said no more: half of it beside half of another would be no truth.
  // Only what describes the pixels of this file stays, such as a panorama or a second picture.
  // Of what cannot be read nothing does.
  (void)XMPEditor::CarryLike(data.XMP, xmp_, {kOfPixels.begin(), kOfPixels.end()});
  if (data.XMP != xmp_) XMP(std::move(data.XMP));
  if (resources_.Whole()) {
    for (auto& [id, bytes] : data.Resources) {
      resources_.Set(id, std::move(bytes));
      resourcesChanged_ = true;
    }
  }
  return data.IPTC == IPTC() || IPTC(std::move(data.IPTC));
}

bool MetadataParts::KeepColors(DirectoryEditor& structure) const {
  constexpr int kColorSpace = 0xA001;
  constexpr int kInteropIndex = 0x0001;
  if (!tiff_ || !tiff_->Has(DirectoryEditor::kExif, kColorSpace)) return true;
  const bool swap = structure.LittleEndian() != tiff_->LittleEndian();
  for (const auto& [directory, tag] : {std::pair(DirectoryEditor::kExif, kColorSpace),
                                       std::pair(DirectoryEditor::kInterop, kInteropIndex)}) {
    if (!tiff_->Has(directory, tag)) {
      if (structure.Has(directory, tag) && !structure.Remove(directory, tag)) return false;
      continue;
    }
    const int type = tiff_->TypeOf(directory, tag);
    if (SizeOfType(type) == 0) continue;
    std::string bytes = tiff_->BytesOf(directory, tag);
    if (swap) bytes = DirectoryEditor::Swapped(type, std::move(bytes));
    if (!structure.Set(directory, tag, type, std::move(bytes))) return false;
  }
  return true;
}

bool MetadataParts::TakeStructure(std::unique_ptr<DirectoryEditor> structure) {
  if (!structure || structure->Tags(DirectoryEditor::kFirst).empty()) return true;
  if (!KeepColors(*structure)) return false;
  tiff_ = std::move(structure);
  tiffChanged_ = newStructure_ = true;
  return (!tiff_->Has(DirectoryEditor::kExif) || Complete(DirectoryEditor::kExif, false)) &&
         (!tiff_->Has(DirectoryEditor::kGps) || Complete(DirectoryEditor::kGps, false)) &&
         Complete(DirectoryEditor::kFirst, false);
}

std::string MetadataParts::Structure(const std::string& old) {
  constexpr std::uint64_t kMost = 0xFFFFFFFF;
  const DirectoryEditor::Result result = tiff_->Write();
  if (result.Length > kMost) return {};
  std::string bytes = old.substr(0, result.Kept);
  bytes.resize(result.Length);
  for (const BytePatch& patch : result.Patches) {
    bytes.replace(patch.At, patch.Bytes.size(), patch.Bytes);
  }
  return bytes;
}

}  // namespace brivolant
