// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>

#include "cli/Commands.h"
#include "cli/EditOptions.h"
#include "cli/Outputs.h"
#include "cli/Shortcomings.h"
#include "cli/Texts.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/FileTypes.h"
#include "formats/ImageFile.h"

namespace brivolant::cli {
namespace {

struct ThumbnailOptions {
  std::vector<std::string> inputs;
  std::string folder;
  int size = 256;
  bool strict = false;
  bool verbose = false;
};

/// The file whose picture stands for the input: a document is shown as it was edited.
FolderItem Shown(const FolderItem& input, int size) {
  constexpr int kThumbnailSize = 256;
  if (!input.Directory()) return input;
  for (const std::string_view name :
       {size <= kThumbnailSize ? BrivolantDocument::kThumbnailName
                               : BrivolantDocument::kMidSizePreviewName,
        BrivolantDocument::kMidSizePreviewName}) {
    if (input.Child(name).Exists()) return input.Child(name);
  }
  return input;
}

/// A preview in a file may be whole where its picture is not.
bool IsWhole(const FolderItem& input, bool verbose, std::string& error) {
  Worker worker(verbose);
  BrivolantDocument document(worker.services);
  const bool read =
      FolderitemExtensions::isFileType(input, &InternalFileTypes::BrivolantPhotosDocument)
          ? LoadDocument(document, input, worker, error)
          : document.ReadImage(input);
  if (read && !document.ImageOriginal().IsNil()) {
    return TakesDamage(document.OriginalDamage, true, error);
  }
  if (error.empty()) error = document.lastErrorMessage;
  return false;
}

bool WriteThumbnail(const FolderItem& input, const FolderItem& output,
                    const ThumbnailOptions& options, std::string& error) {
  if (options.strict && !IsWhole(input, options.verbose, error)) return false;
  const auto source = ImageSource::Open(Shown(input, options.size));
  if (!source) {
    error = source.error;
    return false;
  }
  const auto thumbnail = (*source.value)->Small(options.size);
  if (!thumbnail) {
    error = thumbnail.error;
    return false;
  }
  if (!TakesDamage(thumbnail.value->Damage, options.strict, error)) return false;
  constexpr double kQuality = 0.85;
  return ImageIO::SaveAsJPEG(output, thumbnail.value->Pixels, kQuality, error);
}

int RunThumbnails(const ThumbnailOptions& options) {
  const FolderItem folder(options.folder);
  const InputFiles read(options.inputs);
  if (const std::string why = read.WhyNotWriteInto(folder); !why.empty()) {
    PrintError(why);
    return kFileFailed;
  }
  if (const std::error_code failure = folder.CreateAsFolder()) {
    PrintError(texts::Of(texts::kCannotMakeFolder, folder.DisplayName(), failure.message()));
    return kFileFailed;
  }
  const std::vector<FolderItem> outputs =
      OutputsIn(folder, options.inputs, read, [](const FolderItem&) { return std::string("jpg"); });
  const int failed = RunJobs(static_cast<int>(outputs.size()), 0, [&](int index) {
    const auto i = static_cast<std::size_t>(index);
    const FolderItem input(options.inputs[i]);
    std::string error;
    const bool done =
        Guarded(input, error, [&] { return WriteThumbnail(input, outputs[i], options, error); });
    if (!done) PrintError(error);
    return done;
  });
  return failed == 0 ? kDone : kFileFailed;
}

}  // namespace

void AddThumbnailCommand(CLI::App& program, const Common& common, Action& action) {
  CLI::App* command = program.add_subcommand("thumbnail", texts::kThumbnail.Text());
  auto options = std::make_shared<ThumbnailOptions>();
  command->add_option("INPUT", options->inputs, texts::kInput.Text())->required();
  command->add_option("--out-dir", options->folder, texts::kOutDir.Text())->required();
  command->add_option("--size", options->size, texts::kSize.Text())->check(CLI::Range(1, 10000));
  command->add_flag("--strict", options->strict, texts::kStrict.Text());
  command->callback([options, &common, &action] {
    action = [options, &common] {
      options->verbose = common.verbose;
      return RunThumbnails(*options);
    };
  });
}

}  // namespace brivolant::cli
