// SPDX-License-Identifier: MIT
// Previews on a thread of their own: what is shown when, and what is never shown.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <condition_variable>
#include <mutex>
#include <stdexcept>

#include "Helpers.h"
#include "app/session/PreviewThread.h"
#include "engine/ModuleParameter.h"
#include "engine/brivolantProcessorLite.h"
#include "formats/BrivolantDocument.h"

namespace brivolant::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

/// Holds whoever renders until it is opened.
class Gate {
 public:
  void Close() {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    inside_ = 0;
  }
  void Open() {
    const std::lock_guard lock(mutex_);
    closed_ = false;
    changed_.notify_all();
  }
  void Pass() {
    std::unique_lock lock(mutex_);
    ++inside_;
    changed_.notify_all();
    changed_.wait(lock, [this] { return !closed_; });
  }
  /// Returns when somebody stands in the gate.
  void Reached() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return inside_ > 0; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool closed_ = false;
  int inside_ = 0;
};
Gate gate;

/// Paints all one level of grey, once the gate is open.
class Painter final : public effectModule {
 public:
  static constexpr int kThrows = 13;
  Parameter<int> level{*this, {"level", 0, 0, {0, 255}}};

 protected:
  std::string getID() const override { return "Painter"; }
  std::string getName() const override { return "Painter"; }
  void ApplyEffect(Picture& picture, double) override {
    gate.Pass();
    if (level == kThrows) throw std::runtime_error("out of paint");
    const auto grey = static_cast<std::uint8_t>(level);
    picture = PlainPicture(picture.Width(), picture.Height(), {grey, grey, grey});
  }
};

/// Stands behind the painter, so that a render can be broken off between them.
class Last final : public effectModule {
 protected:
  std::string getID() const override { return "Last"; }
  std::string getName() const override { return "Last"; }
};

constexpr std::array<ModuleEntry, 2> kModules{
    {{"Painter", "Painter",
      [](Stack) -> std::unique_ptr<effectModule> { return std::make_unique<Painter>(); }},
     {"Last", "Last",
      [](Stack) -> std::unique_ptr<effectModule> { return std::make_unique<Last>(); }}}};

/// A processor with a display, whose previews are rendered beside it.
struct Watched : TestServices {
  struct Display final : PreviewDisplay {
    Watched* owner = nullptr;
    int width = 80;
    int Width() const override { return width; }
    int Height() const override { return 60; }
    void Update(bool full) override {
      const Picture& shown = owner->document.PreviewAfter;
      const std::string what = shown.IsNil() ? "nothing" : std::to_string(shown.At(0, 0).Red);
      owner->events.push_back((full ? "full " : "") + what);
    }
  };
  Watched() : document(services, PlainPicture(300, 200, {9, 9, 9}), "first") {
    gate.Open();
    display.owner = this;
    processor.Startup();
    for (const auto& stack : processor.stacks) {
      for (const auto& module : stack) module->Enabled(true);
    }
    processor.myDisplay = &display;
    processor.Document = &document;
    processor.UpdateStarted = [this] { events.emplace_back("started"); };
    processor.UpdateFinished = [this] { events.emplace_back("finished"); };
  }
  ~Watched() { gate.Open(); }
  void Paint(int level, bool full = false) {
    dynamic_cast<Painter&>(*processor.item(0)).level = level;
    processor.UpdatePreview(full);
  }
  /// The turns of an event loop, until so many events were raised.
  void Until(std::size_t count) {
    while (events.size() < count) {
      thread->Wait();
      (void)thread->Settled();
    }
  }

  Display display;
  BrivolantDocument document;
  brivolantProcessorLite processor{kModules, services};
  std::vector<std::string> events;
  std::unique_ptr<PreviewThread> thread =
      std::make_unique<PreviewThread>(processor, kModules, services);
};

TEST(PreviewThread, WhatIsAskedForInOneTurnIsOneRenderOfTheNewest) {
  Watched w;
  w.Paint(10);
  w.Paint(20, true);
  w.Paint(30);
  EXPECT_THAT(w.events, testing::IsEmpty());
  EXPECT_FALSE(w.processor.Running());
  w.thread->Finish();
  EXPECT_THAT(w.events, ElementsAre("started", "full 30", "finished"));
  w.thread->Finish();
  EXPECT_EQ(w.events.size(), 3U) << "nothing more was asked for";
  EXPECT_GT(w.processor.debugProcessTime, 0);
}

