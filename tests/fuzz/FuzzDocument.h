// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <cstdlib>

#include "formats/BrivolantDocument.h"
#include "platform/services/SystemServices.h"

namespace brivolant::fuzz {

/// Services that say nothing and keep nothing.
struct Silent {
  struct NoLog final : Log {
    void Write(std::string_view) override {}
  } log;
  struct NoDialogs final : Dialogs {
    void Message(const std::string&, const std::string&) override {}
  } dialogs;
  struct NoUser final : UserDetails {
    std::string FullName() const override { return {}; }
    std::string ContactLink() const override { return {}; }
    std::string Copyright() const override { return {}; }
    std::string CreatedWith() const override { return {}; }
  } user;
  struct NoFiles final : TemporaryFiles {
    FolderItem Child(std::string_view) override { return {}; }
  } files;
  SystemClock clock;
  SystemRandom random{1};
  Services services{log, dialogs, user, files, clock, random};
};

/// One folder for the whole run, in memory where there is such a place.
inline const FolderItem& Folder() {
  static const FolderItem folder = [] {
    std::string pattern = (access("/dev/shm", W_OK) == 0 ? std::string("/dev/shm") : "/tmp") +
                          "/brivolant-fuzz.XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    static const std::string path = pattern;
    std::atexit([] { (void)FolderItem(path).DeleteFolder(); });
    return FolderItem(std::filesystem::path(pattern));
  }();
  return folder;
}

inline void Write(const FolderItem& file, const std::uint8_t* data, std::size_t size) {
  std::FILE* stream = std::fopen(file.Path().c_str(), "wb");
  if (stream == nullptr) std::abort();
  if (size > 0) (void)std::fwrite(data, 1, size, stream);
  std::fclose(stream);
}

/// Loads and uses what was loaded.
inline void Load(const FolderItem& file) {
  Silent silent;
  BrivolantDocument document(silent.services);
  if (!document.Load(file)) return;
  const Picture picture = document.SetOrientation(NewPicture(16, 9, 24));
  if (picture.IsNil()) std::abort();
  (void)document.PastedImage(document.OriginalImageID);
}

}  // namespace brivolant::fuzz
