// SPDX-License-Identifier: MIT
#pragma once

#include "platform/values/Text.h"

/// Captions that several windows share.
namespace brivolant::Captions {

inline constexpr LocalizedText kOK{"Captions.kOK", "OK"};
inline constexpr LocalizedText kCancel{"Captions.kCancel", "Cancel"};
inline constexpr LocalizedText kSave{"Captions.kSave", "Save"};
inline constexpr LocalizedText kCreatorName{"Captions.kCreatorName", "Creator:"};
inline constexpr LocalizedText kDontSave{"Captions.kDontSave", "Don't Save"};

}  // namespace brivolant::Captions