TEST(PreviewThread, WithoutADocumentTheEventsComeAllTheSame) {
  Watched w;
  w.processor.Document = nullptr;
  w.processor.UpdatePreview(false);
  w.thread->Finish();
  EXPECT_THAT(w.events, ElementsAre("started", "nothing", "finished"));
}

TEST(PreviewThread, ARenderUnderWayIsShownThoughANewerValueWaits) {
  Watched w;
  gate.Close();
  w.Paint(10);
  EXPECT_FALSE(w.thread->Settled());
  gate.Reached();
  EXPECT_TRUE(w.processor.Running());
  w.Paint(20);
  w.Paint(30);
  EXPECT_FALSE(w.thread->Settled());
  gate.Open();
  w.Until(6);
  EXPECT_THAT(w.events, ElementsAre("started", "10", "finished", "started", "30", "finished"));
}

TEST(PreviewThread, WhatNobodyWantsToSeeIsBrokenOffAndEnds) {
  struct Case {
    const char* what;
    std::function<void(Watched&)> change;
  };
  const Case cases[] = {{"size", [](Watched& w) { w.display.width = 60; }},
                        {"stack", [](Watched& w) { w.processor.CurrentStack = kBackground; }},
                        {"document", [](Watched& w) { w.thread->DocumentReplaced(); }}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Watched w;
    gate.Close();
    // What was to be made anew still is when the next one is not.
    w.Paint(10, true);
    EXPECT_FALSE(w.thread->Settled());
    gate.Reached();
    c.change(w);
    w.Paint(20);
    EXPECT_FALSE(w.thread->Settled());
    gate.Open();
    w.Until(5);
    EXPECT_THAT(w.events, ElementsAre("started", "finished", "started", "full 20", "finished"));
  }
}

TEST(PreviewThread, TheResultOfAnEarlierDocumentIsNotShown) {
  Watched w;
  w.Paint(10);
  EXPECT_FALSE(w.thread->Settled());
  w.thread->Wait();
  // It is ready, and comes too late.
  BrivolantDocument next(w.services, PlainPicture(100, 200, {5, 5, 5}), "next");
  w.thread->DocumentReplaced();
  w.processor.Document = &next;
  EXPECT_TRUE(w.thread->Settled());
  EXPECT_THAT(w.events, ElementsAre("started", "finished"));
  EXPECT_TRUE(next.PreviewAfter.IsNil());
  w.processor.UpdatePreview(true);
  w.thread->Finish();
  EXPECT_LT(next.PreviewAfter.Width(), next.PreviewAfter.Height());
}

TEST(PreviewThread, WhatAModuleThrowsEndsItsRenderAlone) {
  Watched w;
  w.Paint(Painter::kThrows);
  w.thread->Finish();
  EXPECT_THAT(w.events, ElementsAre("started", "finished"));
  EXPECT_THAT(w.log.lines, Contains(HasSubstr("out of paint")));
  EXPECT_THAT(w.processor.Warnings(), ElementsAre(PreviewThread::kFailed.Text()));
  w.Paint(40);
  w.thread->Finish();
  EXPECT_THAT(w.events.at(3), HasSubstr("40"));
}

TEST(PreviewThread, TellsWhenTheNewestIsShown) {
  Watched w;
  const auto told = [&w] { w.events.emplace_back("told"); };
  w.thread->WhenRendered(told);
  EXPECT_THAT(w.events, ElementsAre("told")) << "nothing is to come";
  w.events.clear();
  gate.Close();
  w.Paint(10);
  (void)w.thread->Settled();
  gate.Reached();
  w.Paint(20);
  w.thread->WhenRendered(told);
  gate.Open();
  w.Until(7);
  EXPECT_THAT(w.events,
              ElementsAre("started", "10", "finished", "started", "20", "finished", "told"));
}

TEST(PreviewThread, ItsEndWaitsForTheModuleThatWorksAndShowsNothing) {
  Watched w;
  gate.Close();
  w.Paint(10);
  (void)w.thread->Settled();
  gate.Reached();
  w.Paint(20);
  std::thread opener([] { gate.Open(); });
  w.thread.reset();
  opener.join();
  EXPECT_THAT(w.events, ElementsAre("started"));
  // The processor renders by itself again.
  w.Paint(30);
  EXPECT_THAT(w.events, ElementsAre("started", "started", "30", "finished"));
}

}  // namespace
}  // namespace brivolant::test
