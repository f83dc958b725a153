// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>

#include "cli/Commands.h"
#include "cli/Support.h"
#include "cli/Texts.h"
#include "formats/BrivolantDocument.h"
#include "formats/FileTypes.h"
#include "formats/ImageFile.h"

namespace brivolant::cli {
namespace {

struct ThumbnailOptions {
  std::vector<std::string> inputs;
  std::string folder;
  int size = 256;
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

bool WriteThumbnail(const FolderItem& input, const FolderItem& output, int size,
                    std::string& error) {
  const auto source = ImageSource::Open(Shown(input, size));
  if (!source) {
    error = source.error;
    return false;
  }
  const auto thumbnail = (*source.value)->Thumbnail(size);
  if (!thumbnail) {
    error = thumbnail.error;
    return false;
  }
  constexpr double kQuality = 0.85;
  return ImageIO::SaveAsJPEG(output, *thumbnail.value, kQuality, error);
}

int RunThumbnails(const ThumbnailOptions& options) {
  const FolderItem folder(options.folder);
  if (const std::error_code failure = folder.CreateAsFolder()) {
    PrintError(texts::Of(texts::kCannotMakeFolder, folder.DisplayName(), failure.message()));
    return kFileFailed;
  }
  const std::vector<FolderItem> outputs =
      OutputsIn(folder, options.inputs, [](const FolderItem&) { return std::string("jpg"); });
  const int failed = RunJobs(static_cast<int>(outputs.size()), 0, [&](int index) {
    const auto i = static_cast<std::size_t>(index);
    const FolderItem input(options.inputs[i]);
    std::string error;
    if (SameFile(input, outputs[i])) {
      error = texts::Of(texts::kWouldOverwrite, outputs[i].DisplayName());
    } else if (Guarded(input, error,
                       [&] { return WriteThumbnail(input, outputs[i], options.size, error); })) {
      return true;
    }
    PrintError(error);
    return false;
  });
  return failed == 0 ? kDone : kFileFailed;
}

}  // namespace

void AddThumbnailCommand(CLI::App& program, const Common&, Action& action) {
  CLI::App* command = program.add_subcommand("thumbnail", texts::kThumbnail.Text());
  auto options = std::make_shared<ThumbnailOptions>();
  command->add_option("INPUT", options->inputs, texts::kInput.Text())->required();
  command->add_option("--out-dir", options->folder, texts::kOutDir.Text())->required();
  command->add_option("--size", options->size, texts::kSize.Text())->check(CLI::Range(1, 10000));
  command->callback([options, &action] { action = [options] { return RunThumbnails(*options); }; });
}

}  // namespace brivolant::cli
