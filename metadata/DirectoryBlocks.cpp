// SPDX-License-Identifier: MIT
// What the tags of directories show.
#include <array>
#include <optional>

#include "metadata/MetadataBlocks.h"
#include "metadata/TagCatalog.h"
#include "platform/values/Numbers.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

int FirstByte(const TagValue& value) {
  const std::string_view bytes = BytesOf(value);
  return bytes.empty() ? -1 : static_cast<unsigned char>(bytes.front());
}

/// "0220" is 2.2.
std::optional<double> VersionOf(const TagValue& value) {
  const std::string_view bytes = BytesOf(value);
  if (bytes.size() < 4) return {};
  return NumberFromText(std::string(bytes.substr(0, 2)) + "." + std::string(bytes.substr(2, 2)));
}

std::string ComponentsText(const TagValue& value) {
  constexpr std::array kComponents{"", "Y", "Cb", "Cr", "R", "G", "B"};
  std::string text;
  for (const char c : BytesOf(value)) {
    const auto at = static_cast<unsigned char>(c);
    if (at < kComponents.size()) text += kComponents.at(at);
  }
  return text;
}

std::string UTF16Text(std::string_view bytes, bool littleEndian) {
  std::u16string text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    text += static_cast<char16_t>(littleEndian ? first | second << 8 : first << 8 | second);
  }
  while (!text.empty() && text.back() == 0) text.pop_back();
  return TextOfUTF16(text);
}

std::string CommentText(const TagValue& value) {
  constexpr std::size_t kCode = 8;
  const std::string_view bytes = BytesOf(value);
  if (bytes.size() < kCode) return {};
  const std::string code = AsHex(bytes.substr(0, kCode));
  const std::string_view rest = bytes.substr(kCode);
  if (code == "554E49434F444500") {
    // Most write the file's order, some a mark, and some another order after all: text has mostly
    // small codes.
    std::size_t high = 0;
    std::size_t low = 0;
    for (std::size_t i = 0; i + 1 < rest.size(); i += 2) {
      high += rest[i] == 0 ? 1 : 0;
      low += rest[i + 1] == 0 ? 1 : 0;
    }
    return UTF16Text(rest, low > high);
  }
  if (code == "4A49530000000000") return JapaneseText(rest);
  if (code == "4153434949000000" || code == "0000000000000000") return PlainText(rest);
  return {};
}

std::string FlashText(int flash) {
  std::string text;
  const auto add = [&](const char* part) {
    if (!text.empty()) text += ", ";
    text += part;
  };
  if ((flash & 1) != 0) add("Flash Fired");
  if ((flash >> 1 & 3) == 2) add("Strobe return light not detected");
  if ((flash >> 1 & 3) == 3) add("Strobe return light detected");
  if ((flash >> 3 & 3) == 1) add("Compulsory flash firing");
  if ((flash >> 3 & 3) == 2) add("Compulsory flash suppression");
  if ((flash >> 3 & 3) == 3) add("Auto Mode");
  if ((flash & 32) != 0) add("No flash function");
  if ((flash & 64) != 0) add("Red-eye reduction supported");
  return text;
}

std::string ExposureText(const TagValue& value) {
  const auto* time = std::get_if<Rational>(&value);
  if (time == nullptr) return {};
  return Decimals(time->Value(), 5) + " (" + Decimals(time->numerator, 0) + "/" +
         Decimals(time->denominator, 0) + ")";
}

}  // namespace

// TIFF.

std::string TIFFDataObject::handleStringValue(const std::string& tag, const TagValue& value) const {
  const int number = WholeNumberOf(value);
  if (tag == "02BC") return "True";
  if (tag == "4747" || tag.starts_with("9C9")) {
    if (!BytesOf(value).empty()) return UTF16Text(BytesOf(value), true);
  }
  if (tag == "828E") {
    constexpr std::string_view kColors = "RGB";
    std::string text;
    for (const char c : BytesOf(value)) {
      const auto at = static_cast<unsigned char>(c);
      if (at < kColors.size()) text += kColors[at];
    }
    return OrUnknown(text, value);
  }
  if (!TagCatalog::HasMeanings(TagCatalog::TiffValues(), tag)) return PlainStringValue(tag, value);
  std::string text = TagCatalog::MeaningOf(TagCatalog::TiffValues(), tag, number);
  if (text.empty() && tag == "0103") text = "Unknown compression (" + TextOf(value) + ")";
  if (text.empty() && tag == "00FE") text = "High Resolution Version";
  if (text.empty() && tag == "C619") text = "BlackLevelRepeatRows";
  if (text.empty() && tag == "C635") text = "Unsafe";
  return OrUnknown(text, value);
}

