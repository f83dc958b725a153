// SPDX-License-Identifier: MIT
#include <QComboBox>
#include <QScopedValueRollback>
#include <QToolBar>
#include <algorithm>
#include <array>

#include "app/App.h"
#include "app/Background.h"
#include "app/MainWindow.h"
#include "app/Menus.h"
#include "app/ProgressDialog.h"
#include "app/SaveAsCopy.h"
#include "app/ToolButtons.h"
#include "effects/crop/CropModule.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/FileTypes.h"
#include "formats/ImageFile.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"
#include "kit/ifkStaticText.h"
#include "kit/templateSelector.h"
#include "platform/files/FileNames.h"
#include "platform/services/SharedFolders.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

constexpr const char* kCopyFormat = "SaveAsCopy.format";
constexpr const char* kCopyFolder = "SaveAsCopy.folder";
constexpr const char* kCopyQuality = "SaveAsCopy.Quality";
constexpr int kDefaultQuality = 75;
constexpr std::array kCopyTypes{&ImagesWritableMac::Jpeg, &ImagesWritableMac::PNG,
                                &ImagesWritableMac::TIFF};

Variant Text(const std::string& bytes) {
  return bytes;
}

/// True while the document has no place of its own.
bool Homeless(const BrivolantDocument& document) {
  return document.File.IsNil() || !document.tFile.IsNil();
}

/// An extension with its dot.
std::string Ending(std::string_view extension) {
  return std::string(1, '.').append(extension);
}

}  // namespace

// The history.

std::string MainWindow::ModuleKey(const char* kind, const effectModule& module) const {
  return kind + std::string(myProcessor->CurrentStack == 0 ? "0" : "1") + module.ID();
}

void MainWindow::Record(const Pairs& pairs, const std::string& name) {
  if (!document_) return;
  for (const auto& [key, value] : pairs) UndoGizmo.Add(key, value);
  UndoGizmo.Store(false, name);
}

void MainWindow::WireUndo() {
  UndoGizmo.Action = [this](const std::string& key, const Variant& value, bool) {
    return UndoAction(key, value);
  };
  UndoGizmo.BeginUndo = [this](bool) { updating = true; };
  UndoGizmo.CompleteUndo = [this](bool redo) { CompleteUndo(redo); };
  UndoGizmo.StateChanged = [this] {
    ToolButtons::ChangeButtonEnabled(*rbToolBar, ToolButtons::Undo().Identifier,
                                     UndoGizmo.UndoAvailable());
    UpdateCommands();
  };
  UndoGizmo.Unhandled = [this](const std::string& message) { app_.Log().Write(message); };
}

bool MainWindow::UndoAction(const std::string& key, const Variant& value) {
  BrivolantDocument& document = *document_;
  const auto number = [&](int& field) {
    UndoGizmo.Add(key, field);
    field = value.ToInt();
  };
  const auto pair = [&](Pair& field) {
    UndoGizmo.Add(key, field);
    if (const Pair* stored = value.As<Pair>()) field = *stored;
  };
  if (key == "ProcessorStack") {
    UndoGizmo.Add(key, Text(myProcessor->StyleData()));
    myProcessor->Reset();
    myProcessor->StyleData(value.ToText());
  } else if (key == "DocumentRotation") {
    number(document.Rotation);
  } else if (key == "DocumentFlip") {
    number(document.Flip);
  } else if (key == "DocumentOrientation") {
    number(document.Orientation);
  } else if (key == "DocumentCropEnabled") {
    UndoGizmo.Add(key, document.Crop);
    document.Crop = value.ToBool();
  } else if (key == "DocumentCropPoint") {
    pair(document.CropOffSet);
  } else if (key == "DocumentCropSize") {
    pair(document.CropSize);
  } else if (key == "BlendingStatus") {
    Pair blending{static_cast<double>(myProcessor->BlendMode()),
                  static_cast<double>(myProcessor->BlendAlpha)};
    pair(blending);
    myProcessor->BlendMode(static_cast<int>(blending.Left));
    myProcessor->BlendAlpha = static_cast<float>(blending.Right);
  } else if (key == "OneClickSelection") {
    UndoGizmo.Add(key, myStylesBar->SelectedItem);
    undoneSelection_ = value.ToInt();
  } else {
    return UndoModuleAction(key, value);
  }
  return true;
}

