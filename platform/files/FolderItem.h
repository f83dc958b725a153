// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace brivolant {

struct Date;

/// A reference to a file or folder that may or may not exist. Paths are the bytes of the file
/// system, whatever their encoding. A default FolderItem is "nil". A value.
class FolderItem {
 public:
  FolderItem() = default;
  explicit FolderItem(const std::filesystem::path& path);
  /// An entry by its name as a directory's listing gives it: nothing is normalised.
  static FolderItem Entry(const FolderItem& folder, std::string_view name);

  bool IsNil() const { return path_.empty(); }
  explicit operator bool() const { return !IsNil(); }

  /// The absolute path.
  const std::filesystem::path& Path() const { return path_; }
  std::string ShellPath() const { return path_.string(); }
  /// "file:" URL with percent escapes (FileAddress); its bytes are those of the path.
  std::string URLPath() const;
  /// Volume, folders and name joined by colons.
  std::string AbsolutePath() const;
  /// The last component, as the file system holds it.
  std::string Name() const;
  /// The name as shown to the user: always valid UTF-8.
  std::string DisplayName() const;

  /// Nil at the root.
  FolderItem Parent() const;
  FolderItem Child(std::string_view name) const;  ///< Nil unless it is one plain name.
  std::vector<FolderItem> Children() const;

  /// True also for a broken symbolic link's target that is missing: false. Links are followed.
  bool Exists() const;
  bool Directory() const;
  /// A symbolic link, whether or not its target exists.
  bool Alias() const;
  bool IsReadable() const;
  /// An existing item that may be written, or a missing one whose folder may be.
  bool IsWriteable() const;
  /// Bytes; 0 if missing.
  std::uint64_t Length() const;
  std::optional<Date> ModificationDate() const;

  /// File types of the older desktop; Linux has none, so both are empty.
  std::string MacType() const { return {}; }
  std::string MacCreator() const { return {}; }

  [[nodiscard]] std::error_code CreateAsFolder() const;
  /// Copies a file (its bytes) to `target`, which must not exist.
  [[nodiscard]] std::error_code CopyFileTo(const FolderItem& target) const;
  /// Moves a file or a whole folder to `target`, across file systems too. An existing file is
  /// replaced, an existing folder is an error.
  [[nodiscard]] std::error_code MoveFileTo(const FolderItem& target) const;
  /// Deletes a file or an empty folder; a missing item is no error.
  [[nodiscard]] std::error_code Delete() const;
  /// Deletes a folder with its contents. Links inside are removed, never followed.
  [[nodiscard]] std::error_code DeleteFolder() const;

  friend bool operator==(const FolderItem& a, const FolderItem& b) { return a.path_ == b.path_; }

 private:
  std::filesystem::path path_;
};

/// The whole content of a file; empty optional if it cannot be read or is longer than `limit`.
std::optional<std::string> ReadFile(const FolderItem& file,
                                    std::uint64_t limit = std::uint64_t{1} << 31);

}  // namespace brivolant
