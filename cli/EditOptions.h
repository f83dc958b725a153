// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/Support.h"
#include "engine/brivolantProcessorLite.h"
#include "formats/BrivolantDocument.h"

namespace CLI {
class App;
}

namespace brivolant {
class OneClickWonder;
}

namespace brivolant::cli {

/// What the user asked to change, as it stood on the command line.
class EditOptions {
 public:
  EditOptions();
  /// Declares the options of a command.
  void Declare(CLI::App& command);
  /// The style to start from: a file or a name.
  std::string& Style() { return style_; }
  /// Reads them after parsing and checks them. False, with the sentence in `error`, for a wrong
  /// use.
  [[nodiscard]] bool Collect(const CLI::App& command, std::string& error);

  /// Applies geometry, style and settings. False, with the sentence in `error`, if the style file
  /// cannot be used.
  [[nodiscard]] bool Apply(BrivolantDocument& document, brivolantProcessorLite& processor,
                           std::string& error) const;

 private:
  /// One --set, --enable or --stack, in the order given.
  struct Step {
    enum Kind { kSet, kEnable, kStack } kind;
    std::string text;
  };
  bool RunSteps(brivolantProcessorLite& processor, std::string& error) const;

  std::vector<Step> steps_;
  std::vector<std::string> sets_;
  std::vector<std::string> enables_;
  std::vector<std::string> stacks_;
  std::string style_;
  /// Read once for all photos.
  struct ReadStyle;
  std::shared_ptr<ReadStyle> readStyle_;
  std::string crop_;
  std::optional<std::uint32_t> seed_;
  std::optional<int> blend_;
  std::optional<float> opacity_;
  std::optional<int> rotate_;
  std::optional<int> flip_;
  std::optional<std::pair<Pair, Pair>> cropRectangle_;
};

/// Loads a document. False on failure, with one sentence in `error` whoever found the fault.
[[nodiscard]] bool LoadDocument(BrivolantDocument& document, const FolderItem& file, Worker& worker,
                                std::string& error);

/// The 1-Click style of a file or, where there is no such file, of a name. Null, with the sentence
/// in `error`, on failure. The worker must outlive it.
std::shared_ptr<OneClickWonder> FindStyle(const std::string& text, Worker& worker,
                                          std::string& error);
/// The style data of a document, a 1-Click style or a file of style data. Empty, with the sentence
/// in `error`, on failure.
std::optional<std::string> ReadStyleFile(const std::string& text, Worker& worker,
                                         std::string& error);

}  // namespace brivolant::cli
