// SPDX-License-Identifier: MIT
#include "metadata/JpegParts.h"

#include <algorithm>
#include <array>

#include "metadata/BigEndian.h"
#include "metadata/JpegMarks.h"
#include "metadata/TagValue.h"
#include "metadata/XMPExtension.h"
#include "platform/files/FileNames.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

using namespace JpegMarks;

constexpr std::string_view kMpfMark("MPF\0", 4);
constexpr std::string_view kAdobeMark("Adobe", 5);
/// What a segment holds beside its length.
constexpr std::size_t kMostPayload = 65533;

std::string Segment(int marker, std::string_view payload) {
  return BigEndian(0xFF00U | static_cast<unsigned>(marker), 2) + BigEndian(payload.size() + 2, 2) +
         std::string(payload);
}

/// Parts of a Photoshop block; the next goes on where the last ended.
std::string Segments(int marker, std::string_view mark, std::string_view bytes) {
  std::string all;
  const std::size_t room = kMostPayload - mark.size();
  for (std::size_t at = 0; at < bytes.size(); at += room) {
    all += Segment(marker, std::string(mark).append(bytes.substr(at, room)));
  }
  return all;
}

}  // namespace

JpegParts::JpegParts(MetadataStream& stream) : MetadataParts(stream) {
  constexpr std::size_t kHead = 40;
  stream.Position(2);
  while (true) {
    Part segment;
    segment.At = stream.Position();
    if (stream.ReadUInt8() != 0xFF) break;
    int marker = 0xFF;
    while (marker == 0xFF && !stream.EndOfFile()) marker = stream.ReadUInt8();
    // From here on it is the picture's own.
    if (marker == 0xDA || marker == 0xD9 || stream.EndOfFile()) {
      rest_ = segment.At;
      good_ = marker == 0xDA;
      break;
    }
    if (marker != 0x01 && (marker < 0xD0 || marker > 0xD7)) {
      const std::uint64_t length = stream.ReadUInt16();
      if (length < 2 || length - 2 > stream.Remaining()) return;
      segment.Payload = stream.Position();
      segment.Length = length - 2;
      segment.Is = KindOf(marker, stream.Read(std::min<std::uint64_t>(segment.Length, kHead)));
      stream.Position(segment.Payload + segment.Length);
    }
    segment.End = stream.Position();
    // What is the picture's own needs no telling apart.
    if (!segments_.empty() && segment.Is == Kind::kPicture &&
        segments_.back().Is == Kind::kPicture) {
      segments_.back().End = segment.End;
    } else {
      segments_.push_back(segment);
    }
  }
  if (good_) ReadBlocks();
}

JpegParts::Kind JpegParts::KindOf(int marker, std::string_view head) {
  if (marker == 0xE0) return head.starts_with(kJfifMark) ? Kind::kJfif : Kind::kOtherZero;
  if (marker == 0xE1 && head.size() >= kExifMark.size() && !exif_ &&
      EqualIgnoringCase(head.substr(0, kExifMark.size()), kExifMark)) {
    exif_ = true;
    return Kind::kExif;
  }
  if (marker == 0xE1 && head.starts_with(kXmpMark) && !xmpThere_) {
    xmpThere_ = true;
    return Kind::kXmp;
  }
  if (marker == 0xE1 && head.starts_with(kXmpFurtherMark)) return Kind::kXmpFurther;
  // Second ones.
  if (marker == 0xE1 && (head.starts_with("http://ns.adobe.com/x") ||
                         EqualIgnoringCase(head.substr(0, 4), kExifMark.substr(0, 4)))) {
    return Kind::kFurther;
  }
  if (marker == 0xE2 && head.starts_with(kMpfMark)) return Kind::kMpf;
  if (marker == 0xE2 && head.starts_with(kProfileMark)) return Kind::kProfile;
  if (marker == 0xED && head.starts_with(kPhotoshopMark)) return Kind::kPhotoshop;
  if (marker == 0xEE && head.starts_with(kAdobeMark)) return Kind::kAdobe;
  if (marker == 0xFE) return Kind::kComment;
  return marker >= 0xE0 && marker <= 0xEF ? Kind::kOtherApp : Kind::kPicture;
}

std::string JpegParts::PayloadOf(const Part& part, std::size_t skipped) {
  stream_.Position(part.Payload + skipped);
  return stream_.Read(part.Length - skipped);
}

