// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace brivolant {

/// What a standard says of a tag: its name, and the type that it is written with; 0 where any will
/// do.
struct CatalogTag {
  std::string_view Tag;
  std::string_view Name;
  int Type;
};
/// What a number means in a tag.
struct CatalogValue {
  std::string_view Tag;
  int Number;
  std::string_view Text;
};

/// Tags and their numbers: Exif 2.2 and its interoperability and GPS directories, TIFF 6.0 with the
/// extensions found in its directories, the second record of IPTC-IIM, Photoshop's resources, and
/// the signatures of ICC.1.
namespace TagCatalog {
std::span<const CatalogTag> Exif();
std::span<const CatalogTag> Interoperability();
std::span<const CatalogTag> Gps();
std::span<const CatalogTag> Tiff();
std::span<const CatalogTag> Iptc();
std::span<const CatalogTag> Photoshop();
std::span<const CatalogTag> Profile();
std::span<const CatalogValue> ExifValues();
std::span<const CatalogValue> TiffValues();

/// A name or a meaning in the language of the program; as it is, where that has none.
std::string Shown(std::string_view text);
/// Empty, or 0, for what is not in it.
std::string NameOf(std::span<const CatalogTag> catalog, std::string_view tag);
int TypeOf(std::span<const CatalogTag> catalog, std::string_view tag);
std::string MeaningOf(std::span<const CatalogValue> values, std::string_view tag, int number);
bool HasMeanings(std::span<const CatalogValue> values, std::string_view tag);
}  // namespace TagCatalog

}  // namespace brivolant
