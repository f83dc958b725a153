// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <cstdint>
#include <cstdlib>

#include "effects/styles/OneClickWonder.h"
#include "effects/styles/StyleSource.h"
#include "platform/services/SystemServices.h"

namespace {

struct Quiet final : brivolant::Log, brivolant::Dialogs, brivolant::UserDetails {
  void Write(std::string_view) override {}
  void Message(const std::string&, const std::string&) override {}
  std::string FullName() const override { return {}; }
  std::string ContactLink() const override { return {}; }
  std::string Copyright() const override { return {}; }
  std::string CreatedWith() const override { return {}; }
};

/// Effects with texts need fonts.
void MakeApplication() {
  static int count = 1;
  static char name[] = "fuzz";
  static char* arguments[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QGuiApplication application(count, arguments);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool made = (MakeApplication(), true);
  if (!made) return 0;
  static Quiet quiet;
  static brivolant::SystemRandom random(1);
  static brivolant::CleanOnQuit files(random);
  static brivolant::SystemClock clock;
  static const brivolant::Services services{quiet, quiet, quiet, files, clock, random};
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  brivolant::OneClickWonder style(services);
  std::string error;
  if (!brivolant::StyleSource::Read(bytes, services, style, error) && error.empty()) std::abort();
  return 0;
}
