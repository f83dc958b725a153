// SPDX-License-Identifier: MIT
#include "browser/FilePreview.h"

#include <mutex>

#include "browser/DiskThreads.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "files/FolderitemExtensions.h"
#include "formats/ImageFile.h"
#include "formats/iconObjectExtensions.h"
#include "metadata/ImageMetaData.h"
#include "metadata/PhotoFacts.h"
#include "platform/codecs/Cancellation.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/values/Captions.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

/// Orientations from here on swap width and height.
constexpr int kFirstOnItsSide = 5;

std::string KindOf(const FolderItem& file, const ImageSource& source) {
  ImageFile named;
  named.FileType = source.Type();
  const std::string kind = named.DisplayFileType();
  return kind.empty() ? FolderitemExtensions::Kind(file) : kind;
}

/// What the photo itself says: its caption in place of its name, when it was taken, whose it is.
void AddTold(std::vector<std::string>& lines, const FolderItem& file) {
  ImageMetaData data;
  data.ReadFile(file);
  const PhotoFacts facts = PhotoFacts::Of(data);
  constexpr const char* kCaption = "120";
  if (data.IPTCData && data.IPTCData->hasKey(kCaption)) {
    const std::string caption = TextOf(data.IPTCData->Value(kCaption, 1));
    if (!Trim(caption).empty()) lines.front() = caption;
  }
  FilePreviewer::AddTaken(lines, facts.Taken, Date::Now());
  if (!facts.Copyright.empty()) lines.push_back(facts.Copyright);
}

}  // namespace

void FilePreviewer::AddSize(std::vector<std::string>& lines, const std::string& kind, int width,
                            int height) {
  lines.push_back(kind + ", " + SharedPictureEffects::Megapixel(width, height) + " (" +
                  std::to_string(width) + " x " + std::to_string(height) + ")");
  constexpr int kDotsPerInch = 300;
  lines.push_back(kRecommendPrintSize.Text() + " " +
                  SharedPictureEffects::PrintSize(width, height, 0, false, kDotsPerInch, false));
}

void FilePreviewer::AddTaken(std::vector<std::string>& lines, const std::optional<Date>& taken,
                             const Date& now) {
  if (!taken) return;
  lines.push_back(kTaken.Text() + FolderitemExtensions::RelativeDateTime(*taken, now));
}

void FilePreviewer::AddMaker(std::vector<std::string>& lines, const std::string& creator,
                             const std::string& link, const Date& created, const Date& now) {
  std::string maker = Captions::kCreatorName.Text();
  maker.append(" ").append(creator).append("  ").append(link);
  lines.push_back(std::move(maker));
  lines.push_back(kCreated.Text() + FolderitemExtensions::RelativeDateTime(created, now));
}

FilePreview FilePreviewer::Of(const FolderItem& file, int longest, bool lines) const {
  if (Own) {
    if (auto own = Own(file, longest, lines)) return std::move(*own);
  }
  FilePreview preview;
  if (lines) preview.Lines.push_back(file.DisplayName());
  if (preview.Shown = iconObjectExtensions::Preview(file, longest); !preview.Shown.IsNil()) {
    if (lines) {
      AddSize(preview.Lines, FolderitemExtensions::Kind(file), preview.Shown.Width(),
              preview.Shown.Height());
    }
    return preview;
  }
  if (!file.Directory() && FolderitemExtensions::HoldsPicture(file)) {
    if (const auto source = ImageSource::Open(file)) {
      auto picture = (*source.value)->Thumbnail(longest);
      if (picture) preview.Shown = std::move(*picture);
      const auto properties = (*source.value)->Properties(0);
      if (lines && !preview.Shown.IsNil() && properties) {
        const bool turned = properties.value->Orientation >= kFirstOnItsSide;
        const int width = turned ? properties.value->Height : properties.value->Width;
        const int height = turned ? properties.value->Width : properties.value->Height;
        AddSize(preview.Lines, KindOf(file, **source.value), width, height);
        AddTold(preview.Lines, file);
        return preview;
      }
    }
  }
  if (lines) preview.Lines.push_back(FolderitemExtensions::Kind(file));
  return preview;
}

/// What a read holds, whatever becomes of the loader.
struct PreviewLoader::Work {
  /// Under it the loader is there, as long as the work has not ended.
  std::mutex mutex;
  std::atomic<bool> ended = false;
};

PreviewLoader::PreviewLoader(std::shared_ptr<const FilePreviewer> previewer)
    : previewer_(std::move(previewer)) {}

PreviewLoader::~PreviewLoader() {
  Stop();
}

void PreviewLoader::Stop() {
  if (work_) {
    const std::lock_guard lock(work_->mutex);
    work_->ended = true;
  }
  work_.reset();
}

void PreviewLoader::Load(const FolderItem& file, int longest, bool lines) {
  Stop();
  work_ = std::make_shared<Work>();
  // One that a dead share holds keeps back none of another disk.
  DiskThreads::Run(
      file, [this, work = work_, previewer = previewer_, prepare = Prepare, file, longest, lines] {
        if (work->ended) return;
        const DecodeCancellation cancellation(work->ended);
        auto preview = std::make_shared<FilePreview>(previewer->Of(file, longest, lines));
        if (prepare) prepare(*preview);
        const std::lock_guard lock(work->mutex);
        if (work->ended) return;
        QMetaObject::invokeMethod(
            this,
            [this, work, preview] {
              if (work != work_) return;
              work_.reset();
              if (Loaded) Loaded(std::move(*preview));
            },
            Qt::QueuedConnection);
      });
}

}  // namespace brivolant
