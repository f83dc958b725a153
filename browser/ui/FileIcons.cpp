// SPDX-License-Identifier: MIT
#include "browser/ui/FileIcons.h"

#include <QIcon>
#include <QPixmapCache>

#include "files/FolderitemExtensions.h"
#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkColors.h"

namespace brivolant {
namespace {

QIcon Themed(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    const QString theme = ToQString(name);
    if (QIcon::hasThemeIcon(theme)) return QIcon::fromTheme(theme);
  }
  return {};
}

/// The program's own drawing for the names of a kind.
QString OwnDrawing(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    if (name.starts_with("folder")) return QStringLiteral("Folder");
    if (name.starts_with("drive")) return QStringLiteral("Volume");
    if (name.starts_with("computer")) return QStringLiteral("Computer");
    if (name.starts_with("image") || name.find("brvphoto") != std::string::npos) {
      return QStringLiteral("BrivolantPhotosDocument");
    }
  }
  return QStringLiteral("File");
}

QPixmap Cached(const std::vector<std::string>& names, const QString& drawing, int size,
               double ratio) {
  // Quieter than a photo.
  const QColor color = ifkColors::TextDisabled();
  QString key = drawing + QStringLiteral("/%1/%2/%3").arg(size).arg(ratio).arg(color.rgb());
  for (const std::string& name : names) key += QLatin1Char('/') + ToQString(name);
  QPixmap pixmap;
  if (QPixmapCache::find(key, &pixmap)) return pixmap;
  const QIcon icon = Themed(names);
  if (!icon.isNull()) {
    pixmap = icon.pixmap(QSize(size, size), ratio);
  } else {
    pixmap = SvgPixmap(drawing, QSize(size, size), ratio, color);
  }
  QPixmapCache::insert(key, pixmap);
  return pixmap;
}

}  // namespace

Picture FileIcons::Icon(const std::vector<std::string>& names, int size) {
  const QIcon icon = Themed(names);
  return icon.isNull() ? Picture() : PictureFromImage(icon.pixmap(size, size).toImage());
}

QPixmap FileIcons::Drawing(const std::string& name, int size, double ratio) {
  return Cached({}, ToQString(name), size, ratio);
}

QPixmap FileIcons::For(const FolderItem& file, int size, double ratio) {
  const std::vector<std::string> names = FolderitemExtensions::IconNames(file);
  return Cached(names, OwnDrawing(names), size, ratio);
}

QPixmap FileIcons::For(const BrowserPayload& payload, int size, double ratio) {
  if (const auto* item = std::get_if<std::shared_ptr<browserItem>>(&payload)) {
    browserItem& shown = **item;
    shown.GetIconRef();
    if (shown.Facts && shown.Facts->Is == FileFacts::kDocument) {
      return Drawing("BrivolantPhotosDocument", size, ratio);
    }
    if (!shown.iconRef.empty())
      return Cached(shown.iconRef, OwnDrawing(shown.iconRef), size, ratio);
  }
  if (const auto* folder = std::get_if<std::shared_ptr<browserItemCollection>>(&payload)) {
    return Drawing((*folder)->Icon.empty() ? "Folder" : (*folder)->Icon, size, ratio);
  }
  if (const auto* roll = std::get_if<std::shared_ptr<iPhotoRoll>>(&payload)) {
    return Drawing((*roll)->Icon, size, ratio);
  }
  return Drawing("File", size, ratio);
}

}  // namespace brivolant
