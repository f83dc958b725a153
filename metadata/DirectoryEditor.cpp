// SPDX-License-Identifier: MIT
#include "metadata/DirectoryEditor.h"

#include <algorithm>

#include "metadata/DirectoryLayout.h"
#include "metadata/MetadataStream.h"

namespace brivolant {
namespace {

using namespace DirectoryLayout;

/// What a maker's file has more of is appended to, never overwritten.
constexpr std::size_t kMostDirectories = 512;
constexpr int kDeepest = 16;

}  // namespace

DirectoryEditor::DirectoryEditor(bool littleEndian)
    : good_(true), little_(littleEndian), length_(kHeader) {
  Listing& first = directories_.at(kFirst);
  first.there = true;
  first.changed = true;
  patches_.push_back({0, (little_ ? "II" : "MM") + Number(42, 2) + Number(kHeader, 4)});
}

DirectoryEditor::DirectoryEditor(MetadataStream& stream, bool alsoRaw)
    : stream_(&stream), base_(stream.Position()), length_(stream.Remaining()) {
  const bool little = stream.LittleEndian;
  ReadStructure(stream, alsoRaw);
  stream.LittleEndian = little;
}

void DirectoryEditor::ReadStructure(MetadataStream& stream, bool alsoRaw) {
  const std::string order = stream.Read(2);
  if (order != "II" && order != "MM") return;
  stream.LittleEndian = little_ = order == "II";
  constexpr std::array kMakersMarks{0x0055, 0x4F52, 0x5352};
  const int mark = stream.ReadUInt16();
  const bool raw = std::ranges::find(kMakersMarks, mark) != kMakersMarks.end();
  if (mark != 42 && !(raw && alsoRaw)) return;
  const std::uint64_t at = stream.ReadUInt32();
  const auto follow = [&](Directory directory, std::uint64_t offset) {
    if (offset < kHeader || offset >= length_ || directories_.at(directory).there) return;
    const bool chained = directory == kFirst || directory == kThumbnail || directory == kSub;
    directories_.at(directory) = ReadListing(stream, offset, chained);
  };
  const auto link = [&](Directory from, int tag, Directory to) {
    const Entry* entry = Find(from, tag);
    if (entry == nullptr || SizeOfType(entry->type) != 4) return;
    if (entry->at == 0) {
      follow(to, Offset(entry->field, little_));
    } else {
      // Several: the first is known by name.
      stream.Position(base_ + entry->at);
      follow(to, stream.ReadUInt32());
    }
  };
  follow(kFirst, at);
  const Listing& first = directories_.at(kFirst);
  good_ = first.there && first.whole;
  if (!good_) return;
  follow(kThumbnail, first.next);
  link(kFirst, kExifLink, kExif);
  link(kFirst, kGpsLink, kGps);
  link(kFirst, kSubLink, kSub);
  link(kExif, kInteropLink, kInterop);
  Know(0, kHeader);
  ReadAll(stream, at, 0, true);
  std::ranges::sort(known_, {}, &Range::at);
}

DirectoryEditor::Listing DirectoryEditor::ReadListing(MetadataStream& stream, std::uint64_t at,
                                                      bool chained) const {
  Listing listing;
  listing.there = true;
  listing.at = at;
  stream.Position(base_ + at);
  const std::size_t count = stream.ReadUInt16();
  listing.room = RoomOf(count);
  if (at + listing.room - 4 > length_) {
    listing.whole = false;
    return listing;
  }
  for (std::size_t i = 0; i < count; ++i) {
    Entry entry;
    entry.tag = stream.ReadUInt16();
    entry.type = stream.ReadUInt16();
    entry.count = stream.ReadUInt32();
    entry.field = stream.Read(4);
    entry.length = std::uint64_t{entry.count} * static_cast<std::uint64_t>(SizeOfType(entry.type));
    if (entry.length > 4) {
      entry.at = Offset(entry.field, little_);
      // What lies beyond the end is nobody's.
      if (entry.at > length_ || entry.length > length_ - entry.at) entry.length = 0;
    }
    listing.entries.push_back(std::move(entry));
  }
  // Some cameras end the structure with the last entry.
  if (at + listing.room > length_) {
    listing.room -= 4;
  } else {
    listing.next = stream.ReadUInt32();
  }
  // Nothing follows an Exif or a GPS directory; some leave out the field that would say so.
  if (!chained && listing.next != 0) {
    listing.room -= 4;
    listing.next = 0;
  }
  return listing;
}

void DirectoryEditor::Know(std::uint64_t at, std::uint64_t length) {
  // Whoever has more of them is appended to, never overwritten.
  constexpr std::size_t kMost = std::size_t{1} << 20;
  if (known_.size() < kMost) {
    known_.push_back({at, length});
  } else {
    allKnown_ = false;
  }
}

void DirectoryEditor::ReadAll(MetadataStream& stream, std::uint64_t at, int depth, bool chained) {
  while (at >= kHeader && at < length_) {
    if (std::ranges::find(read_, at) != read_.end()) {
      // Two places lead here, and one of them would be left behind if it moved.
      allKnown_ = false;
      return;
    }
    if (read_.size() >= kMostDirectories || depth > kDeepest) {
      allKnown_ = false;
      return;
    }
    read_.push_back(at);
    const Listing listing = ReadListing(stream, at, chained);
    if (!listing.whole) {
      allKnown_ = false;
      return;
    }
    Know(at, listing.room);
    for (const Entry& entry : listing.entries) {
      if (entry.at != 0 && entry.length != 0) Know(entry.at, entry.length);
      const bool leads = entry.tag == kExifLink || entry.tag == kGpsLink ||
                         entry.tag == kInteropLink || entry.tag == kSubLink ||
                         entry.type == kDirectoryType;
      if (!leads || SizeOfType(entry.type) != 4) continue;
      morePlaces_ = morePlaces_ || (entry.tag == kGpsLink && at != directories_.at(kFirst).at);
      const bool goesOn = entry.tag == kSubLink;
      if (entry.at == 0) {
        ReadAll(stream, Offset(entry.field, little_), depth + 1, goesOn);
        continue;
      }
      for (std::uint64_t i = 0; i < entry.length / 4 && i < kMostDirectories; ++i) {
        stream.Position(base_ + entry.at + 4 * i);
        ReadAll(stream, stream.ReadUInt32(), depth + 1, goesOn);
      }
    }
    KnowPictures(stream, listing);
    at = listing.next;
  }
}

void DirectoryEditor::KnowPictures(MetadataStream& stream, const Listing& listing) {
  const auto numbers = [&](int tag) {
    std::vector<std::uint64_t> values;
    const auto found = std::ranges::find(listing.entries, tag, &Entry::tag);
    if (found == listing.entries.end()) return values;
    const std::string bytes = EntryBytes(stream, *found);
    const auto size = static_cast<std::size_t>(SizeOfType(found->type));
    if (size != 2 && size != 4) return values;
    values.reserve(bytes.size() / size);
    for (std::size_t at = 0; at + size <= bytes.size(); at += size) {
      std::string four(bytes, at, size);
      // A short number is the low half of a long one.
      four.insert(little_ ? four.size() : 0, 4 - size, '\0');
      values.push_back(Offset(four, little_));
    }
    return values;
  };
  constexpr std::array kMosaics{0x8023U, 0x884CU};
  const auto photometric = numbers(0x0106);
  raw_ =
      raw_ || std::ranges::find(listing.entries, 0xC612, &Entry::tag) != listing.entries.end() ||
      (!photometric.empty() && std::ranges::find(kMosaics, photometric.front()) != kMosaics.end());
  // Strips, tiles, and the picture of a thumbnail.
  for (const auto& [offsets, lengths] :
       {std::pair(0x0111, 0x0117), std::pair(0x0144, 0x0145), std::pair(0x0201, 0x0202)}) {
    const std::vector<std::uint64_t> places = numbers(offsets);
    const std::vector<std::uint64_t> sizes = numbers(lengths);
    // Pixels of an unknown length may lie anywhere.
    if (places.size() != sizes.size()) allKnown_ = false;
    for (std::size_t i = 0; i < places.size() && i < sizes.size(); ++i) {
      // A small picture without bytes is none.
      const bool none = sizes[i] == 0 && offsets == 0x0201;
      if (sizes[i] == 0 && !none) allKnown_ = false;
      if (!none) Know(places[i], sizes[i]);
    }
  }
}

const DirectoryEditor::Entry* DirectoryEditor::Find(Directory directory, int tag) const {
  const std::vector<Entry>& entries = directories_.at(directory).entries;
  const auto found = std::ranges::find(entries, tag, &Entry::tag);
  return found == entries.end() ? nullptr : &*found;
}

int DirectoryEditor::TypeOf(Directory directory, int tag) const {
  const Entry* entry = Find(directory, tag);
  return entry == nullptr ? 0 : entry->type;
}

std::string DirectoryEditor::BytesOf(Directory directory, int tag) const {
  const Entry* entry = Find(directory, tag);
  if (entry == nullptr) return {};
  return entry->changed ? entry->bytes : EntryBytes(*stream_, *entry);
}

std::string DirectoryEditor::EntryBytes(MetadataStream& stream, const Entry& entry) const {
  if (entry.at == 0) return entry.field.substr(0, entry.length);
  stream.Position(base_ + entry.at);
  return stream.Read(entry.length);
}

std::vector<int> DirectoryEditor::Tags(Directory directory) const {
  std::vector<int> tags;
  for (const Entry& entry : directories_.at(directory).entries) tags.push_back(entry.tag);
  return tags;
}

bool DirectoryEditor::Change(Directory directory) {
  Listing& listing = directories_.at(directory);
  // Where else a sub-directory is led to from is not known here.
  if (!listing.whole || directory == kSub) return false;
  listing.changed = true;
  if (listing.there) return true;
  listing.there = true;
  // Whatever leads to a new directory is made here; where it is comes with its writing.
  switch (directory) {
    case kExif:
      return Set(kFirst, kExifLink, kLongType, Number(0, 4));
    case kGps:
      return Set(kFirst, kGpsLink, kLongType, Number(0, 4));
    case kInterop:
      return Set(kExif, kInteropLink, kLongType, Number(0, 4));
    case kThumbnail:
      return Change(kFirst);
    default:
      return directory == kFirst;
  }
}

bool DirectoryEditor::Set(Directory directory, int tag, int type, std::string bytes) {
  if (SizeOfType(type) == 0 || !Change(directory)) return false;
  std::vector<Entry>& entries = directories_.at(directory).entries;
  auto found = std::ranges::find(entries, tag, &Entry::tag);
  if (found == entries.end()) {
    entries.push_back({});
    found = std::prev(entries.end());
    found->tag = tag;
  }
  found->type = type;
  found->count =
      static_cast<std::uint32_t>(bytes.size() / static_cast<std::size_t>(SizeOfType(type)));
  found->bytes = std::move(bytes);
  found->changed = true;
  // A tag that stands there twice has one value from now on.
  for (auto other = std::next(found); other != entries.end();) {
    if (other->tag != tag) {
      ++other;
      continue;
    }
    Free({other->at, other->length});
    other = entries.erase(other);
  }
  return true;
}

bool DirectoryEditor::Remove(Directory directory, int tag) {
  if (Find(directory, tag) == nullptr) return true;
  if (!Change(directory)) return false;
  std::erase_if(directories_.at(directory).entries, [&](const Entry& entry) {
    if (entry.tag != tag) return false;
    if (entry.at != 0) Free({entry.at, entry.length});
    return true;
  });
  return true;
}

bool DirectoryEditor::Drop(Directory directory) {
  Listing& listing = directories_.at(directory);
  if (!listing.there) return true;
  if (!listing.whole) return false;
  for (const int tag : Tags(directory)) {
    if (!Remove(directory, tag)) return false;
  }
  if (listing.at != 0) Free({listing.at, listing.room});
  if (directory == kThumbnail) directories_.at(kFirst).next = listing.next;
  listing = {};
  switch (directory) {
    case kExif:
      return Remove(kFirst, kExifLink);
    case kGps:
      return Remove(kFirst, kGpsLink);
    case kInterop:
      return Remove(kExif, kInteropLink);
    default:
      return Change(kFirst);
  }
}

bool DirectoryEditor::SetAt(Directory directory, int tag, int type, std::string bytes,
                            std::uint64_t at) {
  if (stream_ != nullptr || at < length_ || bytes.size() <= 4) return false;
  const std::size_t length = bytes.size();
  if (!Set(directory, tag, type, {})) return false;
  Entry& entry = *std::ranges::find(directories_.at(directory).entries, tag, &Entry::tag);
  entry.count = static_cast<std::uint32_t>(length / static_cast<std::size_t>(SizeOfType(type)));
  entry.field = Number(at, 4);
  entry.at = at;
  entry.length = length;
  entry.changed = false;
  length_ = at + length;
  patches_.push_back({at, std::move(bytes)});
  return true;
}

std::uint64_t DirectoryEditor::LengthOf(Directory directory, int tag) const {
  const Entry* entry = Find(directory, tag);
  if (entry == nullptr) return 0;
  return entry->changed ? entry->bytes.size() : entry->length;
}

std::uint64_t DirectoryEditor::PlaceOf(Directory directory, int tag) const {
  const Entry* entry = Find(directory, tag);
  return entry == nullptr ? 0 : entry->at;
}

bool DirectoryEditor::Thumbnail(std::string jpeg) {
  constexpr int kJpeg = 6;
  constexpr int kInch = 2;
  const auto number = [&](int tag, std::uint64_t value, int type) {
    return Set(kThumbnail, tag, type, Number(value, SizeOfType(type)));
  };
  const std::string resolution = Number(72, 4) + Number(1, 4);
  const std::size_t size = jpeg.size();
  thumbnail_ = std::move(jpeg);
  return Drop(kThumbnail) && number(0x0103, kJpeg, kShortType) && number(0x0112, 1, kShortType) &&
         Set(kThumbnail, 0x011A, kRationalType, resolution) &&
         Set(kThumbnail, 0x011B, kRationalType, resolution) && number(0x0128, kInch, kShortType) &&
         number(0x0201, 0, kLongType) && number(0x0202, size, kLongType);
}

}  // namespace brivolant
