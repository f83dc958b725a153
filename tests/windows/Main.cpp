// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QApplication>

/// The tests of windows share the one application that a process can have.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  // Listing needs no screen.
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
