// SPDX-License-Identifier: MIT
// The history: keys, the values under them, and what undo does with both.
#include <algorithm>

#include "app/session/EditSession.h"
#include "engine/EditorInterfaces.h"
#include "formats/BrivolantDocument.h"

namespace brivolant {
namespace {

constexpr const char* kEnabledChanged = "EffectEnabledChanged:";
constexpr const char* kEffectChanged = "EffectChanged:";
constexpr const char* kEffectMoved = "EffectMoved:";

Pair BlendingOf(const brivolantProcessorLite& processor) {
  return {static_cast<double>(processor.BlendMode()), static_cast<double>(processor.BlendAlpha)};
}

}  // namespace

std::string EditSession::ModuleKey(const char* kind, const effectModule& module) const {
  return kind + std::string(processor_.CurrentStack == 0 ? "0" : "1") + module.ID();
}

void EditSession::Record(const Pairs& pairs, const std::string& name) {
  if (!document_) return;
  StorePending();
  pending_ = {pairs, name};
}

void EditSession::StorePending() {
  const Pending pending = std::exchange(pending_, {});
  const bool changed =
      std::any_of(pending.pairs.begin(), pending.pairs.end(), [this](const auto& pair) {
        const std::optional<Variant> now = Present(pair.first);
        return !now || !(*now == pair.second);
      });
  if (!changed) return;
  ++historySteps_;
  for (const auto& [key, value] : pending.pairs) undo_.Add(key, value);
  undo_.Store(false, pending.name);
}

void EditSession::Undo() {
  StorePending();
  undo_.Undo();
}

void EditSession::Redo() {
  StorePending();
  undo_.Redo();
}

void EditSession::WireHistory() {
  undo_.Action = [this](const std::string& key, const Variant& value, bool) {
    return Restore(key, value);
  };
  undo_.CompleteUndo = [this](bool redo) { CompleteUndo(redo); };
  undo_.StateChanged = [this] { HistoryChanged(); };
  undo_.Unhandled = [this](const std::string& message) { desk_.Services.Log.Write(message); };
}

effectModule* EditSession::ModuleOf(const std::string& key, std::string& kind, int& stack) const {
  for (const char* known : {kEnabledChanged, kEffectChanged, kEffectMoved}) {
    if (!key.starts_with(known)) continue;
    const std::string_view rest = std::string_view(key).substr(std::string_view(known).size());
    if (rest.empty()) return nullptr;
    kind = known;
    stack = rest.front() == '1' ? kBackground : kForeground;
    for (const auto& module : processor_.stacks.at(static_cast<std::size_t>(stack))) {
      if (module->ID() == rest.substr(1)) return module.get();
    }
  }
  return nullptr;
}

std::optional<Variant> EditSession::Present(const std::string& key) const {
  if (key == "ProcessorStack") return processor_.StyleData();
  if (key == "DocumentRotation") return document_->Rotation;
  if (key == "DocumentFlip") return document_->Flip;
  if (key == "DocumentOrientation") return document_->Orientation;
  if (key == "DocumentCropEnabled") return document_->Crop;
  if (key == "DocumentCropPoint") return document_->CropOffSet;
  if (key == "DocumentCropSize") return document_->CropSize;
  if (key == "BlendingStatus") return BlendingOf(processor_);
  if (key == "OneClickSelection") return styleSelection_;
  std::string kind;
  int stack = 0;
  const effectModule* module = ModuleOf(key, kind, stack);
  if (module == nullptr || kind == kEffectMoved) return std::nullopt;
  return kind == kEnabledChanged ? Variant(module->Enabled()) : Variant(module->Settings());
}

bool EditSession::Restore(const std::string& key, const Variant& value) {
  std::string kind;
  int stack = 0;
  if (ModuleOf(key, kind, stack) != nullptr) return RestoreModule(key, value);
  const std::optional<Variant> now = Present(key);
  if (!now) return false;
  undo_.Add(key, *now);
  BrivolantDocument& document = *document_;
  const auto pair = [&](Pair& field) {
    if (const Pair* stored = value.As<Pair>()) field = *stored;
  };
  if (key == "ProcessorStack") {
    processor_.Reset();
    processor_.StyleData(value.ToText());
  } else if (key == "DocumentRotation") {
    document.Rotation = value.ToInt();
  } else if (key == "DocumentFlip") {
    document.Flip = value.ToInt();
  } else if (key == "DocumentOrientation") {
    document.Orientation = value.ToInt();
  } else if (key == "DocumentCropEnabled") {
    document.Crop = value.ToBool();
  } else if (key == "DocumentCropPoint") {
    pair(document.CropOffSet);
  } else if (key == "DocumentCropSize") {
    pair(document.CropSize);
  } else if (key == "BlendingStatus") {
    Pair blending = BlendingOf(processor_);
    pair(blending);
    processor_.BlendMode(static_cast<int>(blending.Left));
    processor_.BlendAlpha = static_cast<float>(blending.Right);
  } else {
    undoneSelection_ = value.ToInt();
  }
  return true;
}

bool EditSession::RestoreModule(const std::string& key, const Variant& value) {
  std::string kind;
  int stack = 0;
  effectModule& module = *ModuleOf(key, kind, stack);
  processor_.ChangeStack(stack);
  if (kind == kEnabledChanged) {
    undo_.Add(key, module.Enabled());
    module.Enabled(value.ToBool());
  } else if (kind == kEffectChanged) {
    undo_.Add(key, module.Settings());
    if (const auto* settings = value.As<Dictionary>()) module.Settings(*settings);
  } else if (const Pair* moved = value.As<Pair>()) {
    undo_.Add(key, Pair{moved->Right, moved->Left});
    processor_.ChangeItemOrder(static_cast<int>(moved->Right), static_cast<int>(moved->Left));
    // The selection stays with its module.
    if (const effectModule* selected = processor_.SelectedEffect()) {
      const int place = processor_.ItemPositionViaID(selected->ID());
      if (processor_.myEffectEditor != nullptr) processor_.myEffectEditor->selectedEffect(place);
      processor_.SelectEffect(place);
    }
  }
  return true;
}

void EditSession::CompleteUndo(bool redo) {
  ++historySteps_;
  undo_.Store(!redo);
  // Undone back to what the file holds, there is nothing to save.
  const bool dirty = savedState_ != State();
  SetDirty(dirty);
  rewindable_ = true;
  if (!dirty) ForgetEdits();
  Refresh();
  SelectStyle(std::exchange(undoneSelection_, -1));
  if (processor_.myDisplay != nullptr) processor_.myDisplay->Update(true);
}

std::string EditSession::State() const {
  if (!document_) return {};
  const BrivolantDocument& document = *document_;
  std::string state = processor_.StyleData();
  for (const double number :
       {1.0 * document.Rotation, 1.0 * document.Flip, 1.0 * document.Orientation,
        document.Crop ? 1.0 : 0.0, document.CropOffSet.Left, document.CropOffSet.Right,
        document.CropSize.Left, document.CropSize.Right}) {
    state.append(" ").append(Variant(number).ToText());
  }
  return state;
}

}  // namespace brivolant
