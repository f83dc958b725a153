// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "browser/FilePreview.h"

namespace brivolant {

class ThumbnailMaker;

/// Pictures and lines of documents, styles and borders, from what their files keep ready; nothing
/// for any other file. May be called on any thread.
std::optional<FilePreview> OwnFilePreview(const FolderItem& file, int longest, bool lines);

/// Makers that know the program's own kinds of files.
std::shared_ptr<ThumbnailMaker> NewThumbnailMaker();
std::shared_ptr<FilePreviewer> NewFilePreviewer();

}  // namespace brivolant
