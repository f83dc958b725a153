// SPDX-License-Identifier: MIT
#include "engine/StyleData.h"

#include <algorithm>
#include <cmath>

#include "formats/BinaryDictionary.h"
#include "platform/files/BinaryStream.h"

namespace brivolant {
namespace {

constexpr std::string_view kMagic = "Quillmere Brivolant Photos Processor Style Data";
constexpr std::uint16_t kVersion = 1;
constexpr std::string_view kStacks = "EFFC";
constexpr std::string_view kForegroundTag = "FORE";
constexpr std::string_view kBackgroundTag = "BACK";
constexpr std::string_view kBlend = "PROC";
constexpr std::uint32_t kBlendLength = 7;
/// Of one stack with all that it holds: hundreds of times what the largest needs.
constexpr std::size_t kMostEntries = 100'000;

void WriteRecord(ByteWriter& out, std::string_view tag, std::string_view body) {
  out.Bytes(tag);
  out.UInt32(static_cast<std::uint32_t>(body.size()));
  out.Bytes(body);
}

std::string StackRecord(std::string_view tag, const Dictionary& stack) {
  ByteWriter out;
  WriteRecord(out, tag, BinaryDictionary::BinaryStringFromDictionary(stack));
  return out.Take();
}

/// False if one of the two stacks could not be read.
bool ReadStacks(std::string_view body, StyleContent& content) {
  BinaryStream stream(body);
  stream.LittleEndian = true;
  bool whole = true;
  for (int i = 0; i < 2; ++i) {
    const bool foreground = stream.Read(kForegroundTag.size()) == kForegroundTag;
    const std::uint32_t length = stream.ReadUInt32();
    const std::string_view bytes = stream.ReadUpTo(length);
    if (stream.Failed() || bytes.size() < length) return false;
    auto stack = BinaryDictionary::BinaryDictionaryFromString(bytes, kMostEntries);
    whole = whole && stack.has_value();
    if (stack) (foreground ? content.Foreground : content.Background) = std::move(stack);
  }
  return whole;
}

bool ReadBlend(std::string_view body, StyleContent& content) {
  BinaryStream stream(body);
  stream.LittleEndian = true;
  const float alpha = stream.ReadSingle();
  const int mode = stream.ReadUInt8();
  if (stream.Failed() || !std::isfinite(alpha)) return false;
  content.BlendAlpha = std::clamp(alpha, 0.0F, 1.0F);
  content.BlendMode = mode;
  return true;
}

}  // namespace

std::string WriteStyleData(const Dictionary& foreground, const Dictionary& background,
                           float blendAlpha, int blendMode) {
  ByteWriter out;
  out.UInt8(static_cast<std::uint8_t>(kMagic.size()));
  out.Bytes(kMagic);
  out.UInt16(kVersion);
  WriteRecord(out, kStacks,
              StackRecord(kForegroundTag, foreground) + StackRecord(kBackgroundTag, background));
  ByteWriter blend;
  blend.Single(blendAlpha);
  blend.UInt8(static_cast<std::uint8_t>(blendMode));
  blend.UInt16(0);
  WriteRecord(out, kBlend, blend.Take().substr(0, kBlendLength));
  return out.Take();
}

StyleContent ReadStyleData(std::string_view bytes, StyleFault& fault) {
  StyleContent content;
  fault = StyleFault::kNone;
  BinaryStream stream(bytes);
  stream.LittleEndian = true;
  const std::size_t length = stream.ReadUInt8();
  if (stream.Read(length) != kMagic) {
    fault = StyleFault::kWrongHeader;
    return content;
  }
  stream.ReadUInt16();
  while (!stream.EndOfFile()) {
    const std::string_view tag = stream.Read(4);
    const std::uint32_t size = stream.ReadUInt32();
    const std::size_t start = stream.Position();
    if (stream.Failed() || size > stream.Remaining()) {
      // A record that claims more than there is: whatever stands behind its header may be one.
      fault = StyleFault::kDamaged;
      if (stream.Failed()) break;
      continue;
    }
    const std::string_view body = stream.ReadUpTo(size);
    if ((tag == kStacks && !ReadStacks(body, content)) ||
        (tag == kBlend && !ReadBlend(body, content))) {
      fault = StyleFault::kDamaged;
    }
    stream.Position(start + size);
  }
  if (stream.Failed()) fault = StyleFault::kDamaged;
  return content;
}

}  // namespace brivolant
