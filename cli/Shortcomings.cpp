// SPDX-License-Identifier: MIT
#include "cli/Shortcomings.h"

#include "cli/Support.h"
#include "cli/Texts.h"

namespace brivolant::cli {

bool TakesDamage(const PictureDamage& damage, bool strict, std::string& error) {
  if (!damage) return true;
  if (strict) {
    error = damage.Refusal;
  } else {
    PrintError(damage.Warning);
  }
  return !strict;
}

void TellShortcomings(const brivolantProcessorLite& processor, const FolderItem& input) {
  const std::string name = input.DisplayName();
  for (const auto& stack : processor.stacks) {
    for (const auto& module : stack) {
      // A style may ask for an effect that has none here yet.
      if (!module->Enabled() || module->Complete()) continue;
      PrintError(WithPlaceholders(texts::kLeftOut.Text(),
                                  {{"<name>", module->Name()}, {"<filename>", name}}));
    }
  }
  for (const std::string& warning : processor.Warnings()) {
    PrintError(
        WithPlaceholders(texts::kWarning.Text(), {{"<filename>", name}, {"<text>", warning}}));
  }
}

}  // namespace brivolant::cli
