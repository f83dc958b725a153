// SPDX-License-Identifier: MIT
#include "platform/pictures/ToneTable.h"

namespace brivolant {
namespace {

ToneTable Composed(const ToneTable& first, const ToneTable& then) {
  ToneTable table{};
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = then[first[i]];
  return table;
}

}  // namespace

ToneTable IdentityTable() {
  return MakeTable([](int i) { return i; });
}

ToneTables ToneTables::After(const ToneTables& first) const {
  return {Composed(first.Red, Red), Composed(first.Green, Green), Composed(first.Blue, Blue)};
}

}  // namespace brivolant
