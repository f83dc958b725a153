// SPDX-License-Identifier: MIT
#include "export/SaveAsCopy.h"

#include <array>

#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "export/CarryMetadata.h"
#include "files/FolderitemExtensions.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/files/ExclusiveMove.h"
#include "platform/files/WorkingName.h"

namespace brivolant::SaveAsCopy {
namespace {

constexpr LocalizedText kCannotReplace{
    "SaveAsCopy.kCannotReplace",
    "The file \"<filename>\" cannot be replaced: it could not be moved to the trash."};
constexpr LocalizedText kNotPlaced{
    "SaveAsCopy.kNotPlaced",
    "The file \"<filename>\" cannot be replaced: the new one could not be put in its place."};
constexpr LocalizedText kInTrash{
    "SaveAsCopy.kInTrash",
    "The file \"<filename>\" could not be replaced. It is in the trash "
    "now, and could not be taken out again."};
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
  // Writing takes time, and what somebody else puts at the place meanwhile stays.
  const FolderItem working = WorkingName::Beside(job.File, true);
  const std::array<EncodeImage, 1> images{{{result, job.Quality}}};
  error = EncodeImageFile(working, job.Type, images);
  if (!error.empty()) return Outcome::kFailed;
  Carried carried = job.Data;
  carried.Software = services.UserDetails.CreatedWith();
  const std::string left =
      CarryMetadata(carried, result, working, job.Type, job.File.DisplayName());
  const auto lacks = [&] {
    error = left;
    for (const std::string& warning : processor.Warnings()) {
      error += (error.empty() ? "" : " ") + warning;
    }
    return Outcome::kDone;
  };
  if (!MoveExclusively(working, job.File)) return lacks();
  // What stood there is not lost: it waits in the trash.
  const auto trashed = FolderitemExtensions::PutInTrash(job.File);
  if (trashed && !MoveExclusively(working, job.File)) return lacks();
  (void)working.Delete();
  // What could not be replaced stands where it was.
  const bool back = !trashed || FolderitemExtensions::PutBack(*trashed);
  error = WithPlaceholders((!trashed ? kCannotReplace
                            : back   ? kNotPlaced
                                     : kInTrash)
                               .Text(),
                           {{"<filename>", job.File.DisplayName()}});
  return Outcome::kFailed;
}

}  // namespace brivolant::SaveAsCopy
