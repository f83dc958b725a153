// SPDX-License-Identifier: MIT
#include "metadata/MetadataWriter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <functional>
#include <memory>
#include <set>
#include <system_error>

#include "metadata/ContainerParts.h"
#include "metadata/ImageMetaData.h"
#include "metadata/JpegParts.h"
#include "metadata/TiffParts.h"
#include "platform/codecs/RawExtensions.h"
#include "platform/files/AtomicFile.h"

namespace brivolant {

std::unique_ptr<MetadataParts> MetadataParts::Of(MetadataStream& stream) {
  const auto good = [](auto parts) -> std::unique_ptr<MetadataParts> {
    if (!parts->Good()) return nullptr;
    return parts;
  };
  stream.Position(0);
  const std::string mark = stream.Read(4);
  if (mark.starts_with("\xFF\xD8")) return good(std::make_unique<JpegParts>(stream));
  if (mark == "8BPS") return good(std::make_unique<PhotoshopParts>(stream));
  return good(std::make_unique<TiffParts>(stream));
}

namespace MetadataWriter {
namespace {

std::string Told(const LocalizedText& text, const FolderItem& file, const std::string& tag = {}) {
  return WithPlaceholders(text.Text(), {{"<filename>", file.DisplayName()}, {"<tag>", tag}});
}

std::string Failed(const FolderItem& file, const std::error_code& error) {
  if (error == std::errc::permission_denied || error == std::errc::read_only_file_system ||
      error == std::errc::operation_not_permitted) {
    return Told(kLocked, file);
  }
  return WithPlaceholders(kFailed.Text(),
                          {{"<filename>", file.DisplayName()}, {"<reason>", error.message()}});
}

/// A kind of file that can be written; else why not.
std::string Refusal(const FolderItem& file, MetadataStream& stream) {
  const std::string name = LowerCase(file.Name());
  const std::size_t dot = name.rfind('.');
  const std::string extension = dot == std::string::npos ? std::string() : name.substr(dot + 1);
  if (std::ranges::find(kRawExtensions, extension) != kRawExtensions.end()) {
    return Told(kRawNotWritten, file);
  }
  stream.Position(0);
  const std::string mark = stream.Read(4);
  const bool known = mark.starts_with("\xFF\xD8") || mark == "8BPS" ||
                     mark == std::string_view("II\x2A\0", 4) ||
                     mark == std::string_view("MM\0\x2A", 4);
  return known ? std::string() : Told(kNotWritten, file);
}

// Comparing.

/// What is no number is none afterwards too.
bool SameValue(const TagValue& a, const TagValue& b) {
  const auto none = [](const TagValue& value) {
    const auto* single = std::get_if<float>(&value);
    const auto* twice = std::get_if<double>(&value);
    return (single != nullptr && std::isnan(*single)) || (twice != nullptr && std::isnan(*twice));
  };
  return a == b || (a.index() == b.index() && none(a) && none(b));
}

bool Same(std::string_view block, const std::vector<TagValue>& before,
          const std::vector<TagValue>& after) {
  if (std::ranges::equal(before, after, SameValue)) return true;
  // Text of the record may have become UTF-8.
  if (block != "IPTC" || before.size() != after.size()) return false;
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (TextOf(before[i]) != TextOf(after[i])) return false;
  }
  return true;
}

/// A tag that was there, that nobody asked to change, and that is another now; empty if none.
std::string Lost(const ImageMetaData& before, const ImageMetaData& after,
                 const std::set<std::string>& asked) {
  // A digest of the record, and the packet, which is compared by its properties.
  static const std::set<std::string> kFollow{"Photoshop.0425", "Photoshop.0424", "TIFF.02BC"};
  const auto old = before.Blocks();
  const auto now = after.Blocks();
  for (std::size_t i = 0; i < old.size(); ++i) {
    if (old[i].Data == nullptr) continue;
    for (const auto& entry : old[i].Data->AllData()) {
      std::string name = std::string(old[i].Name) + "." + entry.Tag;
      if (asked.contains(name) || kFollow.contains(name)) continue;
      const TiffDataCoreClass* block = now[i].Data;
      bool kept = false;
      if (block != nullptr) {
        for (const auto& other : block->AllData()) {
          if (other.Tag == entry.Tag) kept = Same(old[i].Name, entry.Values, other.Values);
        }
      }
      if (!kept) return name;
    }
  }
  XMPProperties held;
  XMPProperties holds;
  if (before.XMP != after.XMP && ReadXMP(before.XMP, held)) {
    if (!ReadXMP(after.XMP, holds)) return "XMP";
    // Under whatever prefix.
    const auto local = [](std::string_view name) { return name.substr(name.find(':') + 1); };
    const auto wanted = [&](const std::string& property) {
      return std::ranges::any_of(asked, [&](const std::string& name) {
        return name.starts_with("XMP.") && local(name) == local(property);
      });
    };
    for (const auto& property : held) {
      // What names the segments in which a packet goes on follows what stands there.
      if (local(property.first) == "HasExtendedXMP") continue;
      if (wanted(property.first) || std::ranges::find(holds, property) != holds.end()) continue;
      return "XMP." + property.first;
    }
  }
  const auto others = [](const ImageMetaData& data) {
    // Which encoding is declared follows what is written.
    constexpr int kCharacterSet = 90;
    std::vector<std::string> bytes;
    if (!data.IPTCData) return bytes;
    for (const auto& other : data.IPTCData->OtherRecords()) {
      if (other.Record != 1 || other.Dataset != kCharacterSet) bytes.push_back(other.Bytes);
    }
    return bytes;
  };
  const std::vector<std::string> kept = others(after);
  for (const std::string& bytes : others(before)) {
    if (std::ranges::find(kept, bytes) == kept.end()) return "IPTC";
  }
  const auto summary = [](const ImageMetaData& data) {
    return std::tuple(data.ImageSummary->Width, data.ImageSummary->Height,
                      data.ImageSummary->Depth);
  };
  if (summary(before) != summary(after)) return "TIFF.0100";
  return {};
}

// Writing.

std::error_code LastError() {
  return {errno, std::generic_category()};
}

std::error_code CopyRange(int from, int to, std::uint64_t at, std::uint64_t length) {
  auto offset = static_cast<loff_t>(at);
  while (length > 0) {
    const ssize_t copied = copy_file_range(from, &offset, to, nullptr, length, 0);
    if (copied > 0) {
      length -= static_cast<std::uint64_t>(copied);
      continue;
    }
    if (copied < 0 && errno == EINTR) continue;
    break;
  }
  // Where the system cannot, by hand.
  constexpr std::size_t kPart = std::size_t{1} << 18;
  std::string part;
  while (length > 0) {
    part.resize(std::min<std::uint64_t>(length, kPart));
    const ssize_t got = pread(from, part.data(), part.size(), offset);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return LastError();
    // The file became shorter beneath us.
    if (got == 0) return std::make_error_code(std::errc::io_error);
    for (ssize_t done = 0; done < got;) {
      const ssize_t put = write(to, part.data() + done, static_cast<std::size_t>(got - done));
      if (put < 0 && errno == EINTR) continue;
      if (put <= 0) return LastError();
      done += put;
    }
    offset += got;
    length -= static_cast<std::uint64_t>(got);
  }
  return {};
}

std::error_code Fill(int from, AtomicFile& to, const FilePlan& plan) {
  for (const FilePiece& piece : plan.Pieces) {
    const std::error_code error = piece.Bytes.empty()
                                      ? CopyRange(from, to.Descriptor(), piece.From, piece.Length)
                                      : to.Write(piece.Bytes);
    if (error) return error;
  }
  if (ftruncate(to.Descriptor(), static_cast<off_t>(plan.Length)) != 0) return LastError();
  for (const BytePatch& patch : plan.Patches) {
    for (std::size_t done = 0; done < patch.Bytes.size();) {
      const ssize_t put = pwrite(to.Descriptor(), patch.Bytes.data() + done,
                                 patch.Bytes.size() - done, static_cast<off_t>(patch.At + done));
      if (put < 0 && errno == EINTR) continue;
      if (put <= 0) return LastError();
      done += static_cast<std::size_t>(put);
    }
  }
  return {};
}

/// Who owns the file, and what else the system keeps of it, as far as it lets us.
void KeepOwner(int from, int to, const struct stat& status) {
  if (fchown(to, status.st_uid, status.st_gid) != 0 &&
      fchown(to, static_cast<uid_t>(-1), status.st_gid) != 0) {
    // Not ours to give away.
  }
  std::string names(std::size_t{1} << 16, '\0');
  const ssize_t length = flistxattr(from, names.data(), names.size());
  if (length <= 0) return;
  names.resize(static_cast<std::size_t>(length));
  std::string value(std::size_t{1} << 16, '\0');
  for (const std::string_view name : Split(names, '\0')) {
    if (name.empty()) continue;
    const std::string text(name);
    const ssize_t size = fgetxattr(from, text.c_str(), value.data(), value.size());
    if (size >= 0)
      (void)fsetxattr(to, text.c_str(), value.data(), static_cast<std::size_t>(size), 0);
  }
}

using Change = std::function<std::string(MetadataParts&)>;

/// More kinds take what another file tells than are changed; null for all others.
std::unique_ptr<MetadataParts> PartsOfCopy(MetadataStream& stream) {
  auto container = std::make_unique<ContainerParts>(stream);
  if (!container->Good()) return nullptr;
  return container;
}

/// `takes` what another file tells; `lost` says what of the old file the new one does not hold.
std::string Rewrite(
    const FolderItem& file, bool takes, const Change& change,
    const std::function<std::string(const ImageMetaData&, const ImageMetaData&)>& lost) {
  // Once and for all: what is read, copied and replaced is this file, or nothing is replaced.
  const int from = open(file.Path().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (from < 0) return Failed(file, LastError());
  const std::unique_ptr<const int, void (*)(const int*)> closing(&from,
                                                                 [](const int* d) { close(*d); });
  struct stat status {};
  if (fstat(from, &status) != 0) return Failed(file, LastError());
  ImageMetaData before;
  before.ReadFile(file);
  MetadataStream stream(file);
  if (!stream.IsOpen() || !before.ImageSummary) return Told(kNotWritten, file);
  auto parts = takes ? PartsOfCopy(stream) : nullptr;
  if (!parts) {
    if (std::string refusal = Refusal(file, stream); !refusal.empty()) return refusal;
    parts = MetadataParts::Of(stream);
  }
  if (!parts) {
    const bool raw = before.TIFFData && before.TIFFData->hasKey("C612");
    return Told(raw ? kRawNotWritten : kDamaged, file);
  }
  if (std::string refusal = change(*parts); !refusal.empty()) return refusal;
  const auto plan = parts->Plan();
  if (!plan) return Told(kTooLong, file);
  // Replacing it would be possible all the same, but whoever locked it meant it.
  if ((status.st_mode & S_IWUSR) == 0 || access(file.Path().c_str(), W_OK) != 0) {
    return Told(kLocked, file);
  }
  AtomicFile written(file);
  if (written.Error()) return Failed(file, written.Error());
  if (const std::error_code error = Fill(from, written, *plan)) return Failed(file, error);
  ImageMetaData after;
  after.ReadFile(written.Working());
  if (!after.ImageSummary) return Told(kWouldLose, file, "TIFF.0100");
  if (const std::string tag = lost(before, after); !tag.empty()) {
    return Told(kWouldLose, file, tag);
  }
  struct stat now {};
  if (stat(file.Path().c_str(), &now) != 0 || now.st_ino != status.st_ino ||
      now.st_size != status.st_size || now.st_mtim.tv_sec != status.st_mtim.tv_sec ||
      now.st_mtim.tv_nsec != status.st_mtim.tv_nsec) {
    // Somebody else has written it meanwhile.
    return Failed(file, std::make_error_code(std::errc::resource_unavailable_try_again));
  }
  KeepOwner(from, written.Descriptor(), status);
  if (const std::error_code error = written.Commit()) return Failed(file, error);
  return {};
}

constexpr std::string_view NameOf(MetadataBlock block) {
  switch (block) {
    case MetadataBlock::kTiff:
      return "TIFF";
    case MetadataBlock::kExif:
      return "EXIF";
    case MetadataBlock::kGps:
      return "GPS";
    case MetadataBlock::kInterop:
      return "Interoperability";
    case MetadataBlock::kThumbnail:
      return "Thumbnail";
    case MetadataBlock::kIptc:
      return "IPTC";
    case MetadataBlock::kXmp:
      return "XMP";
    default:
      return "Comment";
  }
}

}  // namespace

std::string WhyNotWritten(const FolderItem& file) {
  MetadataStream stream(file);
  return stream.IsOpen() ? Refusal(file, stream) : Told(kNotWritten, file);
}

std::string Write(const FolderItem& file, std::span<const MetadataChange> changes) {
  std::set<std::string> asked;
  for (const MetadataChange& change : changes) {
    // As the file's own tags are spelled.
    std::string tag = change.Tag;
    if (change.Block == MetadataBlock::kIptc) {
      tag.erase(0, std::min(tag.find_first_not_of('0'), tag.size()));
    } else if (change.Block != MetadataBlock::kXmp) {
      std::ranges::transform(tag, tag.begin(), [](char c) {
        return c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c;
      });
    }
    asked.insert(std::string(NameOf(change.Block)) + "." + tag);
    // The version of the standard follows tags that it did not know.
    const bool later = tag.starts_with("883") || tag.starts_with("901") || tag.starts_with("A43");
    if (change.Block == MetadataBlock::kExif && later) asked.insert("EXIF.9000");
  }
  return Rewrite(
      file, false,
      [&](MetadataParts& parts) {
        for (const MetadataChange& change : changes) {
          if (parts.Apply(change)) continue;
          return Told(kNotThis, file, std::string(NameOf(change.Block)) + "." + change.Tag);
        }
        return std::string();
      },
      [&](const ImageMetaData& before, const ImageMetaData& after) {
        return Lost(before, after, asked);
      });
}

namespace {

/// Nothing of the old file need be there but the picture.
std::string LostPicture(const ImageMetaData& before, const ImageMetaData& after) {
  const auto size = [](const ImageMetaData& data) {
    return std::pair(data.ImageSummary->Width, data.ImageSummary->Height);
  };
  return size(before) == size(after) ? std::string() : std::string("TIFF.0100");
}

}  // namespace

std::string Take(const FolderItem& file, CarriedData data,
                 std::span<const MetadataChange> changes) {
  return Rewrite(
      file, true,
      [&](MetadataParts& parts) {
        if (!parts.Take(std::move(data))) return Told(kDamaged, file);
        // What one place cannot take is still said by the others.
        for (const MetadataChange& change : changes) (void)parts.Apply(change);
        return std::string();
      },
      LostPicture);
}

std::string Write(const FolderItem& file, Strip strip) {
  return Rewrite(
      file, false,
      [&](MetadataParts& parts) {
        if (strip == Strip::kPlace && parts.HoldsMorePictures()) return Told(kMorePictures, file);
        const bool done = strip == Strip::kAll ? parts.StripAll() : parts.StripPlace();
        return done ? std::string() : Told(kDamaged, file);
      },
      [](const ImageMetaData& before, const ImageMetaData& after) {
        // Wherever else it was led to.
        if (after.GPSData) return std::string("GPS");
        return LostPicture(before, after);
      });
}

}  // namespace MetadataWriter
}  // namespace brivolant
