// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdlib>

#include "effects/styles/OneClickWonder.h"
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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Quiet quiet;
  static brivolant::SystemRandom random(1);
  static brivolant::CleanOnQuit files(random);
  static brivolant::SystemClock clock;
  static const brivolant::Services services{quiet, quiet, quiet, files, clock, random};
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  brivolant::OneClickWonder style(services);
  if (!style.LoadBytes(bytes, "fuzz")) return 0;
  // What was read is what is written.
  brivolant::OneClickWonder again(services);
  const std::string written = style.Bytes();
  if (!again.LoadBytes(written, "again") || again.Bytes() != written) std::abort();
  return 0;
}
