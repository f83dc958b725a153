// SPDX-License-Identifier: MIT
#include "export/SaveAsCopy.h"

#include <array>

#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "files/FolderitemExtensions.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/files/WorkingName.h"

namespace brivolant::SaveAsCopy {
namespace {

constexpr LocalizedText kCannotReplace{
    "SaveAsCopy.kCannotReplace",
    "The file \"<filename>\" cannot be replaced: it could not be moved to the trash."};
/// The share of rendering in the whole; the rest is writing.
constexpr double kRendering = 0.8;

}  // namespace

Outcome Run(const Job& job, const Services& services, const std::function<bool(double)>& progress,
            std::string& error) {
  brivolantProcessorLite processor(EffectRegistry(), services);
  processor.Startup();
  processor.StyleData(job.StyleData);
  processor.Progress = [&](double done) { return progress(done * kRendering); };
  const Picture result = processor.Process(job.Source, job.Pasted);
  if (!progress(kRendering)) return Outcome::kCancelled;
  if (result.IsNil()) {
    error = CodecMessage(codecTexts::kNoMemory, job.File);
    return Outcome::kFailed;
  }
  const FolderItem working = job.File.Exists() ? WorkingName::Beside(job.File, true) : job.File;
  const std::array<EncodeImage, 1> images{{{result, job.Quality}}};
  error = EncodeImageFile(working, job.Type, images);
  if (!error.empty()) return Outcome::kFailed;
  const auto lacks = [&] {
    for (const std::string& warning : processor.Warnings()) {
      error += (error.empty() ? "" : " ") + warning;
    }
    return Outcome::kDone;
  };
  if (working == job.File) return lacks();
  // What stood there is not lost: it waits in the trash.
  if (!FolderitemExtensions::MoveToTrash(job.File) || working.MoveFileTo(job.File)) {
    (void)working.Delete();
    error = WithPlaceholders(kCannotReplace.Text(), {{"<filename>", job.File.DisplayName()}});
    return Outcome::kFailed;
  }
  return lacks();
}

}  // namespace brivolant::SaveAsCopy
