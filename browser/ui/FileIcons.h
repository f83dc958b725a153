// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

#include "browser/browserItem.h"
#include "platform/services/IconSource.h"

namespace brivolant {

/// Icons of files as the desktop's theme has them, else as this program draws them. Main thread.
class FileIcons final : public IconSource {
 public:
  Picture Icon(const std::vector<std::string>& names, int size) override;
  /// What stands for an item without a thumbnail, `size` units wide. Kept, since a folder has few
  /// kinds of files.
  static QPixmap For(const BrowserPayload& payload, int size, double ratio);
  /// The icon of a file or folder.
  static QPixmap For(const FolderItem& file, int size, double ratio);
  /// A drawing of the program by name.
  static QPixmap Drawing(const std::string& name, int size, double ratio);
};

}  // namespace brivolant
