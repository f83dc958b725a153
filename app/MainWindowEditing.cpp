// SPDX-License-Identifier: MIT
// What is done to the photo in work: opening, copying, styles, crop and colours.
#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "app/App.h"
#include "app/CropEditor.h"
#include "app/MainWindow.h"
#include "app/OwnPreviews.h"
#include "app/ProgressDialog.h"
#include "app/QuickLookWindow.h"
#include "effects/EffectRegistry.h"
#include "effects/crop/CropModule.h"
#include "effects/finishes/EffectModuleOverlay.h"
#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "formats/BrivolantDocument.h"
#include "formats/ImageFile.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"
#include "kit/ifkStaticText.h"
#include "kit/templateSelector.h"

namespace brivolant {
namespace {

/// Extensions that a dialog for photos shows.
constexpr const char* kPhotoExtensions =
    "jpg;jpeg;jpe;png;tif;tiff;heic;heif;avif;webp;gif;bmp;jp2;psd;brvPhoto;dng;cr2;cr3;crw;nef;"
    "arw;orf;rw2;raf;pef;srw;mrw;dcr;raw";

/// Waits for one click anywhere and gives the colour under it.
class ClickedColor final : public QObject {
 public:
  std::optional<Color> Wait(EditorDisplay& display) {
    qApp->installEventFilter(this);
    display_ = &display;
    display.grabMouse(Qt::CrossCursor);
    display.grabKeyboard();
    loop_.exec();
    display.releaseKeyboard();
    display.releaseMouse();
    qApp->removeEventFilter(this);
    return color_;
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::MouseButtonPress:
        Take(static_cast<const QMouseEvent*>(event)->globalPosition().toPoint());
        return true;
      case QEvent::MouseButtonRelease:
        if (color_) loop_.quit();
        return true;
      case QEvent::KeyPress:
      case QEvent::ShortcutOverride:
        // Nothing else happens until the click.
        event->accept();
        if (static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape) loop_.quit();
        return true;
      default:
        return false;
    }
  }

 private:
  void Take(const QPoint& at) {
    const QPoint local = display_->mapFromGlobal(at);
    QRgb pixel = 0;
    if (display_->rect().contains(local)) {
      const QPointF device = QPointF(local) * display_->devicePixelRatioF();
      pixel = display_->Buffer().pixel(device.toPoint());
    } else {
      const QScreen* screen = QGuiApplication::screenAt(at);
      if (screen == nullptr) return;
      const QPoint onScreen = at - screen->geometry().topLeft();
      const QImage image =
          const_cast<QScreen*>(screen)->grabWindow(0, onScreen.x(), onScreen.y(), 1, 1).toImage();
      if (image.isNull()) return;
      pixel = image.pixel(0, 0);
    }
    color_ = Color{static_cast<std::uint8_t>(qRed(pixel)), static_cast<std::uint8_t>(qGreen(pixel)),
                   static_cast<std::uint8_t>(qBlue(pixel))};
  }

  QEventLoop loop_;
  EditorDisplay* display_ = nullptr;
  std::optional<Color> color_;
};

}  // namespace

std::optional<Color> MainWindow::PickScreenColor() {
  return ClickedColor().Wait(*MyDisplay);
}

// Opening, copying and styles.

FolderItem MainWindow::ChoosePhoto(const LocalizedText& title) {
  const std::vector<FolderItem> files = app_.FileDialogs().Open(
      title.Text(), {}, {{kAllPhotos.Text(), kPhotoExtensions}, {kAllFiles.Text(), ""}});
  return files.empty() ? FolderItem() : files.front();
}

void MainWindow::ChooseAndOpen() {
  if (const FolderItem file = ChoosePhoto(kOpenTitle)) app_.OpenDocument(file);
}

