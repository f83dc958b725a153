// SPDX-License-Identifier: MIT
// How a changed structure is laid out.
#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "metadata/DirectoryEditor.h"
#include "metadata/DirectoryLayout.h"
#include "metadata/MetadataStream.h"

namespace brivolant {
namespace {

using namespace DirectoryLayout;

std::int64_t Whole(double value) {
  // Of what is no number, as of what a camera could not tell, nothing.
  if (!std::isfinite(value)) return 0;
  constexpr double kMost = std::numeric_limits<std::uint32_t>::max();
  return std::llround(std::clamp(value, -kMost, kMost));
}

}  // namespace

void DirectoryEditor::Sort(std::vector<Entry>& entries) {
  // What a camera left empty keeps its place: it has no tag to speak of.
  std::vector<std::pair<std::size_t, Entry>> empty;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (SizeOfType(entries[i].type) == 0) empty.emplace_back(i, entries[i]);
  }
  std::erase_if(entries, [](const Entry& entry) { return SizeOfType(entry.type) == 0; });
  std::ranges::stable_sort(entries, {}, &Entry::tag);
  for (auto& [at, entry] : empty) {
    entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(std::min(at, entries.size())),
                   std::move(entry));
  }
}

std::string DirectoryEditor::Encoded(int type, const std::vector<TagValue>& values,
                                     bool littleEndian) {
  std::string bytes;
  for (const TagValue& value : values) {
    if (const auto* text = std::get_if<std::string>(&value)) {
      bytes += *text;
      if (type == kAsciiType) bytes += '\0';
      continue;
    }
    const auto number = [&](std::int64_t whole, int size) {
      bytes += NumberIn(static_cast<std::uint64_t>(whole), size, littleEndian);
    };
    const double plain = NumberOf(value);
    switch (type) {
      case kRationalType:
      case kSRationalType: {
        const auto* fraction = std::get_if<Rational>(&value);
        number(fraction != nullptr ? Whole(fraction->numerator) : Whole(plain), 4);
        number(fraction != nullptr ? Whole(fraction->denominator) : 1, 4);
        break;
      }
      case kFloatType:
        number(std::bit_cast<std::int32_t>(static_cast<float>(plain)), 4);
        break;
      case kDoubleType:
        number(std::bit_cast<std::int64_t>(plain), 8);
        break;
      default:
        number(Whole(plain), std::max(1, SizeOfType(type)));
        break;
    }
  }
  return bytes;
}

std::string DirectoryEditor::Swapped(int type, std::string bytes) {
  const bool fraction = type == kRationalType || type == kSRationalType;
  const auto size = static_cast<std::size_t>(fraction ? 4 : std::max(1, SizeOfType(type)));
  for (std::size_t at = 0; at + size <= bytes.size(); at += size) {
    std::reverse(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                 bytes.begin() + static_cast<std::ptrdiff_t>(at + size));
  }
  return bytes;
}

std::string DirectoryEditor::Number(std::uint64_t value, int size) const {
  return NumberIn(value, size, little_);
}

bool DirectoryEditor::Alone(const Range& range) const {
  if (!allKnown_) return false;
  int users = 0;
  for (const Range& known : known_) {
    if (known.at >= range.at + range.length) break;
    if (known.at + known.length > range.at) ++users;
  }
  return users <= 1;
}

bool DirectoryEditor::Fits(const Listing& listing) const {
  return listing.at != 0 && RoomOf(listing.entries.size()) <= listing.room &&
         Alone({listing.at, listing.room});
}

void DirectoryEditor::Free(const Range& range) {
  if (range.at == 0 || range.length == 0) return;
  if (Alone(range)) {
    freed_.push_back(range);
  } else {
    left_ = true;
  }
}

std::uint64_t DirectoryEditor::Append(std::uint64_t length) {
  const std::uint64_t at = length_ + length_ % 2;
  length_ = at + length;
  return at;
}

std::uint64_t DirectoryEditor::Place(Entry& entry) {
  const Range old{entry.at, entry.length};
  if (old.at != 0 && entry.bytes.size() <= old.length && Alone(old)) {
    if (entry.bytes.size() < old.length) {
      patches_.push_back(
          {old.at + entry.bytes.size(), std::string(old.length - entry.bytes.size(), '\0')});
    }
    return old.at;
  }
  return Append(entry.bytes.size());
}

void DirectoryEditor::WriteListing(Directory directory) {
  Listing& listing = directories_.at(directory);
  if (!listing.there || !listing.changed) return;
  Sort(listing.entries);
  const bool fits = Fits(listing);
  if (!fits) listing.at = Append(RoomOf(listing.entries.size()));
  for (Entry& entry : listing.entries) {
    if (!entry.changed) continue;
    if (entry.bytes.size() <= 4) {
      entry.field = entry.bytes;
      entry.field.resize(4);
      continue;
    }
    const std::uint64_t at = Place(entry);
    entry.field = Number(at, 4);
    patches_.push_back({at, entry.bytes});
  }
  std::string bytes = Number(listing.entries.size(), 2);
  for (const Entry& entry : listing.entries) {
    bytes += Number(static_cast<std::uint64_t>(entry.tag), 2) +
             Number(static_cast<std::uint64_t>(entry.type), 2) + Number(entry.count, 4) +
             entry.field;
  }
  bytes += Number(listing.next, 4);
  if (fits) bytes.resize(listing.room);
  patches_.push_back({listing.at, std::move(bytes)});
}

