// SPDX-License-Identifier: MIT
#pragma once

#include "platform/values/Date.h"

namespace brivolant {

/// How often the program looks for a newer version.
enum UpdateCheckPeriod { kEveryLaunch = 0, kDaily = 1, kWeekly = 2, kMonthly = 3, kNever = 4 };

/// True if a check is due. Days are counted within the year; in a new year it always is.
bool UpdateCheckDue(int period, const Date& last, const Date& now);

}  // namespace brivolant
