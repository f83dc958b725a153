// SPDX-License-Identifier: MIT
#include "engine/brivolantProcessorLite.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include "engine/EditorInterfaces.h"
#include "engine/ModuleParameter.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

constexpr LocalizedText kSameID{"brivolantProcessorLite.kSameID",
                                "<module> has the same ID as <other>"};

std::string UnknownModule(std::string_view id) {
  return "Cannot find a module with the ID: " + std::string(id);
}

void Raise(const std::function<void()>& event) {
  if (event) event();
}

}  // namespace

brivolantProcessorLite::brivolantProcessorLite(ModuleRegistry registry,
                                               const brivolant::Services& services)
    : stacks(2), registry_(registry), services_(services) {}

brivolantProcessorLite::~brivolantProcessorLite() = default;

void brivolantProcessorLite::Startup() {
  Blender = BlendEffect();
  Reset();
}

void brivolantProcessorLite::Reset() {
  BlendAlpha = 1.0F;
  BlendMode(0);
  cacheCurrentStackPoint = -1;
  cacheBackgroundLayer = {};
  cacheCurrentStack = {};
  const std::string selected = mSelectedeffect == nullptr ? "" : mSelectedeffect->ID();
  SelectedEffect(nullptr);
  warnings_.clear();
  BuildStacks();
  CheckIdentifiers();
  foregroundScaleTopleft.reset();
  foregroundScaleSize.reset();
  cachedTopleft_.reset();
  cachedSize_.reset();
  if (myEffectEditor == nullptr) return;
  int position = -1;
  if (!selected.empty()) {
    position = ItemPositionViaID(selected);
    mSelectedeffect = item(position);
    // What the new module does to itself is recorded as the old one's was.
    if (mSelectedeffect != nullptr) mSelectedeffect->Parent = myEffectEditor;
  }
  myEffectEditor->selectedEffect(position);
  myEffectEditor->Update();
}

void brivolantProcessorLite::BuildStacks() {
  for (const Stack number : {kForeground, kBackground}) {
    StackList& stack = stacks.at(number);
    stack.clear();
    stack.reserve(registry_.size());
    for (const ModuleEntry& entry : registry_) {
      stack.push_back(entry.create(number));
      stack.back()->Constructor();
      stack.back()->BelongsTo(*this);
      if (ModuleCreated) ModuleCreated(*stack.back());
    }
  }
}

void brivolantProcessorLite::Seed(std::uint32_t seed) {
  for (const StackList& stack : stacks) {
    for (const auto& module : stack) module->Reseed(SeedFor(module->ID(), seed));
  }
}

void brivolantProcessorLite::ResetSettings(effectModule& module) {
  constexpr double kLargest = 4294967295.0;
  module.ResetSettings();
  module.Reseed(static_cast<std::uint32_t>(services_.Random.Rnd() * kLargest));
}

FolderItem brivolantProcessorLite::PastedImage(std::string_view name) const {
  const auto found = pasted_.find(name);
  return found == pasted_.end() ? FolderItem() : found->second;
}

void brivolantProcessorLite::Warn(const std::string& sentence) {
  if (std::find(warnings_.begin(), warnings_.end(), sentence) != warnings_.end()) return;
  warnings_.push_back(sentence);
  if (Warned) Warned(sentence);
}

void brivolantProcessorLite::CheckIdentifiers() {
  for (const StackList& stack : stacks) {
    std::map<std::string, std::string> names;
    for (const auto& module : stack) {
      const auto [known, added] = names.try_emplace(module->ID(), module->Name());
      if (!added) {
        services_.Dialogs.Message(WithPlaceholders(kSameID.Text(), {{"<module>", module->Name()},
                                                                    {"<other>", known->second}}),
                                  {});
      }
      module->ResetSettings();
    }
  }
}

int brivolantProcessorLite::Count() const {
  return static_cast<int>(Current().size()) - 1;
}

effectModule* brivolantProcessorLite::item(int index) const {
  return index < 0 || index > Count() ? nullptr : Current()[static_cast<std::size_t>(index)].get();
}

int brivolantProcessorLite::PositionOf(std::string_view id) const {
  const StackList& stack = Current();
  const auto found = std::find_if(stack.begin(), stack.end(),
                                  [&](const auto& module) { return module->ID() == id; });
  return found == stack.end() ? -1 : static_cast<int>(found - stack.begin());
}

effectModule* brivolantProcessorLite::ItemVIaID(std::string_view id) const {
  return item(ItemPositionViaID(id));
}

int brivolantProcessorLite::ItemPositionViaID(std::string_view id) const {
  const int position = PositionOf(id);
  if (position < 0) services_.Log.Write(UnknownModule(id));
  return position;
}

