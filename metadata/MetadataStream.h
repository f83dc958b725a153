// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// Numbers and bytes of a file, or of bytes in memory, by position. Of a file no more is read than
/// is asked for, in windows. Reads beyond the end give zeros, or what there is.
class MetadataStream {
 public:
  /// Nothing is open if the file cannot be read, or is none: a pipe would hold whoever asks it.
  explicit MetadataStream(const FolderItem& file);
  explicit MetadataStream(std::string bytes);
  ~MetadataStream();
  MetadataStream(const MetadataStream&) = delete;
  MetadataStream& operator=(const MetadataStream&) = delete;

  bool IsOpen() const { return open_; }
  bool LittleEndian = false;

  std::uint64_t Position() const { return position_; }
  /// Limited to the end.
  void Position(std::uint64_t position);
  std::uint64_t Length() const { return length_; }
  std::uint64_t Remaining() const { return length_ - position_; }
  bool EndOfFile() const { return position_ >= length_; }

  std::uint8_t ReadUInt8() { return static_cast<std::uint8_t>(ReadInteger(1)); }
  std::uint16_t ReadUInt16() { return static_cast<std::uint16_t>(ReadInteger(2)); }
  std::uint32_t ReadUInt32() { return ReadInteger(4); }
  /// At most that many bytes: what there is.
  std::string Read(std::uint64_t length);

 private:
  std::uint32_t ReadInteger(int size);
  /// Copies what there is from the position on.
  std::size_t Fill(char* to, std::size_t length);

  int descriptor_ = -1;
  bool open_ = false;
  std::uint64_t length_ = 0;
  std::uint64_t position_ = 0;
  /// The bytes, or a window of the file.
  std::string window_;
  std::uint64_t windowAt_ = 0;
};

}  // namespace brivolant
