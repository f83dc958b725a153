// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "cli/EditOptions.h"
#include "cli/Support.h"
#include "metadata/MetadataCopy.h"

namespace CLI {
class App;
}

namespace brivolant::cli {

/// Times of one render in milliseconds.
struct RenderTimes {
  double decode = 0;
  double render = 0;
  double encode = 0;
};

/// What is written, and how.
struct OutputOptions {
  /// Fits the result into this many pixels.
  std::optional<Pair> fit;
  /// 1 to 100.
  int quality = 90;
  /// Damaged images are refused.
  bool strict = false;
  /// What of the photo's data goes along.
  MetadataCopy::Rule metadata = MetadataCopy::Rule::kAll;
};

/// Adds the option that chooses what of the photo's data goes along.
void AddMetadataOption(CLI::App& command, OutputOptions& options);
/// Loads an image or a document into `document` and `processor`. False and a sentence in `error` on
/// failure.
[[nodiscard]] bool OpenInput(const FolderItem& input, BrivolantDocument& document,
                             brivolantProcessorLite& processor, Worker& worker, std::string& error);
/// Renders one file; see InputFiles for where it may be written. False and a sentence in `error` on
/// failure. `style` receives the style data if it is not null.
[[nodiscard]] bool RenderFile(const FolderItem& input, const FolderItem& output,
                              const EditOptions& edits, const OutputOptions& options,
                              Worker& worker, RenderTimes& times, std::string* style,
                              std::string& error);
/// The writable format that the file's extension names, or an empty text.
std::string FormatOf(const FolderItem& file);

}  // namespace brivolant::cli
