// SPDX-License-Identifier: MIT
#include "platform/codecs/VipsSupport.h"

#include <algorithm>
#include <atomic>

#include "platform/codecs/CodecDetail.h"

namespace brivolant::codecs {
namespace {

std::atomic<bool> started = false;

}  // namespace

bool StartVips() {
  static const bool ready = [] {
    if (vips_init("brivolant") != 0) return false;
    // What is wrong with a file reaches the user as our own sentence.
    g_log_set_handler(
        "VIPS", G_LOG_LEVEL_WARNING, [](const char*, GLogLevelFlags, const char*, void*) {},
        nullptr);
    // Files are read once: what the library would keep only takes memory from pictures.
    vips_cache_set_max(0);
    started = true;
    return true;
  }();
  return ready;
}

std::string TakeVipsError() {
  std::string text(Trim(vips_error_buffer()));
  vips_error_clear();
  std::replace(text.begin(), text.end(), '\n', ';');
  return text.empty() ? "unknown error" : EnsureUTF8(text);
}

void ShutDownVips() {
  if (started.exchange(false)) vips_shutdown();
}

}  // namespace brivolant::codecs
