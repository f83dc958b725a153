// SPDX-License-Identifier: MIT
#include "formats/FileTypes.h"

#include <set>

#include "platform/codecs/RawExtensions.h"
#include "platform/values/Text.h"

namespace brivolant {

namespace {

void Join(std::string& list, std::string_view extension) {
  if (!list.empty()) list += ';';
  list += extension;
}

}  // namespace

std::span<const FileType> ImagesReadableMac::Types() {
  static const std::string raw = [] {
    std::string list;
    for (const std::string_view extension : kRawExtensions) Join(list, extension);
    return list;
  }();
  static const std::array<FileType, 7> types{{
      {{"FileTypes.kEXR", "Industrial Light & Magic EXR"}, "exr", "", "", ""},
      {{"FileTypes.kRaw", "Raw Images"}, raw, "", "", ""},
      {{"FileTypes.kRadiance", "Radience"}, "hdr", "", "", ""},
      {{"FileTypes.kFlashPix", "FlashPix"}, "fpx;fpix", "", "", ""},
      {{"FileTypes.kEPS", "Encapsulated PostScript"}, "eps", "", "", ""},
      {{"FileTypes.kMacPaint", "MacPaint"}, "pnt;pntg;mac", "PNTG", "", ""},
      {{"FileTypes.kXBitmap", "xBitmap Image"}, "xbm", "", "", ""},
  }};
  return types;
}

std::string ImagesReadableMac::All() {
  std::string names;
  for (const FileType& type : Types()) names += std::string(type.Name.English) + ';';
  return names;
}

std::string ReadableExtensions() {
  std::string list;
  std::set<std::string, std::less<>> seen;
  const auto add = [&](const FileType& type) {
    for (const std::string_view extension : Split(type.Extensions, ';')) {
      if (seen.emplace(extension).second) Join(list, extension);
    }
  };
  for (const FileType* type : ImagesWritableMac::kTypes) add(*type);
  for (const FileType& type : ImagesReadableMac::kCommon) add(type);
  for (const FileType& type : ImagesReadableMac::Types()) add(type);
  return list;
}

std::string ImagesWritableMac::All() {
  std::string names;
  for (const FileType* type : kTypes) names += std::string(type->Name.English) + ';';
  return names;
}

const FileType* ImagesWritableMac::WithIdentifier(std::string_view identifier) {
  for (const FileType* type : kTypes) {
    if (type->Identifier == identifier) return type;
  }
  return nullptr;
}

}  // namespace brivolant
