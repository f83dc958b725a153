// SPDX-License-Identifier: MIT
#include "platform/services/Preferences.h"

#include <QDateTime>
#include <QString>
#include <cmath>
#include <mutex>
#include <pugixml.hpp>
#include <thread>
#include <utility>
#include <vector>

#include "platform/files/AtomicFile.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

constexpr int kDeepest = 64;

/// Takes what a document writes.
struct CollectedText final : pugi::xml_writer {
  std::string Bytes;
  void write(const void* data, std::size_t size) override {
    Bytes.append(static_cast<const char*>(data), size);
  }
};

void ResetToEmpty(pugi::xml_document& document) {
  document.reset();
  auto declaration = document.append_child(pugi::node_declaration);
  declaration.append_attribute("version") = "1.0";
  declaration.append_attribute("encoding") = "UTF-8";
  auto root = document.append_child("plist");
  root.append_attribute("version") = "1.0";
  root.append_child("dict");
}

pugi::xml_node Root(const pugi::xml_document& document) {
  return document.child("plist").child("dict");
}

/// The key element of that name; its value is the next element.
pugi::xml_node FindKey(const pugi::xml_node& dictionary, std::string_view key) {
  for (pugi::xml_node element : dictionary.children("key")) {
    if (key == element.child_value()) return element;
  }
  return {};
}

pugi::xml_node NextElement(pugi::xml_node node) {
  do {
    node = node.next_sibling();
  } while (node && node.type() != pugi::node_element);
  return node;
}

void StoreValue(pugi::xml_document& document, const std::string& key, const Variant& value) {
  pugi::xml_node dictionary = Root(document);
  if (pugi::xml_node old = FindKey(dictionary, key)) {
    if (pugi::xml_node oldValue = NextElement(old)) dictionary.remove_child(oldValue);
    dictionary.remove_child(old);
  }
  dictionary.append_child("key").text().set(key.c_str());
  CarbonInterchange::Append(dictionary, value);
}

}  // namespace

namespace CarbonInterchange {

bool Append(pugi::xml_node parent, const Variant& value) {
  if (const auto* flag = value.As<bool>()) {
    parent.append_child(*flag ? "true" : "false");
  } else if (value.Is<std::string>() || value.Is<Color>()) {
    parent.append_child("string").text().set(EnsureUTF8(value.ToText()).c_str());
  } else if (const auto* date = value.As<Date>()) {
    const auto moment = QDateTime::fromSecsSinceEpoch(date->UnixTime(), Qt::UTC);
    parent.append_child("date").text().set(moment.toString(Qt::ISODate).toStdString().c_str());
  } else if (const auto* dictionary = value.As<Dictionary>()) {
    auto element = parent.append_child("dict");
    for (int i = 0; i < dictionary->Count(); ++i) {
      auto key = element.append_child("key");
      key.text().set(EnsureUTF8(dictionary->Key(i).ToText()).c_str());
      if (!Append(element, dictionary->ValueAt(i))) element.remove_child(key);
    }
  } else if (value.IsNumber()) {
    const double number = value.ToDouble();
    const bool whole = std::floor(number) == number && std::abs(number) < 9e15;
    parent.append_child(whole ? "integer" : "real")
        .text()
        .set(whole ? Variant(static_cast<std::int64_t>(number)).ToText().c_str()
                   : Variant(number).ToText().c_str());
  } else {
    return false;
  }
  return true;
}

Variant FromElement(const pugi::xml_node& element, int depth) {
  const std::string_view kind = element.name();
  if (depth > kDeepest) return {};
  if (kind == "true" || kind == "false") return kind == "true";
  if (kind == "string") return element.child_value();
  if (kind == "integer" || kind == "real") return Variant(element.child_value()).ToDouble();
  if (kind == "date") {
    const auto moment =
        QDateTime::fromString(QString::fromUtf8(element.child_value()), Qt::ISODate);
    return moment.isValid() ? Variant(Date::FromUnixTime(moment.toSecsSinceEpoch())) : Variant();
  }
  if (kind == "dict") {
    Dictionary dictionary;
    for (pugi::xml_node key : element.children("key")) {
      dictionary.Value(key.child_value(), FromElement(NextElement(key), depth + 1));
    }
    return dictionary;
  }
  if (kind == "array") {
    Collection collection;
    for (pugi::xml_node item : element.children()) collection.Add(FromElement(item, depth + 1));
    return collection;
  }
  return {};
}

}  // namespace CarbonInterchange

/// The file, and what is written into it on another thread.
struct Preferences::Store {
  FolderItem folder;
  std::string id;

  std::mutex mutex;
  std::thread thread;
  bool running = false;
  Dictionary waiting;
  /// All that the program knows, for a file that turns out to be damaged.
  pugi::xml_document known;
  /// What could not be written, and what is to be said of it.
  Dictionary failed;
  std::vector<std::string> lines;

  ~Store() {
    if (thread.joinable()) thread.join();
  }
  FolderItem File() const { return folder.Child(id + ".plist"); }
  bool Read(pugi::xml_document& document) const;
  std::string SetAside() const;
  bool Write(const Dictionary& changes, pugi::xml_document& fresh,
             std::vector<std::string>& said) const;
  void Run();
};

