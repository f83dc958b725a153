// SPDX-License-Identifier: MIT
// The edits of one photo, given to many and taken back.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <thread>

#include "Editing.h"
#include "app/session/ManyEdits.h"
#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/ImageFile.h"
#include "formats/PictureStrings.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

std::string Bytes(const FolderItem& file) {
  return ReadFile(file).value_or("none");
}

/// All that a folder holds, but for what lies in folders in it.
std::map<std::string, std::string> Contents(const FolderItem& folder) {
  std::map<std::string, std::string> contents;
  for (const FolderItem& child : folder.Children()) {
    if (!child.Directory()) contents[child.Name()] = Bytes(child);
  }
  return contents;
}

/// A document with a crop, a turn and a picture laid over it, open in a session.
struct Copying : Editing {
  Copying() {
    setenv("XDG_DATA_HOME", folder.Child("data home").ShellPath().c_str(), 1);
    EXPECT_FALSE(trip.CreateAsFolder());
    Open(Photo("source.jpg"));
    Paste(TestPicture(60, 40, 9));
    session.Turn(&BrivolantDocument::Rotation, 1);
    Document().Crop = true;
    Document().CropOffSet = {0.25, 0.25};
    Document().CropSize = {0.5, 0.5};
    Change(Module("Exposure"), 0, 80);
    edits = session.Edits();
  }
  ~Copying() { unsetenv("XDG_DATA_HOME"); }
  FolderItem InTrip(const std::string& name, int width = 90, int height = 60) const {
    return Photo("trip/" + name, width, height);
  }
  ManyEdits::Order OrderFor(std::vector<FolderItem> items) const {
    ManyEdits::Order order;
    order.Edits = edits;
    order.Items = std::move(items);
    order.Spare = folder.Child("spare");
    return order;
  }
  /// In a job, as the window does it.
  void Do(const std::function<void(Jobs::Control&)>& work) {
    jobs.Start({{}, true, work, {}});
    jobs.Finish();
  }
  /// A document as it is on disk.
  BrivolantDocument Loaded(const FolderItem& file) {
    BrivolantDocument document(services.services);
    EXPECT_TRUE(document.Load(file)) << file.ShellPath();
    return document;
  }

  FolderItem trip = folder.Child("trip");
  FolderItem trash = folder.Child("data home").Child("Trash").Child("files");
  CopiedEdits edits;
  WorkerServices worker{services.services};
  Jobs jobs;
};

TEST(ManyEdits, EachPhotoGetsADocumentOfItsOwnAndOneFailureStopsNoOther) {
  Copying c;
  const FolderItem a = c.InTrip("a.jpg");
  const FolderItem b = c.InTrip("b.png");
  const FolderItem broken = c.folder.Write("trip/broken.jpg", "no picture");
  c.folder.Write("trip/a.brvPhoto", "somebody else's");
  const std::string photo = Bytes(a);
  // The session that it was copied from goes on with other photos.
  c.Open(c.Photo("other.jpg"));

  ManyEdits many(c.OrderFor({a, broken, b}));
  c.Do([&](Jobs::Control& control) { many.Run(c.worker, control); });
  ASSERT_THAT(many.Failures(), SizeIs(1));
  EXPECT_EQ(many.Failures()[0].Item, broken);
  EXPECT_THAT(many.Failures()[0].Why, HasSubstr("broken.jpg"));
  const FolderItem first = c.trip.Child("a-1.brvPhoto");
  const FolderItem second = c.trip.Child("b.brvPhoto");
  EXPECT_THAT(many.Done(), ElementsAre(first, second));
  EXPECT_EQ(Bytes(c.trip.Child("a.brvPhoto")), "somebody else's");
  EXPECT_EQ(Bytes(a), photo);
  for (const auto& [document, original] : {std::pair{first, a}, {second, b}}) {
    BrivolantDocument made = c.Loaded(document);
    EXPECT_EQ(made.StyleData, c.edits.StyleData);
    EXPECT_TRUE(Bytes(document.Child(made.OriginalImageID)) == Bytes(original));
    // Neither crop nor turns unless they were asked for; the picture that lay over it travels
    // along.
    EXPECT_FALSE(made.Crop);
    EXPECT_EQ(made.Rotation, 0);
    ASSERT_THAT(made.PastedImages(), SizeIs(1));
    EXPECT_TRUE(Bytes(made.PastedImages().begin()->second) ==
                Bytes(c.edits.Pasted.begin()->second));
    // What the browser shows has the edits on it.
    ASSERT_FALSE(made.PreviewAfter.IsNil());
    EXPECT_GT(LargestDifference(made.PreviewAfter, made.ImageOriginal()), 30);
  }

  c.Do([&](Jobs::Control&) { many.TakeBack(c.worker, {}); });
  EXPECT_THAT(many.Failures(), IsEmpty());
  EXPECT_THAT(many.Done(), IsEmpty());
  EXPECT_FALSE(first.Exists());
  EXPECT_FALSE(second.Exists());
  EXPECT_TRUE(c.trash.Child("a-1.brvPhoto").Directory());
  EXPECT_EQ(Contents(c.trip).size(), 4U);
}

