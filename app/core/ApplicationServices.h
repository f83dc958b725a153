// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/services/Preferences.h"
#include "platform/services/SystemServices.h"

namespace brivolant {

/// The user's details as the settings hold them; without a name there, the account's.
class StoredUserDetails final : public UserDetails {
 public:
  /// Reads the settings at the first question.
  explicit StoredUserDetails(Log& log) : log_(log) {}
  std::string FullName() const override;
  std::string ContactLink() const override;
  std::string Copyright() const override;
  std::string CreatedWith() const override;

 private:
  std::string Stored(const char* key) const;
  Log& log_;
  mutable std::unique_ptr<Preferences> preferences_;
};

/// Temporary files of a program without windows: the folder is made at the first request.
class LazyTemporaryFiles final : public TemporaryFiles {
 public:
  explicit LazyTemporaryFiles(Random& random) : files_(random) {}
  FolderItem Child(std::string_view name) override;

 private:
  CleanOnQuit files_;
  bool configured_ = false;
};

/// Services of one worker that tells nobody anything: for threads and programs without a window.
class QuietServices {
 public:
  /// Dice follow from the seed.
  explicit QuietServices(std::uint64_t seed = 1);
  QuietServices(const QuietServices&) = delete;
  QuietServices& operator=(const QuietServices&) = delete;

  const Services& All() const { return all_; }

 private:
  class Silent final : public Log, public Dialogs {
   public:
    void Write(std::string_view) override {}
    void Message(const std::string&, const std::string&) override {}
  };
  Silent silent_;
  StoredUserDetails user_;
  SystemRandom random_;
  LazyTemporaryFiles files_;
  SystemClock clock_;
  Services all_;
};

}  // namespace brivolant
