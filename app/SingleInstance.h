// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/files/FolderItem.h"

class QLocalServer;

namespace brivolant {

/// One running program per user, reached over a local socket.
class SingleInstance {
 public:
  /// `name` is the socket's; the default is the user's own.
  explicit SingleInstance(std::string name = {});
  ~SingleInstance();
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;

  /// Hands the files to a running program. False if there is none.
  bool HandOver(const std::vector<FolderItem>& files) const;
  /// Becomes the running program. False if the socket cannot be had; the program then runs alone.
  bool Listen();

  /// Another start asked for these files; an empty list asks to come to the front.
  std::function<void(const std::vector<FolderItem>&)> Arrived;

 private:
  void Receive();

  std::string name_;
  std::unique_ptr<QLocalServer> server_;
};

}  // namespace brivolant