void MainWindow::PastePicture() {
  constexpr const char* kOverlay = "7FFFFFFF-B371-0D5F-E410-E0CB34849A08";
  constexpr double kQuality = 0.8;
  const Picture picture = app_.Clipboard().Picture();
  auto* overlay = dynamic_cast<EffectModuleOverlay*>(myProcessor->ItemVIaID(kOverlay));
  if (!document_ || picture.IsNil() || overlay == nullptr) return;
  const FolderItem file = app_.Services().TemporaryFiles.Child("FromClipboard.jpg");
  std::string error;
  if (!ImageIO::SaveAsJPEG(file, EnsurePictureCompatible(picture), kQuality, error)) {
    app_.Dialogs().Message(error, {});
    return;
  }
  const std::string before = myProcessor->StyleData();
  if (!overlay->SetAsMyPicture(file)) return;
  Record({{"ProcessorStack", before}}, kUndoPaste.Text());
  overlay->Enabled(true);
  // At the head of the stack, above everything else.
  myProcessor->ChangeItemOrder(myProcessor->ItemPositionViaID(kOverlay), 0);
  myProcessor->SelectEffect(0);
  AdvancedPanel->selectedEffect(0);
  updateProcessorRelatedInterfaceElements();
  SetDirty(true);
}

void MainWindow::Drop(const DragItem& item) {
  if (item.IsEmpty()) return;
  // The drag's source waits for the drop to return; a question must not keep it waiting.
  QTimer::singleShot(0, this, [this, item] {
    if (!item.Files.empty()) return app_.OpenDocument(item.Files.front());
    if (!AskToSave()) OpenImage(item.Picture, kDroppedPicture.Text());
  });
}

void MainWindow::NewFromClipboard() {
  const Picture picture = app_.Clipboard().Picture();
  if (picture.IsNil() || AskToSave()) return;
  OpenImage(picture, kNewFromClipboard.Text());
}

void MainWindow::CopyPicture() {
  if (!document_) return;
  app_.Clipboard().Picture(SharedPictureEffects::Clone(document_->PreviewAfter, 24, false));
}

void MainWindow::CopyStyle() {
  app_.Clipboard().Set({}, kStyleType, myProcessor->StyleData());
}

void MainWindow::PasteStyle() {
  if (!document_ || !app_.Clipboard().Has(kStyleType)) return;
  Record({{"ProcessorStack", myProcessor->StyleData()}}, kUndoPasteStyle.Text());
  myProcessor->Reset();
  ApplyStyleData(app_.Clipboard().Data(kStyleType));
}

void MainWindow::ClearStyle() {
  if (!document_) return;
  Record({{"ProcessorStack", myProcessor->StyleData()},
          {"OneClickSelection", myStylesBar->SelectedItem}},
         kUndoClearStyle.Text());
  myProcessor->Reset();
  updateProcessorRelatedInterfaceElements();
  SetDirty(true);
}

void MainWindow::ApplyLastStyle() {
  if (!document_ || LastStyle.empty()) return;
  Record({{"ProcessorStack", myProcessor->StyleData()}}, kUndoLastStyle.Text());
  ApplyStyleData(LastStyle);
}

void MainWindow::Toggle(int BrivolantDocument::*field, int value, const char* key,
                        const LocalizedText& name) {
  if (!document_) return;
  int& present = (*document_).*field;
  Record({{key, present}}, name.Text());
  present = present == value ? 0 : value;
  SetDirty(true);
  myProcessor->UpdatePreview(true);
  infotext->Text(ToQString(getSimpleImageInfo()));
}

// Crop.

void MainWindow::CropMethod() {
  if (!document_ || busy_) return;
  if (Cropping()) {
    EndCrop();
  } else {
    BeginCrop();
  }
}

void MainWindow::BeginCrop() {
  if (DisplayPane != kEditorPane) return;
  cropBefore_ = {{"DocumentCropEnabled", document_->Crop},
                 {"DocumentCropPoint", document_->CropOffSet},
                 {"DocumentCropSize", document_->CropSize}};
  crop_ = std::make_unique<CropModule>(
      CropModule::Host{[this](CropModule& module) { cropEditor_->Show(module, *MyDisplay); },
                       [this] {
                         cropEditor_->Forget();
                         cropEditor_->hide();
                       },
                       [this] { CropMethod(); },
                       [this] {
                         // Recorded when it is done: a crop that was given up leaves nothing to
                         // undo.
                         Record(cropBefore_, kUndoCrop.Text());
                         SetDirty(true);
                       }});
  crop_->lem = myProcessor->SelectedEffect();
  crop_->Prepare(*myProcessor);
  LockForCrop(true);
  myProcessor->SelectedEffect(crop_.get());
  MyDisplay->setFocus();
  MyDisplay->Update(true);
  UpdateCommands();
}

