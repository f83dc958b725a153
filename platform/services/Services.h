// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/files/FolderItem.h"
#include "platform/values/Date.h"

namespace brivolant {

/// What the model needs of the application and the desktop, handed in from above: the window
/// shows, the command line prints, tests record.

class Log {
 public:
  virtual ~Log() = default;
  /// One line, without its end.
  virtual void Write(std::string_view line) = 0;
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  /// Tells the user something; returns when it has been seen.
  virtual void Message(const std::string& message, const std::string& explanation) = 0;
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
};

/// The clipboard by MIME type.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual bool Has(std::string_view mimeType) const = 0;
  virtual std::string Data(std::string_view mimeType) const = 0;
  /// Replaces the content by a text and data of one further type.
  virtual void Set(std::string_view text, std::string_view mimeType, std::string_view data) = 0;
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
