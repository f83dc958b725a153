// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "platform/values/Menu.h"
#include "platform/values/Text.h"

class QAction;
class QLineEdit;
class QMenu;

namespace brivolant {

/// A field for a search: an icon with a menu of what is searched, a grey text that says what the
/// field is for, a button that takes the search back, and the searches made before.
class ifkSearchField final : public QWidget {
 public:
  static constexpr LocalizedText kDefaultSearchCaption{"ifkSearchField.kDefaultSearchCaption",
                                                       "Search"};
  static constexpr LocalizedText kRecent{"ifkSearchField.kRecent", "Recent Searches"};
  static constexpr LocalizedText kClearRecent{"ifkSearchField.kClearRecent",
                                              "Clear Recent Searches"};
  static constexpr LocalizedText kWhere{"ifkSearchField.kWhere", "Where to search"};
  static constexpr LocalizedText kCancelSearch{"ifkSearchField.kCancelSearch", "Cancel search"};

  explicit ifkSearchField(QWidget* parent = nullptr);

  std::string Text() const;
  /// Raises TextChanged as typing does.
  void Text(const std::string& text);
  /// Shown in grey while the field is empty; never part of the text.
  void DescriptiveText(const QString& text);
  void SearchIcon(bool visible);
  bool CancelButton() const;
  /// Every keystroke raises TextChanged; otherwise only Return does.
  bool useLiveSearch = false;
  /// The rows of the icon's menu. Tags are texts.
  std::vector<MenuItem> Menu;
  /// The searches made before, the present text last.
  std::vector<std::string> RecentSearches() const;
  void RecentSearches(std::vector<std::string> searches) { recent_ = std::move(searches); }
  /// The icon's menu as it would pop up, made anew.
  QMenu* MakeMenu();
  QLineEdit& MyEditField() { return *edit_; }

  std::function<void()> TextChanged;
  /// A row of the menu was chosen.
  std::function<void(MenuItem& item)> MenuAction;
  /// True takes the click; otherwise the text is cleared.
  std::function<bool()> CancelClicked;
  /// Return was pressed, after TextChanged.
  std::function<void()> Entered;

  QSize sizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void EditChanged();
  void Enter();
  void Remember();
  void Cancel();
  void PopUp();
  void DrawIcons();

  static constexpr std::size_t kMostRecent = 10;
  QLineEdit* edit_;
  QAction* search_;
  QAction* cancel_;
  std::vector<std::string> recent_;
  bool didTextChange_ = false;
  bool updating_ = false;
};

}  // namespace brivolant
