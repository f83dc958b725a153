// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brivolant {

/// Reads numbers and texts from bytes in memory. Big-endian unless LittleEndian is set. A read
/// beyond the end gives zeros and sets Failed() for good, so a parser may test once at its end.
class BinaryStream {
 public:
  /// `bytes` must outlive the stream.
  explicit BinaryStream(std::string_view bytes) : bytes_(bytes) {}

  bool LittleEndian = false;

  std::size_t Position() const { return position_; }
  /// A position beyond the end fails.
  void Position(std::size_t position);
  std::size_t Length() const { return bytes_.size(); }
  std::size_t Remaining() const { return bytes_.size() - position_; }
  bool EndOfFile() const { return position_ >= bytes_.size(); }
  bool Failed() const { return failed_; }

  std::uint8_t ReadUInt8() { return static_cast<std::uint8_t>(ReadInteger(1)); }
  std::uint16_t ReadUInt16() { return static_cast<std::uint16_t>(ReadInteger(2)); }
  std::uint32_t ReadUInt32() { return static_cast<std::uint32_t>(ReadInteger(4)); }
  std::uint64_t ReadUInt64() { return ReadInteger(8); }
  float ReadSingle();
  double ReadDouble();
  /// Exactly `length` bytes, or an empty view and Failed().
  std::string_view Read(std::size_t length);
  /// At most `length` bytes: what there is.
  std::string_view ReadUpTo(std::size_t length);

 private:
  std::uint64_t ReadInteger(int size);

  std::string_view bytes_;
  std::size_t position_ = 0;
  bool failed_ = false;
};

/// Appends numbers to a byte string, little-endian.
class ByteWriter {
 public:
  void UInt8(std::uint8_t value) { Integer(value, 1); }
  void UInt16(std::uint16_t value) { Integer(value, 2); }
  void UInt32(std::uint32_t value) { Integer(value, 4); }
  void UInt64(std::uint64_t value) { Integer(value, 8); }
  void Single(float value);
  void Double(double value);
  void Bytes(std::string_view bytes) { bytes_ += bytes; }
  /// Replaces the four bytes at `position`.
  void PatchUInt32(std::size_t position, std::uint32_t value);

  std::size_t Size() const { return bytes_.size(); }
  std::string Take() { return std::move(bytes_); }

 private:
  void Integer(std::uint64_t value, int size);

  std::string bytes_;
};

}  // namespace brivolant
