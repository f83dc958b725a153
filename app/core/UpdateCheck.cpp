// SPDX-License-Identifier: MIT
#include "app/core/UpdateCheck.h"

namespace brivolant {
bool UpdateCheckDue(int period, const Date& last, const Date& now) {
  if (last.Year < now.Year) return true;
  const int days = now.DayOfYear() - last.DayOfYear();
  switch (period) {
    case kEveryLaunch:
      return true;
    case kDaily:
      return days > 0;
    case kWeekly:
      return days > 7;
    case kMonthly:
      return days > 30;
    default:
      return false;
  }
}

}  // namespace brivolant
