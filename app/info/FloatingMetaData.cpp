// SPDX-License-Identifier: MIT
#include "app/info/FloatingMetaData.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>
#include <array>

#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkSearchField.h"
#include "platform/files/FileNames.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

constexpr QSize kFirstSize{420, 620};
constexpr QSize kSmallest{300, 260};
constexpr int kMargin = 8;
constexpr int kPreviewSide = 512;
/// Milliseconds after a change.
constexpr int kKeepAfter = 700;
constexpr const char* kSettingsKey = "FloatingMetaData";
/// The section that the settings of old have no place for.
constexpr const char* kXmpKey = "FloatingMetaData.xmp";
constexpr std::size_t kFrame = 8;
/// Letters in a line of what is stored.
constexpr int kLine = 76;

std::string InLines(const QByteArray& bytes) {
  const QByteArray text = bytes.toBase64();
  std::string lines;
  for (qsizetype at = 0; at < text.size(); at += kLine) {
    lines += text.mid(at, kLine).toStdString() + (at + kLine < text.size() ? "\n" : "");
  }
  return lines;
}

}  // namespace

FloatingMetaData::FloatingMetaData(const Desk& desk, std::shared_ptr<const FilePreviewer> previewer,
                                   UnsavedInfos& unsaved)
    : ifkWindow(nullptr, Qt::Window),
      mdc(new MetaDataBrowser(desk.Services.Log, nullptr)),
      Field(new ifkSearchField),
      desk_(desk),
      unsaved_(unsaved),
      preview_(std::move(previewer)) {
  keep_.setSingleShot(true);
  keep_.setInterval(kKeepAfter);
  connect(&keep_, &QTimer::timeout, this, [this] { Keep(); });
  // The program ends with its main window.
  setAttribute(Qt::WA_QuitOnClose, false);
  setMinimumSize(kSmallest);
  resize(kFirstSize);
  Build();
  preview_.Loaded = [this](const FilePreview& preview) {
    mdc->Preview(ImageFromPicture(preview.Shown));
  };
  mdc->Rejected = [this](const std::string& why) { desk_.Services.Dialogs.Message(why, {}); };
  mdc->OpenAddress = [](const std::string& address) {
    QDesktopServices::openUrl(QUrl(ToQString(address)));
  };
  const std::string stored = desk_.Preferences.Value(kSettingsKey, "").ToText();
  Settings(QByteArray::fromBase64(QByteArray::fromStdString(stored)).toStdString());
  mdc->Visible(MetadataSection::kXmp, desk_.Preferences.Value(kXmpKey, true).ToBool());
  Refresh();
}

FloatingMetaData::~FloatingMetaData() {
  mdc->Display(nullptr);
}

void FloatingMetaData::Build() {
  auto* content = new QWidget(this);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, kMargin, 0, 0);
  column->setSpacing(0);
  auto* top = new QHBoxLayout;
  top->setContentsMargins(kMargin, 0, kMargin, kMargin);
  Field->DescriptiveText(Shown(kFilter));
  Field->useLiveSearch = true;
  Field->TextChanged = [this] { mdc->Filter(ToQString(Field->Text())); };
  Field->MyEditField().installEventFilter(this);
  top->addWidget(Field);
  column->addLayout(top);
  words_ = new QLabel;
  words_->setWordWrap(true);
  words_->setTextFormat(Qt::PlainText);
  words_->setContentsMargins(kMargin + 4, 0, kMargin, kMargin);
  words_->setForegroundRole(QPalette::PlaceholderText);
  words_->hide();
  column->addWidget(words_);
  column->addWidget(mdc, 1);
  auto* bottom = new QHBoxLayout;
  bottom->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  const auto button = [&](const QString& text, const QString& help) {
    auto* made = new QPushButton(text);
    made->setToolTip(help);
    bottom->addWidget(made);
    return made;
  };
  add_ = button(Shown(kAdd), Shown(kAddHelp));
  auto* menu = new QMenu(add_);
  connect(menu, &QMenu::aboutToShow, this, [this, menu] {
    menu->clear();
    for (const MenuItem& item : mdc->CreateItemsMenu()) {
      if (item.Text == "-") {
        menu->addSeparator();
        continue;
      }
      QAction* action = menu->addAction(ToQString(item.Text), this,
                                        [this, tag = item.Tag] { mdc->handleItemsMenu(tag); });
      action->setEnabled(item.Enabled);
    }
  });
  add_->setMenu(menu);
  bottom->addStretch(1);
  const auto arrow = [&](const char* icon, const QString& help) {
    QPushButton* made = button({}, help);
    made->setIcon(SvgIcon(QString::fromLatin1(icon)));
    made->setAccessibleName(help);
    return made;
  };
  undo_ = arrow("Undo", Shown(kUndoHelp));
  redo_ = arrow("Redo", Shown(kRedoHelp));
  save_ = button(Shown(Captions::kSave), {});
  connect(undo_, &QPushButton::clicked, this, [this] { info_->Draft().Undo(); });
  connect(redo_, &QPushButton::clicked, this, [this] { info_->Draft().Redo(); });
  connect(save_, &QPushButton::clicked, this, [this] { Save(); });
  column->addLayout(bottom);
  setCentralWidget(content);
  mdc->setFocus();
}