void JpegParts::ReadBlocks() {
  std::string resources;
  XMPExtension further;
  for (const Part& part : segments_) {
    if (part.Is == Kind::kExif) {
      structure_ = PayloadOf(part, kExifMark.size());
      exifStream_ = std::make_unique<MetadataStream>(structure_);
      tiff_ = std::make_unique<DirectoryEditor>(*exifStream_);
      good_ = good_ && tiff_->Good();
    } else if (part.Is == Kind::kXmp) {
      xmp_ = PayloadOf(part, kXmpMark.size());
    } else if (part.Is == Kind::kXmpFurther && part.Length > kXmpFurtherMark.size()) {
      further.Take(PayloadOf(part, kXmpFurtherMark.size()));
    } else if (part.Is == Kind::kPhotoshop) {
      resources += PayloadOf(part, kPhotoshopMark.size());
    }
  }
  resources_ = ImageResources(resources);
  xmp_ = further.Joined(xmp_);
  xmpJoined_ = further.Whole();
}

bool JpegParts::ApplyToComment(const MetadataChange& change) {
  comment_ = change.What == MetadataChange::Act::kRemove ? std::string()
                                                         : change.Text.value_or(std::string());
  return true;
}

bool JpegParts::StripAll() {
  // How the pixels are turned, how large they are on paper, and what their colours mean where no
  // profile says it.
  struct Kept {
    DirectoryEditor::Directory Where;
    int Tag;
  };
  static constexpr std::array kKept{
      Kept{DirectoryEditor::kFirst, 0x0112}, Kept{DirectoryEditor::kFirst, 0x011A},
      Kept{DirectoryEditor::kFirst, 0x011B}, Kept{DirectoryEditor::kFirst, 0x0128},
      Kept{DirectoryEditor::kExif, 0xA001},  Kept{DirectoryEditor::kExif, 0xA002},
      Kept{DirectoryEditor::kExif, 0xA003},  Kept{DirectoryEditor::kInterop, 0x0001}};
  const auto old = std::move(tiff_);
  stripped_ = true;
  resources_ = {};
  xmp_.clear();
  if (!old) return true;
  auto bare = std::make_unique<DirectoryEditor>(old->LittleEndian());
  for (const Kept& kept : kKept) {
    const int type = old->TypeOf(kept.Where, kept.Tag);
    if (SizeOfType(type) == 0) continue;
    if (!bare->Set(kept.Where, kept.Tag, type, old->BytesOf(kept.Where, kept.Tag))) return false;
  }
  return TakeStructure(std::move(bare));
}

std::string JpegParts::Comment() {
  std::string comment;
  for (const Part& part : segments_) {
    if (part.Is == Kind::kComment) comment = JpegCommentText(PayloadOf(part, 0));
  }
  return comment;
}

bool JpegParts::Take(CarriedData data) {
  // The resolution stands in JFIF's segment already, and one says what the other says.
  constexpr std::size_t kUnits = 7;
  constexpr std::size_t kDensity = 8;
  for (const Part& part : segments_) {
    if (part.Is != Kind::kJfif || !data.Tiff) continue;
    const std::string jfif = PayloadOf(part, 0);
    if (jfif.size() < kDensity + 4 || jfif[kUnits] < 1 || jfif[kUnits] > 2) break;
    const bool little = data.Tiff->LittleEndian();
    const auto set = [&](int tag, int type, const std::string& big) {
      return data.Tiff->Set(DirectoryEditor::kFirst, tag, type,
                            little ? DirectoryEditor::Swapped(type, big) : big);
    };
    const auto density = [&](std::size_t at) {
      return std::string(2, '\0') + jfif.substr(at, 2) + BigEndian(1, 4);
    };
    if (!set(0x011A, kRationalType, density(kDensity)) ||
        !set(0x011B, kRationalType, density(kDensity + 2)) ||
        !set(0x0128, kShortType, BigEndian(static_cast<std::uint64_t>(jfif[kUnits]) + 1, 2))) {
      return false;
    }
    break;
  }
  if (!TakeStructure(std::move(data.Tiff))) return false;
  // In another encoding it may have become longer than a segment.
  if (data.Comment != Comment()) comment_ = CutAtCharacter(data.Comment, kMostPayload);
  return TakeTexts(data);
}

