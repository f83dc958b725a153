// SPDX-License-Identifier: MIT
// What photos tell, kept between runs.
#include <sys/stat.h>

#include "MetadataWriting.h"
#include "browser/FolderLister.h"
#include "browser/PhotoFactsCache.h"
#include "formats/BrivolantDocument.h"
#include "formats/ImageFile.h"
#include "metadata/Sidecar.h"

namespace brivolant::test {
namespace {

struct Kept : Writing {
  FolderItem Photo(const std::string& name, const std::vector<MetadataChange>& changes) {
    const FolderItem file = folder.Write("photos/" + name, "\xFF\xD8" + Jfif() + Rest());
    Change(file, changes);
    return file;
  }
  std::vector<std::string> ListedByTaken(const std::shared_ptr<PhotoFactsCache>& facts) {
    std::vector<std::string> names;
    FolderLister::Order order;
    order.column = BrowserRows::kTakenColumn;
    order.facts = facts;
    FolderLister::Read(photos, order, [&](std::vector<BrowserRows::Row> rows, bool) {
      for (const auto& row : rows) names.push_back(BrowserRows::NameOf(row.tag));
      return true;
    });
    return names;
  }
  static std::vector<FolderItem> Found(PhotoFactsCache& facts, const std::string& text) {
    std::vector<FolderItem> found;
    for (const auto& [photo, stamp] : facts.Find(text, [] { return true; })) {
      if (PhotoFactsCache::StampOf(photo) == stamp) found.push_back(photo);
    }
    return found;
  }
  void ReadAll(PhotoFactsCache& facts) {
    for (const FolderItem& photo : photos.Children()) {
      if (photo.Name().ends_with(".jpg")) (void)facts.Of(photo);
    }
  }
  Kept() { EXPECT_FALSE(photos.CreateAsFolder()); }
  FolderItem photos = folder.Child("photos");
  FolderItem file = folder.Child("cache/facts.sqlite");
};

TEST_F(Kept, FoldersAreSortedByTheMomentsThatPhotosTell) {
  Photo("a.jpg", {{Act::kSet, kExif, "9003", "2009:03:04 14:05:06"}});
  Photo("b.jpg", {{Act::kSet, kExif, "9003", "2001:03:04 14:05:06"}});
  const FolderItem c = Photo("c.jpg", {{Act::kSet, kExif, "9003", "2005:03:04 14:05:06"}});
  folder.Write("photos/d.txt", "changed just now");
  {
    const auto facts = std::make_shared<PhotoFactsCache>(file);
    ReadAll(*facts);
    EXPECT_THAT(ListedByTaken(facts), ElementsAre("b.jpg", "c.jpg", "a.jpg", "d.txt"));
    EXPECT_EQ(facts->Reads(), 3);
  }
  const auto again = std::make_shared<PhotoFactsCache>(file);
  EXPECT_THAT(ListedByTaken(again), ElementsAre("b.jpg", "c.jpg", "a.jpg", "d.txt"));
  EXPECT_EQ(again->Reads(), 0) << "known since the last run";
  // What was changed is read again, also beside a photo.
  Change(c, {{Act::kSet, kExif, "9003", "2015:03:04 14:05:06"}, kArtist});
  ReadAll(*again);
  EXPECT_THAT(ListedByTaken(again), ElementsAre("b.jpg", "a.jpg", "c.jpg", "d.txt"));
  EXPECT_EQ(again->Reads(), 1);
  // A photo that is gone is forgotten.
  EXPECT_FALSE(c.Delete());
  (void)ListedByTaken(again);
  EXPECT_EQ(ReadFile(file).value().find("c.jpg"), std::string::npos);
  EXPECT_THAT(folder.Names(), ElementsAre("cache", "photos")) << "nothing lies beside photos";
}

TEST_F(Kept, DocumentsAndLinksTellWhatTheirPhotosDo) {
  const FolderItem a = Photo("a.jpg", {{Act::kSet, kExif, "9003", "2009:03:04 14:05:06"},
                                       {Act::kSet, kTiff, "010F", "Maker"}});
  std::filesystem::create_symlink(a.Path(), photos.Child("link.jpg").Path());
  std::string error;
  const FolderItem real = photos.Child("real.jpg");
  ASSERT_TRUE(ImageIO::SaveAsJPEG(real, TestPicture(30, 20), 1, error));
  Change(real,
         {{Act::kSet, kExif, "9003", "2002:03:04 14:05:06"}, {Act::kSet, kTiff, "010F", "Other"}});
  const FolderItem package = photos.Child("edited.brvPhoto");
  {
    TestServices services;
    BrivolantDocument document(services.services);
    ASSERT_TRUE(document.CreateFromFile(real));
    ASSERT_TRUE(document.SaveAs(package));
  }
  PhotoFactsCache facts(file);
  EXPECT_EQ(facts.Of(photos.Child("link.jpg")).Taken, facts.Of(a).Taken);
  EXPECT_EQ(facts.Of(package).Taken, facts.Of(real).Taken);
  EXPECT_EQ(facts.Of(package).Shot, "Other");
  // What its owner says of it goes before.
  const FolderItem packet = package.Child(BrivolantDocument::kMetadataName);
  ASSERT_EQ(
      Sidecar::Write(packet, std::vector{MetadataChange{Act::kSet, kXmp, "dc:title", "Mine"}}, {}),
      "");
  EXPECT_EQ(facts.Of(package).Title, "Mine");
}

TEST_F(Kept, TitlesAndKeywordsOfWhatWasReadAreFound) {
  const FolderItem a = Photo("a.jpg", {{Act::kSet, kXmp, "dc:title",
                                        "\xC3\x9C"
                                        "bersee"}});
  const FolderItem b = Photo("b.jpg", {{Act::kAdd, kIptc, "25", "Boat"},
                                       {Act::kSet, kTiff, "0110", "Model 7"},
                                       {Act::kSet, kExif, "8827", "200"}});
  PhotoFactsCache facts(file);
  EXPECT_TRUE(Found(facts, "boat").empty()) << "nobody has read it";
  EXPECT_EQ(facts.Of(b).Shot, "Model 7\nISO 200");
  (void)facts.Of(a);
  EXPECT_THAT(Found(facts, "boat"), ElementsAre(b));
  EXPECT_THAT(Found(facts,
                    "\xC3\xBC"
                    "bers"),
              ElementsAre(a));
  EXPECT_TRUE(Found(facts, "").empty());
  EXPECT_EQ(Sidecar::Write(folder.Child("photos/b.jpg.xmp"),
                           std::vector<MetadataChange>{{Act::kSet, kXmp, "dc:title", "Sail"}}, {}),
            "");
  EXPECT_EQ(facts.Of(b).Title, "Sail");
}

TEST_F(Kept, WhatIsNoDatabaseIsMadeAnew) {
  const FolderItem a = Photo("a.jpg", {{Act::kSet, kXmp, "dc:title", "T"}});
  EXPECT_FALSE(folder.Child("cache").CreateAsFolder());
  folder.Write("cache/facts.sqlite", std::string(5000, 'x'));
  PhotoFactsCache facts(file);
  EXPECT_EQ(facts.Of(a).Title, "T");
  EXPECT_THAT(Found(facts, "t"), ElementsAre(a));
  // Where none can be, every photo is read.
  PhotoFactsCache nowhere(folder.Child("photos/a.jpg/facts.sqlite"));
  EXPECT_EQ(nowhere.Of(a).Title, "T");
  EXPECT_EQ(nowhere.Of(a).Title, "T");
  EXPECT_EQ(nowhere.Reads(), 2);
}

}  // namespace
}  // namespace brivolant::test
