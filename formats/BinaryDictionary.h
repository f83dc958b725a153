// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files/BinaryStream.h"
#include "platform/files/FileType.h"
#include "platform/files/FolderItem.h"
#include "platform/values/Variant.h"

/// A tree of dictionaries, collections and simple values as one self-describing byte string.
/// Little-endian throughout. A single comes back as a double, a 64-bit integer as a 32-bit one,
/// keys as text; collection keys are dropped.
namespace brivolant::BinaryDictionary {

/// How deep trees may nest; a deeper value is written as nil, and a deeper stream is refused.
inline constexpr int kDeepest = 128;
/// As many entries as fit into the bytes.
inline constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

std::string BinaryStringFromDictionary(const Dictionary& dictionary);
/// Empty if the magic, the root or anything below it is not as it must be. Every count and length
/// is checked against what remains. More than `most` entries, on all levels together, are refused
/// before they are read.
std::optional<Dictionary> BinaryDictionaryFromString(std::string_view bytes,
                                                     std::size_t most = kAnyNumber);
/// The same from the stream's position, which is left just behind the root value.
std::optional<Dictionary> BinaryDictionaryFromStream(BinaryStream& stream,
                                                     std::size_t most = kAnyNumber);

/// An empty dictionary if the file cannot be opened; nothing if it is not a binary dictionary.
std::optional<Dictionary> OpenAsBinaryDictionary(const FolderItem& file);
/// Replaces the file's content whole; false, and the old content stays, if it cannot be written.
[[nodiscard]] bool SaveAsBinaryDictionary(const FolderItem& file, const Dictionary& dictionary,
                                          const FileType* type);

}  // namespace brivolant::BinaryDictionary
