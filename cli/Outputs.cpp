// SPDX-License-Identifier: MIT
#include "cli/Outputs.h"

#include <sys/stat.h>

#include "cli/Texts.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "platform/files/FileNames.h"

namespace brivolant::cli {
bool InputFiles::Identify(const std::filesystem::path& path, Identity& identity) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return false;
  identity = {status.st_dev, status.st_ino};
  return true;
}

InputFiles::InputFiles(const std::vector<std::string>& inputs) {
  Identity identity;
  for (const std::string& input : inputs) {
    const FolderItem item(input);
    if (!Identify(item.Path(), identity)) continue;
    files_.insert(identity);
    if (!item.Directory() || !BrivolantDocument::IsDocument(item)) continue;
    packages_.insert(identity);
    // A part may be a link to a file elsewhere, or have a second name there.
    for (const FolderItem& part : item.Children()) {
      if (Identify(part.Path(), identity)) files_.insert(identity);
    }
  }
}

bool InputFiles::IsOrLiesInPackage(const FolderItem& place) const {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::weakly_canonical(place.Path(), error);
  // A link may bear the name of a package, and lead into one.
  for (const FolderItem& path : {place, error ? place : FolderItem(real)}) {
    for (FolderItem item = path; item; item = item.Parent()) {
      Identity identity;
      if (BrivolantDocument::IsDocument(item)) return true;
      if (Identify(item.Path(), identity) && packages_.contains(identity)) return true;
    }
  }
  return false;
}

std::string InputFiles::WhyNotWriteInto(const FolderItem& folder) const {
  return IsOrLiesInPackage(folder) ? texts::Of(texts::kInsideDocument, folder.DisplayName())
                                   : std::string();
}

std::string InputFiles::WhyNotWriteTo(const FolderItem& output) const {
  Identity identity;
  // The place itself may be a new document: what counts is where it lies, or where its link leads.
  if (IsOrLiesInPackage(output.Alias() ? output : output.Parent())) {
    return texts::Of(texts::kInsideDocument, output.DisplayName());
  }
  return Identify(output.Path(), identity) && files_.contains(identity)
             ? texts::Of(texts::kWouldOverwrite, output.DisplayName())
             : std::string();
}

std::vector<FolderItem> OutputsIn(
    const FolderItem& folder, const std::vector<std::string>& inputs, const InputFiles& read,
    const std::function<std::string(const FolderItem& input)>& extensionOf) {
  std::vector<FolderItem> outputs;
  std::set<std::filesystem::path> taken;
  for (const std::string& text : inputs) {
    const FolderItem input(text);
    const std::string stem = FolderitemExtensions::FileNameWithoutExtension(input);
    const std::string extension = extensionOf(input);
    bool spares = false;
    const auto usable = [&](const FolderItem& output) {
      // No file can have that name, and saving says so.
      if (output.IsNil()) return true;
      if (!read.WhyNotWriteTo(output).empty()) {
        spares = true;
        return false;
      }
      // Nobody asked for the place of another photo that happens to have the number.
      if (spares && (output.Exists() || output.Alias())) return false;
      return taken.insert(output.Path()).second;
    };
    int number = 0;
    const auto next = [&] { return folder.Child(NumberedName(stem, number++, "." + extension)); };
    FolderItem output = next();
    while (!usable(output)) output = next();
    outputs.push_back(output);
  }
  return outputs;
}

}  // namespace brivolant::cli