bool MainWindow::UndoModuleAction(const std::string& key, const Variant& value) {
  constexpr const char* kKinds[] = {"EffectEnabledChanged:", "EffectChanged:", "EffectMoved:"};
  const auto* const kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                        [&](const char* k) { return key.rfind(k, 0) == 0; });
  if (kind == std::end(kKinds)) return false;
  const std::string rest = key.substr(std::string_view(*kind).size());
  if (rest.empty()) return false;
  myProcessor->ChangeStack(rest.front() == '1' ? 1 : 0);
  effectModule* module = myProcessor->ItemVIaID(rest.substr(1));
  if (module == nullptr) return false;
  if (*kind == kKinds[0]) {
    UndoGizmo.Add(key, module->Enabled());
    module->Enabled(value.ToBool());
  } else if (*kind == kKinds[1]) {
    UndoGizmo.Add(key, module->Settings());
    if (const auto* settings = value.As<Dictionary>()) module->Settings(*settings);
  } else if (const Pair* moved = value.As<Pair>()) {
    UndoGizmo.Add(key, Pair{moved->Right, moved->Left});
    myProcessor->ChangeItemOrder(static_cast<int>(moved->Right), static_cast<int>(moved->Left));
    // The selection stays with its module.
    effectModule* selected = myProcessor->SelectedEffect();
    if (selected != nullptr) {
      const int place = myProcessor->ItemPositionViaID(selected->ID());
      AdvancedPanel->selectedEffect(place);
      myProcessor->SelectEffect(place);
    }
  }
  return true;
}

void MainWindow::CompleteUndo(bool redo) {
  UndoGizmo.Store(!redo);
  updating = false;
  SetDirty(true);
  updateProcessorRelatedInterfaceElements();
  if (undoneSelection_ < myStylesBar->Count()) myStylesBar->SelectedItem = undoneSelection_;
  undoneSelection_ = -1;
  myStylesBar->update();
  MyDisplay->Update(true);
  infotext->Text(ToQString(getSimpleImageInfo()));
}

void MainWindow::updateProcessorRelatedInterfaceElements() {
  const QScopedValueRollback guard(updating, true);
  AdvancedPanel->Update();
  for (int i = 0; i <= AdvancedSectionheader->Count(); ++i) {
    AdvancedSectionheader->Segment(i).Selected = i == myProcessor->CurrentStack;
  }
  AdvancedSectionheader->update();
  myProcessor->UpdatePreview(document_ != nullptr);
  BlendMode->setCurrentIndex(myProcessor->BlendMode());
  BlendAlpha->value(qRound(myProcessor->BlendAlpha * 100));
}

void MainWindow::SetDirty(bool dirty) {
  if (document_) document_->Dirty = dirty;
  if (dirty && myStylesBar->SelectedItem >= 0) {
    // An adjusted photo no longer has that style.
    myStylesBar->SelectedItem = -1;
    myStylesBar->update();
  }
  Modified(dirty);
  ToolButtons::ChangeButtonEnabled(*rbToolBar, ToolButtons::Save().Identifier, dirty);
  rewindable_ = true;
  ToolButtons::ChangeButtonEnabled(*rbToolBar, ToolButtons::Rewind().Identifier, true);
  UpdateCommands();
}

// Opening.

void MainWindow::InBackground(const std::function<void()>& work) {
  const QScopedValueRollback busy(busy_, true);
  RunInBackground(work);
}

