// SPDX-License-Identifier: MIT
#include "metadata/MetadataCopy.h"

#include <algorithm>
#include <array>

#include "metadata/DirectoryLayout.h"
#include "metadata/IPTCRecords.h"
#include "metadata/ImageMetaData.h"
#include "metadata/MetadataBlocks.h"
#include "metadata/MetadataDraft.h"
#include "metadata/MetadataFields.h"
#include "metadata/MetadataParts.h"
#include "metadata/MetadataWriter.h"
#include "metadata/PhotoFacts.h"
#include "metadata/Sidecar.h"
#include "metadata/XMPEditor.h"
#include "platform/codecs/EmbeddedData.h"
#include "platform/values/Numbers.h"

namespace brivolant {
namespace {

using DirectoryLayout::kMakerNote;

using Directory = DirectoryEditor::Directory;

constexpr auto kFirst = DirectoryEditor::kFirst;
constexpr auto kExif = DirectoryEditor::kExif;
constexpr auto kGps = DirectoryEditor::kGps;
constexpr auto kInterop = DirectoryEditor::kInterop;
constexpr int kOrientation = 0x0112;
/// Longer than this it does not fit into a segment of a JPEG beside what else there is.
constexpr std::uint64_t kMostStructure = 60000;

/// A tag of the first directory that describes pixels, or leads to other data. What cameras and
/// surveyors add to it is of the sensor, or of the grid of pixels.
bool OfPixels(int tag) {
  constexpr std::array kTags{0x011A, 0x011B, 0x0128, 0x02BC, 0x0153, 0x013D, 0x013E, 0x013F,
                             0x015B, 0x828D, 0x828E, 0x828F, 0x830E, 0x83BB, 0x8480, 0x8482,
                             0x85D8, 0x8649, 0x8769, 0x8773, 0x87AF, 0x87B0, 0x87B1, 0x8825,
                             0x9216, 0x9217, 0xA005, 0x80E3, 0x80E4, 0x80E5, 0x80E6, 0x8214,
                             0x8215, 0x8216, 0x8217, 0x8218, 0x8219, 0xA480, 0xA481};
  const auto within = [tag](int first, int last) { return tag >= first && tag <= last; };
  // Titles, what made it, when and by whom.
  if (within(0x010D, 0x0110) || within(0x0131, 0x0132) || within(0x013B, 0x013C)) return false;
  return within(0x0000, 0x0109) || within(0x010A, 0x0157) || within(0x0200, 0x0214) ||
         within(0xC612, 0xCFFF) || std::ranges::find(kTags, tag) != kTags.end();
}

/// Of the Exif directory: compression, mosaic, the size, and places on the sensor.
bool OfExifPixels(int tag) {
  constexpr std::array kTags{0x9102, 0x9214, 0xA002, 0xA003, 0xA005, 0xA20C,
                             0xA20E, 0xA20F, 0xA210, 0xA214, 0xA302};
  return std::ranges::find(kTags, tag) != kTags.end();
}

}  // namespace

/// The photo as it was opened: what is copied is read from it.
struct MetadataCopy::Photo {
  Photo(const FolderItem& file, const std::string& packet) : stream(file) {
    told.ReadFile(file);
    if (packet.empty()) {
      Sidecar::ReadInto(told);
    } else {
      Sidecar::MergeInto(told, packet, true);
    }
    if (!stream.IsOpen()) return;
    parts = MetadataParts::Of(stream);
    if (parts) {
      tiff = parts->Held();
      return;
    }
    // A raw file is never written, but read.
    stream.Position(0);
    raw = std::make_unique<DirectoryEditor>(stream, true);
    if (raw->Good()) tiff = raw.get();
    if (tiff != nullptr) return;
    // Of other formats what their codecs hand over.
    embedded = told.Embedded;
    if (embedded && !embedded->Preview.empty()) {
      structure = std::make_unique<MetadataStream>(embedded->Preview);
      parts = MetadataParts::Of(*structure);
      if (parts) tiff = parts->Held();
      return;
    }
    if (!embedded || embedded->Exif.empty()) return;
    structure = std::make_unique<MetadataStream>(embedded->Exif);
    raw = std::make_unique<DirectoryEditor>(*structure, true);
    if (raw->Good()) tiff = raw.get();
  }
  std::string XMP() const {
    if (parts && !told.Merged) return parts->XMP();
    return told.XMP;
  }
  std::string IPTC() const {
    if (parts) return parts->IPTC();
    if (embedded) return embedded->IPTC;
    return tiff == nullptr ? std::string() : tiff->BytesOf(kFirst, 0x83BB);
  }
  /// What the owner says beside the photo, as changes of what it tells.
  std::vector<MetadataChange> Said(Rule rule) const;