bool Preferences::Store::Read(pugi::xml_document& document) const {
  if (!File().Exists()) {
    ResetToEmpty(document);
    return true;
  }
  const auto bytes = ReadFile(File());
  const bool read =
      bytes && document.load_buffer(bytes->data(), bytes->size(),
                                    pugi::parse_default | pugi::parse_doctype |
                                        pugi::parse_declaration | pugi::parse_ws_pcdata_single);
  if (read && Root(document)) return true;
  ResetToEmpty(document);
  return false;
}

std::string Preferences::Store::SetAside() const {
  FolderItem aside = folder.Child(id + ".damaged.plist");
  for (int n = 1; aside.Exists(); ++n) {
    aside = folder.Child(id + ".damaged-" + std::to_string(n) + ".plist");
  }
  const std::error_code error = File().MoveFileTo(aside);
  return "Preferences: the file \"" + File().ShellPath() + "\" is damaged and was " +
         (error ? "left where it is: " + error.message()
                : "set aside as \"" + aside.Name() + "\".");
}

/// `fresh` holds what this program knows, for a file that cannot be read, and then what is in the
/// file.
bool Preferences::Store::Write(const Dictionary& changes, pugi::xml_document& fresh,
                               std::vector<std::string>& said) const {
  // Another running program may have written since: only what changed here is put in.
  pugi::xml_document there;
  if (Read(there)) {
    fresh.reset(there);
  } else {
    said.push_back(SetAside());
  }
  for (int i = 0; i < changes.Count(); ++i) {
    StoreValue(fresh, changes.Key(i).ToText(), changes.ValueAt(i));
  }
  CollectedText text;
  fresh.save(text, "\t");
  std::error_code error = folder.CreateAsFolder();
  if (!error) error = WriteFileAtomically(File(), text.Bytes);
  return !error;
}

void Preferences::Store::Run() {
  std::unique_lock lock(mutex);
  while (waiting.Count() > 0) {
    const Dictionary changes = std::exchange(waiting, {});
    pugi::xml_document fresh;
    fresh.reset(known);
    lock.unlock();
    std::vector<std::string> said;
    const bool written = Write(changes, fresh, said);
    lock.lock();
    lines.insert(lines.end(), said.begin(), said.end());
    // What is newer takes the place of what failed before.
    for (int i = 0; i < changes.Count(); ++i) {
      const std::string key = changes.Key(i).ToText();
      if (!written) {
        failed.Value(key, changes.ValueAt(i));
      } else if (failed.HasKey(key)) {
        failed.Remove(key);
      }
    }
  }
  running = false;
}

Preferences::Preferences(std::string id, FolderItem folder, Log& log)
    : log_(log),
      values_(std::make_unique<pugi::xml_document>()),
      store_(std::make_unique<Store>()) {
  store_->id = std::move(id);
  store_->folder = std::move(folder);
  if (!store_->Read(*values_)) log_.Write(store_->SetAside());
}

Preferences::~Preferences() = default;

const std::string& Preferences::ID() const {
  return store_->id;
}

Variant Preferences::Value(std::string_view key, const Variant& fallback) const {
  const pugi::xml_node element = FindKey(Root(*values_), key);
  if (!element) return fallback;
  const Variant value = CarbonInterchange::FromElement(NextElement(element));
  return value.IsNil() ? fallback : value;
}

void Preferences::Assign(std::string_view key, const Variant& value) {
  lastWrittenValue_ = "Writing: " + std::string(key) + " : " +
                      (value.Is<Dictionary>() ? "Dictionary" : value.ToText());
  pugi::xml_document scratch;
  if (!CarbonInterchange::Append(scratch, value)) return;
  StoreValue(*values_, std::string(key), value);
  changed_.Value(std::string(key), value);
}

void Preferences::SynchronizeSoon() {
  const std::lock_guard lock(store_->mutex);
  for (int i = 0; i < changed_.Count(); ++i) {
    store_->waiting.Value(changed_.Key(i).ToText(), changed_.ValueAt(i));
  }
  changed_ = {};
  store_->known.reset(*values_);
  if (store_->running || store_->waiting.Count() == 0) return;
  if (store_->thread.joinable()) store_->thread.join();
  store_->running = true;
  store_->thread = std::thread([this] { store_->Run(); });
}

void Preferences::Synchronize() {
  if (store_->thread.joinable()) store_->thread.join();
  for (const std::string& line : std::exchange(store_->lines, {})) log_.Write(line);
  // What failed then is tried again, unless it has changed once more.
  const Dictionary failed = std::exchange(store_->failed, {});
  for (int i = 0; i < failed.Count(); ++i) {
    const std::string key = failed.Key(i).ToText();
    if (!changed_.HasKey(key)) changed_.Value(key, failed.ValueAt(i));
  }
  lastUpdate_ = store_->File().ModificationDate();
  if (changed_.Count() == 0) return;
  pugi::xml_document fresh;
  fresh.reset(*values_);
  std::vector<std::string> said;
  const bool written = store_->Write(changed_, fresh, said);
  for (const std::string& line : said) log_.Write(line);
  if (!written) {
    log_.Write("Preferences: the settings could not be written. The last change was: " +
               lastWrittenValue_);
    return;
  }
  values_->reset(fresh);
  changed_ = {};
}

}  // namespace brivolant
