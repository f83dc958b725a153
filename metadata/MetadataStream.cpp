// SPDX-License-Identifier: MIT
#include "metadata/MetadataStream.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace brivolant {
namespace {

/// Most photos have all that is told of them within it.
constexpr std::size_t kWindow = 32768;

}  // namespace

MetadataStream::MetadataStream(const FolderItem& file)
    : descriptor_(open(file.Path().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
  struct stat facts {};
  if (descriptor_ < 0 || fstat(descriptor_, &facts) != 0 || !S_ISREG(facts.st_mode)) return;
  open_ = true;
  length_ = static_cast<std::uint64_t>(facts.st_size);
}

MetadataStream::MetadataStream(std::string bytes)
    : open_(true), length_(bytes.size()), window_(std::move(bytes)) {}

MetadataStream::~MetadataStream() {
  if (descriptor_ >= 0) close(descriptor_);
}

void MetadataStream::Position(std::uint64_t position) {
  position_ = std::min(position, length_);
}

std::size_t MetadataStream::Fill(char* to, std::size_t length) {
  length = static_cast<std::size_t>(std::min<std::uint64_t>(length, Remaining()));
  std::size_t done = 0;
  while (done < length) {
    if (position_ >= windowAt_ && position_ < windowAt_ + window_.size()) {
      const auto from = static_cast<std::size_t>(position_ - windowAt_);
      const std::size_t part = std::min(length - done, window_.size() - from);
      std::memcpy(to + done, window_.data() + from, part);
      done += part;
      position_ += part;
      continue;
    }
    if (descriptor_ < 0) break;
    // A long value goes straight to where it is wanted.
    const bool direct = length - done >= kWindow;
    if (!direct) window_.resize(kWindow);
    const ssize_t count = pread(descriptor_, direct ? to + done : window_.data(),
                                direct ? length - done : kWindow, static_cast<off_t>(position_));
    if (!direct) {
      window_.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
      windowAt_ = position_;
    } else if (count > 0) {
      done += static_cast<std::size_t>(count);
      position_ += static_cast<std::uint64_t>(count);
    }
    if (count <= 0) break;
  }
  return done;
}

std::uint32_t MetadataStream::ReadInteger(int size) {
  unsigned char bytes[4] = {};
  Fill(reinterpret_cast<char*>(bytes), static_cast<std::size_t>(size));
  std::uint32_t value = 0;
  for (int i = 0; i < size; ++i) {
    value |= static_cast<std::uint32_t>(bytes[i]) << 8 * (LittleEndian ? i : size - 1 - i);
  }
  return value;
}

std::string MetadataStream::Read(std::uint64_t length) {
  std::string bytes(static_cast<std::size_t>(std::min(length, Remaining())), '\0');
  bytes.resize(Fill(bytes.data(), bytes.size()));
  return bytes;
}

}  // namespace brivolant
