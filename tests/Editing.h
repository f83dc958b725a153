// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <array>
#include <atomic>
#include <deque>
#include <stdexcept>
#include <string>
#include <vector>

#include "Helpers.h"
#include "app/core/RecentItems.h"
#include "app/core/Recovery.h"
#include "app/session/EditSession.h"
#include "effects/EffectRegistry.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "engine/EditorInterfaces.h"
#include "formats/BrivolantDocument.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant::test {

struct NoFileDialogs final : FileDialogs {
  std::vector<FolderItem> Open(const std::string&, const FolderItem&,
                               const std::vector<FileFilter>&) override {
    return {};
  }
  FolderItem Save(const std::string&, const FolderItem&, const std::vector<FileFilter>&,
                  int&) override {
    return {};
  }
};
struct NoClipboard final : Clipboard {
  bool Has(std::string_view) const override { return false; }
  std::string Data(std::string_view) const override { return {}; }
  void Set(std::string_view, std::string_view, std::string_view) override {}
};
struct NoColorPanel final : ColorPanel {
  void Show() override {}
  void Close() override {}
  bool Visible() const override { return false; }
  void SetColor(const RGBAColor&) override {}
  RGBAColor SelectedRGBAColor() const override { return {}; }
  bool showsAlpha() const override { return false; }
  void showsAlpha(bool) override {}
};
struct NoDesktop final : Desktop {
  bool Reveal(const FolderItem&) override { return false; }
  std::string Eject(const FolderItem&) override { return {}; }
  bool SetPicture(const FolderItem&) override { return false; }
};

/// Temporary files that can be made to fail as nothing foresees, or to answer late.
struct FragileTemporaryFiles final : TemporaryFiles {
  explicit FragileTemporaryFiles(TemporaryFiles& whole) : whole(whole) {}
  FolderItem Child(std::string_view name) override {
    if (broken) throw std::runtime_error("out of luck");
    if (holdsNext.exchange(false)) {
      held = true;
      held.notify_all();
      held.wait(true);
    }
    return whole.Child(name);
  }
  void Answer() {
    held = false;
    held.notify_all();
  }
  TemporaryFiles& whole;
  bool broken = false;
  /// The next one who asks waits for Answer.
  std::atomic<bool> holdsNext = false;
  std::atomic<bool> held = false;
};

struct FixedDisplay final : PreviewDisplay {
  int Width() const override { return 220; }
  int Height() const override { return 170; }
  void Update(bool) override { ++updates; }
  int updates = 0;
};

struct RecordingPanel final : EffectPanel {
  void AboutToChange(effectModule& module) override { told.push_back(module.Name()); }
  void selectedEffect(int index) override { selected = index; }
  void Update() override {}
  void Invalidate() override {}
  std::vector<std::string> told;
  int selected = -1;
};

/// A session and all that it stands on, in a folder of its own.
struct Editing {
  Editing() {
    session.Processor().myDisplay = &display;
    session.Processor().myEffectEditor = &panel;
    session.Start();
  }
  FolderItem Photo(const std::string& name, int width = 320, int height = 240) const {
    const FolderItem file = folder.Child(name);
    const std::array<EncodeImage, 1> image{{{TestPicture(width, height), 0.95}}};
    EXPECT_EQ(EncodeImageFile(file, name.ends_with(".png") ? "public.png" : "public.jpeg", image),
              "");
    return file;
  }
  void Open(const FolderItem& file) {
    session.Open(file, {});
    session.Finish();
  }
  /// The newest.
  Picture Preview() {
    session.FinishPreview();
    return Document().PreviewAfter;
  }
  bool Save(const FolderItem& place = {}) {
    bool saved = false;
    session.Save(place, [&](bool done) { saved = done; });
    session.Finish();
    return saved;
  }
  BrivolantDocument& Document() { return *session.Document(); }
  effectModule& Module(const std::string& name) {
    for (int i = 0; i <= session.Processor().Count(); ++i) {
      if (session.Processor().item(i)->Name() == name) return *session.Processor().item(i);
    }
    throw std::out_of_range(name);
  }
  /// As the panel sets a control of a module: recorded first, then told.
  void Change(effectModule& module, int control, int value) {
    session.Record({{session.ModuleKey("EffectChanged:", module), module.Settings()}},
                   module.Name());
    module.Enabled(true);
    module.ControlValue(control, value);
    session.Processor().UpdatePreview(false);
    session.SetDirty(true);
  }
  void Paste(const Picture& picture) {
    session.PastePicture([picture] { return picture; });
    session.Finish();
  }
  std::string UndoName() { return session.UndoGizmo().UndoName(); }

  TestServices services;
  TemporaryFolder folder;
  FragileTemporaryFiles temporary{services.temporary};
  Preferences preferences{"test", folder.Item(), services.log};
  NoFileDialogs fileDialogs;
  NoClipboard clipboard;
  NoColorPanel colors;
  NoDesktop desktop;
  OneClickWonderStorage styles{services.services};
  Desk desk{
      {services.log, services.dialogs, services.user, temporary, services.clock, services.random},
      preferences,
      fileDialogs,
      clipboard,
      colors,
      desktop,
      styles,
      {},
      {},
      {},
      {},
      {},
      {},
      {},
      {},
      {}};
  Recovery recovery{folder.Child("data"), services.log};
  RecentItems recent{preferences};
  FixedDisplay display;
  RecordingPanel panel;
  EditSession session{EffectRegistry(), desk, recovery, recent};
  /// Answers what the session asks from now on, with what was laid ready; else it is cancelled.
  void Answering() {
    session.Ask = [this](const Question& question) {
      questions.push_back(question);
      if (answers.empty()) return Answer::kCancel;
      const Answer answer = answers.front();
      answers.pop_front();
      return answer;
    };
    session.AskPlace = [this] { return place; };
  }

  std::vector<Question> questions;
  std::deque<Answer> answers;
  /// What the user chooses when asked where to save.
  FolderItem place;
  std::vector<std::string> failures;
  std::vector<std::string> events;
  std::vector<Listening> listening{
      session.Failed.Listen([this](const std::string& message, const std::string& why) {
        failures.push_back(message + "\n" + why);
      }),
      session.Settling.Listen([this] { events.emplace_back("settling"); }),
      session.Opened.Listen([this] { events.emplace_back("opened " + Document().Name); }),
      session.Saved.Listen([this] { events.emplace_back("saved"); }),
  };
};

}  // namespace brivolant::test