bool MainWindow::OpenImage(const FolderItem& item, std::string name) {
  if (busy_) return false;
  if (Cropping()) crop_->Cancel();
  if (!FolderitemExtensions::Validate(item, FolderitemExtensions::kRead, nullptr, app_.Dialogs())) {
    return false;
  }
  if (name.empty()) name = EnsureUTF8(FolderitemExtensions::FileNameWithoutExtension(item));
  // A photo that opens at once needs no label that only flickers.
  constexpr int kPatience = 250;
  QTimer label;
  label.setSingleShot(true);
  connect(&label, &QTimer::timeout, this, [&] {
    app_.Progress().Show(
        WithPlaceholders(kOpeningImage.Text(), {{"<filename>", item.DisplayName()}}), this);
  });
  label.start(kPatience);

  auto document = std::make_unique<BrivolantDocument>(app_.Services());
  const bool isDocument =
      FolderitemExtensions::isFileType(item, &InternalFileTypes::BrivolantPhotosDocument);
  bool loaded = false;
  InBackground([&] {
    loaded = isDocument ? document->Load(item) && !document->ImageOriginal().IsNil()
                        : document->CreateFromFile(item);
  });
  label.stop();
  if (!loaded) {
    app_.Progress().hide();
    FolderitemExtensions::StandardFileErrorDialog(item, FolderitemExtensions::kRead,
                                                  document->lastErrorMessage, app_.Dialogs());
    return false;
  }
  if (!isDocument) document->Name = name;
  if (isDocument && document->FileDataVersion < BrivolantDocument::kVersion) document->Save();
  const bool started = StartSession(std::move(document), isDocument);
  app_.Progress().hide();
  if (started) app_.AddToRecentMenu(item);
  return started;
}

bool MainWindow::OpenImage(const Picture& picture, const std::string& name) {
  if (busy_ || picture.IsNil()) return false;
  if (Cropping()) crop_->Cancel();
  auto document = std::make_unique<BrivolantDocument>(app_.Services(), picture, name);
  const bool started = StartSession(std::move(document), true);
  // A picture without a file exists nowhere else.
  if (started) SetDirty(true);
  return started;
}

bool MainWindow::OpenRecovered(const RecoveredEdits& edits) {
  auto document = std::make_unique<BrivolantDocument>(app_.Services());
  bool loaded = false;
  InBackground([&] {
    if (edits.Package.Exists()) {
      loaded = document->Load(edits.Package) && !document->ImageOriginal().IsNil();
      // A temporary package is still no place for a document to stay.
      if (loaded && !edits.Saved) document->tFile = edits.Package;
    }
    if (!loaded && edits.Original.Exists()) {
      document = std::make_unique<BrivolantDocument>(app_.Services());
      loaded = document->CreateFromFile(edits.Original);
    }
  });
  if (!loaded) {
    FolderitemExtensions::StandardFileErrorDialog(edits.Package, FolderitemExtensions::kRead,
                                                  document->lastErrorMessage, app_.Dialogs());
    return false;
  }
  edits.ApplyTo(*document);
  if (!StartSession(std::move(document), true)) return false;
  SetDirty(true);
  return true;
}

bool MainWindow::StartSession(std::unique_ptr<BrivolantDocument> document, bool rewindable) {
  LastStyle = document_ ? myProcessor->StyleData() : std::string();
  UndoGizmo.Reset();
  myProcessor->SelectedEffect(nullptr);
  AdvancedPanel->selectedEffect(-1);
  myProcessor->Reset();
  myProcessor->Document = document.get();
  // The old document goes only after nothing points at it any more.
  const std::unique_ptr<BrivolantDocument> before = std::move(document_);
  document_ = std::move(document);
  if (before) app_.Recovery().Forget();
  LoadStyles();
  myStylesBar->SelectedItem = -1;
  myProcessor->StyleData(document_->StyleData);
  ShowTitle();
  AdvancedPanel->Update();
  myProcessor->ChangeStack(0);
  myProcessor->nonLiveMode = false;
  if (DisplayPane != kEditorPane) {
    // A hidden widget is laid out when it is shown, but the preview is made for its size now.
    EditorSeat->setGeometry(EditorPlace());
    LayoutEditor();
  }
  updateProcessorRelatedInterfaceElements();
  SwapDisplay(kEditorPane);
  document_->Dirty = false;
  Modified(false);
  rewindable_ = rewindable;
  ToolButtons::ChangeButtonEnabled(*rbToolBar, ToolButtons::Save().Identifier, false);
  ToolButtons::ChangeButtonEnabled(*rbToolBar, ToolButtons::Rewind().Identifier, rewindable);
  UpdateCommands();
  return true;
}

