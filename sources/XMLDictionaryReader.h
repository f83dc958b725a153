// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <string_view>

#include "platform/files/FolderItem.h"
#include "platform/values/Variant.h"

namespace brivolant {

/// Scans one dialect of XML, the property list of a photo library, and hands out each container as
/// it is finished. It is forgiving: what cannot be understood is passed over, and a text that ends
/// too early gives what was complete. Runs on the thread of the caller; the events come on it.
class XMLDictionaryReader {
 public:
  enum ErrorCode {
    kNoError = -1,
    kNilFile = 0,
    kMissing = 1,
    kUnreadable = 2,
    kCannotOpen = 3,
    kEmpty = 4,
  };
  enum TextEncoding { kASCII = 0, kUTF8 = 1, kUTF16 = 2 };

  virtual ~XMLDictionaryReader() = default;

  /// Reads a file to its end; false if there was an error.
  bool ReadXML(const FolderItem& file);
  /// The same from bytes in memory.
  bool ReadBytes(std::string bytes);
  /// Ends a read on another thread soon, without Completed.
  void Stop() { stop_ = true; }
  /// The file at a "file:" URL, nil for an empty one.
  static FolderItem ProcessURLPath(const std::string& path);

  int Error = kNoError;
  int Version = 0;
  int Encoding = kASCII;
  std::string DocumentType;
  std::string DTD;
  /// The root value; only kept if KeepsRoot.
  Dictionary MyDictionary;

 protected:
  // Events.
  virtual void Started() {}
  virtual void Progress(std::size_t /*total*/, std::size_t /*position*/) {}
  /// A container is finished. `path` is the place of it: the document's type and each key, every
  /// one followed by a backslash; an entry of an array adds a backslash alone. True drops the
  /// value: its parent then holds an empty one, which saves memory.
  virtual bool NodeAdded(const std::string& /*path*/, const Variant& /*value*/) { return false; }
  virtual void ErrorOccured() {}
  virtual void Completed() {}

 private:
  std::string_view NextTag();
  std::string_view TakeTag();
  Variant ReadValue(const std::string& path, int depth);
  Variant ReadDictionary(const std::string& path, int depth);
  Variant ReadArray(const std::string& path, int depth);
  Variant ReadText(std::string_view name);
  Date ReadDate();
  void ReadDeclaration(std::string_view tag);
  bool Fail(int error);
  bool AtEnd() const { return CurrentTextPosition >= FileData.size(); }

  std::string FileData;
  std::size_t CurrentTextPosition = 0;
  std::size_t NextTextPosition = 0;
  std::atomic<bool> stop_ = false;
};

}  // namespace brivolant