TEST(ManyEdits, CropAndTurnsComeIfTheyAreWantedAndElseADocumentKeepsItsOwn) {
  for (const bool wanted : {false, true}) {
    Copying c;
    const FolderItem document = c.trip.Child("doc.brvPhoto");
    {
      BrivolantDocument made(c.services.services);
      ASSERT_TRUE(made.ReadImage(c.InTrip("doc.jpg")));
      made.StyleData = "its own";
      made.Crop = true;
      made.CropSize = {0.75, 0.75};
      made.Flip = 2;
      made.PreviewAfter = TestPicture(30, 20);
      ASSERT_TRUE(made.SaveAs(document));
    }
    const auto before = Contents(document);
    ManyEdits::Order order = c.OrderFor({document});
    order.Crop = wanted;
    order.Turns = wanted;
    ManyEdits many(order);
    c.Do([&](Jobs::Control& control) { many.Run(c.worker, control); });
    EXPECT_THAT(many.Failures(), IsEmpty());
    const BrivolantDocument changed = c.Loaded(document);
    EXPECT_EQ(changed.StyleData, c.edits.StyleData);
    EXPECT_EQ(changed.CropSize, wanted ? (Pair{0.5, 0.5}) : (Pair{0.75, 0.75}));
    EXPECT_EQ(changed.Rotation, wanted ? 1 : 0);
    EXPECT_EQ(changed.Flip, wanted ? 0 : 2);
    EXPECT_FALSE(Contents(document) == before);
    // Taken back it is what it was, to the byte.
    c.Do([&](Jobs::Control&) { many.TakeBack(c.worker, {}); });
    EXPECT_THAT(many.Failures(), IsEmpty());
    EXPECT_TRUE(Contents(document) == before);
  }
}

TEST(ManyEdits, WhatWasChangedSinceOrIsInUseStays) {
  Copying c;
  ManyEdits many(c.OrderFor({c.InTrip("a.jpg"), c.InTrip("b.jpg"), c.InTrip("c.jpg")}));
  c.Do([&](Jobs::Control& control) { many.Run(c.worker, control); });
  const std::vector<FolderItem> done = many.Done();
  ASSERT_THAT(done, SizeIs(3));
  {
    BrivolantDocument changed = c.Loaded(done[0]);
    changed.Flip = 1;
    ASSERT_TRUE(changed.Save());
  }
  c.Do([&](Jobs::Control&) { many.TakeBack(c.worker, {done[1]}); });
  ASSERT_THAT(many.Failures(), SizeIs(2));
  EXPECT_THAT(many.Failures()[1].Why, HasSubstr("a.brvPhoto"));
  EXPECT_TRUE(done[0].Directory());
  EXPECT_TRUE(done[1].Directory());
  EXPECT_FALSE(done[2].Exists());
}

TEST(ManyEdits, ThePreviewOfAWidePhotoShowsWhatTheFullPictureWill) {
  Copying c;
  // A hard edge, whose width in the end tells how far it was blurred.
  Picture wide = PlainPicture(2400, 800, {0, 0, 0});
  const Pixels pixels = wide.Edit();
  for (int y = 0; y < wide.Height(); ++y) {
    std::fill(pixels.Row(y) + std::ptrdiff_t{4} * 1200, pixels.Row(y) + std::ptrdiff_t{4} * 2400,
              std::uint8_t{255});
  }
  const FolderItem photo = c.trip.Child("wide.png");
  const std::array<EncodeImage, 1> image{{{wide, 1}}};
  ASSERT_EQ(EncodeImageFile(photo, "public.png", image), "");
  c.Open(c.Photo("plain.jpg"));
  c.Change(c.Module("Blur"), 0, 40);
  ManyEdits::Order order = c.OrderFor({photo});
  order.Edits = c.session.Edits();
  ManyEdits many(order);
  c.Do([&](Jobs::Control& control) { many.Run(c.worker, control); });
  ASSERT_THAT(many.Done(), SizeIs(1));
  const Picture preview = c.Loaded(many.Done()[0]).PreviewAfter;
  ASSERT_FALSE(preview.IsNil());

  brivolantProcessorLite processor(EffectRegistry(), c.services.services);
  processor.Startup();
  processor.StyleData(order.Edits.StyleData);
  const Picture full =
      SharedPictureEffects::Scale(processor.Process(wide, {}), preview.Width(), preview.Height(),
                                  SharedPictureEffects::kScaleExactly);
  EXPECT_LE(LargestDifference(preview, full), 16);
}

