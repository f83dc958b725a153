// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "engine/effectModule.h"
#include "platform/values/SharedComponents.h"
#include "platform/values/Text.h"

/// Parameters and control rows of effect modules, as members that describe themselves.
///
///     SliderParameter<double> Brightness{*this, {"Brightness", 1.0, 1.0},
///                                        {kBrightness, {.divide = 50}, 0.5F}};
///
/// The order of declaration is the order of the rows, and of the keys in the settings.
namespace brivolant {

/// A row of the panel and what it does.
class ControlRow {
 public:
  explicit ControlRow(effectModule& owner) { owner.rows_.push_back(this); }
  ControlRow(const ControlRow&) = delete;
  ControlRow& operator=(const ControlRow&) = delete;

  virtual EffectModuleControl Declare() const = 0;
  /// The panel's value; see effectModule::ControlValue.
  virtual Variant Shown() const { return {}; }
  virtual void Set(const Variant&) {}

 protected:
  ~ControlRow() = default;
};

/// A text without a value.
class LabelRow final : public ControlRow {
 public:
  LabelRow(effectModule& owner, const LocalizedText& caption)
      : ControlRow(owner), caption_(caption) {}
  EffectModuleControl Declare() const override { return {caption_.Text(), kControlText, {}, 0}; }

 private:
  LocalizedText caption_;
};

/// A push button; the module answers ButtonPushed.
class ButtonRow final : public ControlRow {
 public:
  ButtonRow(effectModule& owner, const LocalizedText& caption, const LocalizedText& label)
      : ControlRow(owner), caption_(caption), label_(label) {}
  EffectModuleControl Declare() const override { return {caption_.Text(), kControlButton, {}, 0}; }
  Variant Shown() const override { return label_.Text(); }

 private:
  LocalizedText caption_;
  LocalizedText label_;
};

/// A parameter of a module: a value with its key in stored settings.
class ParameterBase {
 public:
  explicit ParameterBase(effectModule& owner) { owner.parameters_.push_back(this); }
  ParameterBase(const ParameterBase&) = delete;
  ParameterBase& operator=(const ParameterBase&) = delete;

  virtual std::string Key() const = 0;
  /// "double", "single", "integer", "boolean", "colour" or "string".
  virtual std::string TypeName() const = 0;
  virtual Variant Stored() const = 0;
  virtual void Store(const Variant& value) = 0;
  /// What a stored style means that lacks the key.
  virtual Variant DefaultOnRead() const = 0;
  /// What a new stack starts with.
  virtual Variant ResetValue() const = 0;

 protected:
  ~ParameterBase() = default;
};

/// Key and defaults of a parameter.
template <class T>
struct Setting {
  const char* key;
  T onRead;
  T reset;
};

/// Converters between parameter types and variants.
namespace parameters {
double Convert(const Variant& value, double fallback);
float Convert(const Variant& value, float fallback);
int Convert(const Variant& value, int fallback);
bool Convert(const Variant& value, bool fallback);
Color Convert(const Variant& value, Color fallback);
std::string Convert(const Variant& value, const std::string& fallback);
const char* NameOf(double);
const char* NameOf(float);
const char* NameOf(int);
const char* NameOf(bool);
const char* NameOf(Color);
const char* NameOf(const std::string&);
}  // namespace parameters

/// A parameter without a row. Reads and assigns like its value.
template <class T>
class Parameter : public ParameterBase {
 public:
  Parameter(effectModule& owner, const Setting<T>& setting)
      : ParameterBase(owner), setting_(setting), value_(setting.reset) {}

  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor)
  const T& Value() const { return value_; }
  Parameter& operator=(const T& value) {
    value_ = value;
    return *this;
  }

  std::string Key() const override { return setting_.key; }
  std::string TypeName() const override { return parameters::NameOf(value_); }
  Variant Stored() const override { return value_; }
  void Store(const Variant& value) override {
    // A stored number that is none, or infinite, restores the default.
    value_ = parameters::Convert(value, setting_.onRead);
  }
  Variant DefaultOnRead() const override { return setting_.onRead; }
  Variant ResetValue() const override { return setting_.reset; }

 private:
  Setting<T> setting_;
  T value_;
};

/// The number from which the dice of a module with this identifier follow. The same everywhere;
/// `throws` gives others. Fowler, Noll and Vo's hash FNV-1a of 32 bits.
std::uint32_t SeedFor(std::string_view identifier, std::uint32_t throws = 0);

