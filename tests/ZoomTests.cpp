// SPDX-License-Identifier: MIT
// Where the photo lies on the display at every scale, marks on a part of it, and the photo rendered
// at its full size beside the window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <cmath>
#include <thread>

#include "Helpers.h"
#include "app/session/FullRender.h"
#include "effects/EffectRegistry.h"
#include "effects/text/EffectModuleText.h"
#include "engine/MarkCanvas.h"
#include "engine/PhotoView.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/BrivolantDocument.h"
#include "platform/pictures/Graphics.h"
#include "platform/pictures/kernels/ScaleKernels.h"

namespace brivolant::test {
namespace {

/// A display of 1000 by 700 with a photo of that size, and the preview that is made for it.
PhotoView::Content ContentOf(QSize photo, double ratio = 1) {
  PhotoView::Content content;
  content.Display = QSize(1000, 700) * ratio;
  content.PixelRatio = ratio;
  content.Photo = photo;
  const int margin = static_cast<int>(20 * ratio);
  content.Preview = photo.scaled(content.Display - QSize(margin, margin), Qt::KeepAspectRatio);
  content.Before = content.Preview;
  return content;
}
PhotoView ViewOf(QSize photo, double ratio = 1) {
  PhotoView view;
  view.Show(ContentOf(photo, ratio));
  return view;
}

TEST(PhotoViews, FitAsTheDisplayAlwaysDid) {
  // A preview for this place stands pixel by pixel in the middle.
  PhotoView view = ViewOf({6000, 4000});
  EXPECT_TRUE(view.Fits());
  EXPECT_EQ(view.Photo(), QRect(10, 23, 980, 653));
  EXPECT_NEAR(view.Scale(), 980 / 6000.0, 1e-9);
  // One for another size is scaled: to the width or the height, whichever ends first.
  PhotoView::Content content = ContentOf({6000, 4000});
  content.Preview = {300, 200};
  view.Show(content);
  EXPECT_EQ(view.Photo(), QRect(10, 23, 980, 653));
  content.Preview = {200, 300};
  view.Show(content);
  EXPECT_EQ(view.Photo().height(), 680);
  // Beside it at four tenths, both about the middle, or hard against the sides.
  content = ContentOf({2000, 4000});
  content.Beside = true;
  view.Show(content);
  EXPECT_EQ(view.Before(), QRect(view.Photo().left() - 156, 214, 136, 272));
  content = ContentOf({6000, 4000});
  content.Beside = true;
  view.Show(content);
  EXPECT_EQ(view.Photo().right() + 1, 990);
  EXPECT_EQ(view.Before().left(), 10);
  // Without a photo there is no place.
  content.Preview = {};
  view.Show(content);
  EXPECT_TRUE(view.Photo().isEmpty());
  EXPECT_EQ(view.FractionsAt({5, 5}), QPointF(-1, -1));
  view.ZoomTo(2, {10, 10});
  view.StepIn();
  view.ZoomBy(2, {10, 10});
  EXPECT_TRUE(view.Fits());
}

TEST(PhotoViews, KeepWhatLiesUnderThePointer) {
  for (const double ratio : {1.0, 1.5, 2.0}) {
    const QPointF pointer(612 * ratio, 301 * ratio);
    PhotoView view = ViewOf({6000, 4000}, ratio);
    const QPointF before = view.FractionsAt(pointer);
    for (const double scale : {0.5, 1.0, 3.7, 8.0, 2.0, 1.0}) {
      view.ZoomTo(scale, pointer);
      EXPECT_EQ(view.Scale(), scale);
      const QPointF now = view.FractionsAt(pointer);
      // To within the rounding to whole pixels of the screen at the least scale.
      EXPECT_NEAR(now.x(), before.x(), 1.0 / 2000) << scale;
      EXPECT_NEAR(now.y(), before.y(), 1.0 / 1400) << scale;
      EXPECT_EQ(view.Photo().size(), QSize(6000, 4000) * scale);
    }
  }
}

TEST(PhotoViews, NeverShowMoreThanTheMarginBesideAnEnlargedPhoto) {
  PhotoView view = ViewOf({6000, 4000});
  view.ZoomTo(1);
  EXPECT_EQ(view.Photo().center(), QPoint(499, 349));
  for (const QPointF& by : {QPointF(1e5, 1e5), QPointF(-1e5, 3), QPointF(0, -1e6)}) view.Pan(by);
  EXPECT_EQ(view.Photo().right() + 1, 990);
  EXPECT_EQ(view.Photo().bottom() + 1, 690);
  // What was too far is not remembered: the way back begins at once.
  view.Pan({25, 13});
  EXPECT_EQ(view.Photo().right() + 1, 1015);
  EXPECT_EQ(view.Photo().bottom() + 1, 703);
  view.Pan({1e5, 1e5});
  EXPECT_EQ(view.Photo().topLeft(), QPoint(10, 10));
  // A side with room to spare stays in the middle.
  view = ViewOf({6000, 500});
  view.ZoomTo(1);
  view.Pan({-300, 200});
  EXPECT_EQ(view.Photo().top(), 100);
  EXPECT_EQ(view.Photo().left(), -2800);
  // Fitted it does not move.
  view.Fit();
  const QRect fitted = view.Photo();
  view.Pan({50, 50});
  EXPECT_EQ(view.Photo(), fitted);
}

TEST(PhotoViews, StopAtOneToOneAndEndAtEightAndAtAllOfThePhoto) {
  PhotoView view = ViewOf({6000, 4000});
  const QPointF pointer(400, 300);
  bool whole = false;
  for (int i = 0; i < 60; ++i) {
    view.ZoomBy(1.25, pointer);
    whole = whole || view.Scale() == 1;
  }
  EXPECT_TRUE(whole);
  EXPECT_EQ(view.Scale(), 8);
  whole = false;
  for (int i = 0; i < 60; ++i) {
    view.ZoomBy(0.8, pointer);
    whole = whole || view.Scale() == 1;
  }
  EXPECT_TRUE(whole);
  EXPECT_TRUE(view.Fits());
  // The tiny steps of a touchpad come past it, too.
  for (int i = 0; i < 500; ++i) view.ZoomBy(1.01, pointer);
  EXPECT_GT(view.Scale(), 1.5);

  // By keys, through the usual scales.
  view.Fit();
  std::vector<int> percents;
  for (int i = 0; i < 12; ++i) {
    view.StepIn();
    percents.push_back(static_cast<int>(std::lround(view.Scale() * 100)));
  }
  EXPECT_THAT(percents,
              testing::ElementsAre(25, 33, 50, 67, 100, 150, 200, 300, 400, 600, 800, 800));
  for (int i = 0; i < 10; ++i) view.StepOut();
  EXPECT_EQ(std::lround(view.Scale() * 100), 25);
  view.StepOut();
  EXPECT_TRUE(view.Fits());

  // A photo smaller than the display is fitted enlarged: 1:1 is then the least.
  view = ViewOf({400, 300});
  EXPECT_GT(view.Scale(), 2);
  view.ZoomTo(1);
  EXPECT_EQ(view.Photo(), QRect(300, 200, 400, 300));
  view.StepOut();
  view.ZoomBy(0.5, pointer);
  EXPECT_EQ(view.Scale(), 1);
  for (int i = 0; i < 3; ++i) view.StepIn();
  EXPECT_TRUE(view.Fits()) << "between 200 and 300 %";
  view.StepIn();
  EXPECT_EQ(view.Scale(), 3);
  // A tiny one may need more than eight to fit.
  view = ViewOf({20, 10});
  EXPECT_GT(view.Scale(), 40);
  view.ZoomTo(8);
  EXPECT_EQ(view.Scale(), 8);
}

TEST(PhotoViews, FollowTheDisplayAndForgetAtAnotherPhoto) {
  PhotoView view = ViewOf({6000, 4000});
  view.ZoomTo(1, {400, 300});
  const QPointF middle = view.FractionsAt({500, 350});
  PhotoView::Content content = ContentOf({6000, 4000});
  content.Display = {1400, 900};
  view.Show(content);
  EXPECT_EQ(view.Scale(), 1);
  EXPECT_NEAR(view.FractionsAt({700, 450}).x(), middle.x(), 1e-3);
  // Grown as large as to show all of it, it is fitted.
  content.Display = {7000, 5000};
  view.Show(content);
  EXPECT_FALSE(view.Fits()) << "1:1 is less than fitted";
  view.ZoomTo(0.5);
  content.Display = {1400, 900};
  view.Show(content);
  view.ZoomTo(0.3);
  content.Display = {3000, 2000};
  view.Show(content);
  EXPECT_TRUE(view.Fits());
  view.ZoomTo(2);
  view.Show(ContentOf({4000, 6000}));
  EXPECT_TRUE(view.Fits()) << "turned, or another photo";
}

TEST(PhotoViews, ShowTheSamePartTwiceSideBySide) {
  PhotoView::Content content = ContentOf({6000, 4000});
  content.Beside = true;
  PhotoView view;
  view.Show(content);
  // From the small picture beside, to what lay under the pointer there.
  const QPointF over = QRectF(view.Before()).center() + QPointF(40, 20);
  const QPointF wanted((over.x() - view.Before().left()) / view.Before().width(),
                       (over.y() - view.Before().top()) / view.Before().height());
  view.ZoomTo(1, over);
  EXPECT_EQ(view.BeforeArea(), QRect(0, 0, 498, 700));
  EXPECT_EQ(view.PhotoArea(), QRect(502, 0, 498, 700));
  const auto same = [&] {
    EXPECT_EQ(view.Before().translated(view.PhotoArea().topLeft()), view.Photo());
  };
  same();
  EXPECT_NEAR((over.x() - view.Before().left()) / view.Before().width(), wanted.x(), 1e-3);
  EXPECT_NEAR((over.y() - view.Before().top()) / view.Before().height(), wanted.y(), 1e-3);
  view.Pan({31, -17});
  same();
  view.ZoomBy(2.5, {100, 600});
  same();
  // The left half belongs to the picture before: no effect takes a press there.
  EXPECT_FALSE(view.Shows({100, 300}));
  EXPECT_TRUE(view.Shows({700, 300}));
}

TEST(PhotoViews, GoOnAboutOnePlaceThoughMarginsPushIt) {
  // Of a wide photo the first notches move the height alone: it stays in the middle.
  PhotoView view = ViewOf({6000, 2000});
  const QPointF pointer(420, 420);
  const QPointF under = view.FractionsAt(pointer);
  for (int i = 0; i < 12; ++i) view.ZoomBy(1.25, pointer);
  EXPECT_NEAR(view.FractionsAt(pointer).x(), under.x(), 1e-3);
  EXPECT_NEAR(view.FractionsAt(pointer).y(), under.y(), 1e-3);
}

TEST(PhotoViews, AreEnlargedWithSquarePixels) {
  const Picture source = TestPicture(37, 29);
  for (const double scale : {1.0, 1.5, 2.0, 3.3, 8.0}) {
    for (const double left : {0.0, 3.25, 20.0}) {
      const kernels::SourceArea area{left, 2.5, 120 / scale, 90 / scale};
      Picture fast = Picture::Uninitialized(120, 90);
      Picture plain = Picture::Uninitialized(120, 90);
      kernels::Magnify(source.View(), area, fast.Edit());
      kernels::reference::Magnify(source.View(), area, plain.Edit());
      EXPECT_TRUE(fast.SameAs(plain)) << scale << " from " << left;
      // By hand: the pixel in the middle of the target.
      EXPECT_EQ(plain.At(60, 45), source.At(std::min(static_cast<int>(left + 60.5 / scale), 36),
                                            std::min(static_cast<int>(2.5 + 45.5 / scale), 28)));
    }
  }
}

// Marks.

TEST(Marks, OnAPartOfThePhotoStandWhereTheyDoOnTheWhole) {
  const Picture photo = TestPicture(400, 300);
  int marked = 0;
  for (const ModuleEntry& entry : EffectRegistry()) {
    const auto module = entry.create(kForeground);
    module->Constructor();
    module->ResetSettings();
    Dictionary settings = module->Settings();
    settings.Value("Enabled", true);
    settings.Value("isFocal", true);
    module->Settings(settings);
    if (auto* text = dynamic_cast<EffectModuleText*>(module.get())) {
      text->myTextEngine.Ticks = [] { return 0; };
      text->myTextEngine.item.at(0)->Text("Mark");
    }
    // In its own corner of the view, whatever part that is.
    if (module->Name() == "Levels") continue;
    Picture whole = photo;
    module->firePostProcess(whole, 1);
    marked += whole.SameAs(photo) ? 0 : 1;
    const QRect seen(90, 60, 200, 150);
    const auto cut = [&](const Picture& from) {
      Picture to = Picture::Uninitialized(seen.width(), seen.height());
      Graphics(to).DrawPicture(from, -seen.left(), -seen.top());
      return to;
    };
    Picture part = cut(photo);
    MarkCanvas canvas(part, QRect(-seen.left(), -seen.top(), 400, 300));
    module->firePostProcess(canvas, 1);
    EXPECT_LE(LargestDifference(part, cut(whole)), 1) << module->Name();
  }
  EXPECT_EQ(marked, 5) << "text, two grids, two points in focus";
}

// The photo at its full size.

struct Rendering {
  explicit Rendering(const Picture& picture = TestPicture(320, 240))
      : photo(services.services, picture, "photo"), processor(EffectRegistry(), services.services) {
    processor.Startup();
    processor.Document = &photo;
    full.Ready = [this](const FullRender::Result& result) { results.push_back(result); };
  }
  FullRender::Request Request(bool before = false) {
    return {std::make_shared<BrivolantDocument>(photo), processor.StyleData(),
            processor.CurrentStack, before};
  }
  effectModule& Module(const std::string& name) {
    for (int i = 0; i <= processor.Count(); ++i) {
      if (processor.item(i)->Name() == name) return *processor.item(i);
    }
    throw std::out_of_range(name);
  }
  TestServices services;
  BrivolantDocument photo;
  brivolantProcessorLite processor;
  std::vector<FullRender::Result> results;
  FullRender full{services.services};
};

TEST(FullRenders, AreTheFinishedPicture) {
  Rendering r;
  r.Module("Exposure").Enabled(true);
  r.Module("Exposure").ControlValue(0, 80);
  r.photo.Rotation = 1;
  r.full.Start(r.Request(true));
  EXPECT_TRUE(r.full.Running());
  r.full.Finish();
  EXPECT_FALSE(r.full.Running());
  ASSERT_EQ(r.results.size(), 1U);
  const Picture source = r.photo.Image();
  EXPECT_EQ(r.results[0].After.Width(), 240);
  EXPECT_TRUE(r.results[0].Before.SameAs(source));
  EXPECT_TRUE(r.results[0].After.SameAs(r.processor.Process(source, {})));
  EXPECT_GT(LargestDifference(r.results[0].After, source), 10);
  // The second stack is shown alone while it is edited.
  r.processor.CurrentStack = kBackground;
  r.Module("Inverse").Enabled(true);
  r.full.Start(r.Request());
  r.full.Finish();
  Picture layer = SharedPictureEffects::Clone(source, 24, false);
  EXPECT_TRUE(r.results.at(1).After.SameAs(r.processor.Process(layer, kBackground, 0, {})));
  EXPECT_TRUE(r.results.at(1).Before.IsNil()) << "a turned image costs memory";
  // Finish delivered: the event that was on its way brings nothing more.
  QCoreApplication::processEvents();
  EXPECT_EQ(r.results.size(), 2U);
}

TEST(FullRenders, MakeTheNewestAndBreakOffWhatNobodyNeeds) {
  Rendering r(TestPicture(1600, 1200));
  // Several modules of many milliseconds each.
  for (const char* name : {"Blur", "Oil Painting", "Motion Blur", "Matte"}) {
    r.Module(name).Enabled(true);
  }
  const FullRender::Request slow = r.Request();
  for (const char* name : {"Blur", "Oil Painting", "Motion Blur", "Matte"}) {
    r.Module(name).Enabled(false);
  }
  r.Module("Inverse").Enabled(true);
  r.full.Start({std::make_shared<BrivolantDocument>(*slow.Photo), slow.StyleData, 0, false});
  r.full.Start({std::make_shared<BrivolantDocument>(*slow.Photo), slow.StyleData, 0, false});
  r.full.Start(r.Request());
  r.full.Finish();
  ASSERT_EQ(r.results.size(), 1U);
  EXPECT_TRUE(r.results[0].After.SameAs(r.processor.Process(r.photo.Image(), {})));
  // Stopped, nothing comes, and the thread is free for what is next.
  const int before = r.full.BrokenOff();
  r.full.Start({std::make_shared<BrivolantDocument>(*slow.Photo), slow.StyleData, 0, false});
  while (!r.full.Working()) std::this_thread::yield();
  r.full.Stop();
  EXPECT_FALSE(r.full.Running());
  while (r.full.Working()) std::this_thread::yield();
  EXPECT_EQ(r.full.BrokenOff(), before + 1);
  QCoreApplication::processEvents();
  EXPECT_EQ(r.results.size(), 1U);
  // Its end does not wait for all modules either.
  r.full.Start({std::make_shared<BrivolantDocument>(*slow.Photo), slow.StyleData, 0, false});
}

TEST(FullRenders, ArriveAsEventsAndLeaveTheDocumentAlone) {
  Rendering r;
  r.photo.GeneratePreviews(100, 100);
  const Picture preview = r.photo.PreviewBase;
  r.full.Start(r.Request());
  QElapsedTimer patience;
  patience.start();
  while (r.results.empty() && patience.elapsed() < 30000) QCoreApplication::processEvents();
  ASSERT_EQ(r.results.size(), 1U);
  // An image that is as it was read is shown as it is, and costs nothing.
  EXPECT_TRUE(r.results[0].Before.SharesPixelsWith(r.photo.ImageOriginal()));
  EXPECT_TRUE(r.photo.PreviewBase.SharesPixelsWith(preview));
}

}  // namespace
}  // namespace brivolant::test