TEST(ManyEdits, CancellingLeavesWholeDocumentsThatCanBeTakenBack) {
  Copying c;
  std::vector<FolderItem> photos;
  for (const char* name : {"a.jpg", "b.jpg", "c.jpg", "d.jpg"}) photos.push_back(c.InTrip(name));
  for (int i = 0; i < 40; ++i) photos.push_back(c.InTrip("more " + std::to_string(i) + ".jpg"));
  ManyEdits many(c.OrderFor(photos));
  // As soon as the first stands, wherever the work is then.
  std::atomic<bool> ended = false;
  c.jobs.Start({{},
                true,
                [&](Jobs::Control& control) {
                  many.Run(c.worker, control);
                  ended = true;
                },
                {}});
  while (!ended && !c.trip.Child("a.brvPhoto").Exists()) std::this_thread::yield();
  c.jobs.Cancel();
  c.jobs.Finish();
  const std::vector<FolderItem> done = many.Done();
  EXPECT_THAT(many.Failures(), IsEmpty());
  ASSERT_FALSE(done.empty());
  EXPECT_LT(done.size(), photos.size());
  std::size_t documents = 0;
  for (const FolderItem& child : c.trip.Children()) {
    EXPECT_FALSE(child.Name().starts_with('.')) << child.Name();
    if (!child.Directory()) continue;
    ++documents;
    EXPECT_FALSE(c.Loaded(child).ImageOriginal().IsNil());
  }
  EXPECT_EQ(documents, done.size());
  c.Do([&](Jobs::Control&) { many.TakeBack(c.worker, {}); });
  EXPECT_EQ(c.trip.Children().size(), photos.size());
}

TEST(ManyEdits, NewDocumentsLieWhereTheyAreToOrWhereTheyCan) {
  Copying c;
  ASSERT_FALSE(c.folder.Child("spare").CreateAsFolder());
  // A library's package is not written into.
  ASSERT_FALSE(c.trip.Child("Library").Child("Contents").CreateAsFolder());
  const FolderItem inside = c.InTrip("Library/inside.jpg");
  const FolderItem beside = c.InTrip("beside.jpg");
  ManyEdits many(c.OrderFor({inside, beside}));
  c.Do([&](Jobs::Control& control) { many.Run(c.worker, control); });
  EXPECT_THAT(many.Done(), ElementsAre(c.folder.Child("spare").Child("inside.brvPhoto"),
                                       c.trip.Child("beside.brvPhoto")));
  ManyEdits::Order order = c.OrderFor({beside});
  order.Folder = c.folder.Child("spare");
  ManyEdits elsewhere(order);
  c.Do([&](Jobs::Control& control) { elsewhere.Run(c.worker, control); });
  EXPECT_THAT(elsewhere.Done(), ElementsAre(order.Folder.Child("beside.brvPhoto")));
}

TEST(ManyEdits, TheOpenPhotoTakesThemAsOneStepWithTheirPictures) {
  Copying c;
  c.session.Copied = std::make_shared<const CopiedEdits>(c.edits);
  c.Open(c.Photo("other.jpg"));
  EXPECT_TRUE(c.session.SameAsSaved());
  const std::string plain = c.session.Processor().StyleData();
  // Its picture is copied in a job: it may be large, and the disk slow.
  c.session.PasteEdits(c.edits, true, true, {});
  EXPECT_TRUE(c.session.Busy());
  c.session.Finish();
  EXPECT_TRUE(c.session.Dirty());
  EXPECT_FALSE(c.session.SameAsSaved());
  EXPECT_TRUE(c.Document().Crop);
  EXPECT_EQ(c.Document().Rotation, 1);
  EXPECT_THAT(c.session.Processor().Warnings(), IsEmpty());
  c.session.Undo();
  EXPECT_EQ(c.session.Processor().StyleData(), plain);
  EXPECT_FALSE(c.Document().Crop);
  EXPECT_EQ(c.Document().Rotation, 0);
  EXPECT_TRUE(c.session.SameAsSaved());
  EXPECT_FALSE(c.session.UndoGizmo().UndoAvailable());
  // The clipboard has the stacks alone; what was copied here has their pictures.
  c.Open(c.Photo("third.jpg"));
  c.session.PasteStyle(c.edits.StyleData);
  c.session.Finish();
  EXPECT_THAT(c.session.Processor().Warnings(), IsEmpty());
  EXPECT_THAT(c.Document().PastedImages(), SizeIs(1));
  EXPECT_THAT(c.failures, IsEmpty());
}

}  // namespace
}  // namespace brivolant::test
