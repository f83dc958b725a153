// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/files/FileLock.h"
#include "platform/files/FolderItem.h"
#include "platform/values/Text.h"

class QLocalServer;

namespace brivolant {

/// One running program for each folder of a user's data. Who has the lock file is the one, from
/// before its window stands until its process ends; the others hand their files to it over a local
/// socket.
class SingleInstance {
 public:
  static constexpr LocalizedText kDoesNotAnswer{
      "SingleInstance.kDoesNotAnswer",
      "Brivolant Photos is running already and does not answer (process <process>)."};

  enum class Role {
    /// This is the running program; it hears of the others through Serve.
    kOwner,
    /// There is no place for a lock: the program runs, and nobody hears of it.
    kAlone,
    /// The running program has the files.
    kHandedOver,
    /// There is a running program, and it does not answer.
    kUnanswered,
  };

  /// Lock and socket lie in `folder` and are called `name`; by default where the desktop keeps what
  /// goes with the session.
  explicit SingleInstance(FolderItem folder = {}, std::string name = {});
  ~SingleInstance();
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;

  /// Becomes the running program or hands the files to it. One that is starting, busy or ending is
  /// waited for, up to `patience` milliseconds.
  Role Begin(const std::vector<FolderItem>& files, int patience = 30000);
  /// The process that did not answer; 0 if it is not known.
  pid_t Holder() const { return holder_; }
  /// What other starts ask for comes here, from now on and since Begin; an empty list asks to come
  /// to the front.
  void Serve(std::function<void(const std::vector<FolderItem>&)> arrived);

 private:
  bool Listen();
  void Receive();
  bool HandOver(const std::vector<FolderItem>& files, int patience) const;

  FolderItem lockFile_;
  std::string socket_;
  FileLock lock_;
  pid_t holder_ = 0;
  std::unique_ptr<QLocalServer> server_;
  std::function<void(const std::vector<FolderItem>&)> arrived_;
  std::vector<std::vector<FolderItem>> early_;
};

}  // namespace brivolant
