// SPDX-License-Identifier: MIT
#include "formats/IFFData.h"

#include "platform/files/BinaryStream.h"

namespace brivolant {
namespace {
constexpr std::uint16_t kFormat = 1;
}

std::string IFFData::Data() const {
  ByteWriter out;
  out.UInt32(0);
  out.UInt16(kFormat);
  out.UInt16(static_cast<std::uint16_t>(item_.size()));
  for (const auto& [id, value] : item_) {
    const std::string text = value.ToText();
    out.UInt16(static_cast<std::uint16_t>(id));
    out.UInt32(static_cast<std::uint32_t>(text.size()));
    out.Bytes(text);
  }
  out.PatchUInt32(0, static_cast<std::uint32_t>(out.Size()));
  return out.Take();
}

bool IFFData::Data(std::string_view bytes) {
  BinaryStream stream(bytes);
  stream.LittleEndian = true;
  stream.ReadUInt16();
  const int count = stream.ReadUInt16();
  for (int i = 0; i < count; ++i) {
    const int id = stream.ReadUInt16();
    const std::string_view value = stream.Read(stream.ReadUInt32());
    if (stream.Failed()) return false;
    Add(id, value);
  }
  return !stream.Failed();
}

}  // namespace brivolant
