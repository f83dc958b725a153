// SPDX-License-Identifier: MIT
#include "cli/EditOptions.h"

#include <CLI/CLI.hpp>
#include <map>
#include <mutex>

#include "cli/Support.h"
#include "cli/Texts.h"
#include "effects/EffectRegistry.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "engine/ModuleParameter.h"
#include "engine/ParameterText.h"
#include "files/FolderitemExtensions.h"
#include "formats/FileTypes.h"

namespace brivolant::cli {
namespace {

effectModule* ByName(const brivolantProcessorLite& processor, std::string_view name) {
  for (int i = 0; i <= processor.Count(); ++i) {
    effectModule* module = processor.item(i);
    if (module == nullptr) continue;
    const bool heading = dynamic_cast<EffectModuleDivider*>(module) != nullptr;
    if (!heading && EqualIgnoringCase(module->Name(), name)) return module;
  }
  return nullptr;
}

/// The effect of that name in the current stack, or null and the sentence why not.
effectModule* Usable(const brivolantProcessorLite& processor, const std::string& name,
                     std::string& error) {
  effectModule* module = ByName(processor, name);
  if (module == nullptr) {
    error = WithPlaceholders(texts::kUnknownModule.Text(), {{"<name>", name}});
  } else if (!module->Complete()) {
    error = WithPlaceholders(texts::kIncompleteModule.Text(), {{"<name>", module->Name()}});
    module = nullptr;
  }
  return module;
}

bool Set(const brivolantProcessorLite& processor, const std::string& text, std::string& error) {
  const std::size_t equals = text.find('=');
  const std::size_t dot = equals == std::string::npos ? equals : text.rfind('.', equals);
  if (dot == std::string::npos) {
    error = WithPlaceholders(texts::kBadSetting.Text(), {{"<text>", text}});
    return false;
  }
  effectModule* module = Usable(processor, text.substr(0, dot), error);
  if (module == nullptr) return false;
  const std::string key = text.substr(dot + 1, equals - dot - 1);
  const std::string value = text.substr(equals + 1);
  std::string keys;
  for (const ParameterBase* parameter : module->Parameters()) {
    if (!EqualIgnoringCase(parameter->Key(), key)) {
      keys += (keys.empty() ? "" : ", ") + parameter->Key();
      continue;
    }
    const auto typed = ValueFromText(value, parameter->TypeName());
    if (!typed) {
      error = WithPlaceholders(
          texts::kBadValue.Text(),
          {{"<text>", value}, {"<key>", parameter->Key()}, {"<type>", parameter->TypeName()}});
      return false;
    }
    Dictionary settings = module->Settings();
    settings.Value(parameter->Key(), *typed);
    settings.Value("Enabled", true);
    module->Settings(settings);
    return true;
  }
  error = WithPlaceholders(texts::kUnknownKey.Text(),
                           {{"<name>", module->Name()},
                            {"<key>", key},
                            {"<keys>", keys.empty() ? texts::kNoKeys.Text() : keys}});
  return false;
}

}  // namespace

struct EditOptions::ReadStyle {
  std::once_flag once;
  std::optional<std::string> data;
  std::string error;
};

EditOptions::EditOptions() : readStyle_(std::make_shared<ReadStyle>()) {}

void EditOptions::Declare(CLI::App& command) {
  const auto repeatable = [&command](const char* name, std::vector<std::string>& values,
                                     const LocalizedText& about) {
    command.add_option(name, values, about.Text())->allow_extra_args(false);
  };
  repeatable("--set", sets_, texts::kSet);
  repeatable("--enable", enables_, texts::kEnable);
  repeatable("--stack", stacks_, texts::kStack);
  command.add_option("--blend", blend_, texts::kBlend.Text())->check(CLI::Range(0, 15));
  // Not by the parser's own conversion, which follows the locale.
  command.add_option_function<std::string>(
      "--opacity",
      [this](const std::string& text) {
        const auto number = NumberFromText(text);
        if (!number || *number < 0 || *number > 1) {
          throw CLI::ValidationError(
              "--opacity", WithPlaceholders(texts::kBadOpacity.Text(), {{"<text>", text}}));
        }
        opacity_ = static_cast<float>(*number);
      },
      texts::kOpacity.Text());
  command.add_option("--style", style_, texts::kStyleFile.Text());
  command.add_option("--crop", crop_, texts::kCrop.Text());
  command.add_option("--rotate", rotate_, texts::kRotate.Text())->check(CLI::Range(0, 3));
  command.add_option("--seed", seed_, texts::kSeed.Text());
  command.add_option("--flip", flip_, texts::kFlip.Text())->check(CLI::Range(0, 2));
}

bool EditOptions::Collect(const CLI::App& command, std::string& error) {
  std::size_t set = 0;
  std::size_t enable = 0;
  std::size_t stack = 0;
  for (const CLI::Option* option : command.parse_order()) {
    const std::string name = option->get_name();
    if (name == "--set") steps_.push_back({Step::kSet, sets_.at(set++)});
    if (name == "--enable") steps_.push_back({Step::kEnable, enables_.at(enable++)});
    if (name == "--stack") steps_.push_back({Step::kStack, stacks_.at(stack++)});
  }
  if (!crop_.empty()) {
    std::vector<double> numbers;
    for (const std::string_view field : Split(crop_, ',')) {
      if (const auto number = NumberFromText(field); number && *number >= 0 && *number <= 1) {
        numbers.push_back(*number);
      }
    }
    if (numbers.size() != 4 || Split(crop_, ',').size() != 4 || numbers[2] <= 0 ||
        numbers[3] <= 0) {
      error = WithPlaceholders(texts::kBadCrop.Text(), {{"<text>", crop_}});
      return false;
    }
    cropRectangle_ = {Pair{numbers[0], numbers[1]}, Pair{numbers[2], numbers[3]}};
  }
  // Names and values are checked once, before any file is touched.
  Worker worker(false);
  brivolantProcessorLite trial(EffectRegistry(), worker.services);
  trial.Startup();
  return RunSteps(trial, error);
}

bool EditOptions::RunSteps(brivolantProcessorLite& processor, std::string& error) const {
  processor.CurrentStack = kForeground;
  for (const Step& step : steps_) {
    if (step.kind == Step::kStack) {
      if (step.text != "fore" && step.text != "back") {
        error = WithPlaceholders(texts::kBadStack.Text(), {{"<text>", step.text}});
        return false;
      }
      processor.CurrentStack = step.text == "fore" ? kForeground : kBackground;
    } else if (step.kind == Step::kEnable) {
      effectModule* module = Usable(processor, step.text, error);
      if (module == nullptr) return false;
      module->Enabled(true);
    } else if (!Set(processor, step.text, error)) {
      return false;
    }
  }
  processor.CurrentStack = kForeground;
  return true;
}

bool EditOptions::Apply(BrivolantDocument& document, brivolantProcessorLite& processor,
                        std::string& error) const {
  if (cropRectangle_) {
    document.Crop = true;
    document.CropOffSet = cropRectangle_->first;
    document.CropSize = cropRectangle_->second;
  }
  if (rotate_) document.Rotation = *rotate_;
  if (flip_) document.Flip = *flip_;
  if (!style_.empty()) {
    std::call_once(readStyle_->once, [this] {
      Worker worker(false);
      readStyle_->data = ReadStyleFile(style_, worker, readStyle_->error);
    });
    if (!readStyle_->data) {
      error = readStyle_->error;
      return false;
    }
    processor.Reset();
    (void)processor.StyleData(*readStyle_->data);
  }
  if (!RunSteps(processor, error)) return false;
  if (seed_) processor.Seed(*seed_);
  if (blend_) processor.BlendMode(*blend_);
  if (opacity_) processor.BlendAlpha = *opacity_;
  return true;
}

bool LoadDocument(BrivolantDocument& document, const FolderItem& file, Worker& worker,
                  std::string& error) {
  if (document.Load(file)) return true;
  const std::string told = worker.dialogs.Take();
  error = told.empty()
              ? texts::Of(texts::kDocumentFailed, file.DisplayName(), document.lastErrorMessage)
              : told;
  return false;
}

std::shared_ptr<OneClickWonder> FindStyle(const std::string& text, Worker& worker,
                                          std::string& error) {
  const FolderItem file(text);
  if (file.Exists() && !file.Directory()) {
    auto style = std::make_shared<OneClickWonder>(worker.services);
    if (style->Load(file)) return style;
    error = style->LastErrorMessage;
    return nullptr;
  }
  OneClickWonderStorage storage(worker.services);
  storage.Load();
  auto style = storage.Named(text);
  if (style == nullptr) error = texts::Of(texts::kNoSuchStyle, text);
  return style;
}

std::optional<std::string> ReadStyleFile(const std::string& text, Worker& worker,
                                         std::string& error) {
  const FolderItem file(text);
  std::optional<std::string> style;
  using namespace InternalFileTypes;
  if (FolderitemExtensions::isFileType(file, &BrivolantPhotosDocument)) {
    BrivolantDocument document(worker.services);
    if (!LoadDocument(document, file, worker, error)) return std::nullopt;
    style = document.StyleData;
  } else if (!file.Exists() ||
             FolderitemExtensions::isFileType(file, &BrivolantPhotosOneClickWonder)) {
    const auto found = FindStyle(text, worker, error);
    if (found == nullptr) return std::nullopt;
    style = found->StyleData;
  } else {
    style = ReadFile(file);
    if (!style) {
      error = texts::Of(texts::kCannotRead, file.DisplayName());
      return std::nullopt;
    }
  }
  StyleFault fault = StyleFault::kNone;
  (void)ReadStyleData(*style, fault);
  if (fault == StyleFault::kNone) return style;
  error = texts::Of(fault == StyleFault::kWrongHeader ? texts::kNotStyle : texts::kDamagedStyle,
                    file.DisplayName());
  return std::nullopt;
}

}  // namespace brivolant::cli
