// SPDX-License-Identifier: MIT
#include "kit/DesktopServices.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QImageReader>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QThread>
#include <typeinfo>

#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "platform/files/FileAddress.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

QString FilterText(const FileFilter& filter) {
  QStringList patterns;
  for (const auto extension : Split(filter.Extensions, ';')) {
    if (extension.empty()) continue;
    const QString text = ToQString(std::string(extension));
    patterns << QStringLiteral("*.") + text;
    if (text != text.toUpper()) patterns << QStringLiteral("*.") + text.toUpper();
  }
  if (patterns.isEmpty()) patterns << QStringLiteral("*");
  return ToQString(filter.Name) + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) +
         QLatin1Char(')');
}

QStringList FilterTexts(const std::vector<FileFilter>& filters) {
  QStringList texts;
  for (const FileFilter& filter : filters) texts << FilterText(filter);
  return texts;
}

FolderItem FileOf(const QString& path) {
  return path.isEmpty() ? FolderItem()
                        : FolderItem(std::filesystem::path(QFile::encodeName(path).toStdString()));
}

QString PathOf(const FolderItem& file) {
  return QFile::decodeName(QByteArray::fromStdString(file.ShellPath()));
}

QAction* Add(QMenu& menu, const MenuItem& item) {
  if (item.Text == "-") return menu.addSeparator();
  QAction* action = menu.addAction(ToQString(item.Text));
  action->setCheckable(item.Checked);
  action->setChecked(item.Checked);
  action->setEnabled(item.Enabled);
  if (!item.Icon.empty()) action->setIcon(SvgIcon(ToQString(item.Icon)));
  return action;
}

}  // namespace

std::optional<int> PopUpMenu(const MenuItem& menu, int x, int y) {
  QMenu popup;
  std::vector<QAction*> actions;
  for (const MenuItem& item : menu.Children) actions.push_back(Add(popup, item));
  const QAction* chosen = popup.exec(QPoint(x, y));
  for (std::size_t i = 0; i < actions.size(); ++i) {
    if (chosen != nullptr && actions[i] == chosen) return static_cast<int>(i);
  }
  return std::nullopt;
}

bool SendViaEmail(const FolderItem& file, const std::string& subject) {
  return QProcess::startDetached(
      QStringLiteral("xdg-email"),
      {QStringLiteral("--utf8"), QStringLiteral("--subject"), ToQString(subject),
       QStringLiteral("--attach"), ToQString(file.ShellPath())});
}

Picture PictureFromImage(const QImage& source) {
  if (source.isNull()) return {};
  const bool alpha = source.hasAlphaChannel();
  const QImage image = source.convertToFormat(alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  Picture picture = Picture::Uninitialized(image.width(), image.height(), 32);
  if (picture.IsNil()) return picture;
  QImage target = picture.EditImage();
  Plane mask = alpha ? Plane::Uninitialized(image.width(), image.height()) : Plane();
  Grey bytes = alpha ? mask.Edit() : Grey();
  for (int y = 0; y < image.height(); ++y) {
    const auto* from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    auto* to = reinterpret_cast<QRgb*>(target.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      to[x] = from[x] | 0xff000000U;
      if (alpha) bytes.Row(y)[x] = static_cast<std::uint8_t>(255 - qAlpha(from[x]));
    }
  }
  picture.SetMask(std::move(mask));
  return picture;
}

QImage ImageFromPicture(const Picture& picture) {
  if (picture.IsNil()) return {};
  QImage image = picture.AsImage().convertToFormat(QImage::Format_ARGB32);
  image.detach();
  const Plane* mask = picture.Mask();
  for (int y = 0; mask != nullptr && y < image.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      row[x] = (row[x] & 0xffffffU) | static_cast<QRgb>(255 - mask->At(x, y)) << 24;
    }
  }
  return image;
}

namespace {

PictureSource SourceOf(const QMimeData& data) {
  if (!data.hasImage()) return nullptr;
  // What another program gives comes as the bytes of a file.
  const bool own = typeid(data) == typeid(QMimeData);
  const QList<QByteArray> known = own ? QList<QByteArray>() : QImageReader::supportedMimeTypes();
  for (const char* type : {"image/png", "image/tiff", "image/webp", "image/bmp", "image/jpeg"}) {
    const QString format = QString::fromLatin1(type);
    if (!known.contains(type) || !data.hasFormat(format)) continue;
    // Some promise what they do not have.
    const QByteArray bytes = data.data(format);
    if (bytes.isEmpty()) continue;
    return [bytes] { return PictureFromImage(QImage::fromData(bytes)); };
  }
  return [image = qvariant_cast<QImage>(data.imageData())] { return PictureFromImage(image); };
}

}  // namespace

bool CanTake(const QMimeData& data) {
  return data.hasUrls() || data.hasImage();
}

