// SPDX-License-Identifier: MIT
#include "effects/styles/StyleSource.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "effects/EffectRegistry.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "engine/ModuleParameter.h"
#include "engine/ParameterText.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/BlendEffect.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "support/LanguageTools.h"

namespace brivolant::StyleSource {
namespace {

constexpr std::string_view kTop = "[top layer]";
constexpr std::string_view kBottom = "[bottom layer]";
constexpr int kEnglish = 0;

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

/// The index of an English text in a list of them, or -1.
template <class List>
int IndexOf(const List& texts, std::string_view english) {
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (EqualIgnoringCase(texts.at(i).English, english)) return static_cast<int>(i);
  }
  return -1;
}

int LanguageNamed(std::string_view name) {
  for (int id = 0; id < LanguageTools::kLanguageCount; ++id) {
    if (EqualIgnoringCase(LanguageTools::Name(id), name)) return id;
  }
  return -1;
}

effectModule* EffectNamed(const brivolantProcessorLite& processor, std::string_view name) {
  for (int i = 0; i <= processor.Count(); ++i) {
    effectModule* module = processor.item(i);
    if (module == nullptr || dynamic_cast<EffectModuleDivider*>(module) != nullptr) continue;
    if (EqualIgnoringCase(module->Name(), name)) return module;
  }
  return nullptr;
}

class Reader {
 public:
  Reader(const Services& services, OneClickWonder& style)
      : style_(style), processor_(EffectRegistry(), services) {
    processor_.Startup();
  }

  /// Null, or why the line cannot be understood.
  const LocalizedText* Line(std::string_view line) {
    if (line.empty() || line.front() == '#') return nullptr;
    if (EqualIgnoringCase(line, kTop) || EqualIgnoringCase(line, kBottom)) {
      processor_.CurrentStack = EqualIgnoringCase(line, kTop) ? kForeground : kBackground;
      inStack_ = true;
      return nullptr;
    }
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) return &kNoValue;
    const std::string_view key = Trimmed(line.substr(0, equals));
    const std::string value(Trimmed(line.substr(equals + 1)));
    return inStack_ ? Effect(key, value) : Head(std::string(key), value);
  }

  bool Named() const { return named_; }
  void Finish() {
    for (const int stack : {kForeground, kBackground}) Arrange(stack);
    processor_.CurrentStack = kForeground;
    style_.StyleData = processor_.StyleData();
  }

 private:
  const LocalizedText* Head(std::string key, const std::string& value) {
    int language = kEnglish;
    const auto bracket = key.find('[');
    if (bracket != std::string::npos && key.back() == ']') {
      language = LanguageNamed(std::string_view(key).substr(bracket + 1, key.size() - bracket - 2));
      if (language < 0) return &kUnknownKey;
      key.erase(bracket);
    }
    if (key == "name") {
      style_.Name(language, value);
      named_ = named_ || !value.empty();
    } else if (key == "about") {
      style_.Description(language, value);
    } else if (key == "maker") {
      style_.Creator = value;
    } else if (key == "contact") {
      style_.ContactLink = value;
    } else if (key == "category") {
      style_.Category = IndexOf(OneClickWonderStorage::CategoryName, value);
      if (style_.Category < 0) return &kBadValue;
    } else if (key == "blend") {
      const int mode = IndexOf(kBlendNames, value);
      if (mode < 0) return &kBadValue;
      processor_.BlendMode(mode);
    } else if (key == "opacity") {
      const auto opacity = NumberFromText(value);
      if (!opacity || *opacity < 0 || *opacity > 1) return &kBadValue;
      processor_.BlendAlpha = static_cast<float>(*opacity);
    } else {
      return &kUnknownKey;
    }
    return nullptr;
  }

  const LocalizedText* Effect(std::string_view key, const std::string& value) {
    if (effectModule* module = EffectNamed(processor_, key)) {
      if (value != "on" || !module->Complete()) return &kBadValue;
      module->Enabled(true);
      Mention(*module);
      return nullptr;
    }
    const auto dot = key.rfind('.');
    effectModule* module =
        dot == std::string_view::npos ? nullptr : EffectNamed(processor_, key.substr(0, dot));
    if (module == nullptr || !module->Complete()) return &kUnknownEffect;
    for (const ParameterBase* parameter : module->Parameters()) {
      if (!EqualIgnoringCase(parameter->Key(), key.substr(dot + 1))) continue;
      const auto typed = ValueFromText(value, parameter->TypeName());
      if (!typed) return &kBadValue;
      Dictionary settings = module->Settings();
      settings.Value(parameter->Key(), *typed);
      settings.Value("Enabled", true);
      module->Settings(settings);
      Mention(*module);
      return nullptr;
    }
    return &kUnknownSetting;
  }

