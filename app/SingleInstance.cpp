// SPDX-License-Identifier: MIT
#include "app/SingleInstance.h"

#include <unistd.h>

#include <QLocalServer>
#include <QLocalSocket>

#include "kit/InterfaceKitSupport.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

constexpr int kPatience = 1000;
constexpr char kSeparator = '\0';
/// A path list longer than this is no list of paths.
constexpr qint64 kLongestMessage = 1 << 20;

}  // namespace

SingleInstance::SingleInstance(std::string name) : name_(std::move(name)) {
  if (name_.empty()) name_ = "brivolant-photos-" + std::to_string(getuid());
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::HandOver(const std::vector<FolderItem>& files) const {
  QLocalSocket socket;
  socket.connectToServer(ToQString(name_));
  if (!socket.waitForConnected(kPatience)) return false;
  QByteArray message;
  for (const FolderItem& file : files) {
    message += QByteArray::fromStdString(file.ShellPath());
    message += kSeparator;
  }
  message += kSeparator;
  socket.write(message);
  // The other side closes once it has read everything.
  return socket.waitForBytesWritten(kPatience) &&
         (socket.state() == QLocalSocket::UnconnectedState ||
          socket.waitForDisconnected(kPatience));
}

bool SingleInstance::Listen() {
  server_ = std::make_unique<QLocalServer>();
  server_->setSocketOptions(QLocalServer::UserAccessOption);
  if (!server_->listen(ToQString(name_))) {
    // A socket that nobody answers was left by a crash.
    QLocalServer::removeServer(ToQString(name_));
    if (!server_->listen(ToQString(name_))) return false;
  }
  QObject::connect(server_.get(), &QLocalServer::newConnection, [this] { Receive(); });
  return true;
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
    socket->disconnectFromServer();
    if (Arrived) Arrived(files);
  };
  QObject::connect(socket, &QLocalSocket::readyRead, socket, read);
  QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
  if (socket->bytesAvailable() > 0) read();
}

}  // namespace brivolant