/// What a module's dice follow from, kept with its settings. What lacks it, as styles of other
/// programs do, takes the number of the module's identifier.
class SeedParameter final : public ParameterBase {
 public:
  static constexpr const char* kKey = "Seed";

  explicit SeedParameter(effectModule& owner) : ParameterBase(owner), owner_(owner) {
    owner.seed_ = this;
  }

  std::uint32_t Value() const { return value_.value_or(SeedFor(owner_.ID())); }
  SeedParameter& operator=(std::uint32_t seed) {
    value_ = seed;
    return *this;
  }

  std::string Key() const override { return kKey; }
  std::string TypeName() const override { return parameters::NameOf(0); }
  Variant Stored() const override { return static_cast<int>(Value()); }
  void Store(const Variant& value) override { value_ = static_cast<std::uint32_t>(value.ToInt()); }
  Variant DefaultOnRead() const override { return static_cast<int>(SeedFor(owner_.ID())); }
  Variant ResetValue() const override { return DefaultOnRead(); }

 private:
  effectModule& owner_;
  std::optional<std::uint32_t> value_;
};

/// How a slider's position, 0 to 100, becomes a value:
/// position * multiply / divide + offset, truncated toward zero for an integer.
struct SliderMapping {
  double multiply = 1;
  double divide = 1;
  double offset = 0;

  double ToValue(double position) const { return position * multiply / divide + offset; }
  /// Rounded to a ten-thousandth, so that the truncating panel shows what was set.
  double ToPosition(double value) const;
};
/// The integer part of a number that is whole but for rounding, limited to 32 bits.
int TruncatedValue(double value);

/// Caption, mapping and tick of a slider.
struct Slider {
  LocalizedText caption;
  SliderMapping mapping;
  float tick = 0;
};

/// A number set by a slider.
template <class T>
class SliderParameter : public Parameter<T>, public ControlRow {
 public:
  SliderParameter(effectModule& owner, const Setting<T>& setting, const Slider& slider)
      : Parameter<T>(owner, setting), ControlRow(owner), slider_(slider) {}
  using Parameter<T>::operator=;

  EffectModuleControl Declare() const override {
    return {slider_.caption.Text(), kControlSlider, {}, slider_.tick};
  }
  Variant Shown() const override {
    return slider_.mapping.ToPosition(static_cast<double>(this->Value()));
  }
  void Set(const Variant& position) override {
    const double value = slider_.mapping.ToValue(position.ToDouble());
    if constexpr (std::is_integral_v<T>) {
      *this = TruncatedValue(value);
    } else {
      *this = static_cast<T>(value);
    }
  }

 private:
  Slider slider_;
};

/// A yes or no set by a check box.
class CheckBoxParameter : public Parameter<bool>, public ControlRow {
 public:
  CheckBoxParameter(effectModule& owner, const Setting<bool>& setting, const LocalizedText& caption)
      : Parameter<bool>(owner, setting), ControlRow(owner), caption_(caption) {}
  using Parameter<bool>::operator=;

  EffectModuleControl Declare() const override {
    return {caption_.Text(), kControlCheckBox, {}, 0};
  }
  Variant Shown() const override { return Value(); }
  void Set(const Variant& value) override { *this = value.ToBool(); }

 private:
  LocalizedText caption_;
};

/// A colour set by a well.
class ColorParameter : public Parameter<Color>, public ControlRow {
 public:
  ColorParameter(effectModule& owner, const Setting<Color>& setting, const LocalizedText& caption)
      : Parameter<Color>(owner, setting), ControlRow(owner), caption_(caption) {}
  using Parameter<Color>::operator=;

  EffectModuleControl Declare() const override {
    return {caption_.Text(), kControlColorWell, {}, 0};
  }
  Variant Shown() const override { return Value(); }
  void Set(const Variant& value) override { *this = value.ToColor(); }

 private:
  LocalizedText caption_;
};

/// A choice from a menu, stored as the index of the item.
class MenuParameter : public Parameter<int>, public ControlRow {
 public:
  MenuParameter(effectModule& owner, const Setting<int>& setting, const LocalizedText& caption,
                std::vector<LocalizedText> items)
      : Parameter<int>(owner, setting),
        ControlRow(owner),
        caption_(caption),
        items_(std::move(items)) {}
  using Parameter<int>::operator=;

  EffectModuleControl Declare() const override;
  Variant Shown() const override { return Value(); }
  void Set(const Variant& value) override { *this = value.ToInt(); }

 private:
  LocalizedText caption_;
  std::vector<LocalizedText> items_;
};

}  // namespace brivolant
