// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

#include "platform/values/Variant.h"

namespace brivolant {

/// The numbers with which a render is safe and ends in bounded time. Wider than a slider, which
/// offers what looks good: stored styles and later versions may go beyond it.
template <class T>
struct Range {
  /// There is no range without both ends.
  constexpr Range(T lowest, T highest) : least(lowest), most(highest) {}

  constexpr bool Holds(double value) const {
    return value >= static_cast<double>(least) && value <= static_cast<double>(most);
  }
  /// The nearest number of the range; what is not a number gives its lowest.
  constexpr T Limited(T value) const {
    return !(value > least) ? least : value < most ? value : most;
  }

  T least;
  T most;
};

/// A number that may come from anyone's file. It reads as its nearest in a range, and is given back
/// as it was stored until something else is assigned.
template <class T>
class RangedNumber {
 public:
  constexpr RangedNumber(Range<T> range, T value) : range_(range), value_(range.Limited(value)) {}

  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor)
  RangedNumber& operator=(T value) {
    value_ = range_.Limited(value);
    other_ = {};
    return *this;
  }
  RangedNumber& operator+=(T value) { return *this = static_cast<T>(value_ + value); }

  /// Takes a stored value; one that is no finite number reads as `fallback`.
  void Read(const Variant& stored, T fallback) {
    const double number = stored.ToDouble();
    *this = range_.Holds(number)                         ? static_cast<T>(number)
            : !std::isfinite(number)                     ? fallback
            : number < static_cast<double>(range_.least) ? range_.least
                                                         : range_.most;
    if (!stored.IsNumber() || static_cast<double>(value_) == number) return;
    other_ = stored;
    if constexpr (std::is_same_v<T, float>) {
      // Files hold the same number in four bytes, though it is read into eight.
      const double most = static_cast<double>(std::numeric_limits<float>::max());
      const bool fits = !std::isfinite(number) || std::abs(number) <= most;
      if (fits) other_ = AsSingle(number);
    }
  }
  /// What is written.
  Variant Stored() const { return other_.IsNil() ? Variant(value_) : other_; }
  const Range<T>& Safe() const { return range_; }

 private:
  static Variant AsSingle(double number) {
    const auto single = static_cast<float>(number);
    const bool same = std::isnan(number) || static_cast<double>(single) == number;
    return same ? Variant(single) : Variant(number);
  }

  Range<T> range_;
  T value_;
  /// The stored number that the value is not: outside the range, or finer than the type. Nil while
  /// the value itself is stored.
  Variant other_;
};

/// The index of an item of a menu, from -1, which no item has: a stored number that no item has
/// reads as -1, and is given back as it was.
class MenuIndex {
 public:
  MenuIndex(std::size_t items, int value) : items_(static_cast<int>(items)) { *this = value; }

  operator const int&() const { return value_; }  // NOLINT(google-explicit-constructor)
  MenuIndex& operator=(int value) {
    value_ = value >= 0 && value < items_ ? value : -1;
    stored_ = value_;
    return *this;
  }
  void Read(const Variant& stored, int fallback) {
    const double number = stored.ToDouble();
    *this = std::isnan(number) ? fallback : stored.ToInt();
    if (stored.IsNumber() && number != value_) stored_ = stored;
  }
  Variant Stored() const { return stored_; }
  Range<int> Safe() const { return {-1, items_ - 1}; }

 private:
  int items_;
  int value_ = -1;
  Variant stored_;
};

}  // namespace brivolant
