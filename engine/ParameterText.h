// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/values/Numbers.h"
#include "platform/values/Variant.h"

/// Settings as texts, on the command line and in the sources of styles.
namespace brivolant {

/// The value of a setting from its text, by the type that its parameter names; nothing if it does
/// not fit. Colours are "#RRGGBB", text boxes a plain text or JSON.
std::optional<Variant> ValueFromText(std::string_view text, const std::string& type);

/// The text that gives the value back.
std::string TextFromValue(const Variant& value);

}  // namespace brivolant