void FloatingMetaData::Display(const FolderItem& file) {
  file_ = file;
  ShowTitle();
  Modified(false);
  info_.reset();
  mdc->Display(nullptr);
  words_->setText(Shown(kReading));
  words_->show();
  Refresh();
  const auto read = std::make_shared<std::shared_ptr<FileInfo>>();
  work_.Start({{},
               true,
               [file, read](Jobs::Control& control) {
                 // Its disk may be away.
                 const auto found = std::make_shared<std::shared_ptr<FileInfo>>();
                 if (control.Apart([file, found] { *found = FileInfo::Read(file); }))
                   *read = *found;
               },
               [this, read](Jobs::End, const std::string&) {
                 if (*read) return Take(*read);
                 words_->setText(Shown(kNotRead));
               }});
  show();
}

void FloatingMetaData::ShowTitle() {
  setWindowTitle(
      ToQString(WithPlaceholders(kWindowTitle.Text(), {{"<fileName>", file_.DisplayName()}})) +
      QStringLiteral("[*]"));
}

void FloatingMetaData::ShowWords() {
  using Keeps = FileInfo::Keeps;
  QStringList words;
  if (gone_)
    words << ToQString(
        WithPlaceholders(FileInfo::kGone.Text(), {{"<filename>", file_.DisplayName()}}));
  if (broughtBack_) words << Shown(kBroughtBack);
  if (notBroughtBack_) words << Shown(kNotBroughtBack);
  if (info_->Locked()) words << Shown(kLocked);
  if (info_->KeptIn() == Keeps::kBeside) {
    words << ToQString(
        WithPlaceholders(kBeside.Text(), {{"<filename>", info_->Target().DisplayName()}}));
  }
  if (info_->KeptIn() == Keeps::kInDocument) words << Shown(kInDocument);
  words_->setText(words.join(QLatin1Char('\n')));
  words_->setVisible(!words.isEmpty());
}

void FloatingMetaData::Take(const std::shared_ptr<FileInfo>& info) {
  info_ = info;
  mdc->Display(info_);
  // The list is told first, and the window with it.
  info_->Draft().Changed = [this, list = info_->Draft().Changed] {
    list();
    keep_.start();
    if (broughtBack_ && !Dirty()) {
      broughtBack_ = false;
      ShowWords();
    }
    Refresh();
  };
  using Keeps = FileInfo::Keeps;
  // What a locked file cannot take at present waits until it can.
  if (const auto left = info_->Locked() ? std::nullopt : unsaved_.Of(file_)) {
    // What cannot be read just now may be another time.
    if (info_->KeptIn() != Keeps::kNowhere) {
      broughtBack_ = info_->Draft().Before(left->Changes) == left->Before &&
                     info_->Draft().Restore(left->Changes);
      notBroughtBack_ = !broughtBack_;
      if (notBroughtBack_) unsaved_.Forget(file_);
    }
  }
  ShowWords();
  if (info_->KeptIn() != Keeps::kNowhere || info_->Sections(false).size() > 1) {
    preview_.Load(file_, kPreviewSide, false);
  }
  Refresh();
}