  void Mention(const effectModule& module) {
    auto& named = mentioned_.at(static_cast<std::size_t>(processor_.CurrentStack));
    if (std::find(named.begin(), named.end(), &module) == named.end()) named.push_back(&module);
  }

  /// The effects that were named take each other's places, in the order of their naming.
  void Arrange(int stack) {
    auto& list = processor_.stacks.at(static_cast<std::size_t>(stack));
    const auto& named = mentioned_.at(static_cast<std::size_t>(stack));
    std::size_t next = 0;
    for (auto& place : list) {
      const bool mentioned = std::any_of(named.begin(), named.end(),
                                         [&](const effectModule* m) { return m == place.get(); });
      if (!mentioned) continue;
      const effectModule* wanted = named[next++];
      std::find_if(list.begin(), list.end(), [&](const auto& m) {
        return m.get() == wanted;
      })->swap(place);
    }
  }

  OneClickWonder& style_;
  std::array<std::vector<const effectModule*>, 2> mentioned_;
  brivolantProcessorLite processor_;
  bool inStack_ = false;
  bool named_ = false;
};

void WriteStack(const brivolantProcessorLite& processor, std::string_view heading,
                std::string& out) {
  std::string lines;
  for (int i = 0; i <= processor.Count(); ++i) {
    const effectModule& module = *processor.item(i);
    if (!module.Enabled() || !module.Complete()) continue;
    lines += module.Name() + " = on\n";
    for (const ParameterBase* parameter : module.Parameters()) {
      std::string value = TextFromValue(parameter->Stored());
      // A damaged number is left to what renders, so that the text can be read again.
      if (!ValueFromText(value, parameter->TypeName())) {
        value = TextFromValue(parameter->Rendered());
      }
      if (value == TextFromValue(parameter->ResetValue())) continue;
      lines += module.Name() + "." + parameter->Key() + " = " + value + "\n";
    }
  }
  if (!lines.empty()) out += "\n" + std::string(heading) + "\n" + lines;
}

}  // namespace

bool Read(std::string_view text, const Services& services, OneClickWonder& style,
          std::string& error) {
  OneClickWonder read = style;
  Reader reader(services, read);
  int number = 0;
  for (const std::string_view line : Split(text, '\n')) {
    ++number;
    const std::string_view content = Trimmed(line);
    const LocalizedText* wrong = reader.Line(content);
    if (wrong == nullptr) continue;
    error = WithPlaceholders(
        kBadLine.Text(),
        {{"<line>", std::to_string(number)}, {"<text>", content}, {"<reason>", wrong->Text()}});
    return false;
  }
  if (!reader.Named()) {
    error = kNoName.Text();
    return false;
  }
  reader.Finish();
  style = std::move(read);
  return true;
}

std::string Write(const OneClickWonder& style, const Services& services) {
  std::string out;
  const auto line = [&out](const std::string& key, std::string value) {
    std::replace(value.begin(), value.end(), '\n', ' ');
    if (!value.empty()) out += key + " = " + value + "\n";
  };
  for (const char* key : {"name", "about"}) {
    for (int id = 0; id < LanguageTools::kLanguageCount; ++id) {
      line(id == kEnglish ? key : std::string(key) + "[" + LanguageTools::Name(id) + "]",
           *key == 'n' ? style.Name(id) : style.Description(id));
    }
  }
  line("maker", style.Creator);
  line("contact", style.ContactLink);
  const auto& categories = OneClickWonderStorage::CategoryName;
  if (style.Category >= 0 && style.Category < static_cast<int>(categories.size())) {
    line("category", categories.at(static_cast<std::size_t>(style.Category)).English);
  }
  brivolantProcessorLite processor(EffectRegistry(), services);
  processor.Startup();
  (void)processor.StyleData(style.StyleData);
  const int mode = processor.BlendMode();
  if (mode > 0 && mode < static_cast<int>(kBlendNames.size())) {
    line("blend", kBlendNames.at(static_cast<std::size_t>(mode)).English);
  }
  if (processor.BlendAlpha < 1) line("opacity", Variant(processor.BlendAlpha).ToText());
  processor.CurrentStack = kForeground;
  WriteStack(processor, kTop, out);
  processor.CurrentStack = kBackground;
  WriteStack(processor, kBottom, out);
  return out;
}

Picture Render(const std::string& styleData, const Picture& picture, int side,
               const Services& services) {
  if (picture.IsNil()) return {};
  using namespace SharedPictureEffects;
  brivolantProcessorLite processor(EffectRegistry(), services);
  processor.Startup();
  (void)processor.StyleData(styleData);
  Picture reduced = Scale(picture, side, side, kScaleToFit);
  const double scale =
      brivolantProcessorLite::ConsistencyScaleFor(picture) * reduced.Width() / picture.Width();
  return processor.ProcessReduced(std::move(reduced), scale, {});
}

}  // namespace brivolant::StyleSource
