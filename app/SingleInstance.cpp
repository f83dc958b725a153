// SPDX-License-Identifier: MIT
#include "app/SingleInstance.h"

#include <unistd.h>

#include <QDeadlineTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <chrono>
#include <thread>

#include "kit/InterfaceKitSupport.h"
#include "platform/services/SharedFolders.h"
#include "platform/values/Hash.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

constexpr char kSeparator = '\0';
/// The answer of the running program: it has read everything.
constexpr char kTaken = '+';
/// A path list longer than this is no list of paths.
constexpr qint64 kLongestMessage = 1 << 20;
/// Between two looks at a program that has not got as far as listening.
constexpr std::chrono::milliseconds kLookAgain(20);

/// Where things go with the user's session, else where everybody's temporary files are.
FolderItem SessionFolder() {
  FolderItem folder(qgetenv("XDG_RUNTIME_DIR").toStdString());
  if (folder.Path().is_absolute() && folder.Directory() && folder.IsWriteable()) return folder;
  return FolderItem(std::filesystem::path("/tmp"));
}

/// Two homes of one user are two programs.
std::string OwnName() {
  return "brivolant-photos-" + std::to_string(getuid()) + "-" +
         Hexadecimal(StableHash(DataFolder().ShellPath()), 8);
}

}  // namespace

SingleInstance::SingleInstance(FolderItem folder, std::string name) {
  if (folder.IsNil()) folder = SessionFolder();
  if (name.empty()) name = OwnName();
  lockFile_ = folder.Child(name + ".lock");
  socket_ = folder.Child(name + ".socket").ShellPath();
}

SingleInstance::~SingleInstance() = default;

SingleInstance::Role SingleInstance::Begin(const std::vector<FolderItem>& files, int patience) {
  const QDeadlineTimer deadline(patience);
  for (;;) {
    lock_ = FileLock::OfOwner(lockFile_);
    if (lock_.Is() == FileLock::kNone) return Role::kAlone;
    if (lock_.Is() == FileLock::kLocked) {
      if (Listen()) return Role::kOwner;
      // Whom nobody can reach must keep nobody from starting.
      lock_.Release();
      return Role::kAlone;
    }
    holder_ = lock_.Holder();
    if (HandOver(files, static_cast<int>(deadline.remainingTime()))) return Role::kHandedOver;
    if (deadline.hasExpired()) return Role::kUnanswered;
    std::this_thread::sleep_for(kLookAgain);
  }
}

/// False also if the running program ended before it had read everything.
bool SingleInstance::HandOver(const std::vector<FolderItem>& files, int patience) const {
  QLocalSocket socket;
  socket.connectToServer(ToQString(socket_));
  if (!socket.waitForConnected(patience)) return false;
  QByteArray message;
  for (const FolderItem& file : files) {
    message += QByteArray::fromStdString(file.ShellPath());
    message += kSeparator;
  }
  message += kSeparator;
  socket.write(message);
  while (socket.bytesToWrite() > 0) {
    if (!socket.waitForBytesWritten(patience)) return false;
  }
  if (socket.bytesAvailable() == 0) (void)socket.waitForReadyRead(patience);
  return socket.read(1) == QByteArray(1, kTaken);
}

bool SingleInstance::Listen() {
  server_ = std::make_unique<QLocalServer>();
  server_->setSocketOptions(QLocalServer::UserAccessOption);
  // Whoever has the lock may take away what a crash left.
  QLocalServer::removeServer(ToQString(socket_));
  if (!server_->listen(ToQString(socket_))) return false;
  QObject::connect(server_.get(), &QLocalServer::newConnection, [this] { Receive(); });
  return true;
}

void SingleInstance::Serve(std::function<void(const std::vector<FolderItem>&)> arrived) {
  arrived_ = std::move(arrived);
  for (const auto& files : std::exchange(early_, {})) arrived_(files);
}

void SingleInstance::Receive() {
  QLocalSocket* socket = server_->nextPendingConnection();
  if (socket == nullptr) return;
  auto message = std::make_shared<QByteArray>();
  const auto read = [this, socket, message] {
    *message += socket->readAll();
    if (message->size() > kLongestMessage) return socket->abort();
    const bool complete =
        *message == QByteArray(1, kSeparator) || message->endsWith(QByteArray(2, kSeparator));
    if (!complete) return;
    std::vector<FolderItem> files;
    for (const auto path :
         Split(std::string_view(message->constData(), static_cast<std::size_t>(message->size())),
               kSeparator)) {
      if (!path.empty()) files.emplace_back(std::filesystem::path(path));
    }
    message->clear();
    socket->write(QByteArray(1, kTaken));
    socket->flush();
    socket->disconnectFromServer();
    // The window may not stand yet.
    if (!arrived_) return early_.push_back(std::move(files));
    arrived_(files);
  };
  QObject::connect(socket, &QLocalSocket::readyRead, socket, read);
  QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
  if (socket->bytesAvailable() > 0) read();
}

}  // namespace brivolant
