// SPDX-License-Identifier: MIT
#include "app/edit/CropController.h"

#include <QComboBox>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/edit/CropEditor.h"
#include "app/edit/EditorPane.h"
#include "effects/crop/CropModule.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "formats/BrivolantDocument.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"
#include "kit/templateSelector.h"

namespace brivolant {

CropController::CropController(EditSession& session, Commands& commands, Panes& panes,
                               EditorPane& pane)
    : session_(session),
      commands_(commands),
      panes_(panes),
      pane_(pane),
      editor_(std::make_unique<CropEditor>(&panes.Window())) {
  commands_.Add({{"EditCrop", &Menus::kEditCrop, "Ctrl+K", kInEditor, [this] { CropMethod(); },
                  [this] { return session_.Document() != nullptr; }, [this] { return Cropping(); },
                  nullptr, true}});
  listening_.push_back(session_.Settling.Listen([this] {
    if (Cropping()) crop_->Cancel();
  }));
}

CropController::~CropController() {
  editor_->Forget();
  if (Cropping()) session_.Processor().SelectedEffect(nullptr);
}

bool CropController::Cropping() const {
  if (crop_ == nullptr) return false;
  return beginning_ || session_.Processor().SelectedEffect() == crop_.get();
}

void CropController::CropMethod() {
  if (session_.Document() == nullptr || session_.Busy()) return;
  if (Cropping()) {
    End();
  } else {
    Begin();
  }
}

void CropController::Begin() {
  if (panes_.Pane() != kEditorPane) return;
  const BrivolantDocument& document = *session_.Document();
  before_ = {{"DocumentCropEnabled", document.Crop},
             {"DocumentCropPoint", document.CropOffSet},
             {"DocumentCropSize", document.CropSize}};
  crop_ = std::make_unique<CropModule>(
      CropModule::Host{[this](CropModule& module) { editor_->Show(module, *pane_.MyDisplay); },
                       [this] {
                         editor_->Forget();
                         editor_->hide();
                       },
                       [this] { CropMethod(); },
                       [this] {
                         // Recorded when it is done: a crop that was given up leaves nothing to
                         // undo.
                         session_.Record(before_, kUndoCrop.Text());
                         session_.SetDirty(true);
                       }});
  brivolantProcessorLite& processor = session_.Processor();
  session_.HalfDone = true;
  crop_->lem = processor.SelectedEffect();
  crop_->Prepare(processor);
  Lock(true);
  // Its marks would lie wrong on the picture as it is.
  processor.SelectedEffect(nullptr);
  beginning_ = std::make_shared<int>();
  session_.WhenRendered([this, begun = std::weak_ptr(beginning_)] {
    if (begun.expired()) return;
    beginning_.reset();
    session_.Processor().SelectedEffect(crop_.get());
    pane_.MyDisplay->setFocus();
    pane_.MyDisplay->Update(true);
  });
  commands_.Refresh();
}

void CropController::End() {
  BrivolantDocument& document = *session_.Document();
  brivolantProcessorLite& processor = session_.Processor();
  beginning_.reset();
  crop_->Ended();
  // The toolbar's button gives up what was not applied.
  if (!document.Crop) document.Crop = before_.front().second.ToBool();
  processor.SelectedEffect(crop_->lem);
  session_.HalfDone = false;
  Lock(false);
  processor.UpdatePreview(true);
  session_.Changed();
  commands_.Refresh();
}

void CropController::Lock(bool locked) {
  for (QWidget* control : std::initializer_list<QWidget*>{
           pane_.AdvancedPanel, pane_.AdvancedSectionheader, pane_.myStylesBar, pane_.PreviewTitle,
           pane_.BlendAlpha, pane_.BlendMode}) {
    control->setEnabled(!locked);
  }
}

void CropController::WindowActivated(QWidget* active) {
  if (!Cropping() || beginning_ || panes_.Pane() != kEditorPane) return;
  const bool window = active == &panes_.Window();
  if (window && !editor_->isVisible()) {
    editor_->Show(*crop_, *pane_.MyDisplay);
  } else if (!window && active != editor_.get()) {
    editor_->hide();
  }
}

}  // namespace brivolant
