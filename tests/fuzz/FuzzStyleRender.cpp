// SPDX-License-Identifier: MIT
// Renders a small picture in whatever style the bytes are: no number of a style may crash a render
// or keep it from its end, and what is written is what was read.
#include <QGuiApplication>
#include <cstdlib>

#include "FuzzDocument.h"
#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "platform/pictures/Parallel.h"

namespace {

using namespace brivolant;

Picture Gradient() {
  Picture picture = NewPicture(64, 48, 24);
  const Pixels pixels = picture.Edit();
  for (int y = 0; y < pixels.height; ++y) {
    for (int x = 0; x < pixels.width; ++x) {
      std::uint8_t* pixel = pixels.Row(y) + std::ptrdiff_t{4} * x;
      pixel[0] = static_cast<std::uint8_t>(4 * x);
      pixel[1] = static_cast<std::uint8_t>(5 * y);
      pixel[2] = static_cast<std::uint8_t>(x * y);
    }
  }
  return picture;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Texts need fonts, which need an application, and no screen.
  static int count = 1;
  static char name[] = "fuzz";
  static char* arguments[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QGuiApplication application(count, arguments);
  static fuzz::Silent silent;
  static const Picture photo = Gradient();
  const ThreadLimit one(1);
  brivolantProcessorLite processor(EffectRegistry(), silent.services);
  processor.Startup();
  (void)processor.StyleData(std::string_view(reinterpret_cast<const char*>(data), size));
  const std::string written = processor.StyleData();
  // An opaque upper stack would hide the lower one, which then is not rendered.
  if (processor.BlendAlpha >= 1) processor.BlendAlpha = 0.5F;
  const Picture shown = processor.Process(photo, {});
  if (shown.Width() != photo.Width() || shown.Height() != photo.Height()) std::abort();
  processor.Reset();
  (void)processor.StyleData(written);
  if (processor.StyleData() != written) std::abort();
  return 0;
}