// Exif.

std::string EXIFDataObject::handleStringValue(const std::string& tag, const TagValue& value) const {
  if (tag == "829A") return OrUnknown(ExposureText(value), value);
  if (tag == "9000" || tag == "A000") {
    const auto version = VersionOf(value);
    return OrUnknown(version ? Decimals(*version, 2) : std::string(), value);
  }
  if (tag == "9101") return OrUnknown(ComponentsText(value), value);
  if (tag == "9286") return OrUnknown(CommentText(value), value);
  const int number = WholeNumberOf(value);
  if (tag == "9209") return OrUnknown(FlashText(number), value);
  if (tag == "9206") return PlainStringValue(tag, value) + " meters";
  if (tag == "920A") return PlainStringValue(tag, value) + " mm";
  if (tag == "A300") return OrUnknown(FirstByte(value) == 3 ? "DSC" : "", value);
  if (tag == "A301") {
    return OrUnknown(FirstByte(value) == 1 ? "Directly photographed image" : "", value);
  }
  if (tag == "A210") return number == 2 ? "Inch" : "cm";
  if (!TagCatalog::HasMeanings(TagCatalog::ExifValues(), tag)) return PlainStringValue(tag, value);
  std::string text = TagCatalog::MeaningOf(TagCatalog::ExifValues(), tag, number);
  if (text.empty() && tag == "8822") text = "reserved";
  if (text.empty() && tag == "A001") text = "Other (" + TextOf(value) + ")";
  return OrUnknown(text, value);
}

// Interoperability.

std::string InteroperabilityDataObject::handleStringValue(const std::string& tag,
                                                          const TagValue& value) const {
  if (tag != "0002") return PlainStringValue(tag, value);
  const auto version = VersionOf(value);
  return OrUnknown(version ? FixedNumber(*version, 2) : std::string(), value);
}

// GPS.

std::string GPSDataObject::handleStringValue(const std::string& tag, const TagValue& value) const {
  struct Letter {
    std::string_view Tag;
    char Code;
    const char* Text;
  };
  static constexpr std::array kLetters{
      Letter{"0009", 'A', "Measurement in progress"},
      Letter{"0009", 'V', "Measurement Interoperability"},
      Letter{"000A", '2', "2-dimensional measurement"},
      Letter{"000A", '3', "3-dimensional measurement"},
      Letter{"000C", 'K', "Kilometers per hour"},
      Letter{"000C", 'M', "Miles per hour"},
      Letter{"000C", 'N', "Knots"},
      Letter{"000E", 'T', "True direction"},
      Letter{"000E", 'M', "Magnetic direction"},
      Letter{"0010", 'T', "True direction"},
      Letter{"0010", 'M', "Magnetic direction"},
      Letter{"0017", 'T', "True Direction"},
      Letter{"0017", 'M', "Magnetic Direction"},
      Letter{"0019", 'K', "Kilometers"},
      Letter{"0019", 'M', "Miles"},
      Letter{"0019", 'N', "Knots"},
  };
  const int first = FirstByte(value);
  if (tag == "0000") {
    std::string text;
    for (const char c : BytesOf(value)) {
      if (!text.empty()) text += ".";
      text += std::to_string(static_cast<unsigned char>(c));
    }
    return OrUnknown(text, value);
  }
  if (tag == "0005") return first == 1 ? "Sea level reference (negative value)" : "Sea level";
  if (tag == "001E") {
    return NumberOf(value) == 1 ? "Differential correction applied"
                                : "Measurement without differential correction";
  }
  bool coded = false;
  for (const Letter& letter : kLetters) {
    if (letter.Tag != tag) continue;
    coded = true;
    // Letters of ASCII alone, whatever the locale.
    if ((first & ~0x20) == (letter.Code & ~0x20)) return letter.Text;
  }
  return coded ? OrUnknown({}, value) : PlainStringValue(tag, value);
}

}  // namespace brivolant
