// SPDX-License-Identifier: MIT
#include "effects/styles/OneClickWonderStorage.h"

#include <algorithm>

#include "files/FolderitemExtensions.h"
#include "formats/FileTypes.h"
#include "formats/ImageFile.h"
#include "platform/services/SharedFolders.h"

namespace brivolant {
namespace {

/// Adds a style, or puts it in the place of what was found in its file while that was written.
void Keep(std::vector<OneClickWonderStorage::Style>& wonders,
          const OneClickWonderStorage::Style& style) {
  const auto known = std::find_if(
      wonders.begin(), wonders.end(),
      [&](const OneClickWonderStorage::Style& other) { return other->File == style->File; });
  if (known != wonders.end()) {
    *known = style;
  } else {
    wonders.push_back(style);
  }
}

}  // namespace

OneClickWonderStorage::OneClickWonderStorage(const Services& services) : services_(&services) {}

void OneClickWonderStorage::FindFolders() {
  if (DefaultWondersFolder.IsNil()) {
    const FolderItem resources = otherSharedComponents::ResourcesFolder();
    if (resources) DefaultWondersFolder = resources.Child(kFolderName);
  }
  if (usersCustomWondersFolder.IsNil()) {
    const FolderItem own = otherSharedComponents::userElementsFolder();
    if (own) usersCustomWondersFolder = own.Child(kFolderName);
  }
  if (usersCustomWondersFolder) {
    if (const std::error_code failure = usersCustomWondersFolder.CreateAsFolder()) {
      services_->Log.Write("No folder for styles: " + failure.message());
    }
  }
}

void OneClickWonderStorage::Load() {
  if (loaded_) return;
  FindFolders();
  AddFolder(DefaultWondersFolder);
  AddFolder(usersCustomWondersFolder);
  loaded_ = true;
}

void OneClickWonderStorage::AddFolder(const FolderItem& folder) {
  if (folder.IsNil() || !folder.Exists()) return;
  std::vector<FolderItem> files = folder.Children();
  std::sort(files.begin(), files.end(),
            [](const FolderItem& a, const FolderItem& b) { return a.Name() < b.Name(); });
  for (const FolderItem& file : files) (void)Add(file);
}

bool OneClickWonderStorage::Refresh() {
  if (!loaded_) {
    Load();
    return true;
  }
  const std::size_t before = wonders_.size();
  std::erase_if(wonders_, [](const Style& style) { return !style->File.Exists(); });
  bool changed = wonders_.size() != before;
  for (const FolderItem& file : usersCustomWondersFolder.Children()) {
    const bool known = std::any_of(wonders_.begin(), wonders_.end(),
                                   [&](const Style& style) { return style->File == file; });
    if (!known && Add(file)) changed = true;
  }
  return changed;
}

OneClickWonderStorage::Style OneClickWonderStorage::Add(const FolderItem& file) {
  using InternalFileTypes::BrivolantPhotosOneClickWonder;
  if (!file.Exists() || !FolderitemExtensions::isFileType(file, &BrivolantPhotosOneClickWonder)) {
    return nullptr;
  }
  auto style = std::make_shared<OneClickWonder>(*services_);
  if (!style->Load(file)) {
    services_->Log.Write(style->LastErrorMessage);
    return nullptr;
  }
  Keep(wonders_, style);
  return style;
}

bool OneClickWonderStorage::Add(const Style& style) {
  if (style == nullptr) return false;
  if (style->File.IsNil()) {
    FindFolders();
    style->GenerateFile(usersCustomWondersFolder);
    if (!style->Save({})) {
      style->File = {};
      return false;
    }
  }
  Keep(wonders_, style);
  return true;
}

void OneClickWonderStorage::Remove(const OneClickWonder& style) {
  const auto found = std::find_if(wonders_.begin(), wonders_.end(),
                                  [&](const Style& own) { return own.get() == &style; });
  if (found != wonders_.end()) wonders_.erase(found);
}

int OneClickWonderStorage::Count() const {
  return static_cast<int>(
      std::count_if(wonders_.begin(), wonders_.end(),
                    [this](const Style& style) { return style->Category == currentCategory; }));
}

OneClickWonderStorage::Style OneClickWonderStorage::item(int index) const {
  for (const Style& style : wonders_) {
    if (style->Category == currentCategory && index-- == 0) return style;
  }
  return nullptr;
}

OneClickWonderStorage::Style OneClickWonderStorage::Named(const std::string& name) const {
  constexpr int kEnglish = 0;
  const auto found = std::find_if(wonders_.begin(), wonders_.end(), [&](const Style& style) {
    return EqualIgnoringCase(style->Name(), name) || EqualIgnoringCase(style->Name(kEnglish), name);
  });
  return found == wonders_.end() ? nullptr : *found;
}

Picture OneClickWonderStorage::PreviewImage() {
  const FolderItem resources = otherSharedComponents::ResourcesFolder();
  std::string ignored;
  return resources ? ImageIO::OpenAsPictureUsingImageIO(resources.Child("1-ClickStyleExample.jpg"),
                                                        ignored)
                   : Picture();
}

}  // namespace brivolant
