// SPDX-License-Identifier: MIT
#include "WindowHelpers.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QWindow>
#include <array>

#include "app/commands/ToolButtons.h"
#include "kit/AnimationCore.h"
#include "kit/ifkSegmentView.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/services/SharedFolders.h"

namespace brivolant::test {
namespace {

QWindow* WindowOf(QWidget& control) {
  return control.window()->windowHandle();
}
QPoint InWindow(QWidget& control, const QPoint& at) {
  return control.mapTo(control.window(), at);
}

std::vector<MainWindow*> MainWindows() {
  std::vector<MainWindow*> windows;
  for (QWidget* top : QApplication::topLevelWidgets()) {
    if (auto* window = dynamic_cast<MainWindow*>(top)) windows.push_back(window);
  }
  return windows;
}

/// Handles what an event has led to, the preview too.
void Turn() {
  QApplication::processEvents();
  for (MainWindow* window : MainWindows()) window->Session().FinishPreview();
  QApplication::processEvents();
}

}  // namespace

void Press(QWidget& control, const QPoint& at, Qt::KeyboardModifiers modifiers) {
  QTest::mousePress(WindowOf(control), Qt::LeftButton, modifiers, InWindow(control, at));
}
void Move(QWidget& control, const QPoint& at) {
  QTest::mouseMove(WindowOf(control), InWindow(control, at));
  Turn();
}
void Release(QWidget& control, const QPoint& at) {
  QTest::mouseRelease(WindowOf(control), Qt::LeftButton, {}, InWindow(control, at));
  Turn();
}
void Click(QWidget& control, const QPoint& at, Qt::KeyboardModifiers modifiers) {
  Press(control, at, modifiers);
  Release(control, at);
}
void Click(QWidget& control) {
  Click(control, control.rect().center());
}

void Drag(QWidget& control, const QPoint& from, const QPoint& to) {
  constexpr int kSteps = 4;
  // In the window's coordinates: the control itself may move.
  QWindow* window = WindowOf(control);
  const QPoint start = InWindow(control, from);
  QTest::mousePress(window, Qt::LeftButton, {}, start);
  for (int i = 1; i <= kSteps; ++i) {
    QTest::mouseMove(window, start + (to - from) * i / kSteps);
    QApplication::processEvents();
  }
  QTest::mouseRelease(window, Qt::LeftButton, {}, start + to - from);
  Turn();
}

void Key(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(WindowOf(window), key, modifiers);
  Turn();
}

void Type(QWidget& window, const std::string& text) {
  for (const char c : text) QTest::keyClick(WindowOf(window), c);
  Turn();
}

void DropFile(QWidget& control, const FolderItem& file) {
  DropFile(control, file, control.rect().center());
}

void DropFile(QWidget& control, const FolderItem& file, const QPoint& at) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.ShellPath()))});
  QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(&control, &enter);
  ASSERT_TRUE(enter.isAccepted());
  QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(&control, &drop);
  QApplication::processEvents();
}

bool Until(const std::function<bool()>& condition) {
  // Long enough for a machine with many times as much to do as it can.
  constexpr int kPatience = 30000;
  QElapsedTimer timer;
  timer.start();
  while (!condition()) {
    if (timer.elapsed() > kPatience) return false;
    QTest::qWait(5);
  }
  return true;
}

void Settle() {
  QApplication::processEvents();
  EXPECT_TRUE(Until([] {
    for (MainWindow* window : MainWindows()) {
      for (const Jobs* jobs :
           {&window->Session().Work(), &window->FileWork(), &window->Looking()}) {
        if (!jobs->Idle()) return false;
      }
    }
    return AnimationCore::Tasks().empty();
  })) << "what goes on does not end";
  Turn();
}

void AnsweringDialogs::Message(const std::string& message, const std::string& explanation) {
  messages.push_back(explanation.empty() ? message : message + "\n" + explanation);
  if (const auto meanwhile = std::exchange(whileOpen, nullptr)) meanwhile();
}

