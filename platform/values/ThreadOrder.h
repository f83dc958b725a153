// SPDX-License-Identifier: MIT
#pragma once

#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif

namespace brivolant {

/// An order between threads that a library keeps: what was done before Before is seen after After.
/// It does nothing but tell the thread sanitizer, which cannot look into libraries.
class ThreadOrder {
 public:
#ifdef __SANITIZE_THREAD__
  void Before() const {
    __tsan_release(const_cast<ThreadOrder*>(this));
  }
  void After() const {
    __tsan_acquire(const_cast<ThreadOrder*>(this));
  }
#else
  void Before() const {}
  void After() const {}
#endif
};

}  // namespace brivolant
