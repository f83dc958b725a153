// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/values/Variant.h"

namespace brivolant {

/// One item of a menu, as a value that any toolkit can show.
struct MenuItem {
  std::string Text;
  std::string Tag;
  /// Name of the icon, empty for none.
  std::string Icon;
  bool Checked = false;
  bool Enabled = true;
  std::vector<MenuItem> Children;
};

/// The rows of a pop-up menu, each with a text and a tag.
class PopupMenu {
 public:
  struct Row {
    std::string Text;
    Variant Tag;
  };
  void AddRow(std::string text, Variant tag = {}) {
    rows_.push_back({std::move(text), std::move(tag)});
  }
  int RowCount() const { return static_cast<int>(rows_.size()); }
  const Row& At(int index) const { return rows_.at(static_cast<std::size_t>(index)); }

 private:
  std::vector<Row> rows_;
};

}  // namespace brivolant
