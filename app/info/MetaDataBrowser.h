// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QTreeWidget>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/session/FileInfo.h"
#include "platform/services/Services.h"
#include "platform/values/Menu.h"
#include "platform/values/Text.h"

class QLineEdit;

namespace brivolant {

/// Everything that is known of one file, section by section; texts are edited in place.
class MetaDataBrowser final : public QTreeWidget {
 public:
  static constexpr LocalizedText kPreview{"MetaDataBrowser.kPreview", "Preview"};
  static constexpr LocalizedText kTiffTags{"MetaDataBrowser.kTiffTags", "TIFF Tags"};
  static constexpr LocalizedText kIptcTags{"MetaDataBrowser.kIptcTags", "IPTC Tags"};
  static constexpr LocalizedText kAddTiff{"MetaDataBrowser.kAddTiff", "Add TIFF Block"};
  static constexpr LocalizedText kAddIptc{"MetaDataBrowser.kAddIptc", "Add IPTC Block"};
  static constexpr LocalizedText kCopyValue{"MetaDataBrowser.kCopyValue", "Copy Value"};
  static constexpr LocalizedText kCopyRow{"MetaDataBrowser.kCopyRow", "Copy Name and Value"};
  static constexpr LocalizedText kEdit{"MetaDataBrowser.kEdit", "Edit"};
  static constexpr LocalizedText kRemove{"MetaDataBrowser.kRemove", "Remove"};
  static constexpr LocalizedText kShowOnMap{"MetaDataBrowser.kShowOnMap", "Show on Map"};
  static constexpr LocalizedText kFromPacket{
      "MetaDataBrowser.kFromPacket", "Said by the XMP data of the file, not by this block."};
  static constexpr LocalizedText kPacketDiffers{"MetaDataBrowser.kPacketDiffers",
                                                "The XMP data of the file says: <text>"};
  static constexpr LocalizedText kNotTaken{"MetaDataBrowser.kNotTaken",
                                           "\"<text>\" cannot stand in \"<name>\"."};
  static constexpr LocalizedText kList{"MetaDataBrowser.kList", "Data of the file"};

  MetaDataBrowser(Log& log, QWidget* parent);

  /// Shows a file, or nothing; `info` is shared with whoever reads and writes it.
  void Display(std::shared_ptr<FileInfo> info);
  /// Its picture, which may come later.
  void Preview(const QImage& picture);
  /// Shows only rows that hold the text in name or value, in sections that are open meanwhile.
  void Filter(const QString& text);
  /// Rows of tags without a name are left out.
  bool hideUnknown = false;

  /// Whether a section is open, by its number.
  bool Visible(int section) const;
  void Visible(int section, bool visible);
  /// A byte, 1 or 0, for each of the fifteen sections of old; an empty text changes nothing.
  std::string Settings() const;
  void Settings(const std::string& settings);

  /// The tags that can be added; the items' tags are what handleItemsMenu takes.
  std::vector<MenuItem> CreateItemsMenu() const;
  void handleItemsMenu(const std::string& tag);
  /// Of the row that the keys are on.
  void CopyValue(bool withName = false);
  bool CanEdit() const;
  /// What is being typed is taken now, as with Return.
  void FinishEdit();
  void EditCurrent();
  void RemoveCurrent();

  /// Raised where a text cannot stand in its tag; says so in words.
  std::function<void(const std::string& why)> Rejected;
  /// Opens an address with the desktop.
  std::function<void(const std::string& address)> OpenAddress;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

 private:
  /// What rows hold; the section's number is its own row's.
  enum Role : int {
    kTagRole = Qt::UserRole,
    kIndexRole = Qt::UserRole + 1,
    kTextRole = Qt::UserRole + 2,
    kSectionRole = Qt::UserRole + 3,
    kMappedRole = Qt::UserRole + 4
  };
  class Delegate;
  struct Key {
    int Section = 0;
    std::string Tag;
    int Index = 1;
  };
  void Fill();
  /// Where rows came or went; what is being typed goes on.
  void FillAnew(const std::vector<MetadataSection>& sections);
  /// False if rows came or went.
  bool FillInPlace(const std::vector<MetadataSection>& sections);
  static void SetRow(QTreeWidgetItem& line, const MetadataRow& row);
  void ApplyFilter();
  void PlaceColumns();
  void FillMenu(QMenu& menu);
  /// Takes what was typed once the field is gone: rows are made anew then.
  void EditedSoon(const QTreeWidgetItem& item, const QString& text);
  void TakeTyped();
  /// The field that is open; null for none.
  QLineEdit* Editor() const;
  void Edited(const Key& key, const QString& name, const QString& text);
  Key KeyOf(const QTreeWidgetItem& item) const;
  QTreeWidgetItem* ItemOf(const Key& key) const;
  QTreeWidgetItem* Section(int number) const;
  bool Editable(const QTreeWidgetItem* item) const;
  bool IsPosition(const QTreeWidgetItem* item) const;
  void Open(const QTreeWidgetItem& item);

  Log& log_;
  std::shared_ptr<FileInfo> info_;
  QImage preview_;
  QString filter_;
  std::map<int, bool> open_;
  struct Typed {
    Key Row;
    QString Name;
    QString Text;
  };
  std::optional<Typed> typed_;
  bool filling_ = false;
  bool pressed_ = false;
};

}  // namespace brivolant
