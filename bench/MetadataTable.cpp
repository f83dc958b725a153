// SPDX-License-Identifier: MIT
// Reading and writing what photos tell of themselves, beside the library that most programs use for
// it, in this process on the same files.
#include <sys/resource.h>

#include <QCoreApplication>
#include <chrono>
#include <cstdio>
#include <exiv2/exiv2.hpp>
#include <filesystem>
#include <fstream>

#include "Peers.h"
#include "browser/FolderLister.h"
#include "browser/PhotoFactsCache.h"
#include "metadata/ImageMetaData.h"
#include "metadata/MetadataWriter.h"
#include "metadata/PhotoFacts.h"
#include "platform/values/Numbers.h"

namespace brivolant::bench {
namespace {

using Act = MetadataChange::Act;

/// Bytes that this process holds now.
double Resident() {
  std::ifstream file("/proc/self/statm");
  double pages = 0;
  double resident = 0;
  file >> pages >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

/// As cameras and archives leave it: some thirty tags, records and a packet.
void Fill(const FolderItem& photo) {
  const std::vector<MetadataChange> changes{
      {Act::kSet, MetadataBlock::kTiff, "010F", "A maker of cameras"},
      {Act::kSet, MetadataBlock::kTiff, "0110", "Model 7"},
      {Act::kSet, MetadataBlock::kTiff, "0132", "2009:03:04 14:05:06"},
      {Act::kSet, MetadataBlock::kTiff, "013B", "Anna Beispiel"},
      {Act::kSet, MetadataBlock::kTiff, "8298", "\xC2\xA9 Anna Beispiel"},
      {Act::kSet, MetadataBlock::kTiff, "010E", std::string(200, 'd')},
      {Act::kSet, MetadataBlock::kExif, "829A", "1/250"},
      {Act::kSet, MetadataBlock::kExif, "829D", "56/10"},
      {Act::kSet, MetadataBlock::kExif, "8827", "200"},
      {Act::kSet, MetadataBlock::kExif, "9003", "2009:03:04 14:05:06"},
      {Act::kSet, MetadataBlock::kExif, "9004", "2009:03:04 14:05:06"},
      {Act::kSet, MetadataBlock::kExif, "920A", "35"},
      {Act::kSet, MetadataBlock::kExif, "A434", "A lens, 35 mm"},
      {Act::kSet, MetadataBlock::kGps, "0002", "51 30 26.4"},
      {Act::kSet, MetadataBlock::kGps, "0004", "0 7 39.9"},
      {Act::kSet, MetadataBlock::kIptc, "5", "A title"},
      {Act::kSet, MetadataBlock::kIptc, "80", "Anna Beispiel"},
      {Act::kAdd, MetadataBlock::kIptc, "25", "one"},
      {Act::kAdd, MetadataBlock::kIptc, "25", "two"},
      {Act::kSet, MetadataBlock::kIptc, "120", std::string(200, 'c')},
      {Act::kSet, MetadataBlock::kXmp, "dc:title", "A title"},
      {Act::kSet, MetadataBlock::kXmp, "dc:creator", "Anna Beispiel"},
      {Act::kAdd, MetadataBlock::kXmp, "dc:subject", "one"},
      {Act::kAdd, MetadataBlock::kXmp, "dc:subject", "two"},
      {Act::kSet, MetadataBlock::kXmp, "photoshop:City", "Gotham"}};
  if (const std::string why = MetadataWriter::Write(photo, changes); !why.empty()) GiveUp(why);
}

void Reading(const std::vector<std::string>& files) {
  std::size_t ours = 0;
  std::size_t theirs = 0;
  const auto read = [&](bool firstAlone) {
    for (const std::string& file : files) {
      ImageMetaData data;
      data.ReadFile(FolderItem(file), firstAlone);
      for (const auto& [name, block] : data.Blocks()) {
        if (block != nullptr) ours += static_cast<std::size_t>(block->Count());
      }
    }
  };
  const auto times = Fastest({[&] { read(false); }, [&] { read(true); },
                              [&] {
                                for (const std::string& file : files) {
                                  const auto image = Exiv2::ImageFactory::open(file);
                                  image->readMetadata();
                                  theirs += image->exifData().count() + image->iptcData().count() +
                                            image->xmpData().count();
                                }
                              }},
                             Count(5, 1));
  if (ours == 0 || theirs == 0) GiveUp("nothing was read");
  Row("all blocks of 1,000 JPEG files", times[0], "Exiv2", times[2], 1);
  Row("their first structure alone", times[1], "Exiv2, all", times[2], 0.5);
}

void Memory(const std::string& file) {
  const auto read = [&] {
    auto data = std::make_unique<ImageMetaData>();
    data->ReadFile(FolderItem(file));
    return data;
  };
  (void)read();
  const double before = Resident();
  const auto held = read();
  constexpr double kMega = 1 << 20;
  Row("memory of a read, MiB", std::max(Resident() - before, 0.0) / kMega, "2 MiB", 2, 1);
}

void Writing(const FolderItem& scratch, const FolderItem& photo) {
  // Ten megabytes: what stands behind the picture is copied as it is.
  const FolderItem file = scratch.Child("ten.jpg");
  (void)photo.CopyFileTo(file);
  constexpr std::uint64_t kTen = 10'000'000;
  if (file.Length() < kTen) {
    std::ofstream(file.Path(), std::ios::app | std::ios::binary)
        << std::string(kTen - file.Length(), '\1');
  }
  const FolderItem copy = scratch.Child("copy.jpg");
  int round = 0;
  const auto times =
      Fastest({[&] {
                 const std::vector<MetadataChange> changes{
                     {Act::kSet, MetadataBlock::kTiff, "013B", "Anna " + PaddedNumber(++round, 1)}};
                 if (const auto why = MetadataWriter::Write(file, changes); !why.empty())
                   GiveUp(why);
               },
               [&] {
                 RunProgram({"cp", "--reflink=never", file.ShellPath(), copy.ShellPath()});
               }},
              Count(15, 1));
  Row("one tag into a JPEG of 10 MB", times[0], "cp", times[1], 2);
}

/// Ten thousand names of one photo, sorted by the moments that they tell.
void Sorting(const FolderItem& scratch, const FolderItem& photo) {
  const FolderItem folder = scratch.Child("many");
  (void)folder.CreateAsFolder();
  const int count = Count(10000, 50);
  for (int i = 0; i < count; ++i) {
    std::filesystem::create_hard_link(photo.Path(),
                                      folder.Child(PaddedNumber(i, 5) + ".jpg").Path());
  }
  using Clock = std::chrono::steady_clock;
  const auto since = [](Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
  };
  FolderLister::Order order;
  order.column = BrowserRows::kTakenColumn;
  order.facts = std::make_shared<PhotoFactsCache>(scratch.Child("facts.sqlite"));
  std::size_t known = 0;
  const auto list = [&] {
    std::vector<FolderItem> unknown;
    FolderLister::Read(folder, order, [&](const std::vector<BrowserRows::Row>& rows, bool) {
      for (const auto& row : rows) {
        const auto& item = std::get<std::shared_ptr<browserItem>>(row.tag);
        item->Taken ? (void)++known : unknown.push_back(item->File());
      }
      return true;
    });
    return unknown;
  };
  const auto cold = Clock::now();
  for (const FolderItem& file : list()) (void)order.facts->Of(file);
  Row("sorting 10,000 photos by date taken, nothing known", since(cold), "3000 ms", 3000, 1);
  known = 0;
  const auto warm = Clock::now();
  (void)list();
  Row("the same once they are known", since(warm), "100 ms", 100, 1);
  if (known != static_cast<std::size_t>(count)) GiveUp("not all moments were kept");
}

void Taken(const std::vector<std::string>& files) {
  int found = 0;
  const auto times = Fastest({[&] {
                               for (const std::string& file : files) {
                                 if (PhotoFacts::Of(FolderItem(file)).Taken) ++found;
                               }
                             }},
                             Count(3, 1));
  if (found == 0) GiveUp("no moment was found");
  Row("the moments of 10,000 photos", times[0] * 10000 / static_cast<double>(files.size()),
      "3000 ms", 3000, 1);
}

}  // namespace
}  // namespace brivolant::bench

int main(int argc, char** argv) {
  using namespace brivolant;
  using namespace brivolant::bench;
  TakeSmoke(argc, argv);
  if (argc != 3) GiveUp("usage: metadata-table [--smoke] PHOTO FOLDER");
  const QCoreApplication application(argc, argv);
  const FolderItem scratch(argv[2]);
  const FolderItem photo = scratch.Child("photo.jpg");
  if (FolderItem(argv[1]).CopyFileTo(photo)) GiveUp("the photo could not be copied");
  Fill(photo);
  std::vector<std::string> files;
  for (int i = 0; i < Count(1000, 20); ++i) {
    const FolderItem copy = scratch.Child(PaddedNumber(i, 4) + ".jpg");
    if (photo.CopyFileTo(copy)) GiveUp("the photo could not be copied");
    files.push_back(copy.ShellPath());
  }
  Heading();
  Memory(files.front());
  Reading(files);
  Taken(files);
  Sorting(scratch, photo);
  Writing(scratch, photo);
  return 0;
}
