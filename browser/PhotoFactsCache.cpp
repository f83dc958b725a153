// SPDX-License-Identifier: MIT
#include "browser/PhotoFactsCache.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QStandardPaths>
#include <algorithm>
#include <array>

#include "browser/SearchText.h"
#include "files/FolderitemExtensions.h"
#include "formats/DocumentMetadata.h"
#include "metadata/ImageMetaData.h"
#include "metadata/PhotoFacts.h"
#include "metadata/Sidecar.h"

namespace brivolant {
namespace {

/// Raised when what is kept becomes another.
constexpr int kVersion = 3;
/// Milliseconds that another start of the program may hold the database.
constexpr int kPatience = 2000;
/// Said by photos that tell no moment.
constexpr std::int64_t kNoMoment = -1;
constexpr std::size_t kLook = 64;

/// Kept without a time zone, so that photos of one day stay together wherever they are read.
std::int64_t FromKept(std::int64_t kept) {
  return kept == kNoMoment ? 0 : Date::FromTotalSeconds(static_cast<double>(kept)).UnixTime();
}

bool IsBroken(int result) {
  return (result & 0xFF) == SQLITE_CORRUPT || (result & 0xFF) == SQLITE_NOTADB;
}

}  // namespace

/// A prepared statement. Paths are bytes: names need not be UTF-8.
class PhotoFactsCache::Statement {
 public:
  Statement(PhotoFactsCache& cache, const char* sql) : cache_(cache) {
    if (cache.database_ == nullptr) return;
    if (const int result = sqlite3_prepare_v2(cache.database_, sql, -1, &statement_, nullptr);
        result != SQLITE_OK) {
      statement_ = nullptr;
      broken_ = IsBroken(result);
    }
  }
  ~Statement() {
    sqlite3_finalize(statement_);
    if (broken_) cache_.Broken();
  }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  /// The text must outlive the next step.
  Statement& Bind(std::string_view bytes) {
    sqlite3_bind_blob64(statement_, ++bound_, bytes.data(), bytes.size(), SQLITE_STATIC);
    return *this;
  }
  Statement& Bind(std::int64_t number) {
    sqlite3_bind_int64(statement_, ++bound_, number);
    return *this;
  }
  /// True if there is a row.
  bool Step() {
    if (statement_ == nullptr) return false;
    const int result = sqlite3_step(statement_);
    broken_ = broken_ || IsBroken(result);
    return result == SQLITE_ROW;
  }
  std::int64_t Number(int column) const { return sqlite3_column_int64(statement_, column); }
  std::string Text(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    const int size = sqlite3_column_bytes(statement_, column);
    return bytes == nullptr ? std::string() : std::string(bytes, static_cast<std::size_t>(size));
  }

