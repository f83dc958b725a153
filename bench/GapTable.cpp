// SPDX-License-Identifier: MIT
// How long the window stands still: the longest time between two turns of the event loop while the
// program works, with photos of two sizes in windows of two sizes. Nobody answers questions.
#include <QApplication>
#include <QMouseEvent>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <utility>

#include "Peers.h"
#include "app/App.h"
#include "app/MainWindow.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "formats/BrivolantDocument.h"
#include "formats/FileTypes.h"
#include "kit/ifkSearchField.h"
#include "kit/ifkSegmentView.h"

namespace brivolant::bench {
namespace {

using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

/// Ticks every millisecond; what lies between two ticks is a turn of the event loop.
class GapWatch {
 public:
  GapWatch() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Tick(); });
    timer_.start(1);
  }
  void Begin() {
    last_ = Clock::now();
    longest_ = 0;
    lap_ = 0;
  }
  /// The longest since the last call.
  double Lap() {
    Tick();
    return std::exchange(lap_, 0);
  }
  double Longest() {
    Tick();
    return longest_;
  }

 private:
  void Tick() {
    const Clock::time_point now = Clock::now();
    const double gap = Milliseconds(now - last_) - 1;
    longest_ = std::max(longest_, gap);
    lap_ = std::max(lap_, gap);
    last_ = now;
  }
  QTimer timer_;
  Clock::time_point last_;
  double longest_ = 0;
  double lap_ = 0;
};

/// Chooses what continues.
struct Willing final : Dialogs {
  void Message(const std::string& message, const std::string&) override { GiveUp(message); }
  Answer Ask(const Question&) override { return Answer::kAction; }
};

struct Placing final : FileDialogs {
  FolderItem place;
  std::vector<FolderItem> Open(const std::string&, const FolderItem&,
                               const std::vector<FileFilter>&) override {
    return {};
  }
  FolderItem Save(const std::string&, const FolderItem&, const std::vector<FileFilter>&,
                  int&) override {
    return place;
  }
};

/// When the display has painted what the newest render shows.
class Painted final : public QObject {
 public:
  Painted(EditSession& session, QWidget& display)
      : rendered_(session.Rendered.Listen([this] { fresh_ = true; })) {
    display.installEventFilter(this);
  }
  /// Counts the paints of new pictures.
  int Count() const { return count_; }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint && fresh_) {
      fresh_ = false;
      // Behind the paint itself.
      QTimer::singleShot(0, this, [this] { ++count_; });
    }
    return false;
  }

 private:
  bool fresh_ = false;
  int count_ = 0;
  Listening rendered_;
};

struct Bench {
  Bench(App& app, Placing& placing, FolderItem scratch)
      : app(app), window(*app.Window()), placing(placing), scratch(std::move(scratch)) {}

  static void Turn() { QApplication::processEvents(QEventLoop::WaitForMoreEvents); }
  bool Idle() { return !window.Session().Busy() && !window.FileWork().Busy() && !Rendering(); }
  bool Rendering() const { return window.myProcessor->Running(); }

  void For(int milliseconds) {
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    while (Clock::now() < end) Turn();
  }

  /// One row: the longest gap while something happens and until it is done.
  void Gap(const std::string& work, double allowed, const std::function<void()>& start,
           const std::function<bool()>& done) {
    For(Count(300, 20));
    watch.Begin();
    start();
    Turn();
    HandleUntil(work, done);
    // What follows the end: fresh lists, paints, thumbnails.
    For(Count(500, 20));
    Row(work, std::max(watch.Longest(), 0.01), Aim(allowed), allowed, 1);
  }
  void Gap(const std::string& work, const std::function<void()>& start) {
    Gap(work, kStill, start, [this] { return Idle(); });
  }
  static std::string Aim(double allowed) {
    return std::to_string(static_cast<int>(allowed)) + " ms";
  }

  int RowOf(const std::string& name) {
    for (int i = 0; i <= window.myProcessor->Count(); ++i) {
      if (window.myProcessor->item(i)->Name() == name) return i;
    }
    GiveUp("there is no effect " + name);
  }

