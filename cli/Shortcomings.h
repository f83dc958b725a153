// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "engine/brivolantProcessorLite.h"
#include "platform/codecs/ImageCodecs.h"

/// What the user must know of a picture that came out, for every command.
namespace brivolant::cli {

/// Tells of a picture that was read in part; ask once it was decoded. False, and the sentence in
/// `error`, if only whole ones are wanted.
[[nodiscard]] bool TakesDamage(const PictureDamage& damage, bool strict, std::string& error);
/// Tells what a render could not do, once it is done.
void TellShortcomings(const brivolantProcessorLite& processor, const FolderItem& input);

}  // namespace brivolant::cli