std::string JpegParts::NewOf(Kind kind) {
  switch (kind) {
    case Kind::kExif: {
      if (!tiff_) return {};
      const std::string bytes = Structure(newStructure_ ? std::string() : structure_);
      return Segment(0xE1, std::string(kExifMark) + bytes);
    }
    case Kind::kXmp: {
      if (xmp_.empty()) return {};
      // What goes on elsewhere, and is not understood, stays, and so does the name of it.
      const bool fits = kXmpMark.size() + xmp_.size() <= kMostPayload;
      if (fits && !xmpJoined_) return Segment(0xE1, std::string(kXmpMark) + xmp_);
      const auto parts = XMPExtension::Split(xmp_, kMostPayload - kXmpMark.size());
      if (!parts) return {};
      std::string segments = Segment(0xE1, std::string(kXmpMark) + parts->Packet);
      for (const std::string& payload : parts->Further) segments += Segment(0xE1, payload);
      return segments;
    }
    case Kind::kPhotoshop:
      return Segments(0xED, kPhotoshopMark, resources_.Bytes());
    case Kind::kComment:
      return comment_->empty() ? std::string() : Segment(0xFE, *comment_);
    default:
      return {};
  }
}

bool JpegParts::Changed(Kind kind) const {
  switch (kind) {
    case Kind::kExif:
      return tiffChanged_ || stripped_;
    case Kind::kXmp:
      return xmpChanged_ || stripped_;
    case Kind::kPhotoshop:
      return resourcesChanged_ || stripped_;
    case Kind::kComment:
      return comment_.has_value() || stripped_;
    case Kind::kXmpFurther:
      return stripped_ || (xmpJoined_ ? xmpChanged_ : placeStripped_);
    case Kind::kFurther:
      return stripped_ || placeStripped_;
    default:
      return stripped_ && kind != Kind::kJfif && kind != Kind::kProfile && kind != Kind::kAdobe &&
             kind != Kind::kPicture;
  }
}

std::optional<FilePlan> JpegParts::Plan() {
  // A segment's length has 16 bits.
  if (stripped_ && !comment_) comment_ = std::string();
  std::map<Kind, std::string> fresh;
  for (const Kind kind : {Kind::kExif, Kind::kXmp, Kind::kPhotoshop, Kind::kComment}) {
    if (!Changed(kind)) continue;
    fresh[kind] = NewOf(kind);
    const bool several = kind == Kind::kPhotoshop || kind == Kind::kXmp;
    if (!several && fresh[kind].size() > kMostPayload + 4) return std::nullopt;
    if (kind == Kind::kXmp && !xmp_.empty() && fresh[kind].empty()) return std::nullopt;
  }
  // What changes stands where the first of its kind stood, of comments the last, which is the one
  // that is shown.
  std::map<Kind, std::size_t> places;
  for (std::size_t i = 0; i < segments_.size(); ++i) {
    const Kind kind = segments_[i].Is;
    if (kind == Kind::kComment) {
      places[kind] = i;
    } else {
      places.try_emplace(kind, i);
    }
  }
  FilePlan plan;
  plan.Take(0, 2);
  std::optional<std::size_t> mpf;
  std::int64_t beforeMpf = 0;
  std::size_t structure = 0;
  const auto insert = [&](Kind kind) {
    const auto found = fresh.find(kind);
    if (found != fresh.end() && !places.contains(kind)) plan.Take(std::move(found->second));
  };
  // What is new: an Exif segment behind JFIF's, which comes first, and the others behind it.
  bool begun = false;
  bool led = false;
  const auto insertBefore = [&](Kind kind) {
    if (!begun && kind != Kind::kJfif && kind != Kind::kOtherZero) {
      begun = true;
      insert(Kind::kExif);
    }
    if (begun && !led && kind != Kind::kExif && kind != Kind::kXmp) {
      led = true;
      for (const Kind other : {Kind::kXmp, Kind::kPhotoshop, Kind::kComment}) insert(other);
    }
  };
  for (std::size_t i = 0; i < segments_.size(); ++i) {
    const Part& part = segments_[i];
    insertBefore(part.Is);
    const bool earlier = part.Is == Kind::kComment && !stripped_ && places[part.Is] != i;
    if (Changed(part.Is) && !earlier) {
      if (fresh.contains(part.Is) && places[part.Is] == i) plan.Take(fresh[part.Is]);
    } else if (part.Is == Kind::kMpf && !mpf) {
      beforeMpf = static_cast<std::int64_t>(plan.Length) - static_cast<std::int64_t>(part.At);
      stream_.Position(part.At);
      plan.Take(stream_.Read(part.End - part.At));
      mpf = plan.Pieces.size() - 1;
      structure = part.Payload - part.At + kMpfMark.size();
    } else {
      plan.Take(part.At, part.End - part.At);
    }
  }
  insertBefore(Kind::kPicture);
  const auto moved = static_cast<std::int64_t>(plan.Length) - static_cast<std::int64_t>(rest_);
  const std::uint64_t end = stripped_ ? EndOfPicture() : stream_.Length();
  plan.Take(rest_, end - rest_);
  if (mpf) CorrectPictures(plan.Pieces[*mpf].Bytes, structure, beforeMpf, moved);
  return plan;
}

