// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/services/Services.h"
#include "platform/values/Variant.h"

namespace pugi {
class xml_document;
class xml_node;
}  // namespace pugi

namespace brivolant {

/// One flat store of settings: a property list file named by its identifier in the user's
/// configuration folder. Values of keys and types that this program does not know are kept as
/// they stand in the file.
class Preferences {
 public:
  /// Reads "`id`.plist" in `folder`. A damaged file is set aside with a log line, and the store
  /// starts empty.
  Preferences(std::string id, FolderItem folder, Log& log);
  ~Preferences();
  Preferences(const Preferences&) = delete;
  Preferences& operator=(const Preferences&) = delete;

  const std::string& ID() const;

  /// The stored value, or `fallback` if the key is missing or its value has no meaning here.
  /// Numbers come back as doubles.
  Variant Value(std::string_view key, const Variant& fallback = {}) const;
  /// Stores a value; a value of a type that a property list cannot hold changes nothing. The file
  /// is written by Synchronize.
  void Assign(std::string_view key, const Variant& value);
  /// Writes the changed keys into the file as it now is, atomically. A failure is logged.
  void Synchronize();
  /// The same on another thread; a failure is logged, and tried again, by the next Synchronize.
  void SynchronizeSoon();

  /// The trace of the last write, kept for the failure message.
  const std::string& lastWrittenValue() const { return lastWrittenValue_; }
  /// Modification date of the file at the last Synchronize.
  std::optional<Date> LastPrefsUpdate() const { return lastUpdate_; }

 private:
  struct Store;

  Log& log_;
  std::unique_ptr<pugi::xml_document> values_;
  Dictionary changed_;
  std::string lastWrittenValue_;
  std::optional<Date> lastUpdate_;
  std::unique_ptr<Store> store_;
};

/// Values to and from property list elements.
namespace CarbonInterchange {

/// Appends the element of `value` to `parent`. False, and nothing appended, for a type that has
/// none.
bool Append(pugi::xml_node parent, const Variant& value);
/// The value of an element; nil for an element of an unknown kind or nested too deeply.
Variant FromElement(const pugi::xml_node& element, int depth = 0);

}  // namespace CarbonInterchange
}  // namespace brivolant
