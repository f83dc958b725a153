// SPDX-License-Identifier: MIT
// Blocks that are read from bytes of their own: IPTC, Photoshop's resources, colour profiles.
#include <array>

#include "metadata/IPTCRecords.h"
#include "metadata/MetadataBlocks.h"
#include "metadata/TagCatalog.h"
#include "platform/files/BinaryStream.h"

namespace brivolant {
namespace {

constexpr std::size_t kShown = 30;

struct Coded {
  std::string_view Code;
  const char* Text;
};

template <std::size_t N>
std::string Meaning(const std::array<Coded, N>& table, std::string_view code) {
  for (const Coded& row : table) {
    if (row.Code == code) return row.Text;
  }
  return {};
}

}  // namespace

// IPTC.

int IPTCDataObject::ReturnTagType(const std::string&) const {
  return kAsciiType;
}

std::string IPTCDataObject::handleStringValue(const std::string&, const TagValue& value) const {
  return TextOf(value);
}

void IPTCDataObject::ProcessRawData(std::string_view bytes) {
  constexpr int kApplicationRecord = 2;
  const IPTCRecords records(bytes);
  for (const auto& [record, number, value, raw] : records.Datasets()) {
    if (record != kApplicationRecord || number == 0) {
      others_.push_back({record, number, value});
    } else {
      AddData(std::to_string(number), kAsciiType, TagValue(value));
    }
  }
}

// Photoshop.

int PhotoshopDataObject::convertQualityToInteger(std::string_view bytes) {
  if (bytes.size() < 2) return 0;
  BinaryStream stream(bytes);
  // -3 to 8 are 1 to 12.
  const int quality = static_cast<std::int16_t>(stream.ReadUInt16()) + 4;
  return quality < 1 || quality > 12 ? 0 : quality;
}

std::string PhotoshopDataObject::handleStringValue(const std::string& tag,
                                                   const TagValue& value) const {
  const std::string_view bytes = BytesOf(value);
  if (tag == "040A" || tag == "0410" || tag == "0411") {
    return bytes == std::string_view("\0", 1) ? "False" : "True";
  }
  if (tag == "040B") return TextOf(value);
  if (tag == "0406") {
    const int quality = convertQualityToInteger(bytes);
    if (quality == 0) return AsHex(bytes.substr(0, kShown));
    const char* word = quality > 9   ? " (Maximum)"
                       : quality > 7 ? " (High)"
                       : quality > 4 ? " (Medium)"
                                     : " (Low)";
    return std::to_string(quality) + word;
  }
  if (tag == "03EA") return "plist data";
  return AsHex(bytes.substr(0, kShown));
}

// Colour profiles.

std::string ColorProfileObject::GetDataAsRawData() const {
  return RawData;
}

void DCTProfileObject::fromRawData(std::string bytes) {
  constexpr std::size_t kKind = 5;
  rawData = std::move(bytes);
  BinaryStream stream(rawData);
  Kind = PlainText(stream.ReadUpTo(kKind));
  Version = stream.ReadUInt16();
  EncoderUsed = stream.ReadUInt16();
  Flags = stream.ReadUInt16();
  ColorTransformationCode = stream.ReadUInt8();
}

void ColorProfileObject::ProcessColorProfile() {
  constexpr std::size_t kHeader = 128;
  constexpr std::size_t kEntry = 12;
  static constexpr std::array kClasses{Coded{"scnr", "Input Device profile"},
                                       Coded{"mntr", "Display Device profile"},
                                       Coded{"prtr", "Output Device profile"},
                                       Coded{"link", "DeviceLink profile"},
                                       Coded{"spac", "ColorSpace Conversion profile"},
                                       Coded{"abst", "Abstract profile"},
                                       Coded{"nmci", "Named color profile"}};
  static constexpr std::array kPlatforms{
      Coded{"APPL", "Apple Computer, Inc."}, Coded{"MSFT", "Microsoft Corporation"},
      Coded{"SGI ", "Silicon Graphics, Inc."}, Coded{"SUNW", "Sun Microsystems, Inc."}};
  if (RawData.size() <= kHeader) return;
  const std::string_view bytes = RawData;
  const auto four = [&](std::size_t at) { return std::string(bytes.substr(at, 4)); };
  PreferredCMMType = four(4);
  ProfileVersion =
      static_cast<unsigned char>(bytes[8]) + (static_cast<unsigned char>(bytes[9]) >> 4) / 10.0;
  ProfileDevice = Meaning(kClasses, bytes.substr(12, 4));
  ColorSpace = four(16);
  PCS = four(20);
  PrimaryPlatform = Meaning(kPlatforms, bytes.substr(40, 4));
  const auto two = [&](std::size_t at) {
    return static_cast<unsigned char>(bytes[at]) << 8 | static_cast<unsigned char>(bytes[at + 1]);
  };
  const Date created{two(24), two(26), two(28), two(30), two(32), two(34)};
  if (created.Year > 0 && created.Normalized() == created) CreatedDate = created;
  AddData("dmnd", kAsciiType, TagValue(four(48)));
  AddData("dmdd", kAsciiType, TagValue(four(52)));
  BinaryStream stream(bytes);
  stream.Position(kHeader);
  const std::uint32_t count = stream.ReadUInt32();
  for (std::uint32_t i = 0; i < count && stream.Remaining() >= kEntry; ++i) {
    const std::string signature(stream.Read(4));
    const std::size_t offset = stream.ReadUInt32();
    const std::size_t length = stream.ReadUInt32();
    if (offset > bytes.size() || length > bytes.size() - offset) return;
    AddData(signature, kAsciiType, TagValue(std::string(bytes.substr(offset, length))));
  }
}

std::string ColorProfileObject::handleStringValue(const std::string& tag,
                                                  const TagValue& value) const {
  static constexpr std::array kTechnologies{Coded{"fscn", "Film Scanner"},
                                            Coded{"dcam", "Digital Camera"},
                                            Coded{"rscn", "Reflective Scanner"},
                                            Coded{"ijet", "Ink Jet Printer"},
                                            Coded{"twax", "Thermal Wax Printer"},
                                            Coded{"epho", "Electrophotographic Printer"},
                                            Coded{"esta", "Electrostatic Printer"},
                                            Coded{"dsub", "Dye Sublimation Printer"},
                                            Coded{"rpho", "Photographic Paper Printer"},
                                            Coded{"fprn", "Film Writer"},
                                            Coded{"vidm", "Video Monitor"},
                                            Coded{"vidc", "Video Camera"},
                                            Coded{"pjtv", "Projection Television"},
                                            Coded{"CRT ", "Cathode Ray Tube Television"},
                                            Coded{"PMD ", "Passive Matrix Display"},
                                            Coded{"AMD ", "Active Matrix Display"},
                                            Coded{"KPCD", "Photo CD"},
                                            Coded{"imgs", "Phot Image Setter"},
                                            Coded{"grav", "Gravure"},
                                            Coded{"offs", "Offset Lithography"},
                                            Coded{"silk", "Silkscreen"},
                                            Coded{"flex", "Flexography"}};
  const std::string_view bytes = BytesOf(value);
  if (tag == "tech") return bytes.size() < 12 ? "" : Meaning(kTechnologies, bytes.substr(8, 4));
  const std::string_view kind = bytes.substr(0, 4);
  if (kind == "text") return bytes.size() < 8 ? "" : PlainText(bytes.substr(8));
  BinaryStream stream(bytes);
  if (kind == "desc" && bytes.size() >= 12) {
    stream.Position(8);
    const std::size_t length = stream.ReadUInt32();
    return length == 0 ? "" : PlainText(stream.ReadUpTo(length - 1));
  }
  if (kind == "mluc" && bytes.size() >= 28) {
    stream.Position(20);
    const std::size_t length = stream.ReadUInt32();
    const std::size_t offset = stream.ReadUInt32();
    if (offset > bytes.size()) return {};
    BinaryStream text(bytes.substr(offset, length));
    std::u16string letters;
    while (text.Remaining() >= 2) letters += static_cast<char16_t>(text.ReadUInt16());
    return TextOfUTF16(letters);
  }
  // Numbers, curves and tables: what there is to see of them.
  for (const char c : bytes.substr(0, kShown)) {
    if (c < ' ' || c > '~') return AsHex(bytes.substr(0, kShown));
  }
  return std::string(bytes.substr(0, kShown));
}

}  // namespace brivolant