bool JpegParts::HoldsMorePictures() {
  const bool several =
      std::ranges::any_of(segments_, [](const Part& part) { return part.Is == Kind::kMpf; });
  if (!several) return false;
  constexpr std::uint64_t kPart = std::uint64_t{1} << 20;
  std::string window;
  stream_.Position(EndOfPicture());
  while (!stream_.EndOfFile()) {
    // A mark may lie across two parts.
    window = window.substr(window.size() - std::min(window.size(), kExifMark.size())) +
             stream_.Read(kPart);
    if (window.find(kExifMark) != std::string::npos) return true;
  }
  return false;
}

void JpegParts::CorrectPictures(std::string& segment, std::size_t structure, std::int64_t before,
                                std::int64_t moved) {
  constexpr int kPictures = 0xB002;
  constexpr std::size_t kRow = 16;
  const auto read = [&](std::size_t at, int size, bool little) {
    std::uint64_t value = 0;
    for (int k = 0; k < size; ++k) {
      const auto place = at + static_cast<std::size_t>(k);
      const std::uint64_t byte =
          place < segment.size() ? static_cast<unsigned char>(segment[place]) : 0;
      value |= byte << 8 * (little ? k : size - 1 - k);
    }
    return value;
  };
  const auto shift = [&](std::size_t at, std::int64_t by, bool little) {
    const auto value = static_cast<std::int64_t>(read(at, 4, little)) + by;
    std::string bytes = BigEndian(static_cast<std::uint64_t>(value), 4);
    if (little) std::ranges::reverse(bytes);
    if (at + 4 <= segment.size()) segment.replace(at, 4, bytes);
  };
  const bool little = segment.compare(structure, 2, "II") == 0;
  const std::size_t directory = structure + read(structure + 4, 4, little);
  const std::uint64_t count = read(directory, 2, little);
  for (std::uint64_t e = 0; e < count; ++e) {
    const std::size_t entry = directory + 2 + 12 * e;
    if (entry + 12 > segment.size()) return;
    if (read(entry, 2, little) != kPictures) continue;
    const std::size_t length = read(entry + 4, 4, little);
    const std::size_t rows = structure + read(entry + 8, 4, little);
    if (rows > segment.size() || length > segment.size() - rows) return;
    for (std::size_t row = 0; row + kRow <= length; row += kRow) {
      // The first is this picture itself, which has become longer; the others stand behind it.
      const bool self = read(rows + row + 8, 4, little) == 0;
      if (self && row == 0) shift(rows + row + 4, moved, little);
      if (!self) shift(rows + row + 8, moved - before, little);
    }
  }
}

std::uint64_t JpegParts::EndOfPicture() {
  stream_.Position(rest_);
  while (stream_.Remaining() >= 2) {
    if (stream_.ReadUInt8() != 0xFF) continue;
    int marker = 0xFF;
    while (marker == 0xFF && !stream_.EndOfFile()) marker = stream_.ReadUInt8();
    if (marker == 0xD9) return stream_.Position();
    // Within a scan there are bytes that look like a marker, and marks to start anew at.
    if (marker == 0 || (marker >= 0xD0 && marker <= 0xD7)) continue;
    const std::uint64_t begin = stream_.Position();
    stream_.Position(begin + stream_.ReadUInt16());
  }
  return stream_.Length();
}

}  // namespace brivolant
