// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace CLI {
class App;
}

namespace brivolant::cli {

/// Parses the arguments and runs the command they name. Gives the exit code.
int RunCommandLine(int argc, const char* const* argv);

/// What every command may look at.
struct Common {
  bool verbose = false;
};

/// Each adds one command, with what it runs once parsing is done.
using Action = std::function<int()>;
void AddRenderCommand(CLI::App& program, const Common& common, Action& action);
void AddModulesCommand(CLI::App& program, const Common& common, Action& action);
void AddStyleCommand(CLI::App& program, const Common& common, Action& action);
void AddStylesCommand(CLI::App& program, const Common& common, Action& action);
/// The render command with a style in first place.
void AddApplyCommand(CLI::App& styles, const Common& common, Action& action);
void AddDocumentCommand(CLI::App& program, const Common& common, Action& action);
void AddFormatsCommand(CLI::App& program, const Common& common, Action& action);
void AddMetadataCommand(CLI::App& program, const Common& common, Action& action);
void AddThumbnailCommand(CLI::App& program, const Common& common, Action& action);

}  // namespace brivolant::cli
