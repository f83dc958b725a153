// SPDX-License-Identifier: MIT
#include "browser/PhotoFactsCache.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <QFile>
#include <QStandardPaths>
#include <unordered_map>

#include "browser/SearchText.h"
#include "files/FolderitemExtensions.h"
#include "metadata/PhotoFacts.h"

namespace brivolant {
namespace {

/// Raised when what is kept becomes another.
constexpr int kVersion = 1;
/// Milliseconds that another start of the program may hold the database.
constexpr int kPatience = 2000;
/// How many photos are kept in one go: what was read is not lost when the program ends.
constexpr int kAtOnce = 200;

}  // namespace

/// A prepared statement. Paths are bytes: names need not be UTF-8.
class PhotoFactsCache::Statement {
 public:
  Statement(sqlite3* database, const char* sql) {
    if (database != nullptr &&
        sqlite3_prepare_v2(database, sql, -1, &statement_, nullptr) != SQLITE_OK) {
      statement_ = nullptr;
    }
  }
  ~Statement() { sqlite3_finalize(statement_); }
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
  bool Step() { return statement_ != nullptr && sqlite3_step(statement_) == SQLITE_ROW; }
  std::int64_t Number(int column) const { return sqlite3_column_int64(statement_, column); }
  std::string Text(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    const int size = sqlite3_column_bytes(statement_, column);
    return bytes == nullptr ? std::string() : std::string(bytes, static_cast<std::size_t>(size));
  }

