// SPDX-License-Identifier: MIT
#include "platform/services/SharedFolders.h"

#include <QFile>
#include <QStandardPaths>
#include <array>

#include "platform/values/Text.h"

namespace brivolant {
namespace {

constexpr LocalizedText kDefaultPhotoDirectoryName{
    "otherSharedComponents.kDefaultPhotoDirectoryName", "My Brivolant Photos"};
constexpr LocalizedText kMissingResources{
    "otherSharedComponents.kMissingResources",
    "<applicationName> is missing its resources and is unable to continue until it can access its "
    "resources. Clicking \"OK\" will take you to a web page where you can download and install a "
    "fresh copy of <applicationName>. If you still get this error then please contact "
    "<publisherName> using <supportPage>."};
constexpr std::string_view kApplicationFolder = "Brivolant Photos";
constexpr std::string_view kCombinerLayouts = "Combiner Layouts";

FolderItem Standard(QStandardPaths::StandardLocation location) {
  return FolderItem(QFile::encodeName(QStandardPaths::writableLocation(location)).toStdString());
}

FolderItem Created(const FolderItem& folder) {
  if (folder.IsNil()) return {};
  if (folder.CreateAsFolder()) return {};
  return folder;
}

}  // namespace

FolderItem DocumentsFolder() {
  return Standard(QStandardPaths::DocumentsLocation);
}
FolderItem ConfigurationFolder() {
  return Standard(QStandardPaths::GenericConfigLocation);
}
FolderItem DataFolder() {
  return Standard(QStandardPaths::GenericDataLocation);
}

namespace otherSharedComponents {

FolderItem ResourcesFolder() {
  std::error_code error;
  const FolderItem program(std::filesystem::read_symlink("/proc/self/exe", error));
  if (error) return {};
  const FolderItem above = program.Parent().Parent();
  const std::array<FolderItem, 2> places{above.Child("share").Child("brivolant-photos"),
                                         above.Child("Resources")};
  for (const FolderItem& folder : places) {
    if (folder.Directory()) return folder;
  }
  return {};
}

FolderItem userElementsFolder() {
  // The documents folder itself is the user's: it is not made here unless it is the default one.
  return Created(DocumentsFolder().Child(kApplicationFolder));
}

FolderItem DefaultPipDocumentsFolder() {
  return Created(userElementsFolder().Child(kDefaultPhotoDirectoryName.Text()));
}

FolderItem usersCustomLayoutsFolder() {
  return Created(userElementsFolder().Child(kCombinerLayouts));
}

std::string MissingResourcesMessage(const std::string& applicationName,
                                    const std::string& publisherName,
                                    const std::string& supportPage) {
  return WithPlaceholders(kMissingResources.Text(), {{"<applicationName>", applicationName},
                                                     {"<publisherName>", publisherName},
                                                     {"<supportPage>", supportPage}});
}

}  // namespace otherSharedComponents
}  // namespace brivolant