  void Send(QEvent::Type type, const QPoint& at) {
    EffectStackEditor& panel = *window.AdvancedPanel;
    const bool move = type == QEvent::MouseMove;
    QMouseEvent event(type, at, panel.mapToGlobal(at), move ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
    QApplication::sendEvent(&panel, &event);
  }

  /// Of 95% of the steps of a slider.
  struct Steps {
    /// Until the picture is painted; a step that a newer one replaced takes as long as it.
    double Shown = 0;
    /// The longest that the main thread is held within one.
    double Held = 0;
  };
  static double Most(std::vector<double>& times) {
    std::sort(times.begin(), times.end());
    return times.empty() ? 0 : times[times.size() * 95 / 100];
  }

  /// A slider drawn to and fro, a step for each frame of a display.
  Steps Slide(const std::string& name, const std::string& work, double allowed) {
    window.AdvancedPanel->SelectRow(RowOf(name));
    For(Count(300, 20));
    int control = 0;
    effectModule& module = *window.myProcessor->SelectedEffect();
    while (control < module.ControlCount() && module.Control(control).Type != kControlSlider) {
      ++control;
    }
    if (control == module.ControlCount()) GiveUp(name + " has no slider");
    const QRect rect = window.AdvancedPanel->ControlRect(control);
    const auto at = [&](int step) { return QPoint(rect.left() + 20 + step, rect.top() + 10); };
    Painted painted(window.Session(), *window.MyDisplay);
    std::vector<Clock::time_point> waiting;
    std::vector<double> times;
    std::vector<double> held;
    int shown = 0;
    const auto look = [&] {
      if (painted.Count() == shown) return;
      shown = painted.Count();
      for (const Clock::time_point begin : waiting) {
        times.push_back(Milliseconds(Clock::now() - begin));
      }
      waiting.clear();
    };
    const auto slide = [&] {
      Send(QEvent::MouseButtonPress, at(0));
      constexpr std::chrono::milliseconds kFrame(16);
      for (int i = 0; i < Count(90, 3); ++i) {
        const auto next = Clock::now() + kFrame;
        waiting.push_back(Clock::now());
        Send(QEvent::MouseMove, at(i % 2 == 0 ? 90 - i % 40 : i % 40));
        do {
          Turn();
          look();
        } while (Clock::now() < next);
        held.push_back(std::max(watch.Lap(), 0.01));
      }
      Send(QEvent::MouseButtonRelease, at(0));
    };
    if (work.empty()) {
      slide();
    } else {
      Gap(work, allowed, slide, [this] { return Idle(); });
    }
    look();
    const auto idle = [this] { return Idle(); };
    HandleUntil("the end of a slider", idle);
    window.MenuAction("EditClearStyle");
    HandleUntil("a clear stack", idle);
    return {Most(times), Most(held)};
  }

  void Photo(const FolderItem& photo) {
    bool opened = false;
    const Listening listening = window.Session().Opened.Listen([&] { opened = true; });
    Gap(
        "opening", kStill, [&] { window.OpenImage(photo, {}); }, [&] { return opened && Idle(); });
    if (!window.PreviewTitle->SegmentByTag("advanced")->Selected) window.MenuAction("Viewadvanced");
    For(Count(500, 20));
    for (const char* name : {"Oil Painting", "Matte", "Motion Blur"}) {
      const Steps steps = Slide(name, std::string("a slider of ") + name, kFrame);
      Row(std::string("a step of ") + name + " on the main thread, 95%", steps.Held, Aim(kStep),
          kStep, 1);
    }
    Row("a slider of Exposure to the screen, 95%", Slide("Exposure", {}, 0).Shown, Aim(kFrame),
        kFrame, 1);
    window.SetDirty(true);
    placing.place = scratch.Child("saved.brvPhoto");
    Gap("saving", [&] { window.SaveMethod(); });
    placing.place = scratch.Child("copy.jpg");
    Gap("Save As Copy", [&] { window.MenuAction("FileSaveACopyAs"); });
    Gap("leaving the editor", [&] { window.MenuAction("ViewBrowseMyPhotos"); });
    window.SetDirty(false);
    std::filesystem::remove_all(scratch.Child("saved.brvPhoto").Path());
    std::filesystem::remove(scratch.Child("copy.jpg").Path());
  }

  void Files() {
    const FolderItem from = scratch.Child("from");
    const FolderItem to = scratch.Child("to");
    (void)from.CreateAsFolder();
    (void)to.CreateAsFolder();
    std::vector<FolderItem> files;
    constexpr std::size_t kBytes = 50'000;
    for (int i = 0; i < Count(1000, 4); ++i) {
      files.push_back(from.Child("photo " + std::to_string(i) + ".jpg"));
      std::ofstream(files.back().Path(), std::ios::binary) << std::string(kBytes, 'x');
    }
    window.DisplayContainer(to);
    multiViewFileBrowser& browser = *window.imageBrowser;
    const auto listed = [&](std::size_t count) {
      return Idle() && !browser.Listing() && browser.CurrentFolder() == to &&
             static_cast<std::size_t>(browser.Count()) == count;
    };
    HandleUntil("an empty folder", [&] { return listed(0); });
    Gap(
        "copying 1,000 files", kStill, [&] { window.CopyFilesInto(files, to); },
        [&] { return listed(files.size()); });
    for (std::size_t i = files.size() / 2; i < files.size(); ++i) {
      (void)to.Child(files[i].Name()).Delete();
    }
    HandleUntil("half of the files", [&] { return listed(files.size() / 2); });
    Gap(
        "trashing 500 files", kStill,
        [&] {
          browser.SelectAll();
          window.MenuAction("FileMoveToTrash");
        },
        [&] { return listed(0); });

    const FolderItem tree = scratch.Child("tree");
    (void)tree.CreateAsFolder();
    for (int folder = 0; folder < Count(200, 2); ++folder) {
      const FolderItem inside = tree.Child("folder " + std::to_string(folder));
      (void)inside.CreateAsFolder();
      for (int i = 0; i < Count(1000, 10); ++i) {
        std::ofstream(
            inside.Child((i % 50 == 0 ? "found " : "other ") + std::to_string(i) + ".jpg").Path());
      }
    }
    SpotlightQuery& search = window.mySpotlightSearch;
    search.Roots = {tree};
    ifkSearchField& field = *window.browserSearchField;
    for (MenuItem& item : field.Menu) item.Checked = &item == &field.Menu[1];
    Gap(
        "searching 200,000 names", kStill, [&] { field.Text("found"); },
        [&] { return search.IsCompleted() && !browser.Listing() && browser.Count() > 0; });
  }

  /// What is at rest for the eye, and a frame of a display.
  static constexpr double kStill = 50;
  static constexpr double kFrame = 16;
  /// What a step of a slider may take of a frame.
  static constexpr double kStep = 8;

  App& app;
  MainWindow& window;
  Placing& placing;
  FolderItem scratch;
  GapWatch watch;
};

}  // namespace
}  // namespace brivolant::bench

int main(int argc, char** argv) {
  using namespace brivolant;
  bench::TakeSmoke(argc, argv);
  if (argc != 4) {
    std::fprintf(stderr, "usage: gap-table [--smoke] PHOTO.jpg LARGE.jpg SCRATCH\n");
    return 2;
  }
  QApplication application(argc, argv);
  bench::Willing willing;
  bench::Placing placing;
  App app(application, {.Dialogs = &willing, .FileDialogs = &placing});
  if (!app.Open(false)) return 1;
  QTimer::singleShot(0, [&] {
    bench::Bench table(app, placing, FolderItem(std::string(argv[3])));
    std::printf("the longest time between two turns of the event loop\n");
    bench::Heading();
    for (const QSize& size : {QSize(1600, 1000), QSize(3840, 2160)}) {
      app.Window()->resize(size);
      for (int photo = 1; photo <= 2; ++photo) {
        std::printf("%s megapixels, window of %d x %d\n", photo == 1 ? "24" : "100", size.width(),
                    size.height());
        table.Photo(FolderItem(std::string(argv[photo])));
      }
    }
    table.Files();
    QApplication::quit();
  });
  const int code = QApplication::exec();
  app.Close();
  return code;
}
