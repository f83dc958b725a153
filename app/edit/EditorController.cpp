// SPDX-License-Identifier: MIT
#include "app/edit/EditorController.h"

#include <QApplication>
#include <QComboBox>
#include <QScopedValueRollback>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/edit/DocumentController.h"
#include "app/edit/EditorPane.h"
#include "effects/finishes/EffectModuleOverlay.h"
#include "effects/text/EffectModuleText.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "formats/BrivolantDocument.h"
#include "kit/AnimationCore.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkFontComboBox.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"

namespace brivolant {
namespace {

constexpr const char* kPanelKey = "MainWindow.AdvancedPanel.Visible";
constexpr int kResizeRests = 120;
constexpr double kSlide = 0.25;

}  // namespace

EditorController::EditorController(const Desk& desk, EditSession& session, Commands& commands,
                                   Panes& panes, EditorPane& pane, DocumentController& documents)
    : desk_(desk),
      session_(session),
      commands_(commands),
      panes_(panes),
      pane_(pane),
      documents_(documents) {
  pane_.PreviewTitle->SegmentByTag("advanced")->Selected =
      desk_.Preferences.Value(kPanelKey, false).ToBool();
  WireModules();
  WirePanel();
  WireDisplay();
  commands_.Add({{"Viewadvanced", &Menus::kViewAdvancedOptions, "Ctrl+Shift+E", kInEditor,
                  [this] { ShowHideEffects(!pane_.EffectsShown()); }, [this] { return Editing(); },
                  [this] { return pane_.EffectsShown(); }}});
  listening_.push_back(session_.Changed.Listen([this] { Show(); }));
  listening_.push_back(session_.HistoryChanged.Listen([this] { commands_.Refresh(); }));
  // What is being drawn belongs to what is saved; its end would be lost while input is locked.
  listening_.push_back(session_.Settling.Listen([this] {
    pane_.MyDisplay->EndGesture();
    pane_.AdvancedPanel->EndGesture();
  }));
  listening_.push_back(session_.Opened.Listen([this] { ShowTitle(); }));
  listening_.push_back(session_.Saved.Listen([this] { ShowTitle(); }));
  listening_.push_back(session_.Rendered.Listen([this] {
    // What the picture lacks is known now.
    if (panes_.Pane() == kEditorPane) panes_.Info(getSimpleImageInfo());
  }));
}

EditorController::~EditorController() {
  session_.Processor().Warned = nullptr;
  // The widgets outlive the session.
  pane_.MyDisplay->myProcessor = nullptr;
  pane_.AdvancedPanel->myProcessor = nullptr;
}

bool EditorController::Editing() const {
  return session_.Document() != nullptr;
}

void EditorController::WireModules() {
  brivolantProcessorLite& processor = session_.Processor();
  processor.myDisplay = pane_.MyDisplay;
  processor.myEffectEditor = pane_.AdvancedPanel;
  pane_.MyDisplay->myProcessor = &processor;
  pane_.AdvancedPanel->myProcessor = &processor;
  pane_.AdvancedPanel->myScrollBar = pane_.EffectScrollbar;
  processor.Warned = [this](const std::string&) { panes_.Info(getSimpleImageInfo()); };
  listening_.push_back(session_.ModuleCreated.Listen([this](effectModule& module) {
    if (auto* overlay = dynamic_cast<EffectModuleOverlay*>(&module)) {
      overlay->ChoosePicture = [this] {
        const std::vector<FolderItem> files = documents_.ChoosePhotos(EffectModuleOverlay::kPrompt);
        // It is read beside the window, and shown when it is there.
        if (!files.empty()) session_.LayOver(files.front());
        return FolderItem();
      };
    }
    if (auto* text = dynamic_cast<EffectModuleText*>(&module)) {
      text->ChooseFont = [this](int x, int y, int width, const std::string& current) {
        const EditSession::Hold hold(session_);
        return ifkFontComboBoxMenu::Instance().Popup(x, y, width, current);
      };
      text->myTextEngine.ReadClipboard = [this] { return desk_.Clipboard.Text(); };
      text->myTextEngine.WriteClipboard = [this](const std::string& copied) {
        desk_.Clipboard.Text(copied);
      };
    }
  }));
}

void EditorController::WirePanel() {
  EffectStackEditor& panel = *pane_.AdvancedPanel;
  panel.Changed = [this] { session_.SetDirty(true); };
  panel.ItemValueChanged = [this](effectModule& module) {
    session_.Record({{session_.ModuleKey("EffectChanged:", module), module.Settings()}},
                    module.Name());
  };
  panel.itemEnabledChanged = [this](effectModule& module) {
    session_.Record({{session_.ModuleKey("EffectEnabledChanged:", module), module.Enabled()}},
                    module.Name());
  };
  panel.ItemMoved = [this](effectModule& module, int from, int to) {
    session_.Record({{session_.ModuleKey("EffectMoved:", module),
                      Pair{static_cast<double>(from), static_cast<double>(to)}}},
                    module.Name());
  };
  panel.Holding = [this]() -> std::shared_ptr<void> {
    return std::make_shared<EditSession::Hold>(session_);
  };
  pane_.BlendAlpha->DraggingStarted = [this] {
    if (!updating_ && Editing()) session_.RecordBlending();
  };
  pane_.BlendAlpha->ValueChanged = [this] {
    if (updating_) return;
    session_.Blend(session_.Processor().BlendMode(),
                   static_cast<float>(pane_.BlendAlpha->value()) / 100);
  };
  QObject::connect(pane_.BlendMode, &QComboBox::currentIndexChanged, pane_.BlendMode,
                   [this](int index) {
                     const auto& processor = session_.Processor();
                     if (updating_ || !Editing() || index == processor.BlendMode()) return;
                     session_.RecordBlending();
                     session_.Blend(index, processor.BlendAlpha);
                   });
  pane_.AdvancedSectionheader->Action = [this](SegmentViewPiece& piece) {
    session_.Processor().ChangeStack(piece.Tag.ToInt());
  };
}

void EditorController::WireDisplay() {
  EditorDisplay& display = *pane_.MyDisplay;
  display.Changed = [this](effectModule& module, const Dictionary* before) {
    if (before != nullptr) {
      session_.Record({{session_.ModuleKey("EffectChanged:", module), *before}}, module.Name());
    }
    session_.SetDirty(true);
    pane_.AdvancedPanel->Update();
  };
  display.Resized = [this] { ResizedUpdateTimer.start(); };
  display.Dropped = [this](const DragItem& item) { documents_.Drop(item); };
  pane_.PreviewTitle->Action = [this](SegmentViewPiece& piece) {
    if (piece.Tag == Variant("advanced")) ShowHideEffects(piece.Selected);
    if (piece.Tag == Variant("styles")) StylesToggled(piece.Selected);
    if (piece.Tag == Variant("FullScreen")) {
      piece.Selected = false;
      FullScreenWanted();
    }
    commands_.Changed();
  };
  ResizedUpdateTimer.setSingleShot(true);
  ResizedUpdateTimer.setInterval(kResizeRests);
  QObject::connect(&ResizedUpdateTimer, &QTimer::timeout, [this] {
    // The button that drags the window's edge is not ours to see; a rest in the sizes is.
    if (session_.Busy() || QApplication::mouseButtons() != Qt::NoButton) {
      return ResizedUpdateTimer.start();
    }
    if (panes_.Pane() == kEditorPane) session_.Processor().UpdatePreview(true);
  });
}

// What is shown of the session.

void EditorController::Show() {
  const QScopedValueRollback updating(updating_, true);
  const brivolantProcessorLite& processor = session_.Processor();
  ifkSegmentView& header = *pane_.AdvancedSectionheader;
  for (int i = 0; i <= header.Count(); ++i)
    header.Segment(i).Selected = i == processor.CurrentStack;
  header.update();
  pane_.BlendMode->setCurrentIndex(processor.BlendMode());
  pane_.BlendAlpha->value(qRound(processor.BlendAlpha * 100));
  if (panes_.Pane() == kEditorPane) panes_.Info(getSimpleImageInfo());
  // Now, since the next key may be there already, and what is disabled takes none.
  commands_.Refresh();
}

void EditorController::ShowTitle() {
  pane_.TitleName(ToQString(session_.Document()->Name));
  panes_.Window().setWindowTitle(QStringLiteral("[*]") + ToQString(session_.Document()->Name));
}

std::string EditorController::getSimpleImageInfo() const {
  BrivolantDocument* document = session_.Document();
  if (document == nullptr) return {};
  // What the picture lacks is worth more than its size.
  const std::vector<std::string>& warnings = session_.Processor().Warnings();
  if (!warnings.empty()) return warnings.front();
  int w = document->Width();
  int h = document->Height();
  if (w <= 0 || h <= 0) return {};
  if (document->OriginalDamage) return document->OriginalDamage.Warning;
  if (document->Rotation == 1 || document->Rotation == 3) std::swap(w, h);
  return WithPlaceholders(kImageInfo.Text(),
                          {{"<width>", std::to_string(w)},
                           {"<height>", std::to_string(h)},
                           {"<megapixel>", SharedPictureEffects::Megapixel(w, h)},
                           {"<ratio>", SharedPictureEffects::AspectRatio(w, h)}});
}

void EditorController::ShowHideEffects(bool visible) {
  desk_.Preferences.Assign(kPanelKey, visible);
  pane_.PreviewTitle->SegmentByTag("advanced")->Selected = visible;
  pane_.PreviewTitle->update();
  QWidget& seat = *pane_.EditorSeat;
  const QRect place = pane_.Place(seat.parentWidget()->size());
  if (panes_.Pane() != kEditorPane || AnimationCore::Period() == 0) {
    if (!AnimationCore::IsAnimated(seat)) seat.setGeometry(place);
    return;
  }
  AnimationCore::Animate(seat, {place.x(), place.y(), place.width(), place.height()}, kSlide);
}

}  // namespace brivolant
