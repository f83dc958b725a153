// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <mutex>
#include <random>

#include "platform/files/FileLock.h"
#include "platform/services/Services.h"

namespace brivolant {

/// Lines to standard error.
class StandardErrorLog final : public Log {
 public:
  void Write(std::string_view line) override;
};

class SystemClock final : public Clock {
 public:
  Date Now() override { return Date::Now(); }
};

/// Numbers that differ from run to run, or repeat for a given seed. May be asked on any thread.
class SystemRandom final : public Random {
 public:
  SystemRandom();
  explicit SystemRandom(std::uint64_t seed) : generator_(seed) {}
  double Rnd() override;

 private:
  std::mutex mutex_;
  std::mt19937_64 generator_;
};

/// Reveals and ejects over the session's and the system's D-Bus.
class FreedesktopDesktop final : public Desktop {
 public:
  bool Reveal(const FolderItem& item) override;
  std::string Eject(const FolderItem& root) override;
  bool SetPicture(const FolderItem& image) override;
};

/// Temporary files of one run. Each child lies in a folder of its own under the root; the root,
/// locked meanwhile, and all it holds are deleted when the object ends. Child may be called on any
/// thread, if nothing else rolls the dice meanwhile.
class CleanOnQuit final : public TemporaryFiles {
 public:
  explicit CleanOnQuit(Random& random) : random_(random) {}
  ~CleanOnQuit() override;
  CleanOnQuit(const CleanOnQuit&) = delete;
  CleanOnQuit& operator=(const CleanOnQuit&) = delete;

  /// Sets the root folder; nil stands for "CleanOnQuitcom.quillmere.brivolantPhotos" in the
  /// user's documents folder. The folder is made hidden. False if it cannot be created.
  [[nodiscard]] bool Configure(const FolderItem& root);
  /// The root of some run that an item lies in; nil if it lies in none.
  static FolderItem RootOf(const FolderItem& item);
  /// Nothing is deleted when the object ends: another run needs it.
  void Keep() { keep_ = true; }
  FolderItem Child(std::string_view name) override;

 private:
  Random& random_;
  std::mutex mutex_;
  FolderItem root_;
  FileLock lock_;
  bool keep_ = false;
};

}  // namespace brivolant
