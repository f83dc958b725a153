// SPDX-License-Identifier: MIT
#include "files/FolderitemExtensions.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <array>
#include <cerrno>
#include <cmath>

#include "files/VolumeItem.h"
#include "platform/files/ExclusiveMove.h"
#include "platform/files/FileAddress.h"
#include "platform/files/FileNames.h"
#include "platform/services/SharedFolders.h"
#include "platform/values/ApplicationName.h"
#include "platform/values/Numbers.h"

namespace brivolant::FolderitemExtensions {
namespace {

constexpr LocalizedText kDayOfWeekTomorrow{"FolderitemExtensions.kDayOfWeekTomorrow", "Tomorrow"};
constexpr LocalizedText kDayOfWeekToday{"FolderitemExtensions.kDayOfWeekToday", "Today"};
constexpr LocalizedText kDayOfWeekYesterday{"FolderitemExtensions.kDayOfWeekYesterday",
                                            "Yesterday"};
constexpr std::array<LocalizedText, 7> kDaysOfWeek{{
    {"FolderitemExtensions.kDayOfWeekSunday", "Sunday"},
    {"FolderitemExtensions.kDayOfWeekMonday", "Monday"},
    {"FolderitemExtensions.kDayOfWeekTuesday", "Tuesday"},
    {"FolderitemExtensions.kDayOfWeekWednesday", "Wednesday"},
    {"FolderitemExtensions.kDayOfWeekThursday", "Thursday"},
    {"FolderitemExtensions.kDayOfWeekFriday", "Friday"},
    {"FolderitemExtensions.kDayOfWeekSaturday", "Saturday"},
}};
constexpr LocalizedText kDateAtTime{"FolderitemExtensions.kDateAtTime", "<date> at <time>"};

constexpr LocalizedText kFileErrorOpenWithOutFolderitem{
    "FolderitemExtensions.kFileErrorOpenWithOutFolderitem",
    "<applicationName> Was Unable To Open The File"};
constexpr LocalizedText kFileErrorSaveWithOutFolderItem{
    "FolderitemExtensions.kFileErrorSaveWithOutFolderItem",
    "<applicationName> Was Unable To Open The File"};
constexpr LocalizedText kFileErrorOpenWithFolderItem{
    "FolderitemExtensions.kFileErrorOpenWithFolderItem",
    "<applicationName> Was Unable To Open The File \"<filename>\"."};
constexpr LocalizedText kFileErrorSaveWithFolderitem{
    "FolderitemExtensions.kFileErrorSaveWithFolderitem",
    "<applicationName> Was Unable To Save The File \"<filename>\"."};
constexpr LocalizedText kFileErrorExplanationWithoutFolderitem{
    "FolderitemExtensions.kFileErrorExplanationWithoutFolderitem",
    "Please check that the file still exists and you have read and write access to the disk or "
    "folder that the file is located in."};
constexpr LocalizedText kFileErrorExplanationWithFolderitem{
    "FolderitemExtensions.kFileErrorExplanationWithFolderitem",
    "The file couldn't be used because <reason>."};
constexpr LocalizedText kFileErrorParentisNIL{
    "FolderitemExtensions.kFileErrorParentisNIL",
    "The folder or disk that this file was in or intended to be in no longer exists. Suggest "
    "either selecting another file or using a different location."};
constexpr LocalizedText kFileErrorReasonNotExists{
    "FolderitemExtensions.kFileErrorReasonNotExists",
    "the file no longer exists at this location, eiher it has been moved or deleted. Please "
    "either select the new file's location or choose a different file before trying again."};
constexpr LocalizedText kFileErrorReasonBrokenAlias{
    "FolderitemExtensions.kFileErrorReasonBrokenAlias",
    "the file is a broken alias file. The original file that this alias points to cannot be "
    "found."};
constexpr LocalizedText kFileErrorReasonCannotRead{
    "FolderitemExtensions.kFileErrorReasonCannotRead",
    "you do not have the correct permissions to read this file, please correct the permissions "
    "using the Finder and try again."};
constexpr LocalizedText kFileErrorReasonCannotWrite{
    "FolderitemExtensions.kFileErrorReasonCannotWrite",
    "the file is either locked, on a locked disk or you do not have permission to save into that "
    "particular folder or disk. Suggest choosing a different location to save the file."};
constexpr LocalizedText kFileErrorReasonIncorrectType{
    "FolderitemExtensions.kFileErrorReasonIncorrectType",
    "the file is not a <filetype> file. Please select a different file."};
constexpr LocalizedText kFileErrorReasonFolderAlreadyExists{
    "FolderitemExtensions.kFileErrorReasonFolderAlreadyExists",
    "a folder with the same name already exists in that location, either delete that folder or "
    "choose a different name before trying again."};

constexpr std::string_view kUriList = "text/uri-list";

using Item = brivolant::FolderItem;

bool BrokenAlias(const Item& file) {
  return file.Alias() && !file.Exists();
}

/// The device that holds a file, without following a link.
dev_t DeviceOf(const Item& file) {
  struct stat status {};
  return lstat(file.Path().c_str(), &status) == 0 ? status.st_dev : 0;
}

/// The nearest folder above `file` that is still on its device: the volume's root.
Item TopOfVolume(const Item& file) {
  Item top = file.Parent();
  while (top && top.Parent() && DeviceOf(top.Parent()) == DeviceOf(file)) top = top.Parent();
  return top;
}

/// Makes a file that is not there yet; gives the number of the error, EEXIST if it is.
int WriteNew(const Item& file, std::string_view text) {
  const int descriptor =
      open(file.Path().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor < 0) return errno;
  const ssize_t written = write(descriptor, text.data(), text.size());
  const bool whole = written == static_cast<ssize_t>(text.size());
  if (close(descriptor) == 0 && whole) return 0;
  (void)file.Delete();
  return EIO;
}

/// Moves into one trash folder; `recorded` is the path as its info file tells it.
std::optional<TrashedFile> MoveInto(const Item& trash, const Item& file,
                                    const std::string& recorded) {
  const Item files = trash.Child("files");
  const Item info = trash.Child("info");
  const bool fresh = !trash.Exists();
  if (files.CreateAsFolder() || info.CreateAsFolder()) return std::nullopt;
  // What one user throws away is not for the others.
  if (fresh) (void)chmod(trash.Path().c_str(), S_IRWXU);
  constexpr std::string_view kRecord = ".trashinfo";
  const std::string base = FileNameWithoutExtension(file);
  const std::string extension = FileExtension(file);
  const std::string ending = extension.empty() ? "" : "." + extension;
  const std::string text =
      "[Trash Info]\nPath=" + FileAddress::PercentEncoded(recorded) +
      "\nDeletionDate=" + QDateTime::currentDateTime().toString(Qt::ISODate).toStdString() + "\n";
  for (int n = 0;; ++n) {
    // The record's name is longer, and must fit as well.
    const std::string name = n == 0 && file.Name().size() + kRecord.size() <= kLongestName
                                 ? file.Name()
                                 : NumberedName(base, n, ending, kRecord.size());
    // Whoever makes the record has the name, so that two programs never take the same.
    const Item record = info.Child(std::string(name).append(kRecord));
    const int recordError = WriteNew(record, text);
    if (recordError == EEXIST) continue;
    if (recordError != 0) return std::nullopt;
    const Item place = files.Child(name);
    const std::error_code error = MoveExclusively(file, place);
    if (!error) return TrashedFile{file, place, record};
    (void)record.Delete();
    if (error != std::errc::file_exists) return std::nullopt;
  }
}

}  // namespace

bool Package(const Item& file) {
  const Item contents = file.Child("Contents");
  return file.Directory() && contents.Directory() && !contents.Alias();
}

std::string Comment(const Item& file) {
  std::array<char, 4096> text{};
  const ssize_t size = getxattr(file.Path().c_str(), "user.xdg.comment", text.data(), text.size());
  return size > 0 ? EnsureUTF8({text.data(), static_cast<std::size_t>(size)}) : std::string();
}

Item OriginalFile(const Item& file) {
  if (!file.Alias() || file.Parent().IsNil()) return file;
  std::error_code error;
  const auto original = std::filesystem::canonical(file.Path(), error);
  return error ? file : Item(original);
}

VolumeItem Volume(const Item& file) {
  return VolumeItem(TopOfVolume(file));
}

std::string UnixPath(const Item& file) {
  return file.ShellPath();
}

bool MoveToTrash(const Item& file) {
  return PutInTrash(file).has_value();
}

bool PutBack(const TrashedFile& trashed) {
  if (MoveExclusively(trashed.InTrash, trashed.Original)) return false;
  (void)trashed.Info.Delete();
  return true;
}

std::optional<TrashedFile> PutInTrash(const Item& file) {
  if (file.IsNil() || (!file.Exists() && !file.Alias())) return std::nullopt;
  const Item data = DataFolder();
  if (data.CreateAsFolder()) return std::nullopt;
  const Item home = data.Child("Trash");
  if (DeviceOf(data) == DeviceOf(file)) return MoveInto(home, file, file.ShellPath());
  // Another volume: its own trash, so that nothing has to be copied. The shared one counts only
  // if it is a real folder with the sticky bit.
  const Item top = TopOfVolume(file);
  const std::string user = std::to_string(getuid());
  const std::string relative = file.Path().lexically_relative(top.Path()).string();
  struct stat status {};
  const Item shared = top.Child(".Trash");
  if (lstat(shared.Path().c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
      (status.st_mode & S_ISVTX) != 0) {
    if (auto moved = MoveInto(shared.Child(user), file, relative)) return moved;
  }
  return MoveInto(top.Child(".Trash-" + user), file, relative);
}

bool Reveal(const Item& file, Desktop& desktop) {
  return desktop.Reveal(file);
}

bool MakeAlias(const Item& source, const Item& target) {
  std::error_code error;
  std::filesystem::create_symlink(source.Path(), target.Path(), error);
  return !error;
}

std::string fixShellPath(std::string_view path) {
  std::string fixed;
  for (const char c : path) {
    if (c != '\\') fixed += c;
  }
  return fixed;
}

std::optional<std::string> ReadFileOfType(const Item& file, const FileType& type,
                                          std::string& error) {
  std::optional<std::string> bytes;
  if (isFileType(file, &type) && !file.Directory()) bytes = ReadFile(file);
  if (!bytes) {
    error =
        WithPlaceholders(kErrorMessageUnableToRead.Text(), {{"<filename>", file.DisplayName()}});
  }
  return bytes;
}

std::string ReadShortText(BinaryStream& stream) {
  return EnsureUTF8(stream.Read(stream.ReadUInt16()));
}

std::string ReadAsHex(BinaryStream& stream, int count) {
  std::string text;
  for (const char c : stream.ReadUpTo(static_cast<std::size_t>(std::max(count, 0)))) {
    text += Hexadecimal(static_cast<std::uint8_t>(c), 2);
  }
  return text;
}

std::string RelativeDateTime(const Date& date, const Date& now) {
  const auto number = [](const Date& d) { return d.Year * 365 + d.DayOfYear(); };
  const int days = number(now) - number(date);
  const QLocale locale;
  const QDate day(date.Year, date.Month, date.Day);
  std::string word;
  if (days == -1) {
    word = kDayOfWeekTomorrow.Text();
  } else if (days == 0) {
    word = kDayOfWeekToday.Text();
  } else if (days == 1) {
    word = kDayOfWeekYesterday.Text();
  } else if (days < 8) {
    word = kDaysOfWeek.at(static_cast<std::size_t>(date.DayOfWeek() - 1)).Text();
  } else {
    word = locale.toString(day, QLocale::ShortFormat).toStdString();
  }
  const QTime time(date.Hour, date.Minute, date.Second);
  return WithPlaceholders(
      kDateAtTime.Text(),
      {{"<date>", word}, {"<time>", locale.toString(time, QLocale::ShortFormat).toStdString()}});
}

std::string ShortDateTime(const Date& date) {
  const QLocale locale;
  return (locale.toString(QDate(date.Year, date.Month, date.Day), QLocale::ShortFormat) +
          QLatin1Char(' ') +
          locale.toString(QTime(date.Hour, date.Minute, date.Second), QLocale::ShortFormat))
      .toStdString();
}

std::string AsFileSize(double bytes, std::string_view suffix) {
  constexpr double kKilo = 1024;
  constexpr double kMega = kKilo * 1024;
  constexpr double kGiga = kMega * 1024;
  constexpr double kTera = kGiga * 1024;
  const double size = std::trunc(std::abs(bytes));
  const int decimals = suffix.empty() ? 0 : static_cast<int>(suffix.size()) - 1;
  std::string text;
  if (size < kKilo) {
    text = ReadableNumber(size, 0) + " b";
  } else if (size < kMega) {
    text = ReadableNumber(size / kKilo, 0) + " KB";
  } else if (size < kGiga) {
    text = ReadableNumber(size / kMega, decimals) + " MB";
  } else if (size < kTera) {
    text = ReadableNumber(size / kGiga, decimals) + " GB";
  } else {
    text = ReadableNumber(size / kTera, decimals) + " TB";
  }
  return bytes < 0 ? "-" + text : text;
}

bool FolderItemAvailable(const brivolant::Clipboard& clipboard) {
  return clipboard.Has(kUriList);
}

Item FolderItem(const brivolant::Clipboard& clipboard) {
  const std::vector<Item> files = FileAddress::Files(clipboard.Data(kUriList));
  return files.empty() ? Item() : files.front();
}

void FolderItem(brivolant::Clipboard& clipboard, const Item& file) {
  clipboard.Set(file.DisplayName(), kUriList, FileAddress::ListOf({file}));
}

bool Validate(const Item& file, FileAction action, const FileType* type, Dialogs& dialogs) {
  const auto refuse = [&](const std::string& reason) {
    StandardFileErrorDialog(file, action, reason, dialogs);
    return false;
  };
  if (file.IsNil() || BrokenAlias(file)) return refuse({});
  if (action == kRead && (!file.Exists() || !file.IsReadable())) return refuse({});
  if (action == kSave && (!file.IsWriteable() || !file.Parent().IsWriteable())) return refuse({});
  if (action == kSave && file.Directory()) {
    return refuse(kFileErrorReasonFolderAlreadyExists.Text());
  }
  if (type != nullptr && !isFileType(file, type)) {
    return refuse(WithPlaceholders(kFileErrorReasonIncorrectType.Text(),
                                   {{"<filetype>", type->Name.Text()}}));
  }
  return true;
}

namespace {

/// The explanation for a file, found by looking at it.
std::string Explain(const Item& file, FileAction action, const std::string& reason) {
  const auto because = [](const std::string& why) {
    // The reasons end with their own full stop.
    const std::string_view text = std::string_view(why).ends_with('.')
                                      ? std::string_view(why).substr(0, why.size() - 1)
                                      : std::string_view(why);
    return WithPlaceholders(kFileErrorExplanationWithFolderitem.Text(), {{"<reason>", text}});
  };
  if (!reason.empty()) return because(reason);
  const Item parent = file.Parent();
  if (parent.IsNil() || !parent.Exists()) return kFileErrorParentisNIL.Text();
  if (BrokenAlias(file)) return because(kFileErrorReasonBrokenAlias.Text());
  if (action == kRead && !file.Exists()) return because(kFileErrorReasonNotExists.Text());
  if (action == kRead && !file.IsReadable()) return because(kFileErrorReasonCannotRead.Text());
  return because(kFileErrorReasonCannotWrite.Text());
}

}  // namespace

void StandardFileErrorDialog(const Item& file, FileAction action, const std::string& reason,
                             Dialogs& dialogs) {
  const std::string name = kApplicationName.Text();
  if (file.IsNil()) {
    const LocalizedText& text =
        action == kSave ? kFileErrorSaveWithOutFolderItem : kFileErrorOpenWithOutFolderitem;
    dialogs.Message(WithPlaceholders(text.Text(), {{"<applicationName>", name}}),
                    kFileErrorExplanationWithoutFolderitem.Text());
    return;
  }
  const LocalizedText& text =
      action == kSave ? kFileErrorSaveWithFolderitem : kFileErrorOpenWithFolderItem;
  dialogs.Message(WithPlaceholders(text.Text(), {{"<applicationName>", name},
                                                 {"<filename>", file.DisplayName()}}),
                  Explain(file, action, reason));
}

}  // namespace brivolant::FolderitemExtensions
