// SPDX-License-Identifier: MIT
#include "effects/styles/OneClickWonder.h"

#include <algorithm>

#include "files/FolderitemExtensions.h"
#include "formats/FileTypes.h"
#include "formats/PictureStrings.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/BinaryStream.h"
#include "platform/files/FileNames.h"
#include "platform/values/SharedComponents.h"
#include "support/LanguageTools.h"

namespace brivolant {
namespace {

using FolderitemExtensions::ReadShortText;
using InternalFileTypes::BrivolantPhotosOneClickWonder;

/// What stands first in the file, and what stood there in the first version of the program.
constexpr std::string_view kMagic = "QMBPonCW";
constexpr std::string_view kEarlierHeader = "Brivolant Photos 1-Click Wonder";
constexpr std::uint8_t kVersion = 1;
constexpr std::size_t kMostEntries = 255;
constexpr std::size_t kLongestText = 65535;
constexpr int kPreviewQuality = 60;

/// Cut to what the count can say, between two characters.
void WriteText(ByteWriter& out, std::string_view text) {
  text = CutAtCharacter(text, kLongestText);
  out.UInt16(static_cast<std::uint16_t>(text.size()));
  out.Bytes(text);
}

bool ReadHeader(BinaryStream& stream) {
  if (stream.Read(kMagic.size()) == kMagic) return true;
  BinaryStream again = stream;
  again.Position(0);
  const std::size_t length = again.ReadUInt8();
  if (again.ReadUpTo(length) != kEarlierHeader) return false;
  stream = again;
  return true;
}

}  // namespace

OneClickWonder::OneClickWonder(const Services& services) : services_(&services) {
  Renew();
  Name(kUsersLanguage, kDefaultName.Text());
}

void OneClickWonder::Renew() {
  ID = otherSharedComponents::NewGUID(services_->Random);
  CreationDate = services_->Clock.Now();
  CreatedWith = services_->UserDetails.CreatedWith();
  LastErrorMessage.clear();
}

std::string OneClickWonder::TextOf(const Texts& texts, int language) {
  const int id = language == kUsersLanguage ? LanguageTools::UsersLangeuageID() : language;
  const auto found = std::find_if(texts.begin(), texts.end(),
                                  [id](const auto& entry) { return entry.first == id; });
  return found == texts.end() ? std::string() : found->second;
}

void OneClickWonder::Set(Texts& texts, int language, const std::string& text) {
  const int id = language == kUsersLanguage ? LanguageTools::UsersLangeuageID() : language;
  const auto found = std::find_if(texts.begin(), texts.end(),
                                  [id](const auto& entry) { return entry.first == id; });
  if (found == texts.end()) {
    texts.emplace_back(id, text);
  } else {
    found->second = text;
  }
}

Picture OneClickWonder::Preview() const {
  if (preview_.IsNil() && !rawPictureData_.empty()) {
    preview_ = JpegImporter::PreviewFromString(rawPictureData_);
  }
  return preview_;
}

void OneClickWonder::Preview(const Picture& picture) {
  preview_ = picture;
  rawPictureData_.clear();
}

bool OneClickWonder::Load(const FolderItem& file) {
  const auto bytes =
      FolderitemExtensions::ReadFileOfType(file, BrivolantPhotosOneClickWonder, LastErrorMessage);
  if (!bytes || !LoadBytes(*bytes, file.DisplayName())) return false;
  File = file;
  return true;
}

bool OneClickWonder::LoadBytes(std::string_view bytes, const std::string& name) {
  BinaryStream stream(bytes);
  stream.LittleEndian = true;
  OneClickWonder read = *this;
  read.names_.clear();
  read.descriptions_.clear();
  read.preview_ = {};
  const bool known = ReadHeader(stream);
  (void)stream.ReadUInt8();
  const auto entries = [&](Texts& texts) {
    const int count = stream.ReadUInt8();
    for (int i = 0; i < count && !stream.Failed(); ++i) {
      const int language = stream.ReadUInt8();
      Set(texts, language, ReadShortText(stream));
    }
  };
  entries(read.names_);
  read.Creator = ReadShortText(stream);
  read.ContactLink = ReadShortText(stream);
  read.CreatedWith = ReadShortText(stream);
  read.Category = stream.ReadUInt8();
  read.CreationDate = Date::FromTotalSeconds(stream.ReadDouble());
  entries(read.descriptions_);
  read.rawPictureData_ = stream.Read(stream.ReadUInt32());
  read.StyleData = stream.Read(stream.ReadUInt32());
  if (!known || stream.Failed()) {
    LastErrorMessage = WithPlaceholders(
        FolderitemExtensions::kErrorMessageFileContainsIncorrectData.Text(),
        {{"<filename>", name}, {"<filetype>", BrivolantPhotosOneClickWonder.Name.Text()}});
    return false;
  }
  *this = std::move(read);
  LastErrorMessage.clear();
  return true;
}

std::string OneClickWonder::Bytes() const {
  if (rawPictureData_.empty() && !preview_.IsNil()) {
    JpegExporter exporter;
    exporter.Quality = kPreviewQuality;
    rawPictureData_ = exporter.SaveToString(preview_);
  }
  ByteWriter out;
  const auto entries = [&out](const Texts& texts) {
    const std::size_t count = std::min(texts.size(), kMostEntries);
    out.UInt8(static_cast<std::uint8_t>(count));
    for (std::size_t i = 0; i < count; ++i) {
      out.UInt8(static_cast<std::uint8_t>(texts[i].first));
      WriteText(out, texts[i].second);
    }
  };
  const auto block = [&out](std::string_view bytes) {
    out.UInt32(static_cast<std::uint32_t>(bytes.size()));
    out.Bytes(bytes);
  };
  out.Bytes(kMagic);
  out.UInt8(kVersion);
  entries(names_);
  WriteText(out, Creator);
  WriteText(out, ContactLink);
  WriteText(out, CreatedWith);
  out.UInt8(static_cast<std::uint8_t>(Category));
  out.Double(CreationDate.TotalSeconds());
  entries(descriptions_);
  block(rawPictureData_);
  block(StyleData);
  return out.Take();
}

bool OneClickWonder::Save(const FolderItem& file) {
  LastErrorMessage.clear();
  const FolderItem& target = file.IsNil() ? File : file;
  const LocalizedText& failure = target.Exists()
                                     ? FolderitemExtensions::kErrorMessageOpeningforWriteFailed
                                     : FolderitemExtensions::kErrorMessageCreatingFileFailed;
  if (!target.IsNil() && !target.Directory() && !(target.Exists() && !target.IsWriteable()) &&
      !WriteFileAtomically(target, Bytes())) {
    return true;
  }
  LastErrorMessage = WithPlaceholders(failure.Text(), {{"<filename>", target.DisplayName()}});
  return false;
}

void OneClickWonder::GenerateFile(const FolderItem& folder) {
  const std::string base = SafeFileName(otherSharedComponents::iNetSafe(Name()));
  const std::string ending = "." + std::string(BrivolantPhotosOneClickWonder.Extensions);
  int number = 0;
  do {
    File = folder.Child(NumberedName(base, number++, ending));
  } while (File.Exists() || File.Alias());
}

OneClickWonder OneClickWonder::Clone() const {
  OneClickWonder copy = *this;
  copy.File = {};
  copy.Renew();
  return copy;
}

}  // namespace brivolant
