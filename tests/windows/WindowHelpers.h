// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPoint>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "Helpers.h"
#include "app/App.h"
#include "app/MainWindow.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "formats/BrivolantDocument.h"

class QAction;

namespace brivolant::test {

// Events as the windowing system gives them: to the window, which finds the control.
void Press(QWidget& control, const QPoint& at, Qt::KeyboardModifiers modifiers = {});
void Move(QWidget& control, const QPoint& at);
void Release(QWidget& control, const QPoint& at);
void Click(QWidget& control, const QPoint& at, Qt::KeyboardModifiers modifiers = {});
void Click(QWidget& control);
/// Press, a few moves, release.
void Drag(QWidget& control, const QPoint& from, const QPoint& to);
/// To the control that has the focus in the window.
void Key(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
void Type(QWidget& window, const std::string& text);
void DropFile(QWidget& control, const FolderItem& file);
void DropFile(QWidget& control, const FolderItem& file, const QPoint& at);
/// Handles events until no window works or moves any more.
void Settle();
/// Handles events until the condition holds; false after half a minute. The condition is what a
/// test wants to see: that something is not going on any more also holds before it began.
bool Until(const std::function<bool()>& condition);
/// Handles events until what `look` gives is as `wanted`; a failure tells what it was in the end.
template <class Look, class Matcher>
void ExpectSoon(const Look& look, const Matcher& wanted) {
  Until([&] { return testing::Value(look(), wanted); });
  EXPECT_THAT(look(), wanted);
}

/// Answers questions with what was laid ready, and remembers them.
struct AnsweringDialogs final : Dialogs {
  std::vector<std::string> messages;
  std::vector<Question> questions;
  std::deque<Answer> answers;
  /// Happens while a message or a question is open; once.
  std::function<void()> whileOpen;
  void Message(const std::string& message, const std::string& explanation) override;
  Answer Ask(const Question& question) override;
};

/// Gives the files that were laid ready; nil, a cancelled dialog, when there are none.
struct AnsweringFileDialogs final : FileDialogs {
  std::deque<FolderItem> files;
  /// Chosen together in the next dialog for opening.
  std::vector<FolderItem> several;
  std::vector<FolderItem> suggestions;
  int filter = -1;
  std::vector<FolderItem> Open(const std::string& title, const FolderItem& folder,
                               const std::vector<FileFilter>& filters) override;
  FolderItem Save(const std::string& title, const FolderItem& suggestion,
                  const std::vector<FileFilter>& filters, int& chosen) override;
};

/// Remembers what it was asked for.
struct RecordingDesktop final : Desktop {
  std::vector<FolderItem> revealed;
  std::vector<FolderItem> pictures;
  bool takesPictures = true;
  /// The thread that asked last.
  std::thread::id askedOn;
  bool Reveal(const FolderItem& item) override {
    revealed.push_back(item);
    return true;
  }
  /// What ejecting does; on the thread that waits for it.
  std::function<std::string(const FolderItem&)> ejects;
  std::string Eject(const FolderItem& root) override {
    return ejects ? ejects(root) : std::string();
  }
  bool SetPicture(const FolderItem& image) override {
    askedOn = std::this_thread::get_id();
    pictures.push_back(image);
    return takesPictures;
  }
};

/// A home of its own for one test, and the program started in it.
class Program {
 public:
  Program();
  ~Program();
  /// Starts (again, as a new process would).
  void Start();
  /// Ends as a crash does: nothing is tidied up.
  void Crash();
  /// A file in the home with a test picture; the kind follows from the name.
  FolderItem Photo(const std::string& name, int width = 320, int height = 240);
  /// Waits until no work is under way, and handles what it has led to.
  void Finish();
  /// Opens a photo and waits until the editor stands, with the panel of effects.
  void OpenPhoto(const FolderItem& file);

  MainWindow& Window() { return *app->Window(); }
  brivolantProcessorLite& Processor() { return *Window().myProcessor; }
  EffectStackEditor& Panel() { return *Window().AdvancedPanel; }
  EditorDisplay& Display() { return *Window().MyDisplay; }
  BrivolantDocument& Document() { return *Window().Document(); }
  QAction& Menu(const std::string& name) { return Window().Menu().Item(name); }
  /// Chooses an item as the menu does; fails if it is disabled.
  void Choose(const std::string& name);
  /// Clicks a button of the toolbar.
  void Tool(const char* identifier);
  /// Index of a module in the current stack by its name.
  int Row(const std::string& name);
  effectModule& Module(const std::string& name) { return *Processor().item(Row(name)); }
  /// Selects a row of the panel by clicking its name, after it is scrolled into view.
  void SelectRow(const std::string& name);
  /// A position on a control of the selected row; `fraction` is along its width.
  QPoint ControlAt(int control, double fraction);
  /// Renders the preview and shows it.
  void Render(bool full = false);
  /// What the window shows.
  Picture Shown() {
    Window().Session().FinishPreview();
    return Processor().Preview();
  }

  TemporaryFolder home;
  AnsweringDialogs dialogs;
  AnsweringFileDialogs fileDialogs;
  RecordingDesktop desktop;
  std::unique_ptr<App> app;
};

/// Mean of a channel (0 red, 1 green, 2 blue) of a picture.
double Mean(const Picture& picture, int channel);

}  // namespace brivolant::test
