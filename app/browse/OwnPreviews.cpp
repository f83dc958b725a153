// SPDX-License-Identifier: MIT
#include "app/browse/OwnPreviews.h"

#include "app/core/ApplicationServices.h"
#include "browser/browserThumbnailGetter.h"
#include "effects/borders/BorderModuleItem.h"
#include "effects/styles/OneClickWonder.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/FileTypes.h"
#include "metadata/PhotoFacts.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant {
namespace {

using namespace InternalFileTypes;

constexpr const char* kThumbnailProgram = "brivolant-photos-1";

Picture StoredPreview(const FolderItem& package, int longest) {
  auto source = ImageSource::Open(package.Child(BrivolantDocument::kMidSizePreviewName));
  if (!source) source = ImageSource::Open(package.Child(BrivolantDocument::kThumbnailName));
  if (!source) return {};
  auto picture = (*source.value)->Thumbnail(longest);
  return picture ? std::move(*picture) : Picture();
}

FilePreview OfDocument(const FolderItem& file, int longest, bool lines) {
  FilePreview preview;
  // A package keeps its previews as files of their own, so that nothing else need be read.
  if (file.Directory()) preview.Shown = StoredPreview(file, longest);
  if (file.Directory() && !lines) return preview;
  const QuietServices services;
  BrivolantDocument document(services.All());
  if (!document.Load(file)) {
    if (lines) preview.Lines = {file.DisplayName(), BrivolantPhotosDocument.Name.Text()};
    return preview;
  }
  if (preview.Shown.IsNil()) preview.Shown = document.PreviewAfter;
  if (!lines) return preview;
  preview.Lines.push_back(document.Name);
  const FolderItem original =
      document.OriginalImageID.empty() ? FolderItem() : file.Child(document.OriginalImageID);
  const auto source =
      original.IsNil() ? Expected<std::unique_ptr<ImageSource>>() : ImageSource::Open(original);
  if (source) {
    if (const auto size = (*source.value)->Properties(0)) {
      FilePreviewer::AddSize(preview.Lines, BrivolantPhotosDocument.Name.Text(), size.value->Width,
                             size.value->Height);
    }
  }
  if (original) {
    FilePreviewer::AddTaken(preview.Lines, PhotoFacts::Of(original).Taken, Date::Now());
  }
  if (!document.Copyright.empty()) preview.Lines.push_back(document.Copyright);
  return preview;
}

FilePreview OfStyle(const FolderItem& file, bool lines) {
  FilePreview preview;
  const QuietServices services;
  OneClickWonder style(services.All());
  if (!style.Load(file)) {
    if (lines) preview.Lines = {file.DisplayName(), FolderitemExtensions::Kind(file)};
    return preview;
  }
  preview.Shown = style.Preview();
  if (!lines) return preview;
  preview.Lines.push_back(style.Name());
  FilePreviewer::AddMaker(preview.Lines, style.Creator, style.ContactLink, style.CreationDate,
                          Date::Now());
  if (!style.Description().empty()) preview.Lines.push_back(style.Description());
  return preview;
}

FilePreview OfBorder(const FolderItem& file, bool lines) {
  FilePreview preview;
  BorderModuleItem border;
  if (!border.Load(file)) {
    if (lines) preview.Lines = {file.DisplayName(), FolderitemExtensions::Kind(file)};
    return preview;
  }
  preview.Shown = border.Preview;
  if (!lines) return preview;
  preview.Lines.push_back(border.Name);
  FilePreviewer::AddMaker(preview.Lines, border.Creator, border.ContactLink, border.CreationDate,
                          Date::Now());
  return preview;
}

}  // namespace

std::optional<FilePreview> OwnFilePreview(const FolderItem& file, int longest, bool lines) {
  using FolderitemExtensions::isFileType;
  if (isFileType(file, &BrivolantPhotosDocument)) return OfDocument(file, longest, lines);
  if (isFileType(file, &BrivolantPhotosOneClickWonder)) return OfStyle(file, lines);
  if (isFileType(file, &BrivolantPhotosBorder)) return OfBorder(file, lines);
  return std::nullopt;
}

std::shared_ptr<ThumbnailMaker> NewThumbnailMaker() {
  auto maker = std::make_shared<ThumbnailMaker>(
      ThumbnailCache(ThumbnailCache::DefaultRoot(), kThumbnailProgram));
  maker->OwnPreview = [](const FolderItem& file, int longest) {
    auto preview = OwnFilePreview(file, longest, false);
    return preview ? std::move(preview->Shown) : Picture();
  };
  return maker;
}

std::shared_ptr<FilePreviewer> NewFilePreviewer() {
  auto previewer = std::make_shared<FilePreviewer>();
  previewer->Own = OwnFilePreview;
  return previewer;
}

}  // namespace brivolant
