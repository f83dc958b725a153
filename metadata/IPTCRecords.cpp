// SPDX-License-Identifier: MIT
#include "metadata/IPTCRecords.h"

#include <algorithm>
#include <array>
#include <utility>

#include "metadata/BigEndian.h"
#include "metadata/TagValue.h"
#include "platform/files/BinaryStream.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

constexpr int kEnvelope = 1;
constexpr int kApplication = 2;
constexpr int kCharacterSet = 90;
constexpr std::array kUtf8Bytes{'\x1B', '%', 'G'};
constexpr std::string_view kUtf8(kUtf8Bytes.data(), kUtf8Bytes.size());
constexpr std::size_t kLongestPlain = 0x7FFF;

/// Datasets of the second record that are no text.
bool Binary(int number) {
  constexpr std::array kBinary{0, 125, 200, 201, 202};
  return std::ranges::find(kBinary, number) != kBinary.end();
}

}  // namespace

IPTCRecords::IPTCRecords(std::string_view bytes) {
  constexpr std::uint8_t kMark = 0x1C;
  constexpr std::size_t kExtended = 0x8000;
  BinaryStream stream(bytes);
  while (stream.Remaining() >= 5) {
    const std::size_t begin = stream.Position();
    if (stream.ReadUInt8() != kMark) continue;
    const int record = stream.ReadUInt8();
    const int number = stream.ReadUInt8();
    std::size_t length = stream.ReadUInt16();
    if ((length & kExtended) != 0) {
      const std::size_t count = length & kLongestPlain;
      if (count > 4) {
        whole_ = false;
        return;
      }
      length = 0;
      for (std::size_t i = 0; i < count; ++i) length = length << 8 | stream.ReadUInt8();
    }
    std::string value(stream.ReadUpTo(length));
    // Another encoding is declared by which nobody here can read; none is taken for what texts are.
    if (record == kEnvelope && number == kCharacterSet && value != kUtf8 && !value.empty()) {
      whole_ = false;
    }
    // One that ends before its length is written with the length that it has.
    std::string raw(value.size() == length ? bytes.substr(begin, stream.Position() - begin)
                                           : std::string_view());
    datasets_.push_back({record, number, std::move(value), std::move(raw)});
  }
}

std::size_t IPTCRecords::PlaceOf(int record, int number) const {
  std::size_t at = 0;
  for (std::size_t i = 0; i < datasets_.size(); ++i) {
    const Dataset& other = datasets_[i];
    if (std::pair(other.record, other.number) <= std::pair(record, number)) at = i + 1;
  }
  return at;
}

void IPTCRecords::Insert(std::size_t at, int record, int number, std::string value) {
  datasets_.insert(datasets_.begin() + static_cast<std::ptrdiff_t>(at),
                   {record, number, std::move(value), {}});
}

void IPTCRecords::Declare() {
  for (Dataset& dataset : datasets_) {
    if (dataset.record != kApplication || Binary(dataset.number)) continue;
    if (IsUTF8(dataset.value)) continue;
    dataset.value = PlainText(dataset.value);
    dataset.raw.clear();
  }
  const auto declared = std::ranges::find_if(datasets_, [](const Dataset& dataset) {
    return dataset.record == kEnvelope && dataset.number == kCharacterSet;
  });
  if (declared == datasets_.end()) {
    Insert(PlaceOf(kEnvelope, kCharacterSet), kEnvelope, kCharacterSet, std::string(kUtf8));
  } else if (declared->value != kUtf8) {
    declared->value = kUtf8;
    declared->raw.clear();
  }
  const bool versioned = std::ranges::any_of(datasets_, [](const Dataset& dataset) {
    return dataset.record == kApplication && dataset.number == 0;
  });
  if (!versioned) Insert(PlaceOf(kApplication, 0), kApplication, 0, std::string("\0\4", 2));
}

void IPTCRecords::Set(int dataset, const std::vector<std::string>& texts) {
  const auto same = [dataset](const Dataset& other) {
    return other.record == kApplication && other.number == dataset;
  };
  const auto first = std::ranges::find_if(datasets_, same);
  std::size_t at = first == datasets_.end() ? PlaceOf(kApplication, dataset)
                                            : static_cast<std::size_t>(first - datasets_.begin());
  std::erase_if(datasets_, same);
  for (const std::string& text : texts) Insert(at++, kApplication, dataset, text);
  if (!texts.empty()) Declare();
}

void IPTCRecords::Add(int dataset, const std::string& text) {
  Insert(PlaceOf(kApplication, dataset), kApplication, dataset, text);
  Declare();
}

void IPTCRecords::RemovePlace() {
  // City, part of it, province, country by code and by name, and the place that is spoken of.
  for (const int dataset : {90, 92, 95, 100, 101, 26, 27}) Set(dataset, {});
}

std::string IPTCRecords::Bytes() const {
  std::string bytes;
  for (const Dataset& dataset : datasets_) {
    if (!dataset.raw.empty()) {
      bytes += dataset.raw;
      continue;
    }
    const std::size_t length = dataset.value.size();
    bytes += BigEndian(0x1C, 1) + BigEndian(static_cast<std::uint64_t>(dataset.record), 1) +
             BigEndian(static_cast<std::uint64_t>(dataset.number), 1);
    bytes += length <= kLongestPlain ? BigEndian(length, 2)
                                     : BigEndian(0x8004, 2) + BigEndian(length, 4);
    bytes += dataset.value;
  }
  return bytes;
}

}  // namespace brivolant
