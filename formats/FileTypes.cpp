// SPDX-License-Identifier: MIT
#include "formats/FileTypes.h"

namespace brivolant {

std::string ImagesReadableMac::All() {
  std::string names;
  for (const FileType& type : kTypes) names += std::string(type.Name.English) + ';';
  return names;
}

std::string ImagesWritableMac::All() {
  std::string names;
  for (const FileType* type : kTypes) names += std::string(type->Name.English) + ';';
  return names;
}

const FileType* ImagesWritableMac::WithIdentifier(std::string_view identifier) {
  for (const FileType* type : kTypes) {
    if (type->Identifier == identifier) return type;
  }
  return nullptr;
}

}  // namespace brivolant