DragItem TakeDrag(const QMimeData& data) {
  DragItem item;
  // From the bytes of the list: the toolkit's addresses lose names that are not UTF-8.
  if (data.hasUrls()) {
    item.Files = FileAddress::Files(data.data(QStringLiteral("text/uri-list")).toStdString());
  }
  if (item.Files.empty()) item.Picture = SourceOf(data);
  return item;
}

void AcceptAsCopy(QDropEvent& event) {
  event.setDropAction(Qt::CopyAction);
  event.accept();
}

Answer WidgetDialogs::Show(const Question& question, bool asks) {
  QMessageBox box(window_);
  box.setIcon(asks ? QMessageBox::Question : QMessageBox::Information);
  box.setWindowModality(Qt::WindowModal);
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQString(question.Message));
  box.setInformativeText(ToQString(question.Explanation));
  const auto add = [&](const std::string& text, QMessageBox::ButtonRole role) -> QPushButton* {
    return text.empty() ? nullptr : box.addButton(ToQString(text), role);
  };
  QPushButton* action = add(question.ActionButton, QMessageBox::AcceptRole);
  const QPushButton* alternate = add(question.AlternateButton, QMessageBox::DestructiveRole);
  QPushButton* cancel = add(question.CancelButton, QMessageBox::RejectRole);
  box.setDefaultButton(action);
  if (cancel != nullptr) box.setEscapeButton(cancel);
  box.exec();
  if (action != nullptr && box.clickedButton() == action) return Answer::kAction;
  if (alternate != nullptr && box.clickedButton() == alternate) return Answer::kAlternate;
  return Answer::kCancel;
}

void WidgetDialogs::Message(const std::string& message, const std::string& explanation) {
  const auto show = [&] { Show({message, explanation, Captions::kOK.Text(), {}, {}}, false); };
  if (QThread::currentThread() == qApp->thread()) return show();
  QMetaObject::invokeMethod(qApp, show, Qt::BlockingQueuedConnection);
}

Answer WidgetDialogs::Ask(const Question& question) {
  if (QThread::currentThread() == qApp->thread()) return Show(question, true);
  Answer answer = Answer::kCancel;
  QMetaObject::invokeMethod(
      qApp, [&] { answer = Show(question, true); }, Qt::BlockingQueuedConnection);
  return answer;
}

std::vector<FolderItem> WidgetFileDialogs::Open(const std::string& title, const FolderItem& folder,
                                                const std::vector<FileFilter>& filters) {
  const QStringList paths = QFileDialog::getOpenFileNames(
      window_, ToQString(title), PathOf(folder), FilterTexts(filters).join(QStringLiteral(";;")));
  std::vector<FolderItem> files;
  for (const QString& path : paths) files.push_back(FileOf(path));
  return files;
}

FolderItem WidgetFileDialogs::Save(const std::string& title, const FolderItem& suggestion,
                                   const std::vector<FileFilter>& filters, int& filter) {
  const QStringList texts = FilterTexts(filters);
  QString selected = texts.value(filter);
  const QString path = QFileDialog::getSaveFileName(window_, ToQString(title), PathOf(suggestion),
                                                    texts.join(QStringLiteral(";;")), &selected);
  filter = static_cast<int>(std::max<qsizetype>(texts.indexOf(selected), 0));
  return FileOf(path);
}

namespace {
QString Mime(std::string_view type) {
  return QString::fromUtf8(type.data(), static_cast<qsizetype>(type.size()));
}
const QMimeData* OnClipboard() {
  return QGuiApplication::clipboard()->mimeData();
}
}  // namespace

bool WidgetClipboard::Has(std::string_view mimeType) const {
  const QMimeData* data = OnClipboard();
  return data != nullptr && data->hasFormat(Mime(mimeType));
}

std::string WidgetClipboard::Data(std::string_view mimeType) const {
  const QMimeData* data = OnClipboard();
  return data == nullptr ? std::string() : data->data(Mime(mimeType)).toStdString();
}

void WidgetClipboard::Set(std::string_view text, std::string_view mimeType,
                          std::string_view bytes) {
  auto data = std::make_unique<QMimeData>();
  if (!text.empty()) data->setText(Mime(text));
  data->setData(Mime(mimeType), QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
  QGuiApplication::clipboard()->setMimeData(data.release());
}

std::string WidgetClipboard::Text() const {
  return QGuiApplication::clipboard()->text().toStdString();
}

void WidgetClipboard::Text(const std::string& text) {
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

bool WidgetClipboard::HasPicture() const {
  const QMimeData* data = OnClipboard();
  return data != nullptr && data->hasImage();
}

PictureSource WidgetClipboard::PastedPicture() const {
  const QMimeData* data = OnClipboard();
  return data == nullptr ? nullptr : SourceOf(*data);
}

void WidgetClipboard::Picture(const brivolant::Picture& picture) {
  QGuiApplication::clipboard()->setImage(ImageFromPicture(picture));
}

}  // namespace brivolant
