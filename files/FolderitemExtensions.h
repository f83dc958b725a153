// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/BinaryStream.h"
#include "platform/files/FileType.h"
#include "platform/files/FolderItem.h"
#include "platform/services/Services.h"
#include "platform/values/Date.h"
#include "platform/values/Text.h"

namespace brivolant {

class VolumeItem;

/// Small operations on files that the whole program uses.
namespace FolderitemExtensions {

// File identity.

/// The kind of a file by its first bytes, such as "JPG"; for unknown bytes the name's extension,
/// "NILBINARYSTREAM" if it cannot be opened.
std::string FileFormat(const FolderItem& file);
/// "Image", "Movie", "Sound" or "".
std::string FileBaseType(const FolderItem& file);
/// What follows the name's last dot; without it the Mac type.
std::string FileExtension(const FolderItem& file);
/// The name less dot and extension.
std::string FileNameWithoutExtension(const FolderItem& file);
/// By Mac type and creator, or by an extension of the type.
bool isFileType(const FolderItem& file, const FileType* type);
/// A folder that the desktop shows as one file: it holds a real folder "Contents".
bool Package(const FolderItem& file);
/// The kind in words, as the desktop names it.
std::string Kind(const FolderItem& file);
/// The same from the name alone, without a look into the file.
std::string KindByName(const FolderItem& file);
/// True if the file's type, by name or else by content, is one that a picture can be made of.
bool HoldsPicture(const FolderItem& file);
/// The same from the name alone, of images.
bool NamesPicture(std::string_view name);
/// Names of the file's icon in the desktop's theme, the most special first.
std::vector<std::string> IconNames(const FolderItem& file);
/// The same from the name alone, of what is no folder.
std::vector<std::string> IconNamesByName(const FolderItem& file);
/// The same of a file extension, or of a MIME type if the text holds "/".
std::vector<std::string> IconNamesOfType(const std::string& type);
/// The user's comment on the file, empty if there is none.
std::string Comment(const FolderItem& file);
/// What a link points at, else the file itself.
FolderItem OriginalFile(const FolderItem& file);
/// The mounted volume that holds the file.
VolumeItem Volume(const FolderItem& file);
/// The path from the root.
std::string UnixPath(const FolderItem& file);

// File actions.

/// Moves to the trash of the freedesktop.org specification: the user's own, or that of the
/// file's volume. False, and the file stays, if neither takes it.
[[nodiscard]] bool MoveToTrash(const FolderItem& file);
/// What was moved to a trash, and where it is now.
struct TrashedFile {
  FolderItem Original;
  FolderItem InTrash;
  FolderItem Info;
};
/// The same; nothing if no trash takes it.
std::optional<TrashedFile> PutInTrash(const FolderItem& file);
/// Takes it out again; false if its place is taken or gone.
[[nodiscard]] bool PutBack(const TrashedFile& trashed);
bool Reveal(const FolderItem& file, Desktop& desktop);
/// Makes a symbolic link at `target`.
[[nodiscard]] bool MakeAlias(const FolderItem& source, const FolderItem& target);
/// `path` without its backslashes.
std::string fixShellPath(std::string_view path);

// Others.

/// The bytes of a file of that type; nothing, and a sentence in `error`, if it is none or cannot be
/// read.
std::optional<std::string> ReadFileOfType(const brivolant::FolderItem& file, const FileType& type,
                                          std::string& error);
/// A text behind its 16-bit count of bytes, made UTF-8.
std::string ReadShortText(BinaryStream& stream);
/// The next `count` bytes as upper-case hexadecimal.
std::string ReadAsHex(BinaryStream& stream, int count);
/// "Today at 14:05": a word or weekday for days near `now`, else the short date.
std::string RelativeDateTime(const Date& date, const Date& now);
/// The short date and time as the user's locale has them.
std::string ShortDateTime(const Date& date);
/// "1.50 MB": `suffix` is the mask of the decimals, such as ".00", for megabytes and more.
std::string AsFileSize(double bytes, std::string_view suffix);

bool FolderItemAvailable(const brivolant::Clipboard& clipboard);
/// The file on the clipboard, or nil.
brivolant::FolderItem FolderItem(const brivolant::Clipboard& clipboard);
void FolderItem(brivolant::Clipboard& clipboard, const brivolant::FolderItem& file);

/// What a file is wanted for.
enum FileAction { kRead = 0, kSave = 1 };

/// True if the file may be used; otherwise the user has been told why not. `type` may be null.
[[nodiscard]] bool Validate(const brivolant::FolderItem& file, FileAction action,
                            const FileType* type, Dialogs& dialogs);
/// Tells the user why the file cannot be used. An empty reason is found from the file.
void StandardFileErrorDialog(const brivolant::FolderItem& file, FileAction action,
                             const std::string& reason, Dialogs& dialogs);

inline constexpr LocalizedText kErrorMessageUnableToRead{
    "FolderitemExtensions.kErrorMessageUnableToRead",
    "Unable to open the file \"<filename>\" to read its contents. Check permissions on the file, "
    "and make sure that other programs are not using it."};
inline constexpr LocalizedText kErrorMessageFileContainsIncorrectData{
    "FolderitemExtensions.kErrorMessageFileContainsIncorrectData",
    "The file \"<filename>\" doesn't appear to contain the correct <filetype> data."};
inline constexpr LocalizedText kErrorMessageOpeningforWriteFailed{
    "FolderitemExtensions.kErrorMessageOpeningforWriteFailed",
    "The file \"<filename>\" cannot be saved because the file couldn't be opened to write the "
    "data. Check the permissions on the file before trying again."};
inline constexpr LocalizedText kErrorMessageCreatingFileFailed{
    "FolderitemExtensions.kErrorMessageCreatingFileFailed",
    "The file \"<filename>\" cannot be saved as creating the file failed for an unknown reason. "
    "Please check permissions before trying again."};

}  // namespace FolderitemExtensions
}  // namespace brivolant
