// SPDX-License-Identifier: MIT
// Looking closer: from the key to the sharp picture, moving and enlarging it, and the memory that a
// large photo takes meanwhile, each case of it in a process of its own.
#include <sys/resource.h>

#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string_view>

#include "Peers.h"
#include "app/App.h"
#include "app/MainWindow.h"
#include "engine/ui/EditorDisplay.h"
#include "formats/BrivolantDocument.h"

namespace brivolant::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr QSize kWindow{1600, 1000};
constexpr const char* kEffects[] = {"Auto Levels", "Shadow & Highlight", "White Balance", "Sharpen",
                                    "Vignette"};

double Milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

struct Editor {
  explicit Editor(App& app) : window(*app.Window()) {}

  /// Turns of the event loop until the condition holds; gives the longest time between two.
  static double Wait(const std::function<bool()>& done) {
    QTimer ticks;
    ticks.setTimerType(Qt::PreciseTimer);
    ticks.start(1);
    double longest = 0;
    auto last = Clock::now();
    while (!done()) {
      QApplication::processEvents(QEventLoop::WaitForMoreEvents);
      const auto now = Clock::now();
      longest = std::max(longest, Milliseconds(now - std::exchange(last, now)) - 1);
    }
    return longest;
  }

  void Open(const std::string& photo) {
    bool opened = false;
    const Listening listening = window.Session().Opened.Listen([&] { opened = true; });
    window.OpenImage(FolderItem(photo), {});
    Wait([&] { return opened && !window.Session().Busy(); });
  }

  /// Switches effects of the present stack on, none at a value that would save it work.
  void Enable() {
    constexpr int kBusy = 60;
    for (const char* name : kEffects) {
      bool found = false;
      for (int i = 0; i <= window.myProcessor->Count(); ++i) {
        effectModule& module = *window.myProcessor->item(i);
        if (module.Name() != name) continue;
        found = true;
        module.Enabled(true);
        for (int c = 0; c < module.ControlCount(); ++c) {
          if (module.Control(c).Type == kControlSlider) module.ControlValue(c, kBusy);
        }
      }
      if (!found) GiveUp(std::string("there is no effect ") + name);
    }
    window.myProcessor->UpdatePreview(true);
    window.Session().FinishPreview();
    QApplication::processEvents();
  }

  /// From the command until the sharp picture is painted. The longest turn meanwhile is kept.
  double UntilSharp() {
    const auto begin = Clock::now();
    window.MenuAction("ViewActualSize");
    turn = Wait([this] { return window.Zoom().Sharp(); });
    QApplication::processEvents();
    return Milliseconds(Clock::now() - begin);
  }

  /// Fitted again, and nothing kept of what was rendered.
  void Leave() {
    window.MenuAction("ViewZoomToFit");
    window.myProcessor->BlendAlpha = window.myProcessor->BlendAlpha == 1 ? 0.999F : 1.0F;
    window.myProcessor->UpdatePreview(false);
    window.Session().FinishPreview();
    window.myProcessor->BlendAlpha = 1;
    window.myProcessor->UpdatePreview(false);
    window.Session().FinishPreview();
    QApplication::processEvents();
  }

  MainWindow& window;
  double turn = 0;
};

void Rows(App& app, const std::string& photo, const std::string& large, const std::string& self) {
  Editor editor(app);
  editor.Open(photo);
  editor.Enable();
  Heading();
  double sharp = 1e9;
  double turn = 0;
  for (int i = 0; i < Count(7, 1); ++i) {
    sharp = std::min(sharp, editor.UntilSharp());
    turn = std::max(turn, editor.turn);
    if (i + 1 < Count(7, 1)) editor.Leave();
  }
  Row("1:1 of 24 megapixels, five effects, until it is sharp", sharp, "600 ms", 600, 1);
  Row("the longest turn of the event loop meanwhile", std::max(turn, 0.01), "50 ms", 50, 1);
  EditorDisplay& display = *editor.window.MyDisplay;
  const auto look = [&](const std::function<void(PhotoView&)>& change) {
    display.Look(change);
    QApplication::processEvents();
  };
  const auto pan = [&](int run) {
    look([&](PhotoView& view) { view.Pan({run % 20 < 10 ? 37.0 : -37.0, 11}); });
  };
  Row("a step of a drag at 1:1, 95%", Percentile95(pan, Count(120, 2)), "16 ms", 16, 1);
  const auto zoom = [&](int run) {
    look([&](PhotoView& view) { view.ZoomBy(run % 24 < 12 ? 1.1 : 1 / 1.1, {500, 400}); });
  };
  look([](PhotoView& view) { view.ZoomTo(0.5); });
  Row("a notch of the wheel from 50 to 150%, 95%", Percentile95(zoom, Count(120, 2)), "16 ms", 16,
      1);
  look([](PhotoView& view) { view.ZoomTo(8); });
  Row("a step of a drag at 800%, 95%", Percentile95(pan, Count(120, 2)), "16 ms", 16, 1);

  constexpr double kMega = 1024 * 1024;
  constexpr double kRest = 150e6;
  for (const auto& [name, how, times] : {std::tuple{"as it is", "plain", 3},
                                         {"turned", "turned", 5},
                                         {"both layers", "layers", 5}}) {
    const std::vector<std::string> command{self, "--memory", how, large};
    const double allowed = times * NumberTold(command, "pixel_bytes") + kRest;
    Row(std::string("peak memory, 100 megapixels at 1:1, ") + name + " (MiB)",
        PeakTold(command) / kMega, std::to_string(times) + " x pixels + 150 MB", allowed / kMega,
        1);
  }
  editor.window.SetDirty(false);
}

/// Prints the peak memory of a photo that is opened, edited and looked at closely.
void Memory(App& app, const std::string_view how, const std::string& photo) {
  Editor editor(app);
  editor.Open(photo);
  if (how == "turned") editor.window.MenuAction("RotateAndFlipRotate90");
  if (how == "layers") {
    editor.window.myProcessor->ChangeStack(kBackground);
    editor.Enable();
    editor.window.myProcessor->ChangeStack(kForeground);
    editor.window.myProcessor->BlendAlpha = 0.5F;
  }
  editor.Enable();
  editor.UntilSharp();
  BrivolantDocument& document = *editor.window.Document();
  constexpr double kPixel = 4;
  const double bytes = kPixel * document.Width() * document.Height();
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("{\"pixel_bytes\": %.0f, \"peak_memory_bytes\": %lld}\n", bytes,
              static_cast<long long>(usage.ru_maxrss) * 1024);
  std::fflush(stdout);
  editor.window.SetDirty(false);
}

}  // namespace
}  // namespace brivolant::bench

int main(int argc, char** argv) {
  using namespace brivolant;
  bench::TakeSmoke(argc, argv);
  const bool memory = argc == 4 && std::string_view(argv[1]) == "--memory";
  if (!memory && argc != 3) {
    std::fprintf(stderr, "usage: zoom-table [--smoke] PHOTO.jpg LARGE.jpg\n");
    return 2;
  }
  QApplication application(argc, argv);
  App app(application);
  if (!app.Open(false)) return 1;
  app.Window()->resize(bench::kWindow);
  QTimer::singleShot(0, [&] {
    if (memory) {
      bench::Memory(app, argv[2], argv[3]);
    } else {
      bench::Rows(app, argv[1], argv[2], argv[0]);
    }
    QApplication::quit();
  });
  const int code = QApplication::exec();
  app.Close();
  return code;
}
