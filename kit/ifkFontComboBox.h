// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QFrame>
#include <string>

class QEventLoop;
class QListView;

namespace brivolant {

/// A list without a frame that shows every font of the system in its own face. One instance.
class ifkFontComboBoxMenu final : public QFrame {
 public:
  static ifkFontComboBoxMenu& Instance();

  /// Lets the user choose, from (left, top) of the screen to its bottom. Gives the chosen name, or
  /// `current` if it was dismissed.
  std::string Popup(int left, int top, int width, const std::string& current);

  QListView& Listbox1() { return *list_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  ifkFontComboBoxMenu();
  void Take();

  QListView* list_;
  QEventLoop* loop_ = nullptr;
  QString rvalue_;
};

/// A field for the name of a font, completed while it is typed, whose arrow opens the menu above.
class ifkFontComboBox final : public QComboBox {
 public:
  explicit ifkFontComboBox(QWidget* parent = nullptr);

  bool MenuOpen() const { return menuOpen_; }

  void showPopup() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool menuOpen_ = false;
};

}  // namespace brivolant
