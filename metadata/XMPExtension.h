// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brivolant {

/// What of a packet does not fit into a segment of a JPEG stands in segments of its own, after part
/// 3 of the XMP specification: each begins with a digest that the packet names, the length of the
/// whole and where it goes on.
class XMPExtension {
 public:
  /// One such segment, behind its mark.
  void Take(std::string_view payload);
  /// The packet with the properties of what was taken; as it is, if the packet names nothing, or if
  /// some of it is missing.
  std::string Joined(const std::string& packet);
  /// The last packet was joined.
  bool Whole() const { return whole_; }

  struct Parts {
    std::string Packet;
    /// Payloads with their mark, in order.
    std::vector<std::string> Further;
  };
  /// A packet with at most `room` bytes, and what goes on with it: the longest properties first.
  /// Nothing if it cannot be parted.
  static std::optional<Parts> Split(const std::string& packet, std::size_t room);

 private:
  struct Stream {
    std::uint64_t Length = 0;
    std::map<std::uint64_t, std::string> Pieces;
  };
  std::map<std::string, Stream, std::less<>> streams_;
  std::uint64_t taken_ = 0;
  bool whole_ = false;
};

}  // namespace brivolant