void FloatingMetaData::Refresh() {
  const bool edits = info_ && info_->KeptIn() != FileInfo::Keeps::kNowhere;
  add_->setVisible(edits);
  for (QPushButton* button : {undo_, redo_, save_}) button->setVisible(edits);
  undo_->setEnabled(edits && info_->Draft().CanUndo());
  redo_->setEnabled(edits && info_->Draft().CanRedo());
  // What is being typed may be saved too.
  save_->setEnabled(edits && !writing_);
  Modified(Dirty());
}

void FloatingMetaData::Keep() {
  keep_.stop();
  // What could not be read, or cannot be written at present, is kept as it was.
  if (!info_ || gone_ || info_->KeptIn() == FileInfo::Keeps::kNowhere) return;
  MetadataDraft& draft = info_->Draft();
  const auto changes = draft.Pending();
  unsaved_.Keep(file_, {changes, draft.Before(changes)});
}

void FloatingMetaData::KeepUnsaved() {
  if (!info_) return;
  // Nobody is there to read why something cannot stand.
  const auto rejected = std::exchange(mdc->Rejected, nullptr);
  mdc->FinishEdit();
  mdc->Rejected = rejected;
  Keep();
}

void FloatingMetaData::Follow(const FolderItem& before, const FolderItem& after) {
  // What is being read or written is that of the old place; moves wait for it in their order.
  if (work_.Busy()) return work_.WhenIdle([this, before, after] { Follow(before, after); });
  const FolderItem now = PlaceAfter(file_, before, after);
  if (info_ && !gone_) info_->Follow(before, after);
  if (now.IsNil() || gone_) return;
  file_ = now;
  ShowTitle();
  if (!info_) return;
  // What was just taken back shall not come again with what is kept.
  if (keep_.isActive()) Keep();
  // The rows tell name and place; and what is kept of it may have come to its new place before.
  if (!Dirty()) return Take(info_);
  ShowWords();
  if (info_->Draft().Changed) info_->Draft().Changed();
}

void FloatingMetaData::Gone(bool gone) {
  if (work_.Busy()) return work_.WhenIdle([this, gone] { Gone(gone); });
  // Another file may get the name meanwhile.
  if (gone && !gone_) unsaved_.Forget(file_);
  gone_ = gone;
  Keep();
  if (info_) ShowWords();
}

void FloatingMetaData::Save(std::function<void(bool)> then) {
  // What is being typed is meant too.
  mdc->FinishEdit();
  if (!Dirty()) {
    if (then) then(true);
    return;
  }
  if (gone_) {
    desk_.Services.Dialogs.Message(
        WithPlaceholders(FileInfo::kGone.Text(), {{"<filename>", file_.DisplayName()}}), {});
    if (then) then(false);
    return;
  }
  if (work_.Busy()) {
    work_.WhenIdle([this, then = std::move(then)] { Save(then); });
    return;
  }
  const auto why = std::make_shared<std::string>();
  const auto changes = info_->Draft().Pending();
  const auto after = std::make_shared<FileInfo::Said>();
  writing_ = true;
  work_.Start({kSaving.Text(), false,
               [keeper = info_->Keeping(), before = info_->Draft().Before(changes), why, changes,
                after](Jobs::Control&) { *why = FileInfo::Write(keeper, changes, before, *after); },
               [this, why, changes, after, then = std::move(then)](Jobs::End end,
                                                                   const std::string& thrown) {
                 writing_ = false;
                 if (end == Jobs::End::kFailed) *why = thrown;
                 if (why->empty()) {
                   info_->Draft().Saved(changes, *after);
                   Keep();
                   if (Written) Written(file_);
                 }
                 Refresh();
                 if (!why->empty()) desk_.Services.Dialogs.Message(*why, {});
                 if (then) then(why->empty());
               }});
  Refresh();
}

