// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brivolant {

/// A moment in local civil time, exact to the second. A default Date is 1 January 1970.
struct Date {
  int Year = 1970;
  int Month = 1;
  int Day = 1;
  int Hour = 0;
  int Minute = 0;
  int Second = 0;

  /// The current moment.
  static Date Now();
  /// From seconds since 1 January 1904 00:00:00 civil time, the epoch of the older documents.
  static Date FromTotalSeconds(double seconds);
  /// From a moment counted in seconds since the Unix epoch, in the user's time zone.
  static Date FromUnixTime(std::int64_t seconds);
  /// From "YYYY-MM-DD HH:MM:SS"; the time may be missing. Empty for anything else.
  static std::optional<Date> FromText(std::string_view text);

  /// Seconds since 1 January 1904 00:00:00 civil time.
  double TotalSeconds() const;
  /// Seconds since the Unix epoch, read in the user's time zone.
  std::int64_t UnixTime() const;
  /// "YYYY-MM-DD HH:MM:SS": the stable text form.
  std::string Text() const;
  /// 1 to 366.
  int DayOfYear() const;
  /// 1 (Sunday) to 7 (Saturday).
  int DayOfWeek() const;
  /// The same moment with every field in its range: month 13 is January of the next year.
  Date Normalized() const;

  friend constexpr auto operator<=>(const Date&, const Date&) = default;  // NOLINT
};

}  // namespace brivolant
