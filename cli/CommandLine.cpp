// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>

#include "app/core/GlobalApplicationSpecificProperties.h"
#include "cli/Commands.h"
#include "cli/Support.h"
#include "cli/Texts.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant::cli {

int RunCommandLine(int argc, const char* const* argv) {
  CLI::App program(texts::kAbout.Text(), "brivolant-cli");
  program.set_version_flag("--version", GlobalApplicationSpecificProperties::VersionText());
  program.require_subcommand(1);
  Common common;
  program.add_flag("--verbose", common.verbose, texts::kVerbose.Text());
  Action action;
  AddRenderCommand(program, common, action);
  AddModulesCommand(program, common, action);
  AddStyleCommand(program, common, action);
  AddStylesCommand(program, common, action);
  AddDocumentCommand(program, common, action);
  AddFormatsCommand(program, common, action);
  AddMetadataCommand(program, common, action);
  AddThumbnailCommand(program, common, action);
  try {
    program.parse(argc, argv);
  } catch (const CLI::Success& help) {
    return program.exit(help);
  } catch (const CLI::ParseError& error) {
    PrintError(error.what());
    return kWrongUse;
  }
  try {
    const int code = action();
    ShutDownCodecs();
    return code;
  } catch (const std::exception& error) {
    PrintError(error.what());
    return kFileFailed;
  }
}

}  // namespace brivolant::cli
