// SPDX-License-Identifier: MIT
// The parsers of what other blocks are made of, each by itself: records of IPTC, Photoshop's
// resources, colour profiles and packets. The first byte says which.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "metadata/IPTCRecords.h"
#include "metadata/ImageMetaData.h"
#include "metadata/ImageResources.h"
#include "metadata/XMPEditor.h"
#include "metadata/XMPExtension.h"

namespace {

using namespace brivolant;

void Show(const TiffDataCoreClass& block) {
  for (const auto& entry : block.AllData()) (void)block.StringValue(entry.Tag);
}

void Expect(bool holds, const char* what) {
  if (holds) return;
  (void)std::fputs(what, stderr);
  std::abort();
}

void Records(const std::string& bytes) {
  IPTCDataObject block;
  block.ReadRawData(bytes);
  Show(block);
  IPTCRecords records(bytes);
  if (!records.Whole()) return;
  records.Set(5, {"A title"});
  records.Add(25, "word");
  const IPTCRecords again(records.Bytes());
  Expect(again.Whole(), "Records that were written are none.\n");
  Expect(again.Bytes() == records.Bytes(), "Records change each time.\n");
}

void Resources(const std::string& bytes) {
  ImageResources resources(bytes);
  if (!resources.Whole()) return;
  resources.Set(0x040B, "https://example.org");
  const ImageResources again(resources.Bytes());
  Expect(again.Whole() && again.Data(0x040B) == "https://example.org",
         "Resources that were written are none.\n");
}

void Profile(const std::string& bytes) {
  ColorProfileObject profile;
  profile.RawData = bytes;
  profile.ProcessColorProfile();
  Show(profile);
}

void Packet(std::string bytes) {
  XMPProperties before;
  const bool read = ReadXMP(bytes, before);
  constexpr std::size_t kRoom = 500;
  (void)XMPExtension::Split(bytes, kRoom);
  if (!XMPEditor::Set(bytes, "dc:title", {"A title"})) return;
  XMPProperties after;
  Expect(ReadXMP(bytes, after), "A packet that was written is none.\n");
  Expect(!read || after.size() + 1 >= before.size(), "Properties are gone.\n");
  (void)XMPEditor::RemoveLike(bytes, {"GPS", "City"});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  switch (data[0] % 4) {
    case 0:
      Records(bytes);
      break;
    case 1:
      Resources(bytes);
      break;
    case 2:
      Profile(bytes);
      break;
    default:
      Packet(bytes);
  }
  return 0;
}
