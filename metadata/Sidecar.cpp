// SPDX-License-Identifier: MIT
#include "metadata/Sidecar.h"

#include <algorithm>
#include <array>
#include <vector>

#include "metadata/ImageMetaData.h"
#include "metadata/MetadataFields.h"
#include "metadata/MetadataParts.h"
#include "metadata/MetadataRows.h"
#include "metadata/MetadataStream.h"
#include "metadata/MetadataWriter.h"
#include "metadata/XMPEditor.h"
#include "platform/codecs/RawExtensions.h"
#include "platform/files/AtomicFile.h"

namespace brivolant::Sidecar {
namespace {

constexpr std::string_view kExtension = ".xmp";
/// No packet is longer.
constexpr std::uint64_t kMost = std::uint64_t{1} << 24;

FolderItem Short(const FolderItem& photo) {
  const std::string name = photo.Name();
  const std::size_t dot = name.rfind('.');
  if (dot == std::string::npos || dot == 0) return {};
  return photo.Parent().Child(name.substr(0, dot) + std::string(kExtension));
}

FolderItem Long(const FolderItem& photo) {
  return photo.Parent().Child(photo.Name() + std::string(kExtension));
}

std::string ExtensionOf(const std::string& name) {
  const std::size_t dot = name.rfind('.');
  return dot == std::string::npos || dot == 0 ? std::string() : LowerCase(name.substr(dot + 1));
}

/// Some property says where, itself or within its fields.
bool SaysPlace(const XMPProperties& properties) {
  return std::ranges::any_of(properties, [](const auto& property) {
    const std::string& name = property.first;
    // What has fields is looked into by whoever takes the place out.
    if (!IsPlainProperty(name) && !name.starts_with("exif:")) return true;
    const std::string_view local = std::string_view(name).substr(name.find(':') + 1);
    return std::ranges::any_of(MetadataParts::kPlaces, [&](std::string_view start) {
      const std::string_view compared = start.ends_with(':') ? std::string_view(name) : local;
      return EqualIgnoringCase(compared.substr(0, start.size()), start);
    });
  });
}

bool IsRaw(const std::string& extension) {
  return std::ranges::find(kRawExtensions, extension) != kRawExtensions.end();
}

/// Kinds of pictures that are never written and are no raw files.
constexpr std::array<std::string_view, 9> kPictures{"heic", "heif", "avif", "png", "webp",
                                                    "jp2",  "jxl",  "gif",  "bmp"};
/// What else may have been meant by a name without an extension.
constexpr std::array<std::string_view, 8> kOthers{"jpg",  "jpeg", "jpe", "tif",
                                                  "tiff", "psd",  "mov", "mp4"};

/// Another file with the stem lies beside it; with `raw`, a raw one.
bool HasOther(const FolderItem& photo, bool raw) {
  const std::string name = photo.Name();
  const std::string stem = name.substr(0, name.rfind('.') + 1);
  const auto has = [&](std::string_view extension) {
    std::string capitals(extension);
    for (char& c : capitals) {
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    for (const std::string& other : {stem + std::string(extension), stem + capitals}) {
      if (other != name && photo.Parent().Child(other).Exists()) return true;
    }
    return false;
  };
  if (std::ranges::any_of(kRawExtensions, has)) return true;
  return !raw && (std::ranges::any_of(kPictures, has) || std::ranges::any_of(kOthers, has));
}

}  // namespace

bool WrittenInPlace(const FolderItem& photo) {
  return MetadataWriter::WhyNotWritten(photo).empty();
}

bool TakesShortName(std::string_view name) {
  const std::string extension = ExtensionOf(std::string(name));
  return IsRaw(extension) || std::ranges::find(kPictures, extension) != kPictures.end();
}

FolderItem Of(const FolderItem& photo) {
  if (photo.IsNil()) return {};
  if (FolderItem beside = Long(photo); beside && beside.Exists()) return beside;
  // What is never written has it from other programs. It is a raw file's where one has the stem,
  // and nobody's where several others have.
  if (!TakesShortName(photo.Name())) return {};
  const FolderItem shorter = Short(photo);
  if (shorter.IsNil() || !shorter.Exists()) return {};
  return IsRaw(ExtensionOf(photo.Name())) || !HasOther(photo, false) ? shorter : FolderItem();
}

bool Shared(const FolderItem& sidecar, const FolderItem& photo) {
  return !(sidecar == Long(photo)) && HasOther(photo, true);
}

FolderItem For(const FolderItem& photo) {
  const FolderItem there = Of(photo);
  return there ? there : Long(photo);
}

FolderItem Following(const FolderItem& photo) {
  return photo.IsNil() || (!photo.Alias() && photo.Directory()) ? FolderItem() : Of(photo);
}

FolderItem BesideMoved(const FolderItem& sidecar, const FolderItem& photo,
                       const FolderItem& moved) {
  const FolderItem shorter = sidecar == Long(photo) ? FolderItem() : Short(moved);
  return shorter ? shorter : Long(moved);
}

std::string Read(const FolderItem& file) {
  return file.IsNil() ? std::string() : ReadFile(file, kMost).value_or(std::string());
}

void ReadInto(ImageMetaData& data) {
  if (data.MyFile.IsNil()) return;
  const std::string packet = Read(Of(data.MyFile));
  if (!packet.empty()) MergeInto(data, packet, !WrittenInPlace(data.MyFile));
}

void MergeInto(ImageMetaData& data, const std::string& packet, bool newer) {
  XMPProperties said;
  if (!ReadXMP(packet, said, XMPNames::kUsual)) return;
  XMPProperties held;
  std::string merged = data.XMP;
  if (merged.empty() || !ReadXMP(merged, held, XMPNames::kUsual)) {
    merged = packet;
  } else {
    for (const auto& property : said) {
      const std::string& name = property.first;
      const bool known =
          std::ranges::any_of(held, [&](const auto& other) { return other.first == name; });
      if (known && !newer) continue;
      // What nobody knows the namespace of, and what has fields, stays in its own packet.
      if (!known || IsPlainProperty(name) || name.starts_with("exif:GPS")) {
        (void)XMPEditor::Set(merged, name, property.second);
      }
    }
  }
  data.ProcessXMPData(merged);
  data.Merged = true;
  if (!newer) return;
  for (const auto& [name, texts] : said) data.SaidBeside.insert(name);
}

std::string Write(const FolderItem& file, std::span<const MetadataChange> changes,
                  const std::string& otherwise) {
  const auto told = [&](const LocalizedText& text, const std::string& reason = {}) {
    return WithPlaceholders(text.Text(),
                            {{"<filename>", file.DisplayName()}, {"<reason>", reason}});
  };
  std::string packet = otherwise;
  if (file.Exists()) {
    const auto held = ReadFile(file, kMost);
    if (!held) return told(kDamaged);
    packet = *held;
  }
  // An empty one is made anew; what is no packet is somebody else's file.
  XMPProperties properties;
  if (!packet.empty() && !ReadXMP(packet, properties, XMPNames::kUsual)) return told(kDamaged);
  for (const MetadataChange& change : changes) {
    if (change.Block != MetadataBlock::kXmp) continue;
    auto known =
        std::ranges::find(properties, change.Tag, [](const auto& said) { return said.first; });
    std::vector<std::string> texts;
    using Act = MetadataChange::Act;
    if (change.What == Act::kAdd && known != properties.end()) texts = known->second;
    if (change.What != Act::kRemove && change.Text) texts.push_back(*change.Text);
    if (texts.empty() &&
        (FieldOf(MetadataBlock::kXmp, change.Tag) || change.Tag.starts_with("exif:GPS"))) {
      texts = {""};
    }
    if (!XMPEditor::Set(packet, change.Tag, texts)) return told(kDamaged);
    if (known == properties.end()) known = properties.insert(known, {change.Tag, {}});
    // An empty one is the begin of a list that follows.
    if (texts.size() == 1 && texts.front().empty()) texts.clear();
    known->second = std::move(texts);
  }
  if (const std::error_code error = WriteFileAtomically(file, packet)) {
    return told(kFailed, error.message());
  }
  return {};
}

std::string StripPlace(const FolderItem& photo) {
  const FolderItem file = Of(photo);
  if (file.IsNil()) return {};
  const auto told = [&](const LocalizedText& text, const std::string& reason = {}) {
    return WithPlaceholders(text.Text(),
                            {{"<filename>", file.DisplayName()}, {"<reason>", reason}});
  };
  const auto held = ReadFile(file, kMost);
  std::string packet = held.value_or(std::string());
  XMPProperties properties;
  if (held && ReadXMP(packet, properties) && !SaysPlace(properties)) return {};
  if (!held || !XMPEditor::RemoveLike(
                   packet, {MetadataParts::kPlaces.begin(), MetadataParts::kPlaces.end()})) {
    return told(kDamaged);
  }
  const std::error_code error = WriteFileAtomically(file, packet);
  return error ? told(kFailed, error.message()) : std::string();
}

}  // namespace brivolant::Sidecar
