// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "metadata/MetadataChange.h"
#include "platform/files/FolderItem.h"

namespace brivolant {

class ImageMetaData;

/// What stands in several places of a file, and is one thing to its owner.
enum class MetadataField {
  kTitle,
  kDescription,
  kCreator,
  kCopyright,
  kKeywords,
  kRating,
  kTaken,
  kCity,
  kState,
  kCountry,
  /// Where the camera stood.
  kPosition
};

/// By its name in lower case, such as "title".
std::optional<MetadataField> MetadataFieldNamed(std::string_view name);

/// The field of which a tag, or a property by its usual name, holds the texts, one for one; nothing
/// for a tag that holds a part of one, or none.
std::optional<MetadataField> FieldOf(MetadataBlock block, std::string_view tag);
/// All places of a field, the one that belongs to it first.
std::vector<std::pair<MetadataBlock, std::string>> PlacesOf(MetadataField field);

/// A place that holds several names in one text.
bool IsJoined(MetadataBlock block, std::string_view tag);
/// A place that is written even where it says nothing yet.
bool IsAlwaysSaid(MetadataBlock block, std::string_view tag);

/// Degrees north and east.
struct Position {
  double Latitude = 0;
  double Longitude = 0;
};
/// "52.5163, 13.3777", also with commas for points and a blank or a semicolon between, and with
/// letters for the directions. Nothing for what is no place on Earth.
std::optional<Position> PositionFromText(std::string_view text);
std::string TextOf(const Position& position);

/// The changes that let all places of a file say the same: those that say something already, the
/// one that belongs to the field first of all, and the packet's property. Several texts are of
/// keywords and creators; none takes the field out. A moment is "YYYY-MM-DD HH:MM:SS", with a zone
/// behind it or in the one that was said before. Nothing for a text that is no moment, no rating
/// from -1 to 5, or no place.
std::optional<std::vector<MetadataChange>> ChangesOf(MetadataField field,
                                                     const std::vector<std::string>& texts,
                                                     const ImageMetaData& held);
/// The same of something that tells whether a place says something already, and what first.
using SaysSomething = std::function<bool(MetadataBlock block, const std::string& tag)>;
using SaidFirst = std::function<std::string(MetadataBlock block, const std::string& tag)>;
std::optional<std::vector<MetadataChange>> ChangesOf(MetadataField field,
                                                     const std::vector<std::string>& texts,
                                                     const SaysSomething& says,
                                                     const SaidFirst& said);

/// Stamps a picture that was made for others with its maker. What is empty leaves what stands.
/// Empty if it is done, or else one sentence that names the file, which is then as it was.
[[nodiscard]] std::string StampImage(const FolderItem& file, const std::string& creator,
                                     const std::string& copyright, const std::string& software);

}  // namespace brivolant