void brivolantProcessorLite::ChangeItemOrder(int from, int to) {
  if (item(from) == nullptr) return;
  StackList& stack = Current();
  std::unique_ptr<effectModule> moved = std::move(stack[static_cast<std::size_t>(from)]);
  stack.erase(stack.begin() + from);
  const bool inside = to >= 0 && to < static_cast<int>(stack.size());
  stack.insert(inside ? stack.begin() + to : stack.end(), std::move(moved));
  ResetEffectCache();
}

void brivolantProcessorLite::EffectEnabledChanged(int index) {
  if (index < cacheCurrentStackPoint) rebuildCurrentPointCache();
}

void brivolantProcessorLite::SelectEffect(int index) {
  cacheCurrentStackPoint = index;
  rebuildCurrentPointCache();
  effectModule* module = item(index);
  if (module != nullptr && module != mSelectedeffect) SelectedEffect(module);
}

void brivolantProcessorLite::SelectedEffect(effectModule* module) {
  if (mSelectedeffect != nullptr) {
    mSelectedeffect->fireLostFocus();
    mSelectedeffect->Parent = nullptr;
  }
  mSelectedeffect = module;
  if (module != nullptr) {
    module->Parent = myEffectEditor;
    module->fireGotFocus();
  }
  Raise(SelectedEffectChanged);
}

void brivolantProcessorLite::ChangeStack(int stack) {
  if (stack == CurrentStack || (stack != kForeground && stack != kBackground)) return;
  CurrentStack = stack;
  SelectedEffect(nullptr);
  cacheBackgroundLayer = {};
  cacheCurrentStackPoint = -1;
  rebuildCurrentPointCache();
  UpdatePreview(false);
  if (myEffectEditor != nullptr) {
    myEffectEditor->selectedEffect(-1);
    myEffectEditor->Update();
  }
}

Dictionary brivolantProcessorLite::SettingsOf(const StackList& stack) const {
  Dictionary settings;
  for (const auto& module : stack) settings.Value(module->ID(), module->Settings());
  return settings;
}

std::string brivolantProcessorLite::StyleData() const {
  return WriteStyleData(SettingsOf(stacks[kForeground]), SettingsOf(stacks[kBackground]),
                        BlendAlpha, BlendMode());
}

void brivolantProcessorLite::ApplyStyle(const Dictionary& stack, int number) {
  // A style may come from anyone: what it names is looked up at once, and told in a few lines.
  constexpr int kMostTold = 5;
  constexpr std::size_t kLongestTold = 100;
  CurrentStack = number;
  std::unordered_map<std::string, effectModule*> known;
  for (const auto& module : Current()) known.try_emplace(module->ID(), module.get());
  int unknown = 0;
  for (int j = 0; j < stack.Count(); ++j) {
    const std::string id = stack.Key(j).ToText();
    const auto found = known.find(id);
    if (found == known.end()) {
      if (++unknown <= kMostTold) services_.Log.Write(UnknownModule(id.substr(0, kLongestTold)));
      continue;
    }
    if (const auto* settings = stack.ValueAt(j).As<Dictionary>()) {
      found->second->Settings(*settings);
    }
    // Where it is now: those before it have moved.
    const auto place = std::find_if(Current().begin(), Current().end(), [&](const auto& module) {
      return module.get() == found->second;
    });
    const auto position = static_cast<int>(place - Current().begin());
    if (position != j) ChangeItemOrder(position, j);
  }
  if (unknown > kMostTold) {
    services_.Log.Write("and " + std::to_string(unknown - kMostTold) + " more");
  }
}

StyleFault brivolantProcessorLite::StyleData(std::string_view bytes) {
  const int stackBefore = CurrentStack;
  const std::string selected = mSelectedeffect == nullptr ? "" : mSelectedeffect->ID();
  StyleFault fault = StyleFault::kNone;
  const StyleContent content = ReadStyleData(bytes, fault);
  if (content.Foreground) ApplyStyle(*content.Foreground, kForeground);
  if (content.Background) ApplyStyle(*content.Background, kBackground);
  if (content.BlendAlpha) BlendAlpha = *content.BlendAlpha;
  if (content.BlendMode) BlendMode(*content.BlendMode);
  CurrentStack = stackBefore;
  if (myEffectEditor != nullptr) {
    myEffectEditor->selectedEffect(-1);
    myEffectEditor->Invalidate();
    if (!selected.empty()) {
      const int position = ItemPositionViaID(selected);
      myEffectEditor->selectedEffect(position);
      myEffectEditor->Invalidate();
      SelectEffect(position);
    }
  }
  return fault;
}

}  // namespace brivolant
