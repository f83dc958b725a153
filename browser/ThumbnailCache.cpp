// SPDX-License-Identifier: MIT
#include "browser/ThumbnailCache.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QStandardPaths>
#include <atomic>

#include "platform/values/ApplicationName.h"

namespace brivolant {
namespace {

const QString kURI = QStringLiteral("Thumb::URI");
const QString kMTime = QStringLiteral("Thumb::MTime");

QString PathOf(const FolderItem& file) {
  return QFile::decodeName(file.Path().c_str());
}

/// A cached file is someone else's work until it is looked at: it need not be small.
QImage ReadSmall(const FolderItem& file, int most) {
  QImageReader reader(PathOf(file), "png");
  const QSize size = reader.size();
  if (!size.isValid() || size.width() > most || size.height() > most) return {};
  return reader.read();
}

}  // namespace

ThumbnailCache::ThumbnailCache(FolderItem root, std::string program)
    : root_(std::move(root)), program_(std::move(program)) {}

FolderItem ThumbnailCache::DefaultRoot() {
  const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
  return FolderItem(QFile::encodeName(cache).toStdString()).Child("thumbnails");
}

ThumbnailCache::Key ThumbnailCache::KeyOf(const FolderItem& file) {
  std::error_code error;
  const auto canonical = std::filesystem::canonical(file.Path(), error);
  const FolderItem real = error ? file : FolderItem(canonical);
  Key key;
  key.URI = real.URLPath();
  struct stat status {};
  if (!error && stat(real.Path().c_str(), &status) == 0) key.Modified = status.st_mtim.tv_sec;
  key.Hash = QCryptographicHash::hash(QByteArray::fromStdString(key.URI), QCryptographicHash::Md5)
                 .toHex()
                 .toStdString();
  return key;
}

FolderItem ThumbnailCache::FileOf(const Key& key, Size size) const {
  return root_.Child(size == kLarge ? "large" : "x-large").Child(key.Hash + ".png");
}

FolderItem ThumbnailCache::FailureOf(const Key& key) const {
  return root_.Child("fail").Child(program_).Child(key.Hash + ".png");
}

bool ThumbnailCache::Valid(const QImage& image, const Key& key) {
  if (image.isNull() || image.text(kURI).toStdString() != key.URI) return false;
  return key.Modified == 0 || image.text(kMTime).toLongLong() == key.Modified;
}

QImage ThumbnailCache::Find(const Key& key, Size size) const {
  QImage image = ReadSmall(FileOf(key, size), size);
  return Valid(image, key) ? image : QImage();
}

bool ThumbnailCache::Failed(const Key& key) const {
  return Valid(ReadSmall(FailureOf(key), kXLarge), key);
}

void ThumbnailCache::Store(const Key& key, Size size, const QImage& image) const {
  if (image.isNull() || image.width() > size || image.height() > size) return;
  Write(FileOf(key, size), image, key);
}

void ThumbnailCache::StoreFailure(const Key& key) const {
  QImage nothing(1, 1, QImage::Format_ARGB32);
  nothing.fill(Qt::transparent);
  Write(FailureOf(key), nothing, key);
}

void ThumbnailCache::Write(const FolderItem& target, const QImage& image, const Key& key) {
  // What cannot be checked later is not stored.
  if (key.Modified == 0) return;
  const FolderItem folder = target.Parent();
  if (!folder.Directory()) {
    if (folder.CreateAsFolder()) return;
    // Pictures of what one user sees are not for the others.
    for (FolderItem made = folder; made.Name() != "thumbnails" && made.Parent();
         made = made.Parent()) {
      (void)chmod(made.Path().c_str(), S_IRWXU);
    }
  }
  static std::atomic<unsigned> count = 0;
  const FolderItem beside = folder.Child("." + key.Hash + "-" + std::to_string(getpid()) + "-" +
                                         std::to_string(++count) + ".png");
  QFile file(PathOf(beside));
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return;
  file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  QImageWriter writer(&file, "png");
  // Thumbnails are written once and looked at often: time counts, not the last byte.
  constexpr int kFast = 80;
  writer.setQuality(kFast);
  // On the image: the writer's own texts take no colon in a key.
  QImage labelled = image;
  labelled.setText(kURI, QString::fromStdString(key.URI));
  labelled.setText(kMTime, QString::number(key.Modified));
  labelled.setText(QStringLiteral("Software"), QString::fromUtf8(kApplicationName.English));
  const bool written = writer.write(labelled) && file.flush();
  file.close();
  // No flush to the disk: a thumbnail that a crash loses is made again.
  if (!written || rename(beside.Path().c_str(), target.Path().c_str()) != 0) {
    (void)beside.Delete();
  }
}

}  // namespace brivolant
