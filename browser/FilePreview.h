// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QObject>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/files/FolderItem.h"
#include "platform/pictures/Picture.h"
#include "platform/values/Date.h"
#include "platform/values/Text.h"

namespace brivolant {

/// One file as it is shown large: its picture and what is said of it.
struct FilePreview {
  /// Nil if the file holds no picture that can be read; an icon stands for it then.
  Picture Shown;
  /// The first is the title.
  std::vector<std::string> Lines;
  /// What a loader's Prepare made of the picture.
  QImage Image = {};
};

/// Reads previews. May be used on any thread.
class FilePreviewer {
 public:
  static constexpr LocalizedText kRecommendPrintSize{"SharedPictureEffects.kRecommendPrintSize",
                                                     "Recommended Print Size:"};
  static constexpr LocalizedText kCreated{"multiViewFileBrowser.kCreated", "Created: "};
  static constexpr LocalizedText kTaken{"multiViewFileBrowser.kTaken", "Taken: "};

  /// The preview of a file of the program's own kinds; nothing for any other file. The lines are
  /// left out unless they are asked for.
  std::function<std::optional<FilePreview>(const FolderItem& file, int longest, bool lines)> Own;

  /// No side of the picture is longer than `longest` pixels, where the format allows it.
  FilePreview Of(const FolderItem& file, int longest, bool lines) const;

  /// "JPEG image, 12.0 Megapixel (4000 x 3000)" and the print size.
  static void AddSize(std::vector<std::string>& lines, const std::string& kind, int width,
                      int height);
  /// When a photo was taken; nothing if it does not tell.
  static void AddTaken(std::vector<std::string>& lines, const std::optional<Date>& taken,
                       const Date& now);
  /// Maker and link, then the day; of files that say who made them.
  static void AddMaker(std::vector<std::string>& lines, const std::string& creator,
                       const std::string& link, const Date& created, const Date& now);
};

/// Reads one preview after the other on another thread; a new one ends the one before at once.
class PreviewLoader final : public QObject {
 public:
  explicit PreviewLoader(std::shared_ptr<const FilePreviewer> previewer);
  ~PreviewLoader() override;

  void Load(const FolderItem& file, int longest, bool lines);
  void Stop();
  bool Loading() const { return work_ != nullptr; }
  const std::shared_ptr<const FilePreviewer>& Previewer() const { return previewer_; }

  /// Called on the thread that reads, before Loaded: what else takes time. It must hold what it
  /// uses.
  std::function<void(FilePreview&)> Prepare;
  /// Raised on the main thread, for the last Load alone.
  std::function<void(FilePreview)> Loaded;

 private:
  std::shared_ptr<const FilePreviewer> previewer_;
  struct Work;
  std::shared_ptr<Work> work_;
};

}  // namespace brivolant