 private:
  PhotoFactsCache& cache_;
  sqlite3_stmt* statement_ = nullptr;
  int bound_ = 0;
  bool broken_ = false;
};

FolderItem PhotoFactsCache::DefaultFile() {
  const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
  return FolderItem(QFile::encodeName(cache).toStdString())
      .Child("brivolant-photos")
      .Child("PhotoFacts.sqlite");
}

bool PhotoFactsCache::OpenFile() {
  // What photos tell is nobody else's.
  const int descriptor =
      open(file_.Path().c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor < 0) return true;
  close(descriptor);
  if (sqlite3_open_v2(file_.Path().c_str(), &database_,
                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_FULLMUTEX, nullptr) != SQLITE_OK) {
    Close();
    return true;
  }
  sqlite3_busy_timeout(database_, kPatience);
  std::int64_t version = 0;
  sqlite3_stmt* asked = nullptr;
  int result = sqlite3_prepare_v2(database_, "PRAGMA user_version", -1, &asked, nullptr);
  if (result == SQLITE_OK) result = sqlite3_step(asked);
  if (result == SQLITE_ROW) version = sqlite3_column_int64(asked, 0);
  sqlite3_finalize(asked);
  if (IsBroken(result)) return false;
  // What is lost with the power is read again.
  for (const char* setting :
       {"PRAGMA journal_mode=TRUNCATE", "PRAGMA synchronous=OFF", "PRAGMA secure_delete=ON"}) {
    (void)Run(setting);
  }
  if (version != kVersion) (void)Run("DROP TABLE IF EXISTS facts");
  const int made =
      Run("CREATE TABLE IF NOT EXISTS facts(folder BLOB, name BLOB, stamp BLOB, taken INTEGER,"
          " title BLOB, words BLOB, shot BLOB, PRIMARY KEY(folder, name)) WITHOUT ROWID");
  if (version != kVersion) (void)Run(("PRAGMA user_version=" + std::to_string(kVersion)).c_str());
  return !IsBroken(made);
}

void PhotoFactsCache::Open() {
  if (std::exchange(opened_, true)) return;
  std::error_code error;
  const auto folder = file_.Path().parent_path();
  if (std::filesystem::create_directories(folder, error)) {
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
  }
  if (!OpenFile()) Broken();
}

void PhotoFactsCache::Broken() {
  Close();
  if (std::exchange(renewed_, true)) return;
  for (const char* ending : {"", "-journal", "-wal", "-shm"}) {
    std::error_code error;
    std::filesystem::remove(file_.ShellPath() + ending, error);
  }
  if (!OpenFile()) Close();
}

void PhotoFactsCache::Close() {
  sqlite3_close_v2(database_);
  database_ = nullptr;
}

PhotoFactsCache::~PhotoFactsCache() {
  Close();
}

int PhotoFactsCache::Run(const char* sql) {
  return sqlite3_exec(database_, sql, nullptr, nullptr, nullptr);
}

PhotoFactsCache::Stamp PhotoFactsCache::StampOf(const FolderItem& photo) {
  return StampOf(photo.ShellPath());
}

PhotoFactsCache::Stamp PhotoFactsCache::StampOf(std::string path) {
  Stamp stamp;
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0) return {};
  if (S_ISLNK(status.st_mode)) {
    // A link tells what its photo does, and has its sidecar.
    std::error_code error;
    path = std::filesystem::canonical(path, error).native();
    if (error || stat(path.c_str(), &status) != 0) return {};
  }
  const auto add = [&] {
    const std::array<std::int64_t, 3> parts{status.st_mtim.tv_sec, status.st_mtim.tv_nsec,
                                            status.st_size};
    stamp.append(reinterpret_cast<const char*>(parts.data()), sizeof(parts));
  };
  const auto addBeside = [&] {
    if (stat(path.c_str(), &status) == 0) add();
  };
  add();
  // What is said beside it counts as well, of raw files under either name.
  const std::size_t length = path.size();
  const std::size_t dot = path.rfind('.');
  path += ".xmp";
  addBeside();
  const std::size_t name = path.rfind('/') + 1;
  if (dot == std::string::npos || dot < name || dot + 1 >= length) return stamp;
  if (!Sidecar::TakesShortName(std::string_view(path).substr(name, length - name))) return stamp;
  path.replace(dot, std::string::npos, ".xmp");
  stamp += '|';
  addBeside();
  return stamp;
}

std::optional<PhotoFactsCache::Facts> PhotoFactsCache::Read(const FolderItem& photo) {
  ++reads_;
  ImageMetaData data;
  const bool document = photo.Directory();
  if (document) {
    (void)ReadDocumentMetadata(photo, data);
  } else {
    data.ReadFile(FolderitemExtensions::OriginalFile(photo));
  }
  // One that could not be opened may be, later.
  constexpr int kNotOpened = 0;
  if (data.ErrorID == kNotOpened) return {};
  if (!document) Sidecar::ReadInto(data);
  const PhotoFacts told = PhotoFacts::Of(data);
  Facts facts;
  facts.Taken = kNoMoment;
  if (told.Taken) facts.Taken = static_cast<std::int64_t>(told.Taken->TotalSeconds());
  facts.Title = told.Title.empty() ? told.Caption : told.Title;
  for (const std::string& word : told.Keywords) facts.Words += word + "\n";
  for (const std::string* line : {&told.Camera, &told.Lens, &told.Exposure}) {
    if (!line->empty()) facts.Shot += (facts.Shot.empty() ? "" : "\n") + *line;
  }
  return facts;
}

void PhotoFactsCache::Keep(const FolderItem& photo, const Stamp& stamp, const Facts& facts) {
  const std::string folder = photo.Parent().ShellPath();
  const std::string name = photo.Name();
  Statement insert(*this, "INSERT OR REPLACE INTO facts VALUES(?, ?, ?, ?, ?, ?, ?)");
  (void)insert.Bind(folder)
      .Bind(name)
      .Bind(stamp)
      .Bind(facts.Taken)
      .Bind(facts.Title)
      .Bind(facts.Words)
      .Bind(facts.Shot)
      .Step();
}

