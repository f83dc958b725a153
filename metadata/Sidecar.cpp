// SPDX-License-Identifier: MIT
#include "metadata/Sidecar.h"

#include <algorithm>
#include <vector>

#include "metadata/ImageMetaData.h"
#include "metadata/MetadataStream.h"
#include "metadata/MetadataWriter.h"
#include "metadata/XMPEditor.h"
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

}  // namespace

bool WrittenInPlace(const FolderItem& photo) {
  return MetadataWriter::WhyNotWritten(photo).empty();
}

FolderItem Of(const FolderItem& photo) {
  if (photo.IsNil()) return {};
  if (const FolderItem beside = Long(photo); beside && beside.Exists()) return beside;
  const FolderItem shorter = Short(photo);
  if (shorter.IsNil() || !shorter.Exists() || WrittenInPlace(photo)) return {};
  return shorter;
}

FolderItem For(const FolderItem& photo) {
  const FolderItem there = Of(photo);
  return there ? there : Long(photo);
}

std::string Read(const FolderItem& file) {
  return file.IsNil() ? std::string() : ReadFile(file, kMost).value_or(std::string());
}

void ReadInto(ImageMetaData& data) {
  if (data.MyFile.IsNil()) return;
  const std::string packet = Read(Of(data.MyFile));
  if (packet.empty()) return;
  const bool first = !WrittenInPlace(data.MyFile);
  if (!first && !data.XMP.empty()) return;
  XMPProperties properties;
  if (!ReadXMP(packet, properties)) return;
  data.ProcessXMPData(packet);
  data.PacketFirst = first;
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
    if (!XMPEditor::Set(packet, change.Tag, texts)) return told(kDamaged);
    if (known == properties.end()) known = properties.insert(known, {change.Tag, {}});
    known->second = std::move(texts);
  }
  if (const std::error_code error = WriteFileAtomically(file, packet)) {
    return told(kFailed, error.message());
  }
  return {};
}

}  // namespace brivolant::Sidecar
