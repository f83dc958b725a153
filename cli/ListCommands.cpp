// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <QJsonArray>

#include "cli/Commands.h"
#include "cli/EditOptions.h"
#include "cli/Support.h"
#include "cli/Texts.h"
#include "effects/EffectRegistry.h"
#include "engine/ModuleParameter.h"
#include "formats/FileTypes.h"
#include "platform/values/Numbers.h"

namespace brivolant::cli {
namespace {

constexpr std::array<const char*, 6> kKindNames{"text",   "slider", "check box",
                                                "button", "colour", "menu"};
constexpr std::array<const char*, 2> kStackNames{"foreground", "background"};

QJsonArray Controls(effectModule& module) {
  QJsonArray controls;
  for (int i = 0; i < module.ControlCount(); ++i) {
    const EffectModuleControl& control = module.Control(i);
    controls.append(
        QJsonObject{{ToQt("caption"), ToQt(control.Caption)},
                    {ToQt("type"), control.Type},
                    {ToQt("kind"), ToQt(kKindNames.at(static_cast<std::size_t>(control.Type)))},
                    {ToQt("tick"), ToJson(control.DrawLine)},
                    {ToQt("value"), ToJson(module.ControlValue(i))}});
  }
  return controls;
}

QJsonArray Keys(const effectModule& module) {
  QJsonArray keys;
  for (const ParameterBase* parameter : module.Parameters()) {
    keys.append(QJsonObject{{ToQt("key"), ToQt(parameter->Key())},
                            {ToQt("type"), ToQt(parameter->TypeName())},
                            {ToQt("defaultOnRead"), ToJson(parameter->DefaultOnRead())},
                            {ToQt("reset"), ToJson(parameter->ResetValue())}});
  }
  return keys;
}

int ListModules(bool json, bool verbose) {
  Worker worker(verbose);
  brivolantProcessorLite processor(EffectRegistry(), worker.services);
  processor.Startup();
  QJsonObject result;
  for (int stack = kForeground; stack <= kBackground; ++stack) {
    processor.CurrentStack = stack;
    if (!json) PrintLine(kStackNames.at(static_cast<std::size_t>(stack)));
    QJsonArray modules;
    for (int i = 0; i <= processor.Count(); ++i) {
      effectModule& module = *processor.item(i);
      const ModuleEntry& entry = EffectRegistry()[static_cast<std::size_t>(i)];
      const auto className = stack == kForeground ? entry.foregroundClass : entry.backgroundClass;
      modules.append(QJsonObject{{ToQt("position"), i},
                                 {ToQt("class"), ToQt(className)},
                                 {ToQt("identifier"), ToQt(module.ID())},
                                 {ToQt("name"), ToQt(module.Name())},
                                 {ToQt("complete"), module.Complete()},
                                 {ToQt("controls"), Controls(module)},
                                 {ToQt("settings"), Keys(module)}});
      if (json) continue;
      std::string line = "  " + PaddedNumber(i, 1) + "  " + module.Name();
      for (const ParameterBase* parameter : module.Parameters()) {
        line += "  " + parameter->Key() + "=" + parameter->ResetValue().ToText();
      }
      if (!module.Complete()) line += "  (" + texts::kNotYet.Text() + ")";
      PrintLine(line);
    }
    result.insert(ToQt(kStackNames.at(static_cast<std::size_t>(stack))), modules);
  }
  if (json) PrintJson(result, true);
  return kDone;
}

/// A stack of a style; names come from the registry where it knows the identifier.
QJsonArray StackOfStyle(const Dictionary& stack, const brivolantProcessorLite::StackList& known) {
  QJsonArray entries;
  for (int i = 0; i < stack.Count(); ++i) {
    const std::string id = stack.Key(i).ToText();
    QJsonObject entry{{ToQt("identifier"), ToQt(id)}};
    for (const auto& module : known) {
      if (module->ID() == id) entry.insert(ToQt("name"), ToQt(module->Name()));
    }
    Dictionary settings;
    if (const auto* stored = stack.ValueAt(i).As<Dictionary>()) settings = *stored;
    entry.insert(ToQt("enabled"), settings.Lookup("Enabled", false).ToBool());
    settings.Remove("Enabled");
    entry.insert(ToQt("settings"), ToJson(settings));
    entries.append(entry);
  }
  return entries;
}

void PrintStack(const char* name, const QJsonArray& stack) {
  PrintLine(name);
  for (const auto& value : stack) {
    const QJsonObject entry = value.toObject();
    if (!entry.value(ToQt("enabled")).toBool()) continue;
    std::string line = "  " + entry.value(ToQt("name")).toString().toStdString();
    const QJsonObject settings = entry.value(ToQt("settings")).toObject();
    for (auto setting = settings.begin(); setting != settings.end(); ++setting) {
      line += "  " + setting.key().toStdString() + "=" +
              setting.value().toVariant().toString().toStdString();
    }
    PrintLine(line);
  }
}

int ShowStyle(const std::string& file, bool json, bool verbose) {
  Worker worker(verbose);
  std::string error;
  const auto style = ReadStyleFile(file, worker, error);
  if (!style) {
    PrintError(error);
    return kFileFailed;
  }
  brivolantProcessorLite processor(EffectRegistry(), worker.services);
  processor.Startup();
  StyleFault fault = StyleFault::kNone;
  const StyleContent content = ReadStyleData(*style, fault);
  QJsonObject result{{ToQt("foreground"), StackOfStyle(content.Foreground.value_or(Dictionary()),
                                                       processor.stacks[kForeground])},
                     {ToQt("background"), StackOfStyle(content.Background.value_or(Dictionary()),
                                                       processor.stacks[kBackground])}};
  if (content.BlendAlpha) result.insert(ToQt("blendAlpha"), ToJson(*content.BlendAlpha));
  if (content.BlendMode) {
    result.insert(ToQt("blendMode"), *content.BlendMode);
    if (static_cast<std::size_t>(*content.BlendMode) < kBlendNames.size()) {
      result.insert(ToQt("blendName"),
                    ToQt(kBlendNames.at(static_cast<std::size_t>(*content.BlendMode)).Text()));
    }
  }
  if (json) {
    PrintJson(result, true);
    return kDone;
  }
  for (const char* name : kStackNames) PrintStack(name, result.value(ToQt(name)).toArray());
  return kDone;
}

QJsonArray Extensions(std::string_view list) {
  QJsonArray extensions;
  for (const std::string_view extension : Split(list, ';')) extensions.append(ToQt(extension));
  return extensions;
}

int ListFormats(bool json) {
  QJsonArray readable;
  QJsonArray writable;
  const auto entry = [](const FileType& type) {
    QJsonObject object{{ToQt("name"), ToQt(type.Name.English)},
                       {ToQt("extensions"), Extensions(type.Extensions)}};
    if (!type.Identifier.empty()) object.insert(ToQt("identifier"), ToQt(type.Identifier));
    return object;
  };
  for (const FileType* type : ImagesWritableMac::kTypes) {
    writable.append(entry(*type));
    readable.append(entry(*type));
  }
  for (const FileType& type : ImagesReadableMac::kCommon) readable.append(entry(type));
  for (const FileType& type : ImagesReadableMac::Types()) readable.append(entry(type));
  if (json) {
    PrintJson(QJsonObject{{ToQt("readable"), readable}, {ToQt("writable"), writable}}, true);
    return kDone;
  }
  const auto print = [](const char* heading, const QJsonArray& types) {
    PrintLine(heading);
    for (const auto& type : types) {
      std::string line = "  " + type.toObject().value(ToQt("name")).toString().toStdString() + ":";
      for (const auto& extension : type.toObject().value(ToQt("extensions")).toArray()) {
        line += " " + extension.toString().toStdString();
      }
      PrintLine(line);
    }
  };
  print("readable", readable);
  print("writable", writable);
  return kDone;
}

}  // namespace

void AddModulesCommand(CLI::App& program, const Common& common, Action& action) {
  CLI::App* command = program.add_subcommand("modules", texts::kModules.Text());
  auto json = std::make_shared<bool>(false);
  command->add_flag("--json", *json, texts::kJson.Text());
  command->callback([json, &common, &action] {
    action = [json, &common] { return ListModules(*json, common.verbose); };
  });
}

void AddStyleCommand(CLI::App& program, const Common& common, Action& action) {
  CLI::App* command = program.add_subcommand("style", texts::kStyle.Text());
  auto json = std::make_shared<bool>(false);
  auto file = std::make_shared<std::string>();
  command->add_option("FILE", *file, texts::kStyleSource.Text())->required();
  command->add_flag("--json", *json, texts::kJson.Text());
  command->callback([json, file, &common, &action] {
    action = [json, file, &common] { return ShowStyle(*file, *json, common.verbose); };
  });
}

void AddFormatsCommand(CLI::App& program, const Common&, Action& action) {
  CLI::App* command = program.add_subcommand("formats", texts::kFormats.Text());
  auto json = std::make_shared<bool>(false);
  command->add_flag("--json", *json, texts::kJson.Text());
  command->callback([json, &action] { action = [json] { return ListFormats(*json); }; });
}

}  // namespace brivolant::cli
