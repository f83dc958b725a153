// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/core/Jobs.h"
#include "app/session/FileInfo.h"
#include "metadata/MetadataFields.h"
#include "platform/files/FolderItem.h"
#include "platform/values/Date.h"

namespace brivolant {

/// What the owner says of photos, given to many of them at once, and taken back.
class ManyInfos {
 public:
  static constexpr LocalizedText kWriting{"ManyInfos.kWriting",
                                          "Writing the data of the photos..."};
  static constexpr LocalizedText kNothingKept{
      "ManyInfos.kNothingKept",
      "The data of \"<filename>\" cannot be changed: it is no photo, or it is locked."};
  static constexpr LocalizedText kNotFit{
      "ManyInfos.kNotFit",
      "The data of \"<filename>\" was not changed: not all of it can stand there."};

  /// A field gets these texts, or none; fields that are not named stay as they are.
  struct Field {
    MetadataField Which;
    std::vector<std::string> Texts;
  };
  struct Order {
    std::vector<Field> Fields;
    /// Words that all photos lose, and that all get; others of their own they keep.
    std::vector<std::string> GoneWords;
    std::vector<std::string> NewWords;
    /// Seconds by which the moments of those are moved that tell theirs.
    double Shift = 0;
    bool IsEmpty() const {
      return Fields.empty() && GoneWords.empty() && NewWords.empty() && Shift == 0;
    }
  };
  /// What all photos say alike; of a field in which they differ nothing.
  struct Common {
    std::vector<std::pair<MetadataField, std::vector<std::string>>> Said;
    std::vector<MetadataField> Differing;
    /// Words that all of them have.
    std::vector<std::string> Words;
    /// Kinds that are never written: what is said of them is kept beside them.
    int Beside = 0;
    std::optional<Date> FirstTaken;
    /// Those of the files of which something can be said.
    std::vector<FolderItem> Photos;
  };
  /// What was done, to be taken back.
  struct Done {
    FileInfo::Keeper Keeper;
    std::vector<MetadataChange> Back;
    /// What was said, which must still stand there.
    FileInfo::Said Given;
  };
  struct Result {
    std::vector<Done> Given;
    /// A sentence for each file to which it could not be given.
    std::vector<std::string> Failed;
  };

  /// Fields that can be given to many.
  static const std::vector<MetadataField>& Offered();
  /// Reads them all; nothing if it was cancelled.
  static std::optional<Common> Read(const std::vector<FolderItem>& files, Jobs::Control& control);
  static void Give(const std::vector<FolderItem>& files, const Order& order, Result& result,
                   Jobs::Control& control);
  /// Takes all of it back; what could not be stays in `given`, with a sentence for each.
  static std::vector<std::string> TakeBack(std::vector<Done>& given, Jobs::Control& control);
};

}  // namespace brivolant