void MainWindow::ShowTitle() {
  SegmentViewPiece* piece = PreviewTitle->SegmentByTag("document");
  piece->Caption = ToQString(document_->Name).replace(QLatin1Char('&'), QStringLiteral("&&"));
  piece->icon = SvgIcon(QStringLiteral("BrivolantPhotosDocument"));
  PreviewTitle->update();
  setWindowTitle(QStringLiteral("[*]") + ToQString(document_->Name));
}

void MainWindow::ApplyStyleData(const std::string& styleData) {
  myProcessor->StyleData(styleData);
  myProcessor->ChangeStack(0);
  updateProcessorRelatedInterfaceElements();
  SetDirty(true);
}

// Saving.

FolderItem MainWindow::AskWhereToSave() {
  const std::string extension(InternalFileTypes::BrivolantPhotosDocument.Extensions);
  int filter = 0;
  const FolderItem chosen = app_.FileDialogs().Save(
      kSaveTitle.Text(),
      otherSharedComponents::DefaultPipDocumentsFolder().Child(
          SafeFileName(document_->Name, Ending(extension))),
      {{std::string(InternalFileTypes::BrivolantPhotosDocument.Name), extension}}, filter);
  return BrivolantDocument::PackageFor(chosen);
}

bool MainWindow::GiveDocumentAPlace() {
  const FolderItem place = AskWhereToSave();
  if (place.IsNil()) return false;
  if (place.Exists() && !FolderitemExtensions::MoveToTrash(place)) {
    app_.Dialogs().Message(
        WithPlaceholders(kCannotReplace.Text(), {{"<filename>", place.DisplayName()}}), {});
    return false;
  }
  document_->File = place;
  document_->Name = EnsureUTF8(FolderitemExtensions::FileNameWithoutExtension(place));
  return true;
}

bool MainWindow::SaveMethod() {
  if (!document_ || busy_) return false;
  if (Cropping()) crop_->Cancel();
  BrivolantDocument& document = *document_;
  const FolderItem before = document.File;
  const std::string name = document.Name;
  if (Homeless(document) && !GiveDocumentAPlace()) return false;
  document.StyleData = myProcessor->StyleData();
  bool saved = false;
  InBackground([&] { saved = document.Save(); });
  if (!saved) {
    // What failed changes nothing: the next attempt asks again.
    if (!document.tFile.IsNil() && document.tFile.Exists()) {
      document.File = before;
      document.Name = name;
    }
    SetDirty(true);
    return false;
  }
  app_.AddToRecentMenu(document.File);
  ShowTitle();
  SetDirty(false);
  app_.Recovery().Forget();
  return true;
}

bool MainWindow::AskToSave() {
  if (busy_) return true;
  if (Cropping()) crop_->Cancel();
  if (!document_ || !document_->Dirty) return false;
  if (DisplayPane != kEditorPane) SwapDisplay(kEditorPane);
  app_.BringToFront();
  std::string save = Menus::kFileSave.Text();
  std::erase(save, '&');
  const Answer answer = app_.Dialogs().Ask(
      {WithPlaceholders(kAskToSaveMessage.Text(), {{"<filename>", document_->Name}}),
       kAskToSaveExplaination.Text(), save, Captions::kCancel.Text(), Captions::kDontSave.Text()});
  if (answer == Answer::kCancel) return true;
  // A save that did not happen keeps the photo open: going on would lose the changes.
  if (answer == Answer::kAction) return !SaveMethod();
  app_.Recovery().Forget();
  return false;
}

