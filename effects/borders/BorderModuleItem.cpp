// SPDX-License-Identifier: MIT
#include "effects/borders/BorderModuleItem.h"

#include "files/FolderitemExtensions.h"
#include "formats/FileTypes.h"
#include "formats/PictureStrings.h"
#include "platform/files/BinaryStream.h"

namespace brivolant {
namespace {

using FolderitemExtensions::ReadShortText;
using InternalFileTypes::BrivolantPhotosBorder;

constexpr std::string_view kMagic = "QMBPBORD";

}  // namespace

bool BorderModuleItem::Load(const FolderItem& file) {
  const auto bytes =
      FolderitemExtensions::ReadFileOfType(file, BrivolantPhotosBorder, LastErrorMessage);
  if (!bytes || !LoadBytes(*bytes, file.DisplayName())) return false;
  File = file;
  return true;
}

bool BorderModuleItem::LoadBytes(std::string_view bytes, const std::string& name) {
  BinaryStream stream(bytes);
  stream.LittleEndian = true;
  BorderModuleItem read = *this;
  const bool known = stream.Read(kMagic.size()) == kMagic;
  (void)stream.ReadUInt8();
  read.Category = stream.ReadUInt8();
  read.ContactLink = ReadShortText(stream);
  read.CreatedWith = ReadShortText(stream);
  read.CreationDate = Date::FromTotalSeconds(stream.ReadDouble());
  read.Creator = ReadShortText(stream);
  read.ID = ReadShortText(stream);
  read.iDataLength = stream.ReadUInt32();
  read.iDataPos = stream.Position();
  (void)stream.Read(read.iDataLength);
  read.ImageHeight = stream.ReadSingle();
  read.ImageLeft = stream.ReadSingle();
  read.ImageTop = stream.ReadSingle();
  read.ImageWidth = stream.ReadSingle();
  read.Name = ReadShortText(stream);
  read.Type = stream.ReadUInt8();
  const std::string_view preview = stream.Read(stream.ReadUInt32());
  if (!known || stream.Failed()) {
    LastErrorMessage =
        WithPlaceholders(FolderitemExtensions::kErrorMessageFileContainsIncorrectData.Text(),
                         {{"<filename>", name}, {"<filetype>", BrivolantPhotosBorder.Name.Text()}});
    return false;
  }
  read.Preview = preview.empty() ? Picture() : JpegImporter::PreviewFromString(preview);
  *this = std::move(read);
  LastErrorMessage.clear();
  return true;
}

}  // namespace brivolant
