// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files/FolderItem.h"
#include "platform/pictures/Picture.h"
#include "platform/services/Services.h"
#include "platform/values/Date.h"
#include "platform/values/Text.h"

namespace brivolant {

/// A 1-Click style: a stored effect stack with its maker, its names and descriptions by language,
/// and a preview. File and object are the same but for ID and File.
class OneClickWonder {
 public:
  static constexpr LocalizedText kDefaultName{"OneClickWonder.kDefaultName", "Untitled"};
  /// Stands for the user's own language.
  static constexpr int kUsersLanguage = -1;

  /// Named "Untitled" in the user's language, made now.
  explicit OneClickWonder(const Services& services);

  std::string Creator;
  Date CreationDate;
  std::string ContactLink;
  /// The stack, as the processor writes it.
  std::string StyleData;
  /// A new one for each object; never stored.
  std::string ID;
  /// Name and version of the program that made it.
  std::string CreatedWith;
  /// Index of a category.
  int Category = 0;
  /// Where it lives; nil for a style not yet saved.
  FolderItem File;
  /// Why the last Load or Save failed; empty if it did not.
  std::string LastErrorMessage;

  /// Empty for a language that has none; no other language stands in.
  std::string Name(int language = kUsersLanguage) const { return TextOf(names_, language); }
  void Name(int language, const std::string& name) { Set(names_, language, name); }
  std::string Description(int language = kUsersLanguage) const {
    return TextOf(descriptions_, language);
  }
  void Description(int language, const std::string& text) { Set(descriptions_, language, text); }

  /// Nil if there is none. Decoded when it is first asked for.
  Picture Preview() const;
  /// True if Preview has nothing left to decode.
  bool PreviewIsDecoded() const { return rawPictureData_.empty() || !preview_.IsNil(); }
  /// The preview as it lies in the file, for a decoder on another thread, and what came of it: see
  /// JpegImporter::PreviewFromString.
  const std::string& PreviewBytes() const { return rawPictureData_; }
  void PreviewDecoded(const Picture& preview) {
    if (!PreviewIsDecoded()) preview_ = preview;
  }
  /// The next Save compresses it anew.
  void Preview(const Picture& picture);
  bool HasPreview() const { return !rawPictureData_.empty() || !preview_.IsNil(); }
  /// The file cannot be changed.
  bool Locked() const { return !File.IsNil() && !File.IsWriteable(); }

  /// False and LastErrorMessage if the file is none of ours or damaged; then nothing has changed.
  [[nodiscard]] bool Load(const FolderItem& file);
  /// The same from a file's bytes; `name` stands in the message.
  [[nodiscard]] bool LoadBytes(std::string_view bytes, const std::string& name);
  /// To `file`, or to File if it is nil. The file is complete or untouched.
  [[nodiscard]] bool Save(const FolderItem& file);
  /// The bytes of the file.
  std::string Bytes() const;
  /// A free file in the folder by the name in the user's language, which becomes File.
  void GenerateFile(const FolderItem& folder);
  /// The same preview, stack, category, maker and texts, with its own ID and date and no file.
  OneClickWonder Clone() const;

 private:
  using Texts = std::vector<std::pair<int, std::string>>;
  static std::string TextOf(const Texts& texts, int language);
  static void Set(Texts& texts, int language, const std::string& text);
  void Renew();

  const Services* services_;
  Texts names_;
  Texts descriptions_;
  mutable Picture preview_;
  /// JPEG of the preview; written back byte for byte.
  mutable std::string rawPictureData_;
};

}  // namespace brivolant
