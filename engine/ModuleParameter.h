// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "engine/RangedNumber.h"
#include "engine/effectModule.h"
#include "platform/values/SharedComponents.h"
#include "platform/values/Text.h"

/// Parameters and control rows of effect modules, as members that describe themselves.
///
///     SliderParameter<double> Brightness{*this, {"Brightness", 1.0, 1.0, {-1000, 1000}},
///                                        {kBrightness, {.divide = 50}, 0.5F}};
///
/// Stored numbers come from anyone's style: a module reads them limited to the range in which it
/// renders safely and in bounded time, and writes them back as they were until they are changed.
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
  /// What is written: a number as it was stored, however far it lies outside its range.
  virtual Variant Stored() const = 0;
  virtual void Store(const Variant& value) = 0;
  /// What a stored style means that lacks the key.
  virtual Variant DefaultOnRead() const = 0;
  /// What a new stack starts with.
  virtual Variant ResetValue() const = 0;
  /// What a render reads.
  virtual Variant Rendered() const { return Stored(); }
  /// The numbers that a render may read; nothing for what is no number.
  virtual std::optional<Range<double>> Safe() const { return std::nullopt; }

 protected:
  ~ParameterBase() = default;
};

template <class T>
concept NumberType = std::is_arithmetic_v<T> && !std::is_same_v<T, bool>;

/// Key and defaults of a parameter.
template <class T>
struct Setting {
  const char* key;
  T onRead;
  T reset;
};
/// Of a number also the range that renders; it cannot be left out.
template <NumberType T>
struct Setting<T> {
  const char* key;
  T onRead;
  T reset;
  Range<T> range;
};

/// Converters between parameter types and variants.
namespace parameters {
void Convert(const Variant& value, bool& result);
void Convert(const Variant& value, Color& result);
void Convert(const Variant& value, std::string& result);
const char* NameOf(double);
const char* NameOf(float);
const char* NameOf(int);
const char* NameOf(bool);
const char* NameOf(Color);
const char* NameOf(const std::string&);
}  // namespace parameters

/// A value that renders whatever it is.
template <class T>
class AnyValue {
 public:
  explicit AnyValue(T value) : value_(std::move(value)) {}
  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor)
  AnyValue& operator=(const T& value) {
    value_ = value;
    return *this;
  }
  void Read(const Variant& stored, const T&) { parameters::Convert(stored, value_); }
  Variant Stored() const { return value_; }

 private:
  T value_;
};

/// A parameter without a row. Reads and assigns like its value.
template <class T, class Held = std::conditional_t<NumberType<T>, RangedNumber<T>, AnyValue<T>>>
class Parameter : public ParameterBase {
 public:
  Parameter(effectModule& owner,
            const Setting<T>& setting) requires std::is_same_v<Held, RangedNumber<T>>
      : Parameter(owner, setting.key, setting.onRead, setting.reset,
                  Held(setting.range, setting.reset)) {}
  Parameter(effectModule& owner,
            const Setting<T>& setting) requires std::is_same_v<Held, AnyValue<T>>
      : Parameter(owner, setting.key, setting.onRead, setting.reset, Held(setting.reset)) {}

  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor)
  /// What a render reads.
  const T& Value() const { return value_; }
  Parameter& operator=(const T& value) {
    value_ = value;
    return *this;
  }

  std::string Key() const override { return key_; }
  std::string TypeName() const override { return parameters::NameOf(Value()); }
  Variant Stored() const override { return value_.Stored(); }
  void Store(const Variant& value) override { value_.Read(value, onRead_); }
  Variant DefaultOnRead() const override { return onRead_; }
  Variant ResetValue() const override { return reset_; }
  Variant Rendered() const override { return Value(); }
  std::optional<Range<double>> Safe() const override {
    if constexpr (NumberType<T>) {
      const Range<T>& range = value_.Safe();
      return Range<double>(range.least, range.most);
    } else {
      return std::nullopt;
    }
  }

 protected:
  Parameter(effectModule& owner, const char* key, T onRead, T reset, Held value)
      : ParameterBase(owner),
        key_(key),
        onRead_(std::move(onRead)),
        reset_(std::move(reset)),
        value_(std::move(value)) {}

 private:
  const char* key_;
  T onRead_;
  T reset_;
  Held value_;
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
    stored_ = Variant();
    return *this;
  }

  std::string Key() const override { return kKey; }
  std::string TypeName() const override { return parameters::NameOf(0); }
  /// A number as it was stored, whatever its kind.
  Variant Stored() const override {
    return stored_.IsNumber() ? stored_ : Variant(static_cast<int>(Value()));
  }
  void Store(const Variant& value) override {
    *this = static_cast<std::uint32_t>(value.ToInt());
    stored_ = value;
  }
  Variant DefaultOnRead() const override { return static_cast<int>(SeedFor(owner_.ID())); }
  Variant ResetValue() const override { return DefaultOnRead(); }
  Variant Rendered() const override { return static_cast<int>(Value()); }

 private:
  effectModule& owner_;
  std::optional<std::uint32_t> value_;
  Variant stored_;
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

/// A choice from a menu, stored as the index of the item. A stored number that no item has renders
/// as -1: nothing is chosen.
class MenuParameter : public Parameter<int, MenuIndex>, public ControlRow {
 public:
  /// Key and defaults; the range is that of the items.
  struct Choice {
    const char* key;
    int onRead;
    int reset;
  };
  MenuParameter(effectModule& owner, const Choice& choice, const LocalizedText& caption,
                std::vector<LocalizedText> items)
      : Parameter<int, MenuIndex>(owner, choice.key, choice.onRead, choice.reset,
                                  MenuIndex(items.size(), choice.reset)),
        ControlRow(owner),
        caption_(caption),
        items_(std::move(items)) {}
  using Parameter<int, MenuIndex>::operator=;

  EffectModuleControl Declare() const override;
  Variant Shown() const override { return Value(); }
  void Set(const Variant& value) override { *this = value.ToInt(); }

 private:
  LocalizedText caption_;
  std::vector<LocalizedText> items_;
};

}  // namespace brivolant