std::string FloatingMetaData::Settings() const {
  std::string settings;
  const QRect frame = geometry();
  for (const int value : {frame.x(), frame.y(), frame.width(), frame.height()}) {
    settings += static_cast<char>(value & 0xFF);
    settings += static_cast<char>((value >> 8) & 0xFF);
  }
  return settings + mdc->Settings();
}

void FloatingMetaData::Settings(const std::string& settings) {
  if (settings.empty()) return;
  if (settings.size() < kFrame) {
    return desk_.Services.Log.Write("FloatingMetaData.Settings length is incorrect");
  }
  std::array<int, 4> frame{};
  for (std::size_t i = 0; i < frame.size(); ++i) {
    const int low = static_cast<unsigned char>(settings[2 * i]);
    const int high = static_cast<unsigned char>(settings[2 * i + 1]);
    // Left and top may lie on a screen to the left.
    frame.at(i) = static_cast<std::int16_t>(low | high << 8);
  }
  const auto [left, top, width, height] = frame;
  if (width >= kSmallest.width() && height >= kSmallest.height()) {
    setGeometry(left, top, width, height);
  }
  mdc->Settings(settings.substr(kFrame));
}

void FloatingMetaData::StorePreferences() {
  desk_.Preferences.Assign(kSettingsKey, InLines(QByteArray::fromStdString(Settings())));
  desk_.Preferences.Assign(kXmpKey, mdc->Visible(MetadataSection::kXmp));
  desk_.Preferences.SynchronizeSoon();
}

void FloatingMetaData::showEvent(QShowEvent* event) {
  ifkWindow::showEvent(event);
  EnsureIsOnScreen();
}

void FloatingMetaData::closeEvent(QCloseEvent* event) {
  if (!closing_) mdc->FinishEdit();
  if (writing_) {
    event->ignore();
    work_.WhenIdle([this] { close(); });
    return;
  }
  if (Dirty() && !closing_) {
    event->ignore();
    const Answer answer = desk_.Services.Dialogs.Ask(
        {WithPlaceholders(kAsk.Text(), {{"<filename>", file_.DisplayName()}}),
         kAskExplanation.Text(), Captions::kSave.Text(), Captions::kCancel.Text(),
         Captions::kDontSave.Text()});
    if (answer == Answer::kCancel) {
      if (Kept) Kept();
      return;
    }
    if (answer == Answer::kAlternate) {
      closing_ = true;
      keep_.stop();
      if (!gone_) unsaved_.Forget(file_);
      event->accept();
    }
    if (answer == Answer::kAction) {
      Save([this](bool saved) {
        // What cannot be saved stays open: closing would lose it.
        if (!saved && Kept) Kept();
        if (saved)
          QMetaObject::invokeMethod(
              this, [this] { close(); }, Qt::QueuedConnection);
      });
      return;
    }
  }
  if (keep_.isActive() && !closing_) Keep();
  StorePreferences();
  preview_.Stop();
  ifkWindow::closeEvent(event);
}

void FloatingMetaData::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Save)) return Save();
  if (info_ && event->matches(QKeySequence::Undo)) return info_->Draft().Undo();
  if (info_ && event->matches(QKeySequence::Redo)) return info_->Draft().Redo();
  if (event->matches(QKeySequence::Find)) return Field->MyEditField().setFocus();
  if (event->matches(QKeySequence::Close) || event->key() == Qt::Key_Escape) {
    close();
    return;
  }
  ifkWindow::keyPressEvent(event);
}

bool FloatingMetaData::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    // The first press gives the filter up, the next the window.
    if (!Field->Text().empty()) {
      Field->Text({});
      mdc->Filter({});
      return true;
    }
  }
  return ifkWindow::eventFilter(watched, event);
}

}  // namespace brivolant
