// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "platform/pictures/Picture.h"
#include "platform/services/Services.h"
#include "platform/values/Menu.h"

class QDropEvent;
class QImage;
class QMimeData;

namespace brivolant {

/// Shows a menu at a position of the screen: the index of the chosen item, or nothing.
std::optional<int> PopUpMenu(const MenuItem& menu, int x, int y);

/// Opens a new message of the desktop's mail program with that file; false if there is none.
bool SendViaEmail(const FolderItem& file, const std::string& subject);

/// Copies an image; transparency becomes the mask.
Picture PictureFromImage(const QImage& image);
/// Copies a picture; the mask becomes transparency.
QImage ImageFromPicture(const Picture& picture);

/// What a drag brings.
struct DragItem {
  std::vector<FolderItem> Files;
  PictureSource Picture;
  bool IsEmpty() const { return Files.empty() && !Picture; }
};
/// True if something in it can be taken; asks for no data.
bool CanTake(const QMimeData& data);
DragItem TakeDrag(const QMimeData& data);
/// Takes a drag or a drop as a copy, whatever was proposed: a source that believes in a move
/// deletes what it gave.
void AcceptAsCopy(QDropEvent& event);

/// Messages and questions over a window, as sheets of it. May be called from any thread; other
/// threads wait for the answer.
class WidgetDialogs final : public Dialogs {
 public:
  void Window(QWidget* window) { window_ = window; }
  void Message(const std::string& message, const std::string& explanation) override;
  Answer Ask(const Question& question) override;

 private:
  Answer Show(const Question& question, bool asks);
  QPointer<QWidget> window_;
};

/// The desktop's own file dialogs where it has them.
class WidgetFileDialogs final : public FileDialogs {
 public:
  void Window(QWidget* window) { window_ = window; }
  std::vector<FolderItem> Open(const std::string& title, const FolderItem& folder,
                               const std::vector<FileFilter>& filters) override;
  FolderItem Save(const std::string& title, const FolderItem& suggestion,
                  const std::vector<FileFilter>& filters, int& filter) override;

 private:
  QPointer<QWidget> window_;
};

class WidgetClipboard final : public Clipboard {
 public:
  bool Has(std::string_view mimeType) const override;
  std::string Data(std::string_view mimeType) const override;
  void Set(std::string_view text, std::string_view mimeType, std::string_view data) override;
  std::string Text() const override;
  void Text(const std::string& text) override;
  bool HasPicture() const override;
  PictureSource PastedPicture() const override;
  void Picture(const brivolant::Picture& picture) override;
};

}  // namespace brivolant
