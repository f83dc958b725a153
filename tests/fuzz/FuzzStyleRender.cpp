// SPDX-License-Identifier: MIT
// Renders a small picture in whatever style the bytes are: no number of a style may crash a render
// or keep it from its end, and what is written is what was read, each number as it stood in the
// bytes.
#include <QGuiApplication>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "FuzzDocument.h"
#include "effects/EffectRegistry.h"
#include "engine/ModuleParameter.h"
#include "engine/StyleData.h"
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

/// True if every number that the effects of a stack take from `read` stands in `written`.
bool Kept(const std::optional<Dictionary>& read, const std::optional<Dictionary>& written,
          const brivolantProcessorLite::StackList& modules) {
  if (!read) return true;
  for (const auto& module : modules) {
    const auto* settings = read->Value(module->ID()).As<Dictionary>();
    if (settings == nullptr) continue;
    const auto* back = written ? written->Value(module->ID()).As<Dictionary>() : nullptr;
    if (back == nullptr) return false;
    for (const ParameterBase* parameter : module->Parameters()) {
      const Variant& number = settings->Value(parameter->Key());
      if (!parameter->Safe() || !number.IsNumber()) continue;
      const double before = number.ToDouble();
      const double after = back->Value(parameter->Key()).ToDouble();
      if (before != after && !(std::isnan(before) && std::isnan(after))) return false;
    }
  }
  return true;
}

/// The same for both stacks of the bytes.
bool Kept(std::string_view read, std::string_view written,
          const brivolantProcessorLite& processor) {
  StyleFault fault = StyleFault::kNone;
  const StyleContent before = ReadStyleData(read, fault);
  const StyleContent after = ReadStyleData(written, fault);
  return Kept(before.Foreground, after.Foreground, processor.stacks[kForeground]) &&
         Kept(before.Background, after.Background, processor.stacks[kBackground]);
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
  const std::string_view read(reinterpret_cast<const char*>(data), size);
  (void)processor.StyleData(read);
  const std::string written = processor.StyleData();
  if (!Kept(read, written, processor)) std::abort();
  // An opaque upper stack would hide the lower one, which then is not rendered.
  if (processor.BlendAlpha >= 1) processor.BlendAlpha = 0.5F;
  const Picture shown = processor.Process(photo, {});
  if (shown.Width() != photo.Width() || shown.Height() != photo.Height()) std::abort();
  processor.Reset();
  (void)processor.StyleData(written);
  if (processor.StyleData() != written) std::abort();
  return 0;
}
