// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "export/CarryMetadata.h"
#include "formats/PastedFiles.h"
#include "platform/files/FolderItem.h"
#include "platform/pictures/Picture.h"
#include "platform/services/Services.h"
#include "platform/values/Text.h"

namespace brivolant {

/// Renders the finished picture at full size and writes it as an image file.
namespace SaveAsCopy {

inline constexpr LocalizedText kSaving{"SaveAsCopy.kSaving", "Saving \"<filename>\"..."};

struct Job {
  /// The document's image before the effects.
  Picture Source;
  /// The document's pasted pictures.
  PastedFiles Pasted;
  std::string StyleData;
  FolderItem File;
  /// Identifier of a writable type.
  std::string Type;
  /// 0 to 1.
  double Quality = 0.75;
  /// What goes along. Copies that are handed on can be stamped with their maker.
  Carried Data{};
};

enum class Outcome { kDone, kCancelled, kFailed };

/// Renders and writes; call it on any thread. `progress` gets what is done, 0 to 1, and stops the
/// work with false. A file that stands at the place goes to the trash once the new one is
/// complete. `error` says why it failed, or what a finished copy lacks.
Outcome Run(const Job& job, const Services& services, const std::function<bool(double)>& progress,
            std::string& error);

}  // namespace SaveAsCopy
}  // namespace brivolant
