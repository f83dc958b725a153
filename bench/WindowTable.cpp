// SPDX-License-Identifier: MIT
// What a person feels in the editor: from an event to pixels on the widget's buffer, at a preview
// of 1600 pixels on a window of that size.
#include <QApplication>
#include <QMouseEvent>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

#include "Peers.h"
#include "app/App.h"
#include "app/MainWindow.h"
#include "app/edit/StyleTiles.h"
#include "app/info/InfoWindows.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "formats/BrivolantDocument.h"
#include "kit/ifkSegmentView.h"
#include "kit/templateSelector.h"

namespace brivolant::bench {
namespace {

constexpr QSize kWindow{1871, 1330};
constexpr int kSteps = 120;

struct Editor {
  explicit Editor(App& app) : window(*app.Window()), panel(*window.AdvancedPanel) {}

  /// The render of what an event asked for, and the paint of what it showed.
  void Turn() {
    window.Session().FinishPreview();
    QApplication::processEvents();
  }

  int Row(const std::string& name) {
    for (int i = 0; i <= window.myProcessor->Count(); ++i) {
      if (window.myProcessor->item(i)->Name() == name) return i;
    }
    return -1;
  }

  void Dispatch(QEvent::Type type, const QPoint& at) {
    const bool move = type == QEvent::MouseMove;
    QMouseEvent event(type, at, panel.mapToGlobal(at), move ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
    QApplication::sendEvent(&panel, &event);
  }
  void Send(QEvent::Type type, const QPoint& at) {
    Dispatch(type, at);
    Turn();
  }

  /// One step of a slider by the mouse.
  double SliderStep(const std::string& name, int control) {
    panel.SelectRow(Row(name));
    QApplication::processEvents();
    // Nothing of the effect stands at a value that would save it work.
    effectModule& module = *window.myProcessor->SelectedEffect();
    constexpr int kBusy = 60;
    for (int i = 0; i < module.ControlCount(); ++i) {
      if (module.Control(i).Type == kControlSlider) module.ControlValue(i, kBusy);
    }
    window.myProcessor->UpdatePreview(false);
    Turn();
    const QRect rect = panel.ControlRect(control);
    const auto at = [&](int step) {
      return QPoint(rect.left() + 20 + step % 100, rect.top() + 10);
    };
    Send(QEvent::MouseButtonPress, at(0));
    const double time = Percentile95(
        [&](int i) { Send(QEvent::MouseMove, at(i % 2 == 0 ? 90 - i % 40 : i % 40)); }, kSteps);
    Send(QEvent::MouseButtonRelease, at(0));
    window.MenuAction("EditClearStyle");
    return time;
  }

  /// The longest that one turn of the event loop takes while a step of a slider comes to the
  /// screen.
  double Held(const std::string& name, int control) {
    using Clock = std::chrono::steady_clock;
    panel.SelectRow(Row(name));
    Turn();
    const QRect rect = panel.ControlRect(control);
    std::vector<double> held;
    for (int i = 0; i < Count(40, 2); ++i) {
      const QPoint at(rect.left() + 20 + (i % 2 == 0 ? 90 - i : i), rect.top() + 10);
      double longest = 0;
      const auto turn = [&](const std::function<void()>& work) {
        const auto start = Clock::now();
        work();
        const std::chrono::duration<double, std::milli> took = Clock::now() - start;
        longest = std::max(longest, took.count());
      };
      turn([&] {
        Dispatch(i == 0 ? QEvent::MouseButtonPress : QEvent::MouseMove, at);
        QApplication::processEvents();
      });
      while (window.myProcessor->Running()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        turn([] { QApplication::processEvents(); });
      }
      turn([] { QApplication::processEvents(); });
      held.push_back(longest);
    }
    Send(QEvent::MouseButtonRelease, rect.center());
    window.MenuAction("EditClearStyle");
    std::sort(held.begin(), held.end());
    return held[held.size() * 95 / 100];
  }

  MainWindow& window;
  EffectStackEditor& panel;
};

/// Loading many styles, tiles of the photo, and a click on a style until its pixels are shown.
void StyleRows(App& app, MainWindow& window) {
  const int styles = Count(500, 20);
  const OneClickWonderStorage& shipped = app.Styles();
  const FolderItem folder = app.Services().TemporaryFiles.Child("styles");
  (void)folder.CreateAsFolder();
  for (int i = 0; i < styles; ++i) {
    const auto& style = shipped.Wonders()[static_cast<std::size_t>(i) % shipped.Wonders().size()];
    (void)style->Clone().Save(folder.Child(std::to_string(i) + ".oneClick"));
  }
  const auto load = [&] {
    OneClickWonderStorage storage(app.StyleServices());
    storage.AddFolder(folder);
  };
  Row("loading 500 styles", Fastest({load}, 7)[0], "100 ms", 100, 1);

  // Tiles of 100 pixels are rendered at twice their size and shrunk.
  const Picture photo = SharedPictureEffects::Scale(window.Document()->PreviewBase, 200, 200,
                                                    SharedPictureEffects::kScaleToFit);
  StyleTiles tiles;
  std::size_t ready = 0;
  tiles.Ready = [&ready](const std::string&, const Picture&) { ++ready; };
  const auto render = [&] {
    ready = 0;
    tiles.Photo(photo, brivolantProcessorLite::ConsistencyScaleFor(photo), {});
    std::vector<StyleTiles::Order> orders;
    for (const auto& style : shipped.Wonders()) orders.push_back({style->ID, style->StyleData});
    tiles.Render(orders);
    HandleUntil("tiles", [&] { return ready >= orders.size(); });
  };
  const double each = Fastest({render}, 5)[0] / static_cast<double>(shipped.Wonders().size());
  Row("one tile of 100 pixels, all styles of the program", each, "60 a second", 1000.0 / 60, 1);

  // Styles of tone modules alone.
  templateSelector& bar = *window.myStylesBar;
  bar.selectedCategory = 3;
  bar.ChangedCategory(3);
  std::vector<int> tone;
  for (int i = 0; i < bar.Count(); ++i) {
    if (bar.Item(i).Name == "Less Yellow" || bar.Item(i).Name == "Less Blue" ||
        bar.Item(i).Name == "Less Green" || bar.Item(i).Name == "Softer Contrast") {
      tone.push_back(i);
    }
  }
  if (tone.empty()) GiveUp("the styles of tone modules are gone");
  Row("a click on a style of tone modules until it shows, 95%",
      Percentile95(
          [&](int run) {
            const int index = tone[static_cast<std::size_t>(run) % tone.size()];
            bar.ScrollTo(index);
            const QPoint at = bar.TileRect(index).center();
            bar.MouseClick(at.x(), at.y());
            window.Session().FinishPreview();
            QApplication::processEvents();
          },
          24),
      "60 ms", 60, 1);
  window.MenuAction("EditClearStyle");
}

void Rows(App& app, const std::string& photo, const std::string& program) {
  Editor editor(app);
  MainWindow& window = editor.window;
  window.OpenImage(FolderItem(photo), {});
  window.Session().Finish();
  if (!window.PreviewTitle->SegmentByTag("advanced")->Selected) window.MenuAction("Viewadvanced");
  const auto start = std::chrono::steady_clock::now();
  while (std::chrono::steady_clock::now() - start < std::chrono::seconds(1)) {
    QApplication::processEvents();
  }
  const QSize preview(window.Document()->PreviewAfter.Width(),
                      window.Document()->PreviewAfter.Height());
  std::printf("preview of %d x %d pixels\n", preview.width(), preview.height());
  Heading();
  struct Module {
    const char* name;
    int control;
    double allowed;
  };
  for (const Module& module : {Module{"Brightness & Contrast", 0, 16},
                               {"Color Balance", 0, 16},
                               {"White Balance", 0, 16},
                               {"Digital Flash", 0, 16},
                               {"Exposure", 0, 16},
                               {"Levels", 1, 16},
                               {"Channel Contrast", 0, 16},
                               {"Hue & Saturation", 1, 16},
                               {"Shadow & Highlight", 0, 33},
                               {"Straighten", 0, 33}}) {
    Row(std::string("slider step of ") + module.name + ", 95%",
        editor.SliderStep(module.name, module.control),
        std::to_string(static_cast<int>(module.allowed)) + " ms", module.allowed, 1);
  }
  Row("slider step of Oil Painting holds the window, 95%", editor.Held("Oil Painting", 0), "8 ms",
      8, 1);
  Row("taking what a preview follows from, 95%",
      Percentile95([&](int) { (void)window.myProcessor->BeginPreview(false); }, kSteps), "0.5 ms",
      0.5, 3);
  window.myProcessor->EndPreview(nullptr, false);
  Row("before and after toggled, 95%",
      Percentile95(
          [&](int) {
            window.MenuAction("ViewBeforeAfter");
            editor.Turn();
          },
          40),
      "16 ms", 16, 1);
  editor.panel.SelectRow(editor.Row("Exposure"));
  for (int i = 0; i < 40; ++i) {
    const QRect rect = editor.panel.ControlRect(0);
    const QPoint at(rect.left() + 20 + i, rect.top() + 10);
    editor.Send(QEvent::MouseButtonPress, at);
    editor.Send(QEvent::MouseButtonRelease, at);
  }
  Row("undo of a slider, 95%",
      Percentile95(
          [&](int) {
            window.MenuAction("EditUndo");
            editor.Turn();
          },
          40),
      "33 ms", 33, 1);
  const auto turn = [&](int) {
    window.MenuAction("RotateAndFlipRotate90");
    editor.Turn();
  };
  Row("rotate by 90, 95%", Percentile95(turn, 20), "33 ms", 33, 0);

  StyleRows(app, window);
  double info = 1e9;
  for (int i = 0; i < Count(5, 1); ++i) {
    const auto start = std::chrono::steady_clock::now();
    app.Desk().ShowInfo({FolderItem(photo)});
    FloatingMetaData& shown = *app.Info()->Open().front();
    HandleUntil("what is known of a photo", [&] { return shown.mdc->topLevelItemCount() > 0; });
    shown.repaint();
    info = std::min(
        info, std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                  .count());
    shown.close();
    HandleUntil("no window", [&] { return app.Info()->Open().empty(); });
    editor.Turn();
  }
  Row("Get Info of 24 megapixels to its first paint", info, "50 ms", 50, 1);
  constexpr double kMega = 1024 * 1024;
  double opening = 1e9;
  for (int i = 0; i < Count(7, 1); ++i) {
    opening = std::min(opening, NumberTold({program, "--measure-start", photo}, "open_ms"));
  }
  const auto t = Fastest({[&] {
                            RunProgram({"djpeg", "-outfile", "/dev/null", photo});
                          },
                          [&] {
                            RunProgram({program, "--measure-start"});
                          }},
                         7);
  Row("opening 24 megapixels to its first preview", opening, "djpeg to /dev/null", t[0], 2);
  Row("start to first paint, and the end", t[1], "400 ms", 400, 1);
  Row("peak memory with 24 megapixels open (MiB)",
      PeakTold({program, "--measure-start", photo}) / kMega, "350 MB", 350e6 / kMega, 1);
  // Nothing of this is to be kept, and nobody is there to be asked.
  window.SetDirty(false);
}

}  // namespace
}  // namespace brivolant::bench

int main(int argc, char** argv) {
  using namespace brivolant;
  bench::TakeSmoke(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "usage: window-table [--smoke] PHOTO.jpg BRIVOLANT\n");
    return 2;
  }
  QApplication application(argc, argv);
  App app(application);
  if (!app.Open(false)) return 1;
  app.Window()->resize(bench::kWindow);
  QTimer::singleShot(0, [&] {
    bench::Rows(app, argv[1], argv[2]);
    QApplication::quit();
  });
  const int code = QApplication::exec();
  app.Close();
  return code;
}
