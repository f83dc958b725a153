// SPDX-License-Identifier: MIT
#pragma once

#include <fcntl.h>
#include <unistd.h>
#include <vips/vips.h>

#include <memory>
#include <string>

#include "platform/files/FolderItem.h"

namespace brivolant::codecs {

/// Starts the library once; false if it cannot be.
bool StartVips();

struct UnrefVips {
  void operator()(void* object) const { g_object_unref(object); }
};
using VipsPicture = std::unique_ptr<VipsImage, UnrefVips>;

/// The library's own words, in one line.
std::string TakeVipsError();

/// A path that the libraries take as it stands: they read options from square brackets and numbers
/// from percent signs, so a name with such is reached over its descriptor.
class PlainPath {
 public:
  explicit PlainPath(const FolderItem& file) : path_(file.ShellPath()) {
    if (path_.find_first_of("[%") == std::string::npos) return;
    descriptor_ = open(path_.c_str(), O_RDONLY | O_CLOEXEC);
    path_ = "/proc/self/fd/" + std::to_string(descriptor_);
  }
  ~PlainPath() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  PlainPath(const PlainPath&) = delete;
  PlainPath& operator=(const PlainPath&) = delete;
  const char* Get() const { return path_.c_str(); }

 private:
  std::string path_;
  int descriptor_ = -1;
};

}  // namespace brivolant::codecs
