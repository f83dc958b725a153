// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Numbers as texts, in one place, because the C library and the toolkit format them by the user's
/// locale: what a file or an option holds would then be another number elsewhere.
namespace brivolant {

/// A finite number with a point and nothing else: no blanks, no comma.
std::optional<double> NumberFromText(std::string_view text);
/// The number that a text begins with, after blanks and a plus; 0 if there is none, infinite if it
/// is beyond all numbers.
double LeadingNumber(std::string_view text);
/// `value` with that many decimals after a point. What is no number is 0.
std::string FixedNumber(double value, int decimals);
/// Decimal digits, with zeros on the left up to `digits`.
std::string PaddedNumber(std::int64_t value, int digits);

/// For people, by the locale of the toolkit: their groups of thousands, their decimal sign. Never
/// for what is read again.
std::string ReadableNumber(double value, int decimals);

/// Keeps the C library's own numbers plain, for the libraries that read files with it. Called once
/// the toolkit has set the user's locale, before there are threads.
void KeepLibraryNumbersPlain();
/// The same for capitals: some libraries find a format by its name in them, and in Turkish "i" has
/// another.
void KeepLibraryLettersPlain();
/// The same for words: the system's reasons, such as why a file cannot be written, stay English.
void KeepLibraryWordsPlain();

}  // namespace brivolant
