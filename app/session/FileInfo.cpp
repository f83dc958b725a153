// SPDX-License-Identifier: MIT
#include "app/session/FileInfo.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include "app/core/ApplicationServices.h"
#include "app/core/GlobalApplicationSpecificProperties.h"
#include "effects/borders/BorderModuleItem.h"
#include "effects/styles/OneClickWonder.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/FileTypes.h"
#include "metadata/MetadataWriter.h"
#include "metadata/Sidecar.h"
#include "platform/files/FileNames.h"
#include "platform/values/Numbers.h"

namespace brivolant {
namespace {

using Section = MetadataSection;
using FolderitemExtensions::isFileType;
using namespace InternalFileTypes;

std::string Moment(std::int64_t seconds) {
  return FolderitemExtensions::ShortDateTime(Date::FromUnixTime(seconds));
}

/// All files of a package count.
double Bytes(const FolderItem& file) {
  if (!file.Directory()) return static_cast<double>(file.Length());
  double bytes = 0;
  std::error_code error;
  using Walk = std::filesystem::recursive_directory_iterator;
  constexpr int kMost = 100000;
  int count = 0;
  for (Walk walk(file.Path(), error), end; !error && walk != end && count < kMost;
       walk.increment(error), ++count) {
    std::error_code unknown;
    if (walk->is_regular_file(unknown)) bytes += static_cast<double>(walk->file_size(unknown));
  }
  return bytes;
}

Section FileSection(const FolderItem& file) {
  Section section{Section::kFile, FileInfo::kFileSection.Text()};
  const auto add = [&](const LocalizedText& label, const std::string& value) {
    if (!value.empty()) section.Rows.push_back({label.Text(), value});
  };
  add(FileInfo::kFullName, file.DisplayName());
  add(FileInfo::kKind, FolderitemExtensions::Kind(file));
  const bool folder = file.Directory() && !BrivolantDocument::IsDocument(file);
  if (!folder) {
    const double bytes = Bytes(file);
    add(FileInfo::kSize, FolderitemExtensions::AsFileSize(bytes, ".00") + FileInfo::kOnDisk.Text() +
                             ReadableNumber(bytes, 0) + FileInfo::kBytes.Text());
  }
  add(FileInfo::kWhere, EnsureUTF8(FolderitemExtensions::UnixPath(file)));
  struct statx status {};
  if (statx(AT_FDCWD, file.Path().c_str(), 0, STATX_BTIME | STATX_MTIME, &status) == 0) {
    if ((status.stx_mask & STATX_BTIME) != 0)
      add(FileInfo::kCreated, Moment(status.stx_btime.tv_sec));
    add(FileInfo::kModified, Moment(status.stx_mtime.tv_sec));
  }
  add(FileInfo::kComment, FolderitemExtensions::Comment(file));
  if (file.Alias()) {
    add(FileInfo::kOriginal,
        EnsureUTF8(FolderitemExtensions::UnixPath(FolderitemExtensions::OriginalFile(file))));
  }
  return section;
}

/// A file is exchanged, so its folder counts as well.
bool Writable(const FolderItem& file) {
  const bool folder = access(file.Path().parent_path().c_str(), W_OK) == 0;
  return folder && (!file.Exists() || access(file.Path().c_str(), W_OK) == 0);
}

struct Maker {
  std::string Name;
  std::string Creator;
  Date Created;
  std::string Link;
  std::string Copyright;
  std::string Software;
};

Section ProgramSection(const Maker& maker) {
  Section section{Section::kProgram, GlobalApplicationSpecificProperties::ApplicationName.Text()};
  const auto add = [&](const LocalizedText& label, const std::string& value) {
    section.Rows.push_back({label.Text(), EnsureUTF8(value)});
  };
  add(FileInfo::kName, maker.Name);
  add(FileInfo::kCreatedBy, maker.Creator);
  add(FileInfo::kCreated, FolderitemExtensions::RelativeDateTime(maker.Created, Date::Now()));
  add(FileInfo::kContactLink, maker.Link);
  if (!maker.Copyright.empty()) add(FileInfo::kCopyright, maker.Copyright);
  add(FileInfo::kSoftware, maker.Software);
  return section;
}

}  // namespace

std::shared_ptr<FileInfo> FileInfo::Read(const FolderItem& file) {
  std::shared_ptr<FileInfo> info(new FileInfo(file));
  info->fileSection_ = FileSection(file);
  const FolderItem target = FolderitemExtensions::OriginalFile(file);
  info->photo_ = target;
  if (isFileType(target, &BrivolantPhotosDocument)) {
    info->ReadDocument();
  } else if (isFileType(target, &BrivolantPhotosOneClickWonder) ||
             isFileType(target, &BrivolantPhotosBorder)) {
    info->ReadOwn();
  } else if (!target.Directory()) {
    info->ReadFacts();
  }
  if (info->keeps_ != Keeps::kNowhere && !Writable(info->target_)) {
    info->keeps_ = Keeps::kNowhere;
    info->locked_ = true;
  }
  info->facts_ = PhotoFacts::Of(info->data_);
  const bool inFile = info->keeps_ == Keeps::kInFile || info->keeps_ == Keeps::kNowhere;
  info->draft_ = std::make_unique<MetadataDraft>(info->data_, !inFile);
  return info;
}

void FileInfo::ReadDocument() {
  const FolderItem package = FolderitemExtensions::OriginalFile(file_);
  const QuietServices services;
  BrivolantDocument document(services.All());
  if (!document.Load(package)) return;
  programSection_ =
      ProgramSection({document.Name, document.Creator, document.CreatedDate, document.ContactLink,
                      document.Copyright, document.CreatedWith});
  const FolderItem original = document.OriginalSource();
  if (original.IsNil()) return;
  data_.ReadFile(original);
  // An older document, which is one file, has no room for edits.
  if (!package.Directory()) return;
  keeps_ = Keeps::kInDocument;
  target_ = package.Child(BrivolantDocument::kMetadataName);
  if (const std::string packet = Sidecar::Read(target_); !packet.empty()) {
    Sidecar::MergeInto(data_, packet, true);
  }
}

void FileInfo::ReadOwn() {
  const FolderItem target = FolderitemExtensions::OriginalFile(file_);
  const QuietServices services;
  if (isFileType(target, &BrivolantPhotosBorder)) {
    BorderModuleItem border;
    if (!border.Load(target)) return;
    programSection_ = ProgramSection({border.Name,
                                      border.Creator,
                                      border.CreationDate,
                                      border.ContactLink,
                                      {},
                                      border.CreatedWith});
    return;
  }
  OneClickWonder style(services.All());
  if (!style.Load(target)) return;
  programSection_ = ProgramSection(
      {style.Name(), style.Creator, style.CreationDate, style.ContactLink, {}, style.CreatedWith});
}

void FileInfo::ReadFacts() {
  const FolderItem photo = FolderitemExtensions::OriginalFile(file_);
  data_.ReadFile(photo);
  if (Sidecar::WrittenInPlace(photo)) {
    keeps_ = Keeps::kInFile;
    target_ = photo;
    return;
  }
  if (!FolderitemExtensions::HoldsPicture(photo)) return;
  keeps_ = Keeps::kBeside;
  target_ = Sidecar::For(photo);
  Sidecar::ReadInto(data_);
}

std::vector<MetadataSection> FileInfo::Sections(bool hideUnknown) const {
  std::vector<Section> sections = draft_->Sections(hideUnknown);
  if (keeps_ == Keeps::kNowhere) {
    for (Section& section : sections) {
      for (MetadataRow& row : section.Rows) row.Text = false;
    }
  }
  if (facts_.Where) {
    for (Section& section : sections) {
      if (section.Is != Section::kGps) continue;
      section.Rows.insert(section.Rows.begin(), {kPosition.Text(), TextOf(*facts_.Where)});
    }
  }
  const auto summary =
      std::ranges::find(sections, static_cast<int>(Section::kSummary), &Section::Is);
  sections.insert(summary == sections.end() ? sections.begin() : std::next(summary), fileSection_);
  if (programSection_) sections.insert(sections.begin(), *programSection_);
  return sections;
}

void FileInfo::Follow(const FolderItem& before, const FolderItem& after) {
  const auto follow = [&](FolderItem& item) {
    if (const FolderItem now = PlaceAfter(item, before, after)) item = now;
  };
  // What is kept beside a photo has its name from the photo, not from a link to it.
  if (keeps_ == Keeps::kBeside && photo_ == before) {
    target_ = Sidecar::BesideMoved(target_, before, after);
  } else {
    follow(target_);
  }
  follow(photo_);
  follow(file_);
  for (MetadataRow& row : fileSection_.Rows) {
    if (row.Label == kFullName.Text()) row.Value = file_.DisplayName();
    if (row.Label == kWhere.Text()) row.Value = EnsureUTF8(FolderitemExtensions::UnixPath(file_));
  }
}

std::string FileInfo::Write(const Keeper& keeper, const std::vector<MetadataChange>& changes,
                            const Said& before, Said& after) {
  const auto told = [&](const LocalizedText& text) {
    return WithPlaceholders(text.Text(), {{"<filename>", keeper.File.DisplayName()}});
  };
  if (!keeper.File.Exists()) return told(kGone);
  const auto now = Read(keeper.File);
  for (const auto& [place, texts] : before) {
    if (now->Draft().Texts(place.first, place.second) != texts) return told(kChangedSince);
  }
  std::string why = keeper.In == Keeps::kInFile ? MetadataWriter::Write(keeper.Target, changes)
                                                : Sidecar::Write(keeper.Target, changes, {});
  if (!why.empty()) return why;
  const auto written = Read(keeper.File);
  for (const auto& [place, texts] : before) {
    after[place] = written->Draft().Texts(place.first, place.second);
  }
  return {};
}

std::string MapAddress(const Position& position) {
  constexpr int kDecimals = 6;
  return "geo:" + FixedNumber(position.Latitude, kDecimals) + "," +
         FixedNumber(position.Longitude, kDecimals);
}

}  // namespace brivolant
