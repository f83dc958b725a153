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

}  // namespace brivolant
