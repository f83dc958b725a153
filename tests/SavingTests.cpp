// SPDX-License-Identifier: MIT
// Where a document is saved: its own place, another when that is gone, and over what stands there.
#include <fcntl.h>
#include <unistd.h>

#include <QScopeGuard>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "Editing.h"
#include "export/SaveAsCopy.h"
#include "formats/ImageFile.h"
#include "formats/PictureStrings.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

std::string Bytes(const FolderItem& file) {
  return ReadFile(file).value_or("none");
}

/// The names of a package's pictures that effects have given, and their bytes.
std::map<std::string, std::string> PicturesIn(const FolderItem& package) {
  constexpr std::size_t kIdentifier = 36;
  std::map<std::string, std::string> pictures;
  for (const FolderItem& child : package.Children()) {
    if (child.Name().size() == kIdentifier) pictures[child.Name()] = Bytes(child);
  }
  return pictures;
}

/// An open document in a folder of its own, with a picture laid over it.
struct Saved : Editing {
  Saved() {
    EXPECT_FALSE(trips.CreateAsFolder());
    setenv("XDG_DATA_HOME", folder.Child("data home").ShellPath().c_str(), 1);
    Open(photo);
    Paste(TestPicture(60, 40, 9));
    EXPECT_TRUE(Save(package));
    pictures = PicturesIn(package);
    EXPECT_EQ(pictures.size(), 1U);
    // As a later run has it.
    Open(Photo("other.jpg"));
    Open(package);
    Answering();
    session.Turn(&BrivolantDocument::Rotation, 1);
  }
  ~Saved() { unsetenv("XDG_DATA_HOME"); }
  std::string Original() { return Bytes(Document().File.Child(Document().OriginalImageID)); }
  /// All that the session holds of the package outside of it is lost.
  void LoseWhatIsHeld() {
    for (const FolderItem& root : services.folder.Item().Children()) {
      for (const FolderItem& held : root.Children()) EXPECT_FALSE(held.DeleteFolder());
    }
  }

  FolderItem trash = folder.Child("data home").Child("Trash").Child("files");
  FolderItem photo = Photo("photo.jpg");
  FolderItem trips = folder.Child("trips");
  FolderItem package = trips.Child("trip.brvPhoto");
  std::map<std::string, std::string> pictures;
};

TEST(Saving, ADocumentThatCannotBeSavedInItsPlaceIsSavedWholeInAnother) {
  const auto renamed = [](Saved& s) {
    EXPECT_FALSE(s.trips.MoveFileTo(s.folder.Child("journeys")));
  };
  const auto deleted = [](Saved& s) { EXPECT_FALSE(s.package.DeleteFolder()); };
  const auto unwritable = [](Saved& s) {
    // What can be read and not written, whoever runs the test.
    const FolderItem settings = s.package.Child("Settings");
    EXPECT_FALSE(settings.Delete());
    EXPECT_FALSE(settings.Child("in the way").CreateAsFolder());
  };
  for (const auto& [name, happens] : std::map<std::string, std::function<void(Saved&)>>{
           {"renamed", renamed}, {"deleted", deleted}, {"unwritable", unwritable}}) {
    SCOPED_TRACE(name);
    Saved s;
    happens(s);
    s.place = s.folder.Child("elsewhere.brvPhoto");
    // Declined, nothing has changed.
    EXPECT_FALSE(s.Save());
    ASSERT_EQ(s.questions.size(), 1U);
    EXPECT_THAT(s.questions[0].Message, HasSubstr("trip"));
    EXPECT_FALSE(s.questions[0].Explanation.empty());
    EXPECT_TRUE(s.session.Dirty());
    EXPECT_FALSE(s.place.Exists());

    s.answers = {Answer::kAction};
    EXPECT_TRUE(s.Save());
    EXPECT_EQ(s.questions.size(), 2U) << "nothing is missing";
    EXPECT_FALSE(s.session.Dirty());
    EXPECT_EQ(s.Document().File, s.place);
    EXPECT_TRUE(s.Original() == Bytes(s.photo)) << "the original's own bytes";
    EXPECT_TRUE(PicturesIn(s.place) == s.pictures);
    EXPECT_EQ(s.session.Document()->Name, "elsewhere");
    // From now on it is saved there, and nothing warns of pictures that were lost.
    s.session.Turn(&BrivolantDocument::Flip, 1);
    EXPECT_TRUE(s.Save());
    s.session.Processor().UpdatePreview(true);
    s.session.FinishPreview();
    EXPECT_THAT(s.session.Processor().Warnings(), IsEmpty());
    EXPECT_EQ(s.questions.size(), 2U);
    EXPECT_THAT(s.failures, IsEmpty());
  }
}

