// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/FolderItem.h"
#include "platform/values/Color.h"
#include "platform/values/Date.h"

namespace brivolant {

class Picture;
/// Makes a picture when it is called, on any thread; a nil one if that cannot be done.
using PictureSource = std::function<Picture()>;

/// What the model needs of the application and the desktop, handed in from above: the window
/// shows, the command line prints, tests record.

class Log {
 public:
  virtual ~Log() = default;
  /// One line, without its end.
  virtual void Write(std::string_view line) = 0;
};

/// A question with two or three answers. A button without a text is left out.
struct Question {
  std::string Message;
  std::string Explanation;
  std::string ActionButton;
  std::string CancelButton;
  std::string AlternateButton;
};
enum class Answer { kAction, kCancel, kAlternate };

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  /// Tells the user something; returns when it has been seen.
  virtual void Message(const std::string& message, const std::string& explanation) = 0;
  /// Asks; a dialog that is closed gives kCancel, and so does a program that cannot ask.
  virtual Answer Ask(const Question&) { return Answer::kCancel; }
};

/// Who works here: written into documents and exported images.
class UserDetails {
 public:
  virtual ~UserDetails() = default;
  virtual std::string FullName() const = 0;
  virtual std::string ContactLink() const = 0;
  virtual std::string Copyright() const = 0;
  /// Program and version.
  virtual std::string CreatedWith() const = 0;
};

class TemporaryFiles {
 public:
  virtual ~TemporaryFiles() = default;
  /// A place of that name in a fresh folder, gone when the program ends; nil if none can be made.
  virtual FolderItem Child(std::string_view name) = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual Date Now() = 0;
};

class Random {
 public:
  virtual ~Random() = default;
  /// At least 0, below 1.
  virtual double Rnd() = 0;
};

/// Opens other programs of the desktop.
class Desktop {
 public:
  virtual ~Desktop() = default;
  /// Shows the item selected in the file manager.
  virtual bool Reveal(const FolderItem& item) = 0;
  /// Unmounts and ejects the volume at `root`. Empty on success, "busy", or the error's text.
  virtual std::string Eject(const FolderItem& root) = 0;
  /// Makes an image the desktop's background; false if the desktop takes none.
  virtual bool SetPicture(const FolderItem& image) = 0;
};

/// The clipboard by MIME type.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual bool Has(std::string_view mimeType) const = 0;
  virtual std::string Data(std::string_view mimeType) const = 0;
  /// Replaces the content by a text and data of one further type.
  virtual void Set(std::string_view text, std::string_view mimeType, std::string_view data) = 0;
  virtual std::string Text() const { return Data("text/plain"); }
  virtual void Text(const std::string& text) { Set(text, "text/plain", text); }
  virtual bool HasPicture() const { return false; }
  /// What is there is decoded later, beside the window. Null if there is no picture.
  virtual PictureSource PastedPicture() const { return nullptr; }
  virtual void Picture(const brivolant::Picture& picture);
};

/// A kind of file in a file dialog: a name and extensions without dots, separated by semicolons.
struct FileFilter {
  std::string Name;
  std::string Extensions;
};

/// The desktop's dialogs for files.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  /// The chosen files; empty if the user cancelled.
  virtual std::vector<FolderItem> Open(const std::string& title, const FolderItem& folder,
                                       const std::vector<FileFilter>& filters) = 0;
  /// The chosen place, or nil if the user cancelled. `filter` is the index of the kind that is
  /// chosen first, and then of the kind that the user chose. The dialog asks before it gives a
  /// file that exists.
  virtual FolderItem Save(const std::string& title, const FolderItem& suggestion,
                          const std::vector<FileFilter>& filters, int& filter) = 0;
};

/// The desktop's colour dialog, which stays open beside the window and tells of each change.
class ColorPanel {
 public:
  virtual ~ColorPanel() = default;
  virtual void Show() = 0;
  virtual void Close() = 0;
  virtual bool Visible() const = 0;
  virtual void SetColor(const RGBAColor& color) = 0;
  virtual RGBAColor SelectedRGBAColor() const = 0;
  virtual bool showsAlpha() const = 0;
  virtual void showsAlpha(bool shows) = 0;
  /// Raised for every change of the colour by the user.
  std::function<void(const RGBAColor&)> ColorChanged;
};

/// The services a document and a processor work with. All must outlive them.
struct Services {
  brivolant::Log& Log;
  brivolant::Dialogs& Dialogs;
  brivolant::UserDetails& UserDetails;
  brivolant::TemporaryFiles& TemporaryFiles;
  brivolant::Clock& Clock;
  brivolant::Random& Random;
};

}  // namespace brivolant
