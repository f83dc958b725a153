// SPDX-License-Identifier: MIT
#include "metadata/ImageResources.h"

#include <QCryptographicHash>
#include <algorithm>
#include <array>
#include <utility>

#include "metadata/BigEndian.h"
#include "platform/files/BinaryStream.h"

namespace brivolant {

ImageResources::ImageResources(std::string_view bytes) {
  constexpr std::array<std::string_view, 5> kSignatures{"8BIM", "MeSa", "PHUT", "DCSR", "AgHg"};
  BinaryStream stream(bytes);
  while (stream.Remaining() >= 12) {
    Resource resource;
    resource.signature = stream.Read(4);
    if (std::ranges::find(kSignatures, resource.signature) == kSignatures.end()) {
      whole_ = false;
      return;
    }
    resource.id = stream.ReadUInt16();
    const std::size_t name = stream.Position();
    const std::size_t length = stream.ReadUInt8();
    (void)stream.ReadUpTo(length + (length + 1) % 2);
    resource.name = bytes.substr(name, stream.Position() - name);
    const std::size_t size = stream.ReadUInt32();
    whole_ = !stream.Failed() && size <= stream.Remaining();
    if (!whole_) return;
    resource.data = stream.Read(size);
    if (size % 2 == 1) (void)stream.ReadUpTo(1);
    resources_.push_back(std::move(resource));
  }
  // What pads them to an even length says nothing.
  const std::string_view rest = stream.ReadUpTo(stream.Remaining());
  whole_ = std::ranges::all_of(rest, [](char c) { return c == '\0'; });
}

const ImageResources::Resource* ImageResources::Find(int id) const {
  const auto found = std::ranges::find(resources_, id, &Resource::id);
  return found == resources_.end() ? nullptr : &*found;
}

std::string_view ImageResources::Data(int id) const {
  const Resource* resource = Find(id);
  return resource == nullptr ? std::string_view() : resource->data;
}

void ImageResources::Set(int id, std::string data) {
  if (id == kIptc && Has(kIptcDigest)) {
    // Whoever compares it takes the record for changed by a stranger otherwise.
    Set(kIptcDigest,
        QCryptographicHash::hash(QByteArray::fromStdString(data), QCryptographicHash::Md5)
            .toStdString());
  }
  const auto found = std::ranges::find(resources_, id, &Resource::id);
  if (found != resources_.end()) {
    found->data = std::move(data);
    return;
  }
  resources_.push_back({"8BIM", id, std::string(2, '\0'), std::move(data)});
}

void ImageResources::Remove(int id) {
  std::erase_if(resources_, [id](const Resource& resource) { return resource.id == id; });
}

std::string ImageResources::Bytes() const {
  std::string bytes;
  for (const Resource& resource : resources_) {
    bytes += resource.signature + BigEndian(static_cast<std::uint64_t>(resource.id), 2) +
             resource.name + BigEndian(resource.data.size(), 4) + resource.data;
    if (resource.data.size() % 2 == 1) bytes += '\0';
  }
  return bytes;
}

}  // namespace brivolant
