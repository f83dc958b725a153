// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/files/FolderItem.h"
#include "platform/values/Color.h"
#include "platform/values/Date.h"
#include "platform/values/Pair.h"

namespace brivolant {

class Variant;

/// A fixed-point amount with four decimals: the value times 10,000.
struct Currency {
  std::int64_t TenThousandths = 0;
  friend constexpr bool operator==(const Currency&, const Currency&) = default;
};

/// A map from variant to variant that keeps the order of insertion and finds in constant time.
/// A value: copies share their entries until one of them is written.
class Dictionary {
 public:
  Dictionary();

  /// Number of entries.
  int Count() const;
  bool HasKey(const Variant& key) const;
  /// Key and value of the entry at `index`, 0 to Count() - 1.
  const Variant& Key(int index) const;
  const Variant& ValueAt(int index) const;
  /// The value under `key`, or nil.
  const Variant& Value(const Variant& key) const;
  /// The value under `key`, or `fallback` if the key is missing.
  const Variant& Lookup(const Variant& key, const Variant& fallback) const;
  /// Stores a value; an existing key keeps its place.
  void Value(const Variant& key, Variant value);
  /// Takes an entry out; a missing key is ignored.
  void Remove(const Variant& key);

  friend bool operator==(const Dictionary& a, const Dictionary& b);

 private:
  struct Data;
  Data& Own();
  std::shared_ptr<Data> data_;
};

/// A list of variants, each under an optional key.
class Collection {
 public:
  int Count() const;
  /// The item at `index`, counted from 0, and its key.
  const Variant& Item(int index) const;
  const std::string& Key(int index) const;
  void Add(Variant value, std::string key = {});

  friend bool operator==(const Collection& a, const Collection& b);

 private:
  std::vector<Variant> items_;
  std::vector<std::string> keys_;
};

/// A value of any simple type. Conversions never fail: what has no meaning gives 0, "" or false.
class Variant {
 public:
  using Storage =
      std::variant<std::monostate, std::int32_t, std::int64_t, float, double, Currency, Date,
                   std::string, bool, Color, Dictionary, Collection, FolderItem, Pair>;

  Variant() = default;
  Variant(std::int32_t value) : value_(value) {}            // NOLINT(google-explicit-constructor)
  Variant(std::int64_t value) : value_(value) {}            // NOLINT(google-explicit-constructor)
  Variant(float value) : value_(value) {}                   // NOLINT(google-explicit-constructor)
  Variant(double value) : value_(value) {}                  // NOLINT(google-explicit-constructor)
  Variant(Currency value) : value_(value) {}                // NOLINT(google-explicit-constructor)
  Variant(const Date& value) : value_(value) {}             // NOLINT(google-explicit-constructor)
  Variant(std::string value) : value_(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  Variant(std::string_view value) : value_(std::string(value)) {}  // NOLINT
  Variant(const char* value) : value_(std::string(value)) {}       // NOLINT
  Variant(bool value) : value_(value) {}                   // NOLINT(google-explicit-constructor)
  Variant(Color value) : value_(value) {}                  // NOLINT(google-explicit-constructor)
  Variant(Dictionary value) : value_(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  Variant(Collection value) : value_(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  Variant(FolderItem value) : value_(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  Variant(Pair value) : value_(value) {}                   // NOLINT(google-explicit-constructor)

  bool IsNil() const { return std::holds_alternative<std::monostate>(value_); }
  bool IsNumber() const;
  template <class T>
  bool Is() const {
    return std::holds_alternative<T>(value_);
  }
  /// The value as T, or null if it is of another type.
  template <class T>
  const T* As() const {
    return std::get_if<T>(&value_);
  }

  /// Truncated toward zero and limited to 32 bits.
  std::int32_t ToInt() const;
  double ToDouble() const;
  bool ToBool() const;
  /// Text as it stands; numbers in the shortest form that reads back equal; dates as Date::Text;
  /// booleans "True" and "False".
  std::string ToText() const;
  /// A colour, or a number or text taken as 0xRRGGBB.
  Color ToColor() const;
  /// A date, or a text in the form of Date::Text; otherwise the default date.
  Date ToDate() const;

  const Storage& Get() const { return value_; }

  /// Numbers compare by value whatever their type; everything else by type and value.
  friend bool operator==(const Variant& a, const Variant& b);

 private:
  Storage value_;
};

}  // namespace brivolant