bool MainWindow::SaveACopyAs() {
  if (!document_ || busy_) return false;
  auto& preferences = app_.Preferences();
  int filter = std::clamp(preferences.Value(kCopyFormat, 0).ToInt(), 0,
                          static_cast<int>(kCopyTypes.size()) - 1);
  std::vector<FileFilter> filters;
  filters.reserve(kCopyTypes.size());
  for (const FileType* type : kCopyTypes) {
    filters.push_back({std::string(type->Name), std::string(type->Extensions)});
  }
  const std::string folderPath = preferences.Value(kCopyFolder, "").ToText();
  FolderItem folder = folderPath.empty() ? FolderItem() : FolderItem(folderPath);
  if (!folder.Directory()) folder = otherSharedComponents::DefaultPipDocumentsFolder();
  const auto typeAt = [](int index) { return kCopyTypes.at(static_cast<std::size_t>(index)); };
  FolderItem chosen = app_.FileDialogs().Save(
      kSaveCopyTitle.Text(),
      folder.Child(SafeFileName(document_->Name, Ending(ImageIO::FirstExtension(*typeAt(filter))))),
      filters, filter);
  if (chosen.IsNil()) return false;
  // A name that says its format wins over the format of the list.
  for (std::size_t i = 0; i < kCopyTypes.size(); ++i) {
    if (ImageIO::Match(*kCopyTypes.at(i), chosen)) filter = static_cast<int>(i);
  }
  const FileType& type = *typeAt(filter);
  if (!ImageIO::Match(type, chosen)) {
    const std::string name = NumberedName(chosen.Name(), 0, Ending(ImageIO::FirstExtension(type)));
    chosen = chosen.Parent().Child(name);
  }
  if (const std::string why = document_->WhyNotWriteTo(chosen); !why.empty()) {
    app_.Dialogs().Message(
        WithPlaceholders(kNotSaved.Text(), {{"<filename>", chosen.DisplayName()}}), why);
    return false;
  }
  preferences.Assign(kCopyFormat, filter);
  preferences.Assign(kCopyFolder, chosen.Parent().ShellPath());
  preferences.Synchronize();
  const double quality = preferences.Value(kCopyQuality, kDefaultQuality).ToDouble() / 100;
  std::string error;
  SaveAsCopy::Outcome outcome = SaveAsCopy::Outcome::kFailed;
  {
    // Whatever is thrown, the window works again.
    const QScopedValueRollback busy(busy_, true);
    outcome = SaveAsCopy::RunWithDialog(
        {document_->Image(), document_->PastedImages(), myProcessor->StyleData(), chosen,
         std::string(type.Identifier), quality},
        app_.Services(), *this, error);
  }
  if (outcome == SaveAsCopy::Outcome::kFailed) {
    app_.Dialogs().Message(
        WithPlaceholders(kNotSaved.Text(), {{"<filename>", chosen.DisplayName()}}), error);
  } else if (!error.empty()) {
    app_.Dialogs().Message(error, {});
  }
  return outcome == SaveAsCopy::Outcome::kDone;
}

void MainWindow::PerformRewind() {
  if (!document_) return;
  BrivolantDocument& document = *document_;
  Record({{"ProcessorStack", Text(myProcessor->StyleData())},
          {"DocumentRotation", document.Rotation},
          {"DocumentFlip", document.Flip},
          {"DocumentCropEnabled", document.Crop},
          {"DocumentOrientation", document.Orientation}},
         kUndoRewind.Text());
  document.Crop = false;
  document.Rotation = 0;
  document.Flip = 0;
  document.Orientation = 0;
  myProcessor->Reset();
  updateProcessorRelatedInterfaceElements();
  SetDirty(true);
  rewindable_ = false;
  ToolButtons::ChangeButtonEnabled(*rbToolBar, ToolButtons::Rewind().Identifier, false);
  infotext->Text(ToQString(getSimpleImageInfo()));
  UpdateCommands();
}

void MainWindow::KeepEdits() {
  if (busy_ || Cropping() || !document_ || !document_->Dirty) return;
  app_.Recovery().Keep(*document_, myProcessor->StyleData());
}

}  // namespace brivolant
