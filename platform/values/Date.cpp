// SPDX-License-Identifier: MIT
#include "platform/values/Date.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <ctime>

#include "platform/values/Numbers.h"

namespace brivolant {
namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr std::int64_t kSecondsFrom1904To1970 = 2082844800;
constexpr std::int64_t kSecondsPerDay = 86400;

sys_days FirstOf(int anyYear, int month) {
  // Years come from files; the calendar's own range is as good as any bound.
  const int year = std::clamp(anyYear, -32767, 32767);
  return sys_days{std::chrono::year{year} / std::chrono::month{static_cast<unsigned>(month)} / 1};
}

/// Seconds since 1970 of civil fields that may be out of their ranges, without any time zone.
std::int64_t CivilSeconds(const Date& date) {
  const std::int64_t months = std::int64_t{date.Year} * 12 + date.Month - 1;
  const auto year = static_cast<int>(std::floor(static_cast<double>(months) / 12.0));
  const auto month = static_cast<int>(months - std::int64_t{year} * 12) + 1;
  const std::int64_t day = FirstOf(year, month).time_since_epoch().count() + date.Day - 1;
  return day * kSecondsPerDay + date.Hour * 3600LL + date.Minute * 60LL + date.Second;
}

Date FromCivilSeconds(std::int64_t seconds) {
  std::int64_t day = seconds / kSecondsPerDay;
  std::int64_t rest = seconds % kSecondsPerDay;
  if (rest < 0) {
    rest += kSecondsPerDay;
    --day;
  }
  const std::chrono::year_month_day ymd{sys_days{days{day}}};
  return {static_cast<int>(ymd.year()),
          static_cast<int>(static_cast<unsigned>(ymd.month())),
          static_cast<int>(static_cast<unsigned>(ymd.day())),
          static_cast<int>(rest / 3600),
          static_cast<int>(rest / 60 % 60),
          static_cast<int>(rest % 60)};
}

}  // namespace

Date Date::Now() {
  return FromUnixTime(std::time(nullptr));
}

Date Date::FromTotalSeconds(double seconds) {
  // Ten thousand years each way: a damaged document must not overflow the calendar.
  constexpr double kLimit = 3.2e11;
  if (!std::isfinite(seconds)) return {};
  return FromCivilSeconds(static_cast<std::int64_t>(std::clamp(seconds, -kLimit, kLimit)) -
                          kSecondsFrom1904To1970);
}

Date Date::FromUnixTime(std::int64_t seconds) {
  const auto time = static_cast<std::time_t>(seconds);
  std::tm local{};
  if (localtime_r(&time, &local) == nullptr) return {};
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec};
}

std::optional<Date> Date::FromText(std::string_view text) {
  std::array<int, 6> field{1970, 1, 1, 0, 0, 0};
  std::size_t count = 0;
  std::size_t at = 0;
  while (count < field.size()) {
    if (at >= text.size() || text[at] < '0' || text[at] > '9') return std::nullopt;
    int value = 0;
    for (int digits = 0; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
      if (++digits > 5) return std::nullopt;
      value = value * 10 + (text[at] - '0');
    }
    field[count++] = value;
    if (at == text.size()) break;
    ++at;
  }
  if (count != 3 && count != 6) return std::nullopt;
  const Date date{field[0], field[1], field[2], field[3], field[4], field[5]};
  if (date.Normalized() != date) return std::nullopt;
  return date;
}

double Date::TotalSeconds() const {
  return static_cast<double>(CivilSeconds(*this) + kSecondsFrom1904To1970);
}

std::int64_t Date::UnixTime() const {
  const Date date = Normalized();
  std::tm local{};
  local.tm_year = date.Year - 1900;
  local.tm_mon = date.Month - 1;
  local.tm_mday = date.Day;
  local.tm_hour = date.Hour;
  local.tm_min = date.Minute;
  local.tm_sec = date.Second;
  local.tm_isdst = -1;
  return std::mktime(&local);
}

std::string Date::Text() const {
  const auto two = [](int value) { return PaddedNumber(value, 2); };
  return PaddedNumber(Year, 4) + '-' + two(Month) + '-' + two(Day) + ' ' + two(Hour) + ':' +
         two(Minute) + ':' + two(Second);
}

int Date::DayOfYear() const {
  const Date date = Normalized();
  return static_cast<int>(CivilSeconds(date) / kSecondsPerDay -
                          FirstOf(date.Year, 1).time_since_epoch().count()) +
         1;
}

int Date::DayOfWeek() const {
  const std::int64_t day = CivilSeconds(*this) / kSecondsPerDay;
  return static_cast<int>(std::chrono::weekday{sys_days{days{day}}}.c_encoding()) + 1;
}

Date Date::Normalized() const {
  return FromCivilSeconds(CivilSeconds(*this));
}

}  // namespace brivolant
