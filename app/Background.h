// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace brivolant {

/// Does work on another thread while the windows go on painting; the user's input waits until it
/// returns. Exceptions of the work are raised here.
void RunInBackground(const std::function<void()>& work);

}  // namespace brivolant
