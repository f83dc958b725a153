// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "app/info/MetaDataBrowser.h"
#include "app/info/UnsavedInfos.h"
#include "browser/FilePreview.h"
#include "kit/ifkWindow.h"
#include "platform/values/Text.h"

class QLabel;
class QPushButton;

namespace brivolant {

class ifkSearchField;

/// The window of one file: everything that is known of it. What is edited reaches the file with
/// Save, and can be taken back before and after.
class FloatingMetaData final : public ifkWindow {
 public:
  static constexpr LocalizedText kWindowTitle{"FloatingMetaData.kWindowTitle", "<fileName> Info"};
  static constexpr LocalizedText kFilter{"FloatingMetaData.kFilter", "Filter"};
  static constexpr LocalizedText kAdd{"FloatingMetaData.kAdd", "Add"};
  static constexpr LocalizedText kAddHelp{"FloatingMetaData.kAddHelp",
                                          "Adds a tag that the file does not have yet"};
  static constexpr LocalizedText kUndoHelp{"FloatingMetaData.kUndoHelp",
                                           "Takes back the last change"};
  static constexpr LocalizedText kRedoHelp{"FloatingMetaData.kRedoHelp", "Makes the change again"};
  static constexpr LocalizedText kBeside{
      "FloatingMetaData.kBeside",
      "This kind of file is never written. What you enter is kept beside it, in \"<filename>\"."};
  static constexpr LocalizedText kInDocument{
      "FloatingMetaData.kInDocument",
      "The original photo stays as it is. What you enter is kept in the document, and goes along "
      "with every copy."};
  static constexpr LocalizedText kLocked{
      "FloatingMetaData.kLocked", "The file or its folder is locked: its data cannot be changed."};
  static constexpr LocalizedText kNotRead{"FloatingMetaData.kNotRead",
                                          "The file could not be read."};
  static constexpr LocalizedText kReading{"FloatingMetaData.kReading", "Reading..."};
  static constexpr LocalizedText kSaving{"FloatingMetaData.kSaving", "Saving the data..."};
  static constexpr LocalizedText kAsk{
      "FloatingMetaData.kAsk", "Do you want to save what you have changed of \"<filename>\"?"};
  static constexpr LocalizedText kAskExplanation{"FloatingMetaData.kAskExplanation",
                                                 "Otherwise your changes are lost."};

  static constexpr LocalizedText kNotBroughtBack{
      "FloatingMetaData.kNotBroughtBack",
      "What you had entered when the program ended does not fit any more: the file says something "
      "else now."};
  static constexpr LocalizedText kBroughtBack{
      "FloatingMetaData.kBroughtBack",
      "What you had entered when the program ended is here again, and not saved yet."};

  /// What is entered and not saved is kept in `unsaved`, which must outlive the window.
  FloatingMetaData(const Desk& desk, std::shared_ptr<const FilePreviewer> previewer,
                   UnsavedInfos& unsaved);
  ~FloatingMetaData() override;

  void Display(const FolderItem& file);
  const FolderItem& File() const { return file_; }
  /// A file or a folder has another place now, which may be this one's.
  void Follow(const FolderItem& before, const FolderItem& after);
  /// The file is in the trash, or back from there.
  void Gone(bool gone);
  bool IsGone() const { return gone_; }
  /// Keeps at once what is not saved, with what is being typed.
  void KeepUnsaved();
  /// Writes what was changed; `then` gets whether nothing is left to write.
  void Save(std::function<void(bool)> then = {});
  bool Dirty() const { return info_ && info_->Draft().Dirty(); }
  /// A change is on its way into the file.
  bool Writing() const { return writing_; }
  /// Frame, as four 16-bit numbers, and the open sections.
  std::string Settings() const;
  void Settings(const std::string& settings);
  /// Something is read or written.
  Jobs& Work() { return work_; }

  MetaDataBrowser* mdc;
  ifkSearchField* Field;

  /// A file has another content now.
  std::function<void(const FolderItem& file)> Written;
  /// A question of the window holds up the end of the program.
  std::function<void()> Kept;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  void Take(const std::shared_ptr<FileInfo>& info);
  void Refresh();
  void StorePreferences();
  void Keep();
  void ShowTitle();
  void ShowWords();

  Desk desk_;
  UnsavedInfos& unsaved_;
  /// Restarted by each change: what is kept is a moment old at most.
  QTimer keep_;
  FolderItem file_;
  std::shared_ptr<FileInfo> info_;
  PreviewLoader preview_;
  Jobs work_;
  QLabel* words_ = nullptr;
  QPushButton* add_ = nullptr;
  QPushButton* undo_ = nullptr;
  QPushButton* redo_ = nullptr;
  QPushButton* save_ = nullptr;
  bool broughtBack_ = false;
  bool notBroughtBack_ = false;
  bool gone_ = false;
  bool closing_ = false;
  bool writing_ = false;
};

}  // namespace brivolant
