// SPDX-License-Identifier: MIT
#include "platform/values/Variant.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <unordered_map>

#include "platform/values/Numbers.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

template <class... F>
struct Overload : F... {
  using F::operator()...;
};
template <class... F>
Overload(F...) -> Overload<F...>;

const Variant kNil;

/// Keys hash by what equality looks at, so that 1 and 1.0 are one key.
std::size_t HashOf(const Variant& key) {
  if (key.IsNumber()) return std::hash<double>{}(key.ToDouble());
  return std::hash<std::string>{}(key.ToText());
}

struct KeyHash {
  std::size_t operator()(const Variant& key) const { return HashOf(key); }
};

template <class T>
std::string NumberText(T value) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  return {text.data(), end};
}

}  // namespace

struct Dictionary::Data {
  std::vector<std::pair<Variant, Variant>> entries;
  std::unordered_map<Variant, std::size_t, KeyHash> index;
};

Dictionary::Dictionary() = default;

Dictionary::Data& Dictionary::Own() {
  if (!data_) {
    data_ = std::make_shared<Data>();
  } else if (data_.use_count() > 1) {
    data_ = std::make_shared<Data>(*data_);
  } else {
    // What other threads read before they let go is done then; the count alone would not say so.
    const std::shared_ptr<Data> ordered = data_;
  }
  return *data_;
}

int Dictionary::Count() const {
  return data_ ? static_cast<int>(data_->entries.size()) : 0;
}

bool Dictionary::HasKey(const Variant& key) const {
  return data_ && data_->index.contains(key);
}

const Variant& Dictionary::Key(int index) const {
  return data_->entries.at(static_cast<std::size_t>(index)).first;
}

const Variant& Dictionary::ValueAt(int index) const {
  return data_->entries.at(static_cast<std::size_t>(index)).second;
}

const Variant& Dictionary::Value(const Variant& key) const {
  return Lookup(key, kNil);
}

const Variant& Dictionary::Lookup(const Variant& key, const Variant& fallback) const {
  if (!data_) return fallback;
  const auto found = data_->index.find(key);
  return found == data_->index.end() ? fallback : data_->entries[found->second].second;
}

void Dictionary::Value(const Variant& key, Variant value) {
  Data& data = Own();
  const auto [place, added] = data.index.try_emplace(key, data.entries.size());
  if (added) {
    data.entries.emplace_back(key, std::move(value));
  } else {
    data.entries[place->second].second = std::move(value);
  }
}

void Dictionary::Remove(const Variant& key) {
  if (!HasKey(key)) return;
  Data& data = Own();
  const std::size_t at = data.index.at(key);
  data.entries.erase(data.entries.begin() + static_cast<std::ptrdiff_t>(at));
  data.index.erase(key);
  for (auto& [other, place] : data.index) {
    if (place > at) --place;
  }
}

bool operator==(const Dictionary& a, const Dictionary& b) {
  if (a.data_ == b.data_) return true;
  if (a.Count() != b.Count()) return false;
  return a.Count() == 0 || a.data_->entries == b.data_->entries;
}

int Collection::Count() const {
  return static_cast<int>(items_.size());
}

const Variant& Collection::Item(int index) const {
  return items_.at(static_cast<std::size_t>(index));
}

const std::string& Collection::Key(int index) const {
  return keys_.at(static_cast<std::size_t>(index));
}

void Collection::Add(Variant value, std::string key) {
  items_.push_back(std::move(value));
  keys_.push_back(std::move(key));
}

bool operator==(const Collection& a, const Collection& b) {
  return a.items_ == b.items_ && a.keys_ == b.keys_;
}

bool Variant::IsNumber() const {
  return Is<std::int32_t>() || Is<std::int64_t>() || Is<float>() || Is<double>() || Is<Currency>();
}

std::int32_t Variant::ToInt() const {
  if (const auto* value = As<std::int32_t>()) return *value;
  const double value = ToDouble();
  if (std::isnan(value)) return 0;
  constexpr double kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr double kHighest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(value, kLowest, kHighest));
}

double Variant::ToDouble() const {
  return std::visit(
      Overload{[](std::int32_t v) { return static_cast<double>(v); },
               [](std::int64_t v) { return static_cast<double>(v); },
               [](float v) { return static_cast<double>(v); }, [](double v) { return v; },
               [](Currency v) { return static_cast<double>(v.TenThousandths) / 10000.0; },
               [](const Date& v) { return v.TotalSeconds(); },
               [](const std::string& v) { return LeadingNumber(v); },
               [](bool v) { return v ? 1.0 : 0.0; },
               [](Color v) { return static_cast<double>(v.RGB()); },
               [](const auto&) { return 0.0; }},
      value_);
}

bool Variant::ToBool() const {
  if (const auto* value = As<bool>()) return *value;
  if (const auto* text = As<std::string>()) {
    return EqualIgnoringCase(*text, "true") || EqualIgnoringCase(*text, "yes") ||
           LeadingNumber(*text) != 0;
  }
  return ToDouble() != 0;
}

std::string Variant::ToText() const {
  return std::visit(
      Overload{[](std::int32_t v) { return NumberText(v); },
               [](std::int64_t v) { return NumberText(v); }, [](float v) { return NumberText(v); },
               [](double v) { return NumberText(v); },
               [this](Currency) { return NumberText(ToDouble()); },
               [](const Date& v) { return v.Text(); }, [](const std::string& v) { return v; },
               [](bool v) { return std::string(v ? "True" : "False"); },
               [](Color v) { return "&c" + Hexadecimal(v.RGB(), 6); },
               [](const FolderItem& v) { return v.ShellPath(); },
               [](Pair v) { return NumberText(v.Left) + ' ' + NumberText(v.Right); },
               [](const auto&) { return std::string(); }},
      value_);
}

Color Variant::ToColor() const {
  if (const auto* value = As<Color>()) return *value;
  if (const auto* text = As<std::string>()) {
    std::string_view digits = *text;
    for (const std::string_view prefix : {"&c", "#", "0x", "&h"}) {
      if (digits.starts_with(prefix)) digits.remove_prefix(prefix.size());
    }
    std::uint32_t rgb = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), rgb, 16);
    return Color::FromRGB(rgb);
  }
  return Color::FromRGB(static_cast<std::uint32_t>(ToInt()));
}

Date Variant::ToDate() const {
  if (const auto* value = As<Date>()) return *value;
  if (const auto* text = As<std::string>()) return Date::FromText(*text).value_or(Date{});
  return {};
}

bool operator==(const Variant& a, const Variant& b) {
  if (a.IsNumber() && b.IsNumber()) {
    const double x = a.ToDouble();
    const double y = b.ToDouble();
    // What was kept equals itself, even where it is no number.
    return x == y || (std::isnan(x) && std::isnan(y));
  }
  return a.value_ == b.value_;
}

}  // namespace brivolant
