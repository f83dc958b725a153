// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "browser/DiskThreads.h"

/// The tests of windows share the one application that a process can have.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  // Listing needs no screen.
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  // In every part of a run under a locale, whatever tests it holds.
  const char* wanted = std::getenv("BRIVOLANT_RUN_LOCALE");
  if (wanted != nullptr && (std::setlocale(LC_NUMERIC, nullptr) != std::string_view(wanted) ||
                            std::localeconv()->decimal_point != std::string_view(",") ||
                            QLocale().decimalPoint() != QLatin1String(","))) {
    std::fprintf(stderr, "This run should be under %s and is not: it would prove nothing.\n",
                 wanted);
    return 1;
  }
  const int failed = RUN_ALL_TESTS();
  // As the program does: what reads disks is done before what it uses is taken down.
  return brivolant::DiskThreads::Finish() ? failed : 1;
}