  ImageMetaData told;
  MetadataStream stream;
  std::shared_ptr<const EmbeddedData> embedded;
  std::unique_ptr<MetadataStream> structure;
  std::unique_ptr<MetadataParts> parts;
  std::unique_ptr<DirectoryEditor> raw;
  const DirectoryEditor* tiff = nullptr;
};

std::vector<MetadataChange> MetadataCopy::Photo::Said(Rule rule) const {
  using enum MetadataField;
  std::vector<MetadataChange> all;
  if (told.SaidBeside.empty()) return all;
  const MetadataDraft draft(told, true);
  const PhotoFacts facts = PhotoFacts::Of(told);
  for (const MetadataField field : {kTitle, kDescription, kCreator, kCopyright, kKeywords, kRating,
                                    kTaken, kCity, kState, kCountry, kPosition}) {
    const bool place = field == kCity || field == kState || field == kCountry || field == kPosition;
    if (place && rule == Rule::kWithoutPlace) continue;
    std::vector<std::string> texts;
    bool said = false;
    for (const auto& [block, tag] : PlacesOf(field)) {
      if (block != MetadataBlock::kXmp || !told.SaidBeside.contains(tag)) continue;
      if (!place && !FieldOf(block, tag)) continue;
      said = true;
      if (!texts.empty()) continue;
      texts = draft.Texts(block, tag);
      if (texts.size() == 1 && IsJoined(block, tag)) {
        const std::string joined = std::exchange(texts, {}).front();
        for (const std::string_view name : Split(joined, ';')) texts.emplace_back(Trim(name));
      }
    }
    if (!said) continue;
    std::erase_if(texts, [](const std::string& text) { return Trim(text).empty(); });
    if (field == kTaken && !texts.empty()) {
      // A day alone says less than the photo may.
      constexpr std::size_t kMoment = 19;
      if (texts.front().size() < kMoment || !facts.Taken) continue;
      // In its own zone, whatever the photo was taken in.
      const std::size_t zone = texts.front().find_first_of("+-Z", kMoment);
      const std::string behind =
          zone == std::string::npos ? std::string() : texts.front().substr(zone);
      texts = {facts.Taken->Text() + behind};
    }
    if (field == kPosition) {
      texts.clear();
      if (facts.Where) texts.push_back(TextOf(*facts.Where));
    }
    const bool list = field == kCreator || field == kKeywords;
    if (!list && texts.size() > 1) texts.resize(1);
    const auto changes = ChangesOf(field, texts, told);
    if (!changes) continue;
    std::ranges::copy_if(*changes, std::back_inserter(all), [](const MetadataChange& change) {
      return change.Block != MetadataBlock::kXmp;
    });
  }
  return all;
}

MetadataCopy::MetadataCopy(const FolderItem& photo, Rule rule, const std::string& packet)
    : photo_(std::make_unique<Photo>(photo, packet)), rule_(rule) {}

MetadataCopy::~MetadataCopy() = default;

bool MetadataCopy::Good() const {
  if (photo_->tiff != nullptr || photo_->parts || photo_->embedded) return true;
  MetadataStream& stream = photo_->stream;
  if (!stream.IsOpen()) return false;
  stream.Position(0);
  const std::string mark = stream.Read(4);
  return mark == "\x89PNG" || mark == "GIF8" || mark.starts_with("BM");
}

bool MetadataCopy::Tells() const {
  const ImageMetaData& told = photo_->told;
  return !photo_->XMP().empty() || told.IPTCData || told.GPSData || told.ExifData ||
         !told.JPEGComment.empty() ||
         (told.TIFFData && (told.TIFFData->hasKey("010F") || told.TIFFData->hasKey("010E")));
}

bool MetadataCopy::Takes(std::string_view type) {
  constexpr std::array<std::string_view, 5> kTypes{"public.jpeg", "public.tiff", "public.png",
                                                   "public.jpeg-2000", "com.adobe.photoshop-image"};
  return std::ranges::find(kTypes, type) != kTypes.end();
}

namespace {

/// A structure of the photo's order with what may go along.
std::unique_ptr<DirectoryEditor> Structure(const DirectoryEditor* held, MetadataCopy::Rule rule,
                                           const MetadataCopy::Facts& facts, bool note) {
  const bool little = held != nullptr && held->LittleEndian();
  auto copy = std::make_unique<DirectoryEditor>(little);
  const auto number = [little](std::uint32_t value, int type) {
    return DirectoryEditor::Encoded(type, {TagValue(value)}, little);
  };
  bool done = true;
  const auto set = [&](Directory directory, int tag, int type, std::string bytes) {
    done = copy->Set(directory, tag, type, std::move(bytes)) && done;
  };
  if (held != nullptr) {
    const std::uint64_t at = held->PlaceOf(kExif, kMakerNote);
    if (note && rule == MetadataCopy::Rule::kAll && at != 0) {
      std::string note = held->BytesOf(kExif, kMakerNote);
      // First of all, since it alone has a place of its own.
      if (at + note.size() <= kMostStructure) {
        (void)copy->SetAt(kExif, kMakerNote, held->TypeOf(kExif, kMakerNote), std::move(note), at);
      }
    }
    for (const Directory directory : {kFirst, kExif, kGps, kInterop}) {
      if (directory == kGps && rule == MetadataCopy::Rule::kWithoutPlace) continue;
      for (const int tag : held->Tags(directory)) {
        const int type = held->TypeOf(directory, tag);
        if (SizeOfType(type) == 0 || tag == kMakerNote) continue;
        if (directory == kFirst && OfPixels(tag)) continue;
        if (directory == kExif && OfExifPixels(tag)) continue;
        // The size of the picture that it belongs to.
        if (directory == kInterop && (tag == 0x1001 || tag == 0x1002)) continue;
        if (held->LengthOf(directory, tag) > kMostStructure / 2) continue;
        std::string bytes = held->BytesOf(directory, tag);
        // What lies beyond the end.
        if (bytes.empty()) continue;
        set(directory, tag, type, std::move(bytes));
      }
    }
  }
  const auto text = [&](int tag, const std::string& said) {
    if (!said.empty()) set(kFirst, tag, kAsciiType, said + '\0');
  };
  text(0x0131, facts.Software);
  text(0x013B, facts.Creator);
  text(0x8298, facts.Copyright);
  if (copy->Has(kExif) && facts.Width > 0) {
    set(kExif, 0xA002, kLongType, number(static_cast<std::uint32_t>(facts.Width), kLongType));
    set(kExif, 0xA003, kLongType, number(static_cast<std::uint32_t>(facts.Height), kLongType));
    if (facts.SRGB) set(kExif, 0xA001, kShortType, number(1, kShortType));
  }
  if (facts.SRGB && copy->Has(kInterop, 0x0001)) {
    set(kInterop, 0x0001, kAsciiType, std::string("R98\0", 4));
  }
  set(kFirst, kOrientation, kShortType,
      number(static_cast<std::uint32_t>(facts.Orientation), kShortType));
  if (!facts.Thumbnail.empty()) {
    done = copy->Thumbnail(facts.Thumbnail) && done;
  }
  return done ? std::move(copy) : nullptr;
}

/// The packet without what describes the photo's own pixels.
std::string Packet(std::string packet, MetadataCopy::Rule rule, const MetadataCopy::Facts& facts) {
  if (packet.empty()) return {};
  std::vector<std::string_view> gone(MetadataParts::kOfPixels.begin(),
                                     MetadataParts::kOfPixels.end());
  gone.emplace_back("HasExtendedXMP");
  if (rule == MetadataCopy::Rule::kWithoutPlace) {
    gone.insert(gone.end(), MetadataParts::kPlaces.begin(), MetadataParts::kPlaces.end());
  }
  if (!XMPEditor::RemoveLike(packet, gone)) return {};
  // A sidecar may come without the mark by which a packet is found in a file.
  if (packet.find("<?xpacket") == std::string::npos) {
    packet = "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n" + packet +
             "\n<?xpacket end=\"w\"?>";
  }
  XMPProperties held;
  (void)ReadXMP(packet, held);
  const auto has = [&](std::string_view name) {
    return std::ranges::any_of(held, [&](const auto& property) { return property.first == name; });
  };
  bool done = true;
  if (has("tiff:Orientation")) {
    done = XMPEditor::Set(packet, "tiff:Orientation", {PaddedNumber(facts.Orientation, 1)});
  }
  if (done && !facts.Software.empty()) {
    done = XMPEditor::Set(packet, "xmp:CreatorTool", {facts.Software});
  }
  if (done && !facts.Creator.empty()) done = XMPEditor::Set(packet, "dc:creator", {facts.Creator});
  if (done && !facts.Copyright.empty())
    done = XMPEditor::Set(packet, "dc:rights", {facts.Copyright});
  return done ? packet : std::string();
}

std::string Records(const std::string& bytes, MetadataCopy::Rule rule,
                    const MetadataCopy::Facts& facts) {
  constexpr int kByline = 80;
  constexpr int kCopyright = 116;
  if (bytes.empty()) return {};
  IPTCRecords records(bytes);
  if (rule == MetadataCopy::Rule::kWithoutPlace) records.RemovePlace();
  if (!facts.Creator.empty()) records.Set(kByline, {facts.Creator});
  if (!facts.Copyright.empty()) records.Set(kCopyright, {facts.Copyright});
  return records.Bytes();
}

}  // namespace

std::string MetadataCopy::Into(const FolderItem& file, const Facts& facts) const {
  if (rule_ == Rule::kNone) return {};
  const std::string tooLong =
      WithPlaceholders(MetadataWriter::kTooLong.Text(), {{"<filename>", file.DisplayName()}});
  const auto write = [&](const Facts& said, bool note, bool packet) {
    CarriedData data;
    data.Tiff = Structure(photo_->tiff, rule_, said, note);
    if (!data.Tiff) return std::string(tooLong);
    if (packet) data.XMP = Packet(photo_->XMP(), rule_, said);
    data.IPTC = Records(photo_->IPTC(), rule_, said);
    if (photo_->parts) {
      data.Comment = photo_->parts->Comment();
      data.Resources = photo_->parts->Resources();
    }
    return MetadataWriter::Take(file, std::move(data), photo_->Said(rule_));
  };
  std::string why = write(facts, true, true);
  if (why != tooLong) return why;
  // The rest may fit where a maker's note, a small picture and a long packet do not.
  Facts less = facts;
  less.Thumbnail.clear();
  why = write(less, false, true);
  return why == tooLong ? write(less, false, false) : why;
}

}  // namespace brivolant
