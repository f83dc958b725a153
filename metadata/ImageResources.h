// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brivolant {

/// Photoshop's image resources, in their order.
class ImageResources {
 public:
  ImageResources() = default;
  explicit ImageResources(std::string_view bytes);

  /// All of the bytes were resources.
  bool Whole() const { return whole_; }
  bool Has(int id) const { return Find(id) != nullptr; }
  std::string_view Data(int id) const;
  void Set(int id, std::string data);
  void Remove(int id);
  std::string Bytes() const;

  static constexpr int kIptc = 0x0404;
  /// The MD5 of it.
  static constexpr int kIptcDigest = 0x0425;
  static constexpr int kExif = 0x0422;
  static constexpr int kXmp = 0x0424;
  static constexpr int kThumbnail = 0x040C;
  static constexpr int kOldThumbnail = 0x0409;

 private:
  struct Resource {
    std::string signature;
    int id;
    /// With its length and padding.
    std::string name;
    std::string data;
  };
  const Resource* Find(int id) const;

  std::vector<Resource> resources_;
  bool whole_ = true;
};

}  // namespace brivolant