PhotoFactsCache::Facts PhotoFactsCache::Of(const FolderItem& photo) {
  const Stamp stamp = StampOf(photo);
  if (stamp.empty()) return {};
  const std::string folder = photo.Parent().ShellPath();
  const std::string name = photo.Name();
  {
    const std::lock_guard lock(mutex_);
    Open();
    Statement select(*this,
                     "SELECT stamp, taken, title, words, shot FROM facts"
                     " WHERE folder=? AND name=?");
    if (select.Bind(folder).Bind(name).Step() && select.Text(0) == stamp) {
      return {FromKept(select.Number(1)), select.Text(2), select.Text(3), select.Text(4)};
    }
  }
  auto facts = Read(photo);
  if (!facts) return {};
  {
    const std::lock_guard lock(mutex_);
    Keep(photo, stamp, *facts);
  }
  facts->Taken = FromKept(facts->Taken);
  return std::move(*facts);
}

std::vector<std::pair<FolderItem, PhotoFactsCache::Stamp>> PhotoFactsCache::Find(
    const std::string& text, const std::function<bool()>& goOn) {
  constexpr std::int64_t kAtOnce = 1000;
  const SearchText wanted(text);
  std::vector<std::pair<FolderItem, Stamp>> found;
  if (wanted.Empty()) return found;
  std::string folder;
  std::string name;
  // In pieces: others want to ask meanwhile.
  while (goOn()) {
    const std::lock_guard lock(mutex_);
    Open();
    Statement select(*this,
                     "SELECT folder, name, title, words, stamp FROM facts"
                     " WHERE (folder, name) > (?, ?) ORDER BY folder, name LIMIT ?");
    select.Bind(folder).Bind(name).Bind(kAtOnce);
    std::int64_t rows = 0;
    std::string lastFolder = folder;
    std::string lastName = name;
    while (select.Step()) {
      ++rows;
      lastFolder = select.Text(0);
      lastName = select.Text(1);
      if (!wanted.In(select.Text(2)) && !wanted.In(select.Text(3))) continue;
      found.emplace_back(FolderItem::Entry(FolderItem(lastFolder), lastName), select.Text(4));
    }
    folder = std::move(lastFolder);
    name = std::move(lastName);
    if (rows < kAtOnce) break;
  }
  return found;
}

PhotoFactsCache::Folder::Folder(PhotoFactsCache& cache, const FolderItem& folder)
    : cache_(cache), path_(folder.ShellPath()) {
  const std::lock_guard lock(cache.mutex_);
  cache.Open();
  Statement select(cache, "SELECT name, stamp, taken, title, words FROM facts WHERE folder=?");
  select.Bind(path_);
  while (select.Step()) {
    known_[select.Text(0)] = {select.Text(1), select.Number(2),
                              select.Text(3) + "\n" + select.Text(4)};
  }
}

bool PhotoFactsCache::Folder::Fill(std::span<const std::shared_ptr<browserItem>> items,
                                   const std::function<bool()>& goOn) {
  if (known_.empty()) return true;
  std::size_t asked = 0;
  const std::string folder = path_.ends_with('/') ? path_ : path_ + "/";
  for (const auto& item : items) {
    const auto* photo = std::get_if<FolderItem>(&item->item);
    if (photo == nullptr) continue;
    const std::string& path = photo->Path().native();
    const std::string name = path.substr(std::min(folder.size(), path.size()));
    const auto found = known_.find(name);
    if (found == known_.end()) continue;
    if (++asked % kLook == 0 && !goOn()) return false;
    seen_.insert(name);
    if (StampOf(path) != found->second.At) continue;
    item->Taken = FromKept(found->second.Taken);
    item->Said = found->second.Said;
  }
  return true;
}

void PhotoFactsCache::Folder::ForgetOthers() {
  std::vector<std::string> gone;
  for (const auto& [name, known] : known_) {
    // Hidden files may be left out of a listing.
    if (!seen_.contains(name) && !name.starts_with('.')) gone.push_back(name);
  }
  if (gone.empty()) return;
  const std::lock_guard lock(cache_.mutex_);
  if (cache_.Run("BEGIN IMMEDIATE") != SQLITE_OK) return;
  for (const std::string& name : gone) {
    Statement remove(cache_, "DELETE FROM facts WHERE folder=? AND name=?");
    (void)remove.Bind(path_).Bind(name).Step();
  }
  if (cache_.Run("COMMIT") != SQLITE_OK) (void)cache_.Run("ROLLBACK");
}

}  // namespace brivolant
