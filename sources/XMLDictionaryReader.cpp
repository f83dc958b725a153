// SPDX-License-Identifier: MIT
#include "sources/XMLDictionaryReader.h"

#include <QFile>
#include <QUrl>
#include <algorithm>
#include <charconv>

#include "platform/values/Text.h"

namespace brivolant {
namespace {

/// A library nests four deep; a hostile file must not end the stack.
constexpr int kDeepest = 200;
constexpr std::uint64_t kLongestFile = std::uint64_t{1} << 30;

bool StartsWith(std::string_view text, std::string_view start) {
  return text.size() >= start.size() && EqualIgnoringCase(text.substr(0, start.size()), start);
}

int Number(std::string_view text) {
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

/// What stands between the quotes after `name=`.
std::string_view Quoted(std::string_view tag, std::string_view name) {
  const std::size_t at = FindIgnoringCase(tag, name);
  if (at == std::string_view::npos || at + name.size() + 2 > tag.size()) return {};
  const std::string_view rest = tag.substr(at + name.size() + 2);
  return rest.substr(0, rest.find('"'));
}

}  // namespace

FolderItem XMLDictionaryReader::ProcessURLPath(const std::string& path) {
  if (path.empty()) return {};
  return FolderItem(
      QFile::encodeName(QUrl(QString::fromStdString(path)).toLocalFile()).toStdString());
}

bool XMLDictionaryReader::Fail(int error) {
  Error = error;
  ErrorOccured();
  return false;
}

bool XMLDictionaryReader::ReadXML(const FolderItem& file) {
  Started();
  if (file.IsNil()) return Fail(kNilFile);
  if (!file.Exists()) return Fail(kMissing);
  if (!file.IsReadable()) return Fail(kUnreadable);
  std::optional<std::string> bytes = ReadFile(file, kLongestFile);
  if (!bytes) return Fail(kCannotOpen);
  return ReadBytes(std::move(*bytes));
}

bool XMLDictionaryReader::ReadBytes(std::string bytes) {
  FileData = std::move(bytes);
  if (FileData.empty()) return Fail(kEmpty);
  Error = kNoError;
  Encoding = kASCII;
  CurrentTextPosition = 0;
  DocumentType.clear();
  while (!AtEnd() && !stop_) {
    const std::string_view tag = TakeTag();
    if (tag.empty()) continue;
    if (StartsWith(tag, "?xml")) {
      ReadDeclaration(tag);
    } else if (StartsWith(tag, "!DOCTYPE")) {
      constexpr std::string_view kPublic = "PUBLIC";
      const std::size_t at = std::min(FindIgnoringCase(tag, kPublic), tag.size());
      DocumentType = std::string(Trim(tag.substr(0, at).substr(8)));
      DTD = at + 7 < tag.size() ? std::string(tag.substr(at + 7)) : std::string();
    } else {
      if (StartsWith(tag, "plist") && DocumentType.empty()) DocumentType = "plist";
      if (!DocumentType.empty() && StartsWith(tag, DocumentType)) {
        const Variant root = ReadValue(DocumentType + "\\", 0);
        if (const auto* dictionary = root.As<Dictionary>()) MyDictionary = *dictionary;
      } else if (!DocumentType.empty() && EqualIgnoringCase(tag, "/" + DocumentType)) {
        break;
      }
    }
  }
  FileData.clear();
  FileData.shrink_to_fit();
  if (!stop_) Completed();
  return !stop_;
}

void XMLDictionaryReader::ReadDeclaration(std::string_view tag) {
  Version = Number(Quoted(tag, "version"));
  const std::string_view encoding = Quoted(tag, "encoding");
  if (EqualIgnoringCase(encoding, "UTF-8")) Encoding = kUTF8;
  if (EqualIgnoringCase(encoding, "UTF-16")) Encoding = kUTF16;
}

std::string_view XMLDictionaryReader::NextTag() {
  const std::size_t open = FileData.find('<', CurrentTextPosition);
  if (open == std::string::npos) {
    CurrentTextPosition = FileData.size();
    return {};
  }
  CurrentTextPosition = open + 1;
  NextTextPosition = std::min(FileData.find('>', CurrentTextPosition), FileData.size());
  return std::string_view(FileData).substr(CurrentTextPosition,
                                           NextTextPosition - CurrentTextPosition);
}

std::string_view XMLDictionaryReader::TakeTag() {
  const std::string_view tag = NextTag();
  if (!AtEnd()) CurrentTextPosition = std::min(NextTextPosition + 1, FileData.size());
  return tag;
}

Variant XMLDictionaryReader::ReadValue(const std::string& path, int depth) {
  const std::string_view tag = TakeTag();
  if (tag.empty() || depth > kDeepest) return {};
  if (EqualIgnoringCase(tag, "dict")) return ReadDictionary(path, depth);
  if (EqualIgnoringCase(tag, "array")) return ReadArray(path, depth);
  if (EqualIgnoringCase(tag, "true/")) return true;
  if (EqualIgnoringCase(tag, "false/")) return false;
  if (EqualIgnoringCase(tag, "date")) return ReadDate();
  if (tag.find('/') != std::string_view::npos) return std::string(tag);
  return ReadText(tag);
}

Variant XMLDictionaryReader::ReadDictionary(const std::string& path, int depth) {
  Dictionary dictionary;
  while (!AtEnd() && !stop_) {
    const std::string_view tag = TakeTag();
    if (EqualIgnoringCase(tag, "/dict")) break;
    if (!EqualIgnoringCase(tag, "key")) continue;
    constexpr std::size_t kCloseKey = 6;
    const std::size_t end = std::min(FileData.find('<', CurrentTextPosition), FileData.size());
    const std::string key = FileData.substr(CurrentTextPosition, end - CurrentTextPosition);
    CurrentTextPosition = std::min(end + kCloseKey, FileData.size());
    dictionary.Value(key, ReadValue(path + key + "\\", depth + 1));
  }
  Progress(FileData.size(), CurrentTextPosition);
  if (NodeAdded(path, dictionary)) return Dictionary();
  return dictionary;
}

Variant XMLDictionaryReader::ReadArray(const std::string& path, int depth) {
  Collection collection;
  const std::string entry = path + "\\";
  while (!AtEnd() && !stop_) {
    const std::size_t before = CurrentTextPosition;
    const std::string_view tag = NextTag();
    // The closing tag stays; the dictionary around passes over it.
    if (AtEnd() || EqualIgnoringCase(tag, "/array")) {
      CurrentTextPosition = std::min(before, FileData.size());
      if (tag.empty()) CurrentTextPosition = FileData.size();
      break;
    }
    CurrentTextPosition = before;
    collection.Add(ReadValue(entry, depth + 1));
  }
  Progress(FileData.size(), CurrentTextPosition);
  if (NodeAdded(path, collection)) return Collection();
  return collection;
}

Date XMLDictionaryReader::ReadDate() {
  constexpr std::size_t kText = 20;
  constexpr std::size_t kWithTag = 27;
  const std::string text = FileData.substr(std::min(CurrentTextPosition, FileData.size()), kText);
  CurrentTextPosition = std::min(CurrentTextPosition + kWithTag, FileData.size());
  const auto field = [&](std::size_t at, std::size_t length) {
    return at < text.size() ? Number(std::string_view(text).substr(at, length)) : 0;
  };
  return Date{field(0, 4), field(5, 2), field(8, 2), field(11, 2), field(14, 2), field(17, 2)};
}

Variant XMLDictionaryReader::ReadText(std::string_view name) {
  std::string closing = "</";
  closing.append(name).append(">");
  const std::string kind(name);
  // Nearly always spelled alike; only otherwise is the slower search needed.
  std::size_t end = FileData.find(closing, CurrentTextPosition);
  if (end == std::string::npos) end = FindIgnoringCase(FileData, closing, CurrentTextPosition);
  std::string text;
  if (end == std::string::npos) {
    CurrentTextPosition = FileData.size();
    return text;
  }
  text = EnsureUTF8(FileData.substr(CurrentTextPosition, end - CurrentTextPosition));
  CurrentTextPosition = end + closing.size();
  if (EqualIgnoringCase(kind, "data")) return Base64Decode(text);
  if (EqualIgnoringCase(kind, "string") && text.find("&#") != std::string::npos) {
    constexpr std::string_view kAmpersand = "&#38;";
    for (std::size_t at = text.find(kAmpersand); at != std::string::npos;
         at = text.find(kAmpersand, at + 1)) {
      text.replace(at, kAmpersand.size(), "&");
    }
  }
  return text;
}

}  // namespace brivolant
