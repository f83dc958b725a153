// SPDX-License-Identifier: MIT
#include "cli/EditOptions.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <charconv>
#include <cmath>
#include <map>

#include "cli/Support.h"
#include "cli/Texts.h"
#include "effects/EffectRegistry.h"
#include "engine/ModuleParameter.h"
#include "files/FolderitemExtensions.h"
#include "formats/FileTypes.h"

namespace brivolant::cli {
namespace {

std::optional<double> Number(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

/// One box as JSON: an object of the box's keys.
Dictionary TextBox(const QJsonObject& object) {
  Dictionary box;
  for (auto entry = object.begin(); entry != object.end(); ++entry) {
    const std::string key = entry.key().toStdString();
    const QJsonValue& value = entry.value();
    if (value.isDouble()) {
      box.Value(key, value.toDouble());
    } else {
      box.Value(key, value.toString().toStdString());
    }
  }
  return box;
}

/// A JSON object or an array of them as boxes under their numbers; anything else is one text.
Variant TextBoxes(std::string_view text) {
  const QJsonDocument json =
      QJsonDocument::fromJson(QByteArray(text.data(), static_cast<qsizetype>(text.size())));
  Dictionary boxes;
  if (json.isObject()) {
    boxes.Value(0, TextBox(json.object()));
    return boxes;
  }
  if (!json.isArray()) return text;
  for (const auto& entry : json.array()) boxes.Value(boxes.Count(), TextBox(entry.toObject()));
  return boxes;
}

/// The value of a setting from its text, by the type of the parameter.
std::optional<Variant> Typed(std::string_view text, const std::string& type) {
  // Of a text effect a plain text, or boxes as JSON.
  if (type == "texts") return TextBoxes(text);
  if (type == "string") return Variant(text);
  if (type == "boolean") {
    if (EqualIgnoringCase(text, "true") || text == "1") return Variant(true);
    if (EqualIgnoringCase(text, "false") || text == "0") return Variant(false);
    return std::nullopt;
  }
  if (type == "colour") {
    if (text.size() == 7 && text.front() == '#' &&
        text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string_view::npos) {
      return Variant(Variant(text).ToColor());
    }
    return std::nullopt;
  }
  const auto number = Number(text);
  if (!number) return std::nullopt;
  if (type == "integer") {
    constexpr double kMost = 2147483647;
    if (std::trunc(*number) != *number || std::abs(*number) > kMost) return std::nullopt;
    return Variant(static_cast<std::int32_t>(*number));
  }
  return type == "single" ? Variant(static_cast<float>(*number)) : Variant(*number);
}

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
    const auto typed = Typed(value, parameter->TypeName());
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

void EditOptions::Declare(CLI::App& command) {
  const auto repeatable = [&command](const char* name, std::vector<std::string>& values,
                                     const LocalizedText& about) {
    command.add_option(name, values, about.Text())->allow_extra_args(false);
  };
  repeatable("--set", sets_, texts::kSet);
  repeatable("--enable", enables_, texts::kEnable);
  repeatable("--stack", stacks_, texts::kStack);
  command.add_option("--blend", blend_, texts::kBlend.Text())->check(CLI::Range(0, 15));
  command.add_option("--opacity", opacity_, texts::kOpacity.Text())->check(CLI::Range(0.0, 1.0));
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
      if (const auto number = Number(field); number && *number >= 0 && *number <= 1) {
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
    Worker worker(false);
    const auto style = ReadStyleFile(FolderItem(style_), worker, error);
    if (!style) return false;
    processor.Reset();
    (void)processor.StyleData(*style);
  }
  if (seed_) processor.Seed(*seed_);
  if (!RunSteps(processor, error)) return false;
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

std::optional<std::string> ReadStyleFile(const FolderItem& file, Worker& worker,
                                         std::string& error) {
  std::optional<std::string> style;
  if (FolderitemExtensions::isFileType(file, &InternalFileTypes::BrivolantPhotosDocument)) {
    BrivolantDocument document(worker.services);
    if (!LoadDocument(document, file, worker, error)) return std::nullopt;
    style = document.StyleData;
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