 private:
  sqlite3_stmt* statement_ = nullptr;
  int bound_ = 0;
};

FolderItem PhotoFactsCache::DefaultFile() {
  const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
  return FolderItem(QFile::encodeName(cache).toStdString())
      .Child("brivolant-photos")
      .Child("PhotoFacts.sqlite");
}

void PhotoFactsCache::Open() {
  if (std::exchange(opened_, true)) return;
  const FolderItem& file = file_;
  std::error_code error;
  std::filesystem::create_directories(file.Path().parent_path(), error);
  const auto open = [&] {
    if (sqlite3_open_v2(file.Path().c_str(), &database_,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX,
                        nullptr) != SQLITE_OK) {
      return false;
    }
    sqlite3_busy_timeout(database_, kPatience);
    // What is lost with the power is read again.
    return Run("PRAGMA journal_mode=WAL") && Run("PRAGMA synchronous=OFF");
  };
  const auto close = [&] {
    sqlite3_close(database_);
    database_ = nullptr;
  };
  bool good = open();
  if (!good) {
    // It is no database any more: nothing in it was the user's.
    close();
    std::filesystem::remove(file.Path(), error);
    good = open();
  }
  if (!good) return close();
  Statement version(database_, "PRAGMA user_version");
  const std::int64_t held = version.Step() ? version.Number(0) : 0;
  if (held != kVersion) (void)Run("DROP TABLE IF EXISTS facts");
  (void)Run(
      "CREATE TABLE IF NOT EXISTS facts(folder BLOB, name BLOB, modified INTEGER, size INTEGER,"
      " taken INTEGER, title BLOB, words BLOB, shot BLOB, PRIMARY KEY(folder, name))"
      " WITHOUT ROWID");
  (void)Run(("PRAGMA user_version=" + std::to_string(kVersion)).c_str());
}

PhotoFactsCache::~PhotoFactsCache() {
  sqlite3_close(database_);
}

bool PhotoFactsCache::Run(const char* sql) {
  return sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

PhotoFactsCache::Stamp PhotoFactsCache::StampOf(const FolderItem& photo) {
  struct stat status {};
  if (stat(photo.Path().c_str(), &status) != 0) return {};
  constexpr std::int64_t kSecond = 1'000'000'000;
  const auto moment = [&] { return status.st_mtim.tv_sec * kSecond + status.st_mtim.tv_nsec; };
  Stamp stamp{moment(), status.st_size};
  // What is said beside it counts as well.
  if (stat((photo.ShellPath() + ".xmp").c_str(), &status) == 0) {
    stamp.Modified += moment();
    stamp.Size += status.st_size;
  }
  return stamp;
}

PhotoFactsCache::Facts PhotoFactsCache::Read(const FolderItem& photo) {
  ++reads_;
  const PhotoFacts told = PhotoFacts::Of(photo);
  Facts facts;
  if (told.Taken) facts.Taken = told.Taken->UnixTime();
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
  Statement insert(database_, "INSERT OR REPLACE INTO facts VALUES(?, ?, ?, ?, ?, ?, ?, ?)");
  (void)insert.Bind(folder)
      .Bind(name)
      .Bind(stamp.Modified)
      .Bind(stamp.Size)
      .Bind(facts.Taken)
      .Bind(facts.Title)
      .Bind(facts.Words)
      .Bind(facts.Shot)
      .Step();
}

PhotoFactsCache::Facts PhotoFactsCache::Of(const FolderItem& photo) {
  const Stamp stamp = StampOf(photo);
  const std::string folder = photo.Parent().ShellPath();
  const std::string name = photo.Name();
  {
    const std::lock_guard lock(mutex_);
    Open();
    Statement select(database_,
                     "SELECT modified, size, taken, title, words, shot FROM facts"
                     " WHERE folder=? AND name=?");
    if (select.Bind(folder).Bind(name).Step() &&
        Stamp{select.Number(0), select.Number(1)} == stamp) {
      return {select.Number(2), select.Text(3), select.Text(4), select.Text(5)};
    }
  }
  Facts facts = Read(photo);
  const std::lock_guard lock(mutex_);
  Keep(photo, stamp, facts);
  return facts;
}

void PhotoFactsCache::FillTaken(const FolderItem& folder,
                                std::span<const std::shared_ptr<browserItem>> items,
                                const std::function<bool()>& goOn) {
  struct Known {
    Stamp At;
    std::int64_t Taken = 0;
  };
  std::unordered_map<std::string, Known> known;
  const std::string path = folder.ShellPath();
  {
    const std::lock_guard lock(mutex_);
    Open();
    Statement select(database_, "SELECT name, modified, size, taken FROM facts WHERE folder=?");
    select.Bind(path);
    while (select.Step()) {
      known[select.Text(0)] = {{select.Number(1), select.Number(2)}, select.Number(3)};
    }
  }
  struct Fresh {
    FolderItem Photo;
    Stamp At;
    Facts Told;
  };
  std::vector<Fresh> fresh;
  const auto keep = [&] {
    const std::lock_guard lock(mutex_);
    (void)Run("BEGIN");
    for (const Fresh& photo : fresh) Keep(photo.Photo, photo.At, photo.Told);
    (void)Run("COMMIT");
    fresh.clear();
  };
  for (const auto& item : items) {
    const FolderItem photo = item->File();
    const bool plain = item->Facts && item->Facts->Is == FileFacts::kPlain;
    if (item->Taken || !plain || !FolderitemExtensions::NamesPicture(photo.Name())) continue;
    const Stamp stamp = StampOf(photo);
    const auto found = known.find(photo.Name());
    if (found != known.end() && found->second.At == stamp) {
      item->Taken = found->second.Taken;
      continue;
    }
    if (!goOn()) break;
    Facts facts = Read(photo);
    item->Taken = facts.Taken;
    fresh.push_back({photo, stamp, std::move(facts)});
    if (fresh.size() >= kAtOnce) keep();
  }
  keep();
}

std::vector<FolderItem> PhotoFactsCache::Find(const std::string& text) {
  const SearchText wanted(text);
  std::vector<FolderItem> found;
  if (wanted.Empty()) return found;
  const std::lock_guard lock(mutex_);
  Open();
  Statement select(database_,
                   "SELECT folder, name, title, words FROM facts"
                   " WHERE length(title) > 0 OR length(words) > 0");
  while (select.Step()) {
    if (!wanted.In(select.Text(2)) && !wanted.In(select.Text(3))) continue;
    found.push_back(FolderItem::Entry(FolderItem(select.Text(0)), select.Text(1)));
  }
  return found;
}

}  // namespace brivolant
