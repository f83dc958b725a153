// SPDX-License-Identifier: MIT
#include "app/edit/ZoomController.h"

#include <cmath>
#include <utility>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/edit/EditorPane.h"
#include "engine/ui/EditorDisplay.h"
#include "formats/BrivolantDocument.h"
#include "kit/InterfaceKitSupport.h"

namespace brivolant {
namespace {

/// Milliseconds.
constexpr int kRests = 120;

}  // namespace

ZoomController::ZoomController(const Desk& desk, EditSession& session, Commands& commands,
                               EditorPane& pane)
    : session_(session), pane_(pane), display_(*pane.MyDisplay), full_(desk.Services) {
  AddCommands(commands);
  rests_.setSingleShot(true);
  rests_.setInterval(kRests);
  QObject::connect(&rests_, &QTimer::timeout, [this] { Render(); });
  full_.Ready = [this](const FullRender::Result& result) { Take(result); };
  display_.ViewChanged = [this, &commands] {
    Follow(false);
    ShowScale();
    // Their marks, not each scale in between.
    const std::pair marks(display_.View().Fits(), display_.View().Scale() == 1);
    if (std::exchange(marks_, marks) != marks) commands.Changed();
  };
  listening_.push_back(session_.Opened.Listen([this] {
    display_.Look([](PhotoView& view) { view.Fit(); });
    ShowScale();
  }));
  listening_.push_back(session_.RenderStarted.Listen([this] {
    // The preview that is wanted now has the cores for itself.
    if ((full_.Running() || rests_.isActive()) && Editing() && settings_ != Settings()) Drop();
  }));
  listening_.push_back(session_.Rendered.Listen([this] { Follow(true); }));
}

ZoomController::~ZoomController() {
  display_.ViewChanged = nullptr;
}

void ZoomController::AddCommands(Commands& commands) {
  using namespace Menus;
  // Looking changes nothing: it goes on whatever is done with the photo.
  constexpr bool kAlso = true;
  const auto add = [&](const char* name, const LocalizedText& text, const char* shortcuts,
                       const std::function<void(PhotoView&)>& change,
                       const std::function<bool(const PhotoView&)>& checked) {
    std::function<bool()> mark;
    if (checked) mark = [this, checked] { return Editing() && checked(display_.View()); };
    commands.Add({{name, &text, shortcuts, kInEditor, [this, change] { display_.Look(change); },
                   [this] { return Editing(); }, mark, nullptr, kAlso, kAlso}});
  };
  add("ViewZoomIn", kViewZoomIn, "Ctrl++; Ctrl+=", &PhotoView::StepIn, nullptr);
  add("ViewZoomOut", kViewZoomOut, "Ctrl+-", &PhotoView::StepOut, nullptr);
  add("ViewZoomToFit", kViewZoomToFit, "Ctrl+0", &PhotoView::Fit, &PhotoView::Fits);
  add(
      "ViewActualSize", kViewActualSize, "Ctrl+1", [](PhotoView& view) { view.ZoomTo(1); },
      [](const PhotoView& view) { return view.Scale() == 1; });
}

void ZoomController::ShowScale() {
  const double scale = display_.View().Scale();
  const auto percent = std::to_string(std::lround(scale * 100));
  pane_.TitleScale(scale <= 0 ? std::string()
                              : WithPlaceholders(kPercent.Text(), {{"<percent>", percent}}));
}

// The full picture.

std::string ZoomController::Image() {
  const BrivolantDocument& document = *session_.Document();
  std::string image = std::to_string(session_.DocumentNumber());
  for (const double number :
       {1.0 * document.Rotation, 1.0 * document.Flip, 1.0 * document.Orientation,
        document.Crop ? 1.0 : 0.0, document.CropOffSet.Left, document.CropOffSet.Right,
        document.CropSize.Left, document.CropSize.Right}) {
    image.append(" ").append(Variant(number).ToText());
  }
  return image;
}

std::string ZoomController::Settings() {
  const brivolantProcessorLite& processor = session_.Processor();
  std::string settings = std::to_string(processor.CurrentStack) + processor.StyleData();
  for (const auto& [name, file] : session_.Document()->PastedImages()) {
    settings.append(name).append(file.ShellPath());
  }
  return settings;
}

void ZoomController::Follow(bool rendered) {
  if (!Editing() || !display_.isVisible()) return Drop();
  const bool fits = display_.View().Fits();
  // What was begun for nobody is broken off; what is done is kept for the next look.
  if (fits && !ready_) return Drop();
  // Settings and image change with a render alone.
  const bool beside = before_ || !display_.ShowBefore;
  if (!rendered && !image_.empty() && beside) return;
  const std::string image = Image();
  const std::string settings = Settings();
  if (image == image_ && settings == settings_ && beside) {
    if (rendered && ready_) display_.ShowFull(result_.After, result_.Before);
    return;
  }
  Drop(image == image_ && !fits ? Picture(result_.Before) : Picture());
  if (fits) return;
  image_ = image;
  settings_ = settings;
  if (rendered) {
    rests_.start();
  } else {
    Render();
  }
}

void ZoomController::Drop(const Picture& before) {
  rests_.stop();
  full_.Stop();
  image_.clear();
  settings_.clear();
  ready_ = false;
  result_ = {{}, before};
  display_.ShowFull({}, before);
}

void ZoomController::Render() {
  if (!Editing()) return;
  const brivolantProcessorLite& processor = session_.Processor();
  before_ = display_.ShowBefore;
  // What is rendered is what is there now, not what was when the wait began.
  image_ = Image();
  settings_ = Settings();
  full_.Start({session_.CopyOfDocument(), processor.StyleData(), processor.CurrentStack,
               display_.ShowBefore});
}

void ZoomController::Take(const FullRender::Result& result) {
  ready_ = true;
  before_ = !result.Before.IsNil();
  result_ = result;
  display_.ShowFull(result_.After, result_.Before);
}

}  // namespace brivolant
