// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "metadata/TagValue.h"

namespace brivolant {

class MetadataStream;

/// Bytes of a file that are written anew.
struct BytePatch {
  std::uint64_t At = 0;
  std::string Bytes;
};

/// Changes tags of a TIFF structure and leaves all else where it is: strips, pages, sub-directories
/// and maker notes, in which nobody knows what counts from where. A directory that outgrows its
/// place goes to the end of the structure, as does a value; what stood in the old place is
/// overwritten with zeros, unless something else lies there too.
class DirectoryEditor {
 public:
  enum Directory { kFirst, kThumbnail, kExif, kGps, kInterop, kSub, kDirectories };

  /// A new structure, in big-endian order unless told otherwise.
  explicit DirectoryEditor(bool littleEndian = false);
  /// Reads the directories of a structure from the stream's position on; its offsets count from
  /// there. Good() is false if the first of them makes no sense, or if it is a raw file's with a
  /// mark of its maker, unless that is wanted.
  explicit DirectoryEditor(MetadataStream& stream, bool alsoRaw = false);

  bool Good() const { return good_; }
  /// One of the directories says that it holds a sensor's own data.
  bool Raw() const { return raw_; }
  /// Another directory than the first tells a place too.
  bool MorePlaces() const { return morePlaces_; }
  /// Something that was taken out is still among the bytes, since something else lies there too.
  bool Left() const { return left_; }
  bool LittleEndian() const { return little_; }
  bool Has(Directory directory) const { return directories_.at(directory).there; }
  bool Has(Directory directory, int tag) const { return Find(directory, tag) != nullptr; }
  /// 0 for a tag that is not there.
  int TypeOf(Directory directory, int tag) const;
  /// Bytes of a tag as they stand in the file.
  std::string BytesOf(Directory directory, int tag) const;
  /// All tags of a directory, as they stand in the file.
  std::vector<int> Tags(Directory directory) const;

  /// False if the directory it belongs to makes no sense, so that nothing can be kept of it.
  [[nodiscard]] bool Set(Directory directory, int tag, int type, std::string bytes);
  [[nodiscard]] bool Remove(Directory directory, int tag);
  /// Takes out a directory with all its values; what follows a thumbnail's stays.
  [[nodiscard]] bool Drop(Directory directory);

  /// A value of a new structure that stands at an offset, since what is in it counts from there.
  /// False if something stands there; what comes later stands behind it.
  [[nodiscard]] bool SetAt(Directory directory, int tag, int type, std::string bytes,
                           std::uint64_t at);
  std::uint64_t LengthOf(Directory directory, int tag) const;
  /// Where a value stands; 0 for one within its entry.
  std::uint64_t PlaceOf(Directory directory, int tag) const;
  /// The small picture that a structure holds, a JPEG, in place of what there was.
  [[nodiscard]] bool Thumbnail(std::string jpeg);

  /// What makes the structure what was asked for: so many bytes of the old one, zeros up to the new
  /// length, and what is written over them.
  struct Result {
    std::uint64_t Kept = 0;
    std::uint64_t Length = 0;
    std::vector<BytePatch> Patches;
  };
  Result Write();

  /// Values as bytes of a type, in an order.
  static std::string Encoded(int type, const std::vector<TagValue>& values, bool littleEndian);
  /// Bytes of a type in the other order.
  static std::string Swapped(int type, std::string bytes);

 private:
  struct Entry {
    int tag = 0;
    int type = 0;
    std::uint32_t count = 0;
    /// The four bytes of the entry, as they stand.
    std::string field;
    /// Where the value is, if not in the entry; 0 for nowhere.
    std::uint64_t at = 0;
    std::uint64_t length = 0;
    /// The new value.
    std::string bytes{};
    bool changed = false;
  };
  struct Listing {
    bool there = false;
    /// All of its entries could be read.
    bool whole = true;
    bool changed = false;
    std::uint64_t at = 0;
    std::uint64_t room = 0;
    std::uint32_t next = 0;
    std::vector<Entry> entries{};
  };
  struct Range {
    std::uint64_t at;
    std::uint64_t length;
  };

  static void Sort(std::vector<Entry>& entries);
  void ReadStructure(MetadataStream& stream, bool alsoRaw);
  /// `chained`: another of its kind may follow.
  Listing ReadListing(MetadataStream& stream, std::uint64_t at, bool chained) const;
  void ReadAll(MetadataStream& stream, std::uint64_t at, int depth, bool chained);
  void Know(std::uint64_t at, std::uint64_t length);
  void KnowPictures(MetadataStream& stream, const Listing& listing);
  std::string EntryBytes(MetadataStream& stream, const Entry& entry) const;
  const Entry* Find(Directory directory, int tag) const;
  bool Change(Directory directory);
  void Free(const Range& range);
  bool Alone(const Range& range) const;
  /// It can stay where it is.
  bool Fits(const Listing& listing) const;
  /// Of what lies there alone and can be written anew elsewhere, the bytes; false if there is more.
  bool TakeOut(const Range& range);
  void Reclaim();
  /// Takes room at the end.
  std::uint64_t Append(std::uint64_t length);
  std::uint64_t Place(Entry& entry);
  void WriteListing(Directory directory);
  std::string Number(std::uint64_t value, int size) const;

  std::string thumbnail_;
  bool good_ = false;
  bool little_ = false;
  MetadataStream* stream_ = nullptr;
  std::uint64_t base_ = 0;
  std::uint64_t length_ = 0;
  std::array<Listing, kDirectories> directories_;
  /// Everything that is known to lie in the structure, sorted; with what lies there twice.
  std::vector<Range> known_;
  bool allKnown_ = true;
  bool raw_ = false;
  bool left_ = false;
  bool morePlaces_ = false;
  std::vector<std::uint64_t> read_;
  std::vector<Range> freed_;
  std::vector<BytePatch> patches_;
};

}  // namespace brivolant