void MainWindow::EndCrop() {
  CropModule& crop = *crop_;
  crop.Ended();
  // The toolbar's button gives up what was not applied.
  if (!document_->Crop) document_->Crop = cropBefore_.front().second.ToBool();
  myProcessor->SelectedEffect(crop.lem);
  LockForCrop(false);
  myProcessor->UpdatePreview(true);
  infotext->Text(ToQString(getSimpleImageInfo()));
  UpdateCommands();
}

void MainWindow::LockForCrop(bool locked) {
  if (locked) {
    DeactivateToolBar();
  } else {
    ActivateToolBar();
  }
  for (QWidget* control :
       std::initializer_list<QWidget*>{AdvancedPanel, AdvancedSectionheader, myStylesBar,
                                       PreviewTitle, BlendAlpha, BlendMode}) {
    control->setEnabled(!locked);
  }
}

// Colours.

void MainWindow::ColorWellClicked(int index) {
  effectModule* module = myProcessor->SelectedEffect();
  if (module == nullptr) return;
  myColorPanel->currentControl = index;
  const Color color = module->ControlValue(index).ToColor();
  myColorPanel->ShowPanel({static_cast<float>(color.Red) / 255,
                           static_cast<float>(color.Green) / 255,
                           static_cast<float>(color.Blue) / 255, 1});
  AdvancedPanel->update();
}

void MainWindow::ColorChanged(const RGBAColor& color) {
  effectModule* module = myProcessor->SelectedEffect();
  const int control = myColorPanel->currentControl;
  if (control < 0 || module == nullptr || control >= module->ControlCount()) return;
  Record({{ModuleKey("EffectChanged:", *module), module->Settings()}}, module->Name());
  const auto byte = [](float part) {
    return static_cast<std::uint8_t>(std::clamp(std::lround(part * 255), 0L, 255L));
  };
  module->ControlValue(control, Color{byte(color.Red), byte(color.Green), byte(color.Blue)});
  SetDirty(true);
  AdvancedPanel->Update();
  myProcessor->UpdatePreview(false);
}

void MainWindow::SelectedEffectChanged() {
  myColorPanel->currentControl = -1;
  if (!myColorPanel->PanelVisible()) return;
  effectModule* module = myProcessor->SelectedEffect();
  for (int i = 0; module != nullptr && i < module->ControlCount(); ++i) {
    if (module->Control(i).Type == kControlColorWell) return ColorWellClicked(i);
  }
  myColorPanel->HidePanel();
}

// The whole screen.

void MainWindow::FullScreenMethod() {
  if (!document_ || busy_ || Cropping()) return;
  app_.Progress().Show(kProgressGeneric.Text(), this);
  const QScreen* on = screen();
  const QSize pixels = on->size() * on->devicePixelRatio();
  const std::string style = myProcessor->StyleData();
  const PastedFiles pasted = document_->PastedImages();
  Picture result;
  InBackground([&] {
    const Picture& original = document_->ImageOriginal();
    Picture source;
    if (original.Width() > pixels.width() || original.Height() > pixels.height()) {
      source = SharedPictureEffects::Scale(document_->Image(), pixels.width(), pixels.height(),
                                           SharedPictureEffects::kScaleToFit);
    } else if (original.Width() < document_->PreviewAfter.Width()) {
      source = document_->PreviewBase;
    } else {
      source = document_->Image();
    }
    // Its own stacks: those of the window may be drawn meanwhile.
    brivolantProcessorLite processor(EffectRegistry(), app_.Services());
    processor.Startup();
    processor.StyleData(style);
    result = processor.Process(std::move(source), pasted);
  });
  if (!fullScreen_) {
    fullScreen_ = std::make_unique<QuickLookWindow>(NewFilePreviewer(), app_.Preferences());
  }
  fullScreen_->DisplayPicture(result, document_->Name);
  app_.Progress().hide();
}

}  // namespace brivolant
