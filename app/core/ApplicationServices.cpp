// SPDX-License-Identifier: MIT
#include "app/core/ApplicationServices.h"

#include <pwd.h>
#include <unistd.h>

#include "app/core/GlobalApplicationSpecificProperties.h"
#include "platform/services/SharedFolders.h"

namespace brivolant {
namespace {

/// The account's full name, else its short one.
std::string AccountName() {
  const passwd* account = getpwuid(getuid());
  if (account == nullptr) return {};
  const std::string name(Trim(Split(account->pw_gecos, ',').front()));
  return EnsureUTF8(name.empty() ? account->pw_name : name);
}

}  // namespace

std::string StoredUserDetails::Stored(const char* key) const {
  if (!preferences_) {
    preferences_ = std::make_unique<Preferences>(
        GlobalApplicationSpecificProperties::kPreferencesID, ConfigurationFolder(), log_);
  }
  return preferences_->Value(key, "").ToText();
}

std::string StoredUserDetails::FullName() const {
  const std::string name = Stored("usersFullName");
  return name.empty() ? AccountName() : name;
}

std::string StoredUserDetails::ContactLink() const {
  return Stored("usersContactLink");
}
std::string StoredUserDetails::Copyright() const {
  return Stored("usersCopyright");
}
std::string StoredUserDetails::CreatedWith() const {
  return GlobalApplicationSpecificProperties::CreatedWithString();
}

FolderItem LazyTemporaryFiles::Child(std::string_view name) {
  if (!configured_) {
    std::error_code error;
    const FolderItem folder(std::filesystem::temp_directory_path(error));
    configured_ = !error && files_.Configure(folder.Child("brivolant"));
  }
  return configured_ ? files_.Child(name) : FolderItem();
}

QuietServices::QuietServices(std::uint64_t seed)
    : user_(silent_), random_(seed), files_(random_), all_{silent_, silent_, user_,
                                                           files_,  clock_,  random_} {}

}  // namespace brivolant