TEST(Copies, NeitherWhatStoodThereNorWhatCameMeanwhileIsLost) {
  TestServices services;
  setenv("XDG_DATA_HOME", services.folder.Child("data").ShellPath().c_str(), 1);
  const auto unset = qScopeGuard([] { unsetenv("XDG_DATA_HOME"); });
  const FolderItem place = services.folder.Child("place");
  ASSERT_FALSE(place.CreateAsFolder());
  const FolderItem target = place.Child("copy.jpg");
  const SaveAsCopy::Job job{TestPicture(6, 4), {}, {}, target, "public.jpeg"};
  const std::string mine = "mine";
  for (int round = 0; round < 20; ++round) {
    (void)target.Delete();
    services.folder.Write("place/copy.jpg", "old");
    // Somebody who takes the place as soon as it is free.
    std::atomic<bool> ended = false;
    bool took = false;
    std::thread other([&] {
      while (!ended && !took) {
        const int file = open(target.Path().c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
        took = file >= 0 && write(file, mine.data(), mine.size()) == 4;
        if (file >= 0) close(file);
      }
    });
    std::string error;
    const auto outcome = SaveAsCopy::Run(
        job, services.services, [](double) { return true; }, error);
    ended = true;
    other.join();
    if (outcome == SaveAsCopy::Outcome::kDone) {
      EXPECT_FALSE(took);
      EXPECT_TRUE(ImageSource::Open(target));
    } else {
      EXPECT_TRUE(took);
      EXPECT_EQ(ReadFile(target), mine);
      EXPECT_THAT(error, HasSubstr("copy.jpg"));
    }
    EXPECT_THAT(place.Children(), testing::ElementsAre(target)) << "nor a working name beside it";
  }
}

TEST(Saving, WhatCannotBeHadIsSaidOnceEachAndThenWrittenWithoutLoss) {
  Saved s;
  EXPECT_FALSE(s.trips.DeleteFolder());
  s.LoseWhatIsHeld();
  s.place = s.folder.Child("elsewhere.brvPhoto");
  s.answers = {Answer::kAction, Answer::kAction, Answer::kCancel};
  EXPECT_FALSE(s.Save());
  EXPECT_EQ(s.questions.size(), 3U) << "the place, the pictures, the original";
  EXPECT_FALSE(s.place.Exists());
  s.questions.clear();
  s.answers = {Answer::kAction, Answer::kAction, Answer::kAction};
  EXPECT_TRUE(s.Save());
  EXPECT_EQ(s.questions.size(), 3U) << "each is asked again, and once";
  std::string error;
  const Picture written =
      ImageIO::OpenAsPictureUsingImageIO(s.place.Child(s.Document().OriginalImageID), error);
  const Picture read = ImageIO::OpenAsPictureUsingImageIO(s.photo, error);
  EXPECT_EQ(LargestDifference(written, read), 0);
}

TEST(Saving, APackageThatLostItsOriginalGetsItBack) {
  Saved s;
  const FolderItem original = s.package.Child(s.Document().OriginalImageID);
  EXPECT_FALSE(original.Delete());
  EXPECT_TRUE(s.Save());
  EXPECT_TRUE(Bytes(original) == Bytes(s.photo));
  EXPECT_THAT(s.questions, IsEmpty());
}

TEST(Saving, AFileThatTookTheOriginalsNameIsNotTakenForIt) {
  Editing e;
  const FolderItem photo = e.Photo("photo.jpg");
  const std::string bytes = Bytes(photo);
  e.Open(photo);
  e.session.Turn(&BrivolantDocument::Rotation, 1);
  e.folder.Write("photo.jpg", PngExporter().SaveToString(TestPicture(9, 9)));
  // Another program tidies up what looks temporary.
  const FolderItem temporary = e.Document().tFile;
  EXPECT_FALSE(temporary.Child(e.Document().OriginalImageID).Delete());
  const FolderItem place = e.folder.Child("a.brvPhoto");
  EXPECT_TRUE(e.Save(place));
  EXPECT_TRUE(Bytes(place.Child(e.Document().OriginalImageID)) == bytes);
  EXPECT_FALSE(temporary.Exists());
}

TEST(Saving, WhatStandsInThePlaceGoesToTheTrashOnlyForAWholePackage) {
  Saved s;
  const FolderItem place = s.folder.Child("taken.brvPhoto");
  EXPECT_FALSE(place.CreateAsFolder());
  const FolderItem precious = s.folder.Write("taken.brvPhoto/precious.txt", "not to be lost");
  // A picture that cannot be copied.
  s.Paste(TestPicture(50, 50, 4));
  FolderItem picture;
  const std::string style = s.session.Processor().StyleData();
  for (const auto& [name, file] : s.Document().SessionImages()) {
    if (style.find(name) != std::string::npos) picture = file;
  }
  const std::string bytes = Bytes(picture);
  ASSERT_FALSE(picture.Delete());
  ASSERT_FALSE(picture.CreateAsFolder());
  EXPECT_FALSE(s.Save(place));
  EXPECT_EQ(Bytes(precious), "not to be lost");
  EXPECT_FALSE(s.trash.Exists());
  EXPECT_EQ(s.failures.size(), 1U);
  EXPECT_EQ(s.Document().File, s.package);
  // The settings, which are written beside, may be on their way.
  for (const std::string& name : s.folder.Names()) {
    EXPECT_FALSE(name.find('~') != std::string::npos && name.ends_with(".brvPhoto")) << name;
  }

  ASSERT_FALSE(picture.Delete());
  s.folder.Write(picture.Path().lexically_relative(s.folder.Item().Path()).string(), bytes);
  EXPECT_TRUE(s.Save(place));
  EXPECT_EQ(s.Document().File, place);
  EXPECT_EQ(Bytes(s.trash.Child("taken.brvPhoto").Child("precious.txt")), "not to be lost");
  EXPECT_TRUE(s.package.Directory()) << "the document before stays where it was";
}

TEST(Saving, AFileThatStandsInThePlaceOfTheDocumentIsAskedAboutAndGoesToTheTrash) {
  Saved s;
  EXPECT_FALSE(s.package.DeleteFolder());
  s.folder.Write("trips/trip.brvPhoto", "something else");
  EXPECT_FALSE(s.Save());
  EXPECT_EQ(Bytes(s.package), "something else");
  s.answers = {Answer::kAction};
  EXPECT_TRUE(s.Save());
  EXPECT_TRUE(s.Original() == Bytes(s.photo));
  EXPECT_EQ(Bytes(s.trash.Child("trip.brvPhoto")), "something else");
}

TEST(Saving, ADocumentGoesWithItsFolder) {
  Saved s;
  const FolderItem link = s.folder.Child("link");
  std::filesystem::create_directory_symlink(s.trips.Path(), link.Path());
  for (const FolderItem& item :
       {s.package, s.trips, s.folder.Item(), link.Child("trip.brvPhoto")}) {
    EXPECT_TRUE(s.session.LiesIn(item)) << item.ShellPath();
  }
  for (const FolderItem& item : {link, s.package.Child("Settings"), s.folder.Child("trip"),
                                 s.folder.Child("trips.txt"), s.photo}) {
    EXPECT_FALSE(s.session.LiesIn(item)) << item.ShellPath();
  }
  const FolderItem moved = s.folder.Child("journeys");
  EXPECT_FALSE(s.trips.MoveFileTo(moved));
  s.session.Relocate(s.trips, moved);
  EXPECT_EQ(s.Document().File, moved.Child("trip.brvPhoto"));
  EXPECT_TRUE(s.Save());
  EXPECT_THAT(s.questions, IsEmpty());
  s.session.Relocate(s.folder.Child("journey"), s.trips);
  EXPECT_EQ(s.Document().File, moved.Child("trip.brvPhoto"));
  // A photo that has no place of its own lies nowhere.
  s.Open(s.photo);
  EXPECT_FALSE(s.session.LiesIn(s.folder.Item()));
}

}  // namespace
}  // namespace brivolant::test
