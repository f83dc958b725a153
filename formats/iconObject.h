// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <variant>

#include "platform/files/FolderItem.h"
#include "platform/pictures/Picture.h"
#include "platform/services/IconSource.h"
#include "platform/services/Services.h"
#include "platform/values/Text.h"

namespace brivolant {

class BinaryStream;

/// One icon in several sizes, read from a ".icns" or ".ico" file or from the desktop. A size is
/// decoded when it is first asked for.
class iconObject {
 public:
  static constexpr LocalizedText kUnableToOpen{"iconObject.kUnableToOpen",
                                               "Unable to open the file"};
  static constexpr LocalizedText kUnknownFormat{"iconObject.kUnknownFormat",
                                                "Don't understand the format of this file."};

  enum Format { kNone = 0, kICNS = 1, kICO = 2 };
  /// What a record holds.
  enum RecordType { kWholeImage = 0, kColorData = 1, kMask = 2 };

  /// `log` must outlive the object. A file that is not nil is opened.
  explicit iconObject(Log& log, const FolderItem& file = {});

  bool Error = false;
  std::string ErrorMessage;
  int FileFormat = kNone;

  /// Reads `data` if it is not empty, else the file. On failure Error and ErrorMessage are set and
  /// every size is nil.
  void OpenAsIcon(const FolderItem& file, std::string_view data = {});
  void Reset();
  /// Keeps encoded data for a size; a whole image takes no further data.
  void StoreData(int size, int format, int depth, int type, std::string_view data);
  void StoreData(int size, const Picture& picture);
  /// Nil if the size is not there.
  Picture RetrieveData(int size);
  /// The size itself, else the smallest one above it, else the largest.
  Picture BestIcon(int size);
  /// The largest of the sizes that windows use.
  Picture AsPicture();

  Picture Tiny() { return RetrieveData(12); }
  Picture Small() { return RetrieveData(16); }
  Picture WindowsToolBar() { return RetrieveData(24); }
  Picture Large() { return RetrieveData(32); }
  Picture Huge() { return RetrieveData(48); }
  Picture Thumbnail() { return RetrieveData(128); }
  Picture HiRes256() { return RetrieveData(256); }
  Picture HiRes512() { return RetrieveData(512); }

  /// The icon that the desktop shows for a file.
  void SetImageFromFile(const FolderItem& file, IconSource& icons);
  /// The icon of a file extension, or of a MIME type if the text holds "/".
  void SetImageFromIcon(const std::string& type, IconSource& icons);
  /// The icon that the desktop's theme has under the first of the names that it knows.
  void SetImageFromNames(const std::vector<std::string>& names, IconSource& icons);

 private:
  void Fail(const std::string& message);
  void ReadICNS(BinaryStream& stream);
  void processICO(std::string_view bytes);
  Picture DecodeRecords(int size, std::string_view records);

  Log* log_;
  std::map<int, std::variant<std::string, Picture>> DataStorage;
};

}  // namespace brivolant
