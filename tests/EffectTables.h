// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace brivolant::test {

/// Classes that the table of the fixes describes; the other table asks that none is left out.
std::vector<std::string_view> ClassesOfModuleTable();

}  // namespace brivolant::test