bool DirectoryEditor::TakeOut(const Range& range) {
  if (range.at < kHeader || !Alone(range)) return false;
  const auto same = [&](std::uint64_t at, std::uint64_t length) {
    return at == range.at && length == range.length;
  };
  const auto freed = std::ranges::find_if(
      freed_, [&](const Range& other) { return same(other.at, other.length); });
  if (freed != freed_.end()) {
    freed_.erase(freed);
    return true;
  }
  for (const Directory directory : {kInterop, kExif, kGps, kThumbnail, kFirst}) {
    Listing& listing = directories_.at(directory);
    if (!listing.there || !listing.whole) continue;
    if (same(listing.at, listing.room)) {
      listing.at = 0;
      listing.changed = true;
      return true;
    }
    for (Entry& entry : listing.entries) {
      // Nobody knows from where a maker's offsets count.
      if (entry.tag == kMakerNote || entry.length == 0 || !same(entry.at, entry.length)) continue;
      if (!entry.changed) entry.bytes = EntryBytes(*stream_, entry);
      entry.changed = true;
      entry.at = 0;
      listing.changed = true;
      return true;
    }
  }
  return false;
}

void DirectoryEditor::Reclaim() {
  // More than an edit leaves behind may be somebody's after all.
  constexpr std::uint64_t kMostZeros = 1024;
  // No edit leaves more behind; a hostile structure has tens of thousands.
  constexpr int kMostTaken = 1000;
  for (int taken = 0; stream_ != nullptr && allKnown_ && taken < kMostTaken; ++taken) {
    const auto end = [](const Range& range) { return range.at + range.length; };
    const auto last = std::ranges::max_element(known_, {}, end);
    if (last == known_.end() || end(*last) > length_ || length_ - end(*last) > kMostZeros) return;
    stream_->Position(base_ + end(*last));
    const std::string gap = stream_->Read(length_ - end(*last));
    if (gap.find_first_not_of('\0') != std::string::npos || !TakeOut(*last)) return;
    length_ = last->at;
    known_.erase(last);
  }
}

DirectoryEditor::Result DirectoryEditor::Write() {
  // What was written last stands at the end, and is written anew there: a file that is edited every
  // day does not grow every day.
  Reclaim();
  const std::uint64_t kept = stream_ == nullptr ? 0 : length_;
  // A directory that outgrows its place moves, and whatever leads to it changes.
  for (const Directory directory : {kInterop, kExif, kGps, kThumbnail, kFirst}) {
    Listing& listing = directories_.at(directory);
    if (!listing.there || !listing.changed) continue;
    for (const Entry& entry : listing.entries) {
      const Range old{entry.at, entry.length};
      if (entry.changed && (entry.bytes.size() > old.length || entry.bytes.size() <= 4)) Free(old);
    }
    if (Fits(listing)) continue;
    if (listing.at != 0) Free({listing.at, listing.room});
    if (directory == kInterop) directories_.at(kExif).changed = true;
    if (directory != kFirst) directories_.at(kFirst).changed = true;
  }
  for (const Range& range : freed_) {
    patches_.push_back({range.at, std::string(range.length, '\0')});
  }
  const auto lead = [this](Directory from, int tag, Directory to) {
    for (Entry& entry : directories_.at(from).entries) {
      if (entry.tag != tag || !directories_.at(to).changed) continue;
      entry.field = Number(directories_.at(to).at, 4);
      entry.changed = false;
      entry.count = 1;
    }
  };
  WriteListing(kInterop);
  lead(kExif, kInteropLink, kInterop);
  WriteListing(kExif);
  lead(kFirst, kExifLink, kExif);
  WriteListing(kGps);
  lead(kFirst, kGpsLink, kGps);
  if (!thumbnail_.empty()) {
    const std::uint64_t at = Append(thumbnail_.size());
    patches_.push_back({at, thumbnail_});
    for (Entry& entry : directories_.at(kThumbnail).entries) {
      if (entry.tag == 0x0201) entry.bytes = Number(at, 4);
    }
  }
  WriteListing(kThumbnail);
  if (directories_.at(kThumbnail).changed) {
    directories_.at(kFirst).next = static_cast<std::uint32_t>(directories_.at(kThumbnail).at);
  }
  WriteListing(kFirst);
  const Listing& first = directories_.at(kFirst);
  if (first.changed) {
    // Some take what lies from the first directory to the end for the most that the next can have.
    const Listing& next = directories_.at(kThumbnail);
    if (next.there && next.whole) length_ = std::max(length_, first.at + next.room);
    patches_.push_back({4, Number(first.at, 4)});
  }
  return {kept, length_, std::move(patches_)};
}

}  // namespace brivolant
