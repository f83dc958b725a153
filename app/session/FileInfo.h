// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "metadata/ImageMetaData.h"
#include "metadata/MetadataDraft.h"
#include "metadata/MetadataRows.h"
#include "metadata/PhotoFacts.h"
#include "platform/files/FolderItem.h"
#include "platform/values/Text.h"

namespace brivolant {

/// All that is known of one file: what it tells of itself, where it lies, what this program keeps
/// of it; and what a user changes of it before that is written.
class FileInfo {
 public:
  static constexpr LocalizedText kFullName{"MetaDataBrowser.kFullName", "Full Name:"};
  static constexpr LocalizedText kKind{"MetaDataBrowser.kFileKind", "Kind:"};
  static constexpr LocalizedText kSize{"MetaDataBrowser.kSize", "Size:"};
  static constexpr LocalizedText kOnDisk{"MetaDataBrowser.kOnDisk", " on disk ("};
  static constexpr LocalizedText kBytes{"MetaDataBrowser.kBytes", " bytes)"};
  static constexpr LocalizedText kWhere{"MetaDataBrowser.kWhere", "Where:"};
  static constexpr LocalizedText kCreated{"MetaDataBrowser.kCreated", "Created:"};
  static constexpr LocalizedText kModified{"MetaDataBrowser.kModified", "Modified:"};
  static constexpr LocalizedText kComment{"MetaDataBrowser.kFileComment", "Comment:"};
  static constexpr LocalizedText kOriginal{"MetaDataBrowser.kOriginal", "Original:"};
  static constexpr LocalizedText kFileSection{"MetaDataBrowser.kFileSection", "File Information"};
  static constexpr LocalizedText kName{"MetaDataBrowser.kName", "Name:"};
  static constexpr LocalizedText kCreatedBy{"MetaDataBrowser.kCreatedBy", "Created By:"};
  static constexpr LocalizedText kContactLink{"MetaDataBrowser.kContactLink", "Contact Link:"};
  static constexpr LocalizedText kCopyright{"MetaDataBrowser.kCopyright", "Copyright:"};
  static constexpr LocalizedText kSoftware{"MetaDataBrowser.kSoftware", "Software: "};
  static constexpr LocalizedText kChangedSince{"FileInfo.kChangedSince",
                                               "The data of \"<filename>\" was not changed: "
                                               "another program has written it meanwhile. Please "
                                               "open it again."};
  static constexpr LocalizedText kGone{
      "FileInfo.kGone", "The data of \"<filename>\" was not changed: the file is gone."};
  static constexpr LocalizedText kPosition{"MetaDataBrowser.kPosition", "Position:"};

  /// Where edits are kept.
  enum class Keeps {
    kInFile,
    /// In a packet beside a file that is never written.
    kBeside,
    /// In the document's package.
    kInDocument,
    /// Folders, and files that are no pictures.
    kNowhere
  };

  /// Reads a file; on any thread. Never null.
  static std::shared_ptr<FileInfo> Read(const FolderItem& file);
  FileInfo(const FileInfo&) = delete;
  FileInfo& operator=(const FileInfo&) = delete;

  const FolderItem& File() const { return file_; }
  Keeps KeptIn() const { return keeps_; }
  /// The file that an edit is written to; may not be there yet.
  const FolderItem& Target() const { return target_; }
  const PhotoFacts& Facts() const { return facts_; }
  MetadataDraft& Draft() { return *draft_; }
  /// What is shown, in order, with the edits.
  std::vector<MetadataSection> Sections(bool hideUnknown) const;
  /// A file or a folder has another place now: the file, what it leads to as a link, and what is
  /// kept beside it follow. Looks at no disk.
  void Follow(const FolderItem& before, const FolderItem& after);
  /// It would be written, if it were not locked.
  bool Locked() const { return locked_; }
  /// What a change needs, without all that was read.
  struct Keeper {
    FolderItem File;
    FolderItem Target;
    Keeps In = Keeps::kNowhere;
  };
  using Said = std::map<MetadataDraft::Place, std::vector<std::string>>;
  Keeper Keeping() const { return {file_, target_, keeps_}; }
  /// Writes changes, as Draft().Pending gives them; on any thread. Refused if places that are to
  /// change no longer say what they said: somebody else has written meanwhile. `after` gets what
  /// they say now. Empty if it is done, or else one sentence.
  [[nodiscard]] static std::string Write(const Keeper& keeper,
                                         const std::vector<MetadataChange>& changes,
                                         const Said& before, Said& after);

 private:
  explicit FileInfo(FolderItem file) : file_(std::move(file)) {}
  void ReadDocument();
  void ReadOwn();
  void ReadFacts();

  FolderItem file_;
  /// What a link leads to, else the file.
  FolderItem photo_;
  FolderItem target_;
  Keeps keeps_ = Keeps::kNowhere;
  bool locked_ = false;
  ImageMetaData data_;
  PhotoFacts facts_;
  MetadataSection fileSection_;
  std::optional<MetadataSection> programSection_;
  std::unique_ptr<MetadataDraft> draft_;
};

/// "51.5000, -0.1200" as an address that the desktop's map opens.
std::string MapAddress(const Position& position);

}  // namespace brivolant