Answer AnsweringDialogs::Ask(const Question& question) {
  questions.push_back(question);
  if (const auto meanwhile = std::exchange(whileOpen, nullptr)) meanwhile();
  if (answers.empty()) return Answer::kCancel;
  const Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

std::vector<FolderItem> AnsweringFileDialogs::Open(const std::string&, const FolderItem&,
                                                   const std::vector<FileFilter>&) {
  if (!several.empty()) return std::exchange(several, {});
  if (files.empty()) return {};
  const FolderItem file = files.front();
  files.pop_front();
  return {file};
}

FolderItem AnsweringFileDialogs::Save(const std::string&, const FolderItem& suggestion,
                                      const std::vector<FileFilter>&, int& chosen) {
  suggestions.push_back(suggestion);
  if (filter >= 0) chosen = filter;
  if (files.empty()) return {};
  const FolderItem file = files.front();
  files.pop_front();
  return file;
}

Program::Program() {
  const std::string path = home.Item().ShellPath();
  qputenv("HOME", path.c_str());
  qputenv("XDG_CONFIG_HOME", (path + "/config").c_str());
  qputenv("XDG_CACHE_HOME", (path + "/cache").c_str());
  qputenv("XDG_DATA_HOME", (path + "/data").c_str());
  EXPECT_FALSE(home.Child("Documents").CreateAsFolder());
  Start();
}

Program::~Program() {
  if (app) app->Close();
  app.reset();
  QApplication::processEvents();
}

void Program::Start() {
  if (app) app->Close();
  app.reset();
  app = std::make_unique<App>(*qApp,
                              DesktopParts{&dialogs, &fileDialogs, nullptr, nullptr, &desktop});
  ASSERT_TRUE(app->Open(false));
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&Window()));
  Window().activateWindow();
  Settle();
}

void Program::Crash() {
  // The window goes without being asked, nothing is told that it ends, and what lay in temporary
  // folders stays there.
  const FolderItem elements = otherSharedComponents::userElementsFolder();
  const FolderItem away = home.Child("away");
  EXPECT_FALSE(elements.MoveFileTo(away));
  app.reset();
  EXPECT_FALSE(elements.DeleteFolder());
  EXPECT_FALSE(away.MoveFileTo(elements));
}

FolderItem Program::Photo(const std::string& name, int width, int height) {
  const FolderItem file = home.Child(name);
  const std::array<EncodeImage, 1> image{{{TestPicture(width, height), 0.95}}};
  const std::string type = name.ends_with(".png") ? "public.png" : "public.jpeg";
  EXPECT_EQ(EncodeImageFile(file, type, image), "");
  return file;
}

void Program::Finish() {
  Window().Looking().Finish();
  Window().Session().Finish();
  Window().FileWork().Finish();
  QTest::qWait(1);
}

void Program::Render(bool full) {
  Processor().UpdatePreview(full);
  Turn();
}

void Program::OpenPhoto(const FolderItem& file) {
  bool opened = false;
  const Listening listening = Window().Session().Opened.Listen([&] { opened = true; });
  Window().OpenImage(file, {});
  Settle();
  ASSERT_TRUE(opened);
  if (!Window().PreviewTitle->SegmentByTag("advanced")->Selected) Choose("Viewadvanced");
  Settle();
  ASSERT_EQ(Window().DisplayPane, MainWindow::kEditorPane);
}

void Program::Choose(const std::string& name) {
  Window().EnableMenuItems();
  QAction& action = Menu(name);
  ASSERT_TRUE(action.isEnabled()) << name;
  action.trigger();
  Finish();
}

void Program::Tool(const char* identifier) {
  QAction* action = ToolButtons::itemViaIdentifier(*Window().rbToolBar, identifier);
  ASSERT_NE(action, nullptr) << identifier;
  Click(*Window().rbToolBar->widgetForAction(action));
  Finish();
}

int Program::Row(const std::string& name) {
  for (int i = 0; i <= Processor().Count(); ++i) {
    if (Processor().item(i)->Name() == name) return i;
  }
  ADD_FAILURE() << "no module " << name;
  return -1;
}

void Program::SelectRow(const std::string& name) {
  const int row = Row(name);
  if (Panel().RowRect(row).bottom() > Panel().height()) {
    Window().EffectScrollbar->setValue(Window().EffectScrollbar->maximum());
  }
  Click(Panel(), QPoint(60, Panel().RowRect(row).top() + 10));
  ASSERT_EQ(Panel().selectedEffect(), row);
}

QPoint Program::ControlAt(int control, double fraction) {
  const QRect rect = Panel().ControlRect(control);
  return {rect.left() + static_cast<int>(rect.width() * fraction), rect.top() + 10};
}

double Mean(const Picture& picture, int channel) {
  double sum = 0;
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      const Color color = picture.At(x, y);
      sum += channel == 0 ? color.Red : channel == 1 ? color.Green : color.Blue;
    }
  }
  return sum / (1.0 * picture.Width() * picture.Height());
}

}  // namespace brivolant::test
