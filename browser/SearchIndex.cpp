// SPDX-License-Identifier: MIT
#include "browser/SearchIndex.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusUnixFileDescriptor>
#include <array>
#include <cerrno>
#include <cstring>

#include "platform/files/FileAddress.h"

namespace brivolant::SearchIndex {
namespace {

/// The present name, then the one it had before.
constexpr std::array<const char*, 2> kServices{"org.freedesktop.LocalSearch3",
                                               "org.freedesktop.Tracker3.Miner.Files"};
constexpr const char* kEndpoint = "/org/freedesktop/Tracker3/Endpoint";
constexpr const char* kInterface = "org.freedesktop.Tracker3.Endpoint";
/// Milliseconds between two looks at whether the answer is still wanted, and for the answer to
/// begin at all.
constexpr int kLook = 50;
constexpr int kPatience = 3000;
constexpr std::size_t kMostBytes = std::size_t{256} << 20U;
constexpr std::uint32_t kMostColumns = 64;

constexpr const char* kQuestion =
    "SELECT DISTINCT ?url { ?content nie:isStoredAs ?file . "
    "?file nie:url ?url ; nfo:fileName ?name . "
    "{ ?content a nfo:Image } UNION { ?content a nfo:Folder } "
    "FILTER (CONTAINS (LCASE (?name), LCASE (~text))) }";

/// Both ends of a pipe, closed at the end.
class Pipe {
 public:
  Pipe() { open_ = pipe2(ends_.data(), O_CLOEXEC) == 0; }
  ~Pipe() {
    if (!open_) return;
    close(ends_[0]);
    CloseWriter();
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  bool Open() const { return open_; }
  int Reader() const { return ends_[0]; }
  int Writer() const { return ends_[1]; }
  void CloseWriter() {
    if (ends_[1] >= 0) close(ends_[1]);
    ends_[1] = -1;
  }

 private:
  std::array<int, 2> ends_{-1, -1};
  bool open_ = false;
};

/// All that comes until the other side closes; nothing if it was given up.
std::optional<std::string> ReadAll(int from, const std::atomic<bool>& ended) {
  std::string bytes;
  std::array<char, 65536> part{};
  while (bytes.size() < kMostBytes) {
    pollfd waiting{from, POLLIN, 0};
    const int ready = poll(&waiting, 1, kLook);
    if (ended) return std::nullopt;
    if (ready == 0) continue;
    const ssize_t count = ready < 0 ? -1 : read(from, part.data(), part.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) return bytes;
    bytes.append(part.data(), static_cast<std::size_t>(count));
  }
  return std::nullopt;
}

bool Runs(const QString& service) {
  const QDBusConnection bus = QDBusConnection::sessionBus();
  return bus.isConnected() && bus.interface()->isServiceRegistered(service);
}

FolderItem FileOfUrl(const QString& address) {
  return FileAddress::File(address.toStdString());
}

/// Sends the question; true once the answer begins to come.
bool Ask(const QString& service, const std::string& text, Pipe& pipe,
         const std::atomic<bool>& ended) {
  QDBusMessage question =
      QDBusMessage::createMethodCall(service, QString::fromLatin1(kEndpoint),
                                     QString::fromLatin1(kInterface), QStringLiteral("Query"));
  question << QString::fromLatin1(kQuestion)
           << QVariant::fromValue(QDBusUnixFileDescriptor(pipe.Writer()))
           << QVariantMap{{QStringLiteral("text"), QString::fromStdString(text)}};
  // The message keeps the pipe open on our side: it must be gone before the end can be seen.
  QDBusPendingCall answer = QDBusConnection::sessionBus().asyncCall(question, kPatience);
  question = {};
  pipe.CloseWriter();
  answer.waitForFinished();
  return !ended && answer.isValid() && !answer.isError();
}

}  // namespace

std::vector<std::string> FirstColumn(std::string_view rows) {
  std::vector<std::string> values;
  while (rows.size() >= sizeof(std::uint32_t)) {
    std::uint32_t columns = 0;
    std::memcpy(&columns, rows.data(), sizeof columns);
    const std::size_t head = sizeof columns * (1 + 2 * std::size_t{columns});
    if (columns == 0 || columns > kMostColumns || rows.size() < head) break;
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::memcpy(&first, rows.data() + sizeof first * (1 + columns), sizeof first);
    std::memcpy(&last, rows.data() + sizeof last * (2 * std::size_t{columns}), sizeof last);
    const std::string_view texts = rows.substr(head);
    if (last >= texts.size() || first > last || texts[last] != '\0') break;
    values.emplace_back(texts.substr(0, first));
    rows = texts.substr(last + std::size_t{1});
  }
  return values;
}

std::optional<std::vector<FolderItem>> AskLocalSearch(const std::string& text,
                                                      const std::atomic<bool>& ended) {
  for (const char* name : kServices) {
    const QString service = QString::fromLatin1(name);
    if (!Runs(service)) continue;
    Pipe pipe;
    if (!pipe.Open() || !Ask(service, text, pipe, ended)) continue;
    const std::optional<std::string> rows = ReadAll(pipe.Reader(), ended);
    if (!rows) return std::nullopt;
    std::vector<FolderItem> files;
    for (const std::string& url : FirstColumn(*rows)) {
      if (FolderItem file = FileOfUrl(QString::fromStdString(url))) files.push_back(file);
    }
    return files;
  }
  return std::nullopt;
}

std::vector<FolderItem> AskBaloo(const std::string& text) {
  std::vector<FolderItem> files;
  if (!Runs(QStringLiteral("org.kde.baloo"))) return files;
  QDBusMessage question = QDBusMessage::createMethodCall(
      QStringLiteral("org.kde.runners.baloo"), QStringLiteral("/runner"),
      QStringLiteral("org.kde.krunner1"), QStringLiteral("Match"));
  question << QString::fromStdString(text);
  const QDBusMessage answer = QDBusConnection::sessionBus().call(question, QDBus::Block, kPatience);
  if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return files;
  const auto matches = answer.arguments().first().value<QDBusArgument>();
  if (matches.currentSignature() != QLatin1String("a(sssida{sv})")) return files;
  matches.beginArray();
  while (!matches.atEnd()) {
    QString address;
    QString title;
    QString icon;
    int type = 0;
    double relevance = 0;
    QVariantMap properties;
    matches.beginStructure();
    matches >> address >> title >> icon >> type >> relevance >> properties;
    matches.endStructure();
    if (FolderItem file = FileOfUrl(address)) files.push_back(file);
  }
  matches.endArray();
  return files;
}

}  // namespace brivolant::SearchIndex
