// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brivolant {

/// A text that the user sees: the key by which a translation replaces it and its English default.
struct LocalizedText {
  const char* Key;
  const char* English;

  /// The translation in force, or the English default.
  std::string Text() const;
};

/// Asked for every LocalizedText; an empty result keeps the English default.
using TranslationLookup = std::string (*)(const char* key);
/// Installs the source of translations, once, before any text is shown.
void InstallTranslations(TranslationLookup lookup);

/// `text` with every placeholder, such as "<filename>", replaced without regard to case.
std::string WithPlaceholders(
    std::string text, std::initializer_list<std::pair<std::string_view, std::string_view>> values);

/// Compare and search without regard to the case of ASCII letters.
bool EqualIgnoringCase(std::string_view a, std::string_view b);
std::size_t FindIgnoringCase(std::string_view text, std::string_view part, std::size_t from = 0);
std::string LowerCase(std::string_view text);

/// The fields of `text` between separators; an empty text has one empty field.
std::vector<std::string_view> Split(std::string_view text, char separator);
std::string_view Trim(std::string_view text);

/// Upper-case hexadecimal, padded on the left with zeros to `digits`.
std::string Hexadecimal(std::uint64_t value, int digits);

/// True if every byte belongs to a well-formed UTF-8 sequence.
bool IsUTF8(std::string_view text);
/// A text that is not UTF-8 is taken as Latin-1 and converted; UTF-8 comes back as it is.
std::string EnsureUTF8(std::string_view text);

std::string Base64Encode(std::string_view bytes, int lineLength = 0);
std::string Base64Decode(std::string_view text);

}  // namespace brivolant
