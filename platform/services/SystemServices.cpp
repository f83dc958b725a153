// SPDX-License-Identifier: MIT
#include "platform/services/SystemServices.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QStringList>
#include <QVariantMap>
#include <array>
#include <cstdio>

#include "platform/pictures/Picture.h"
#include "platform/services/SharedFolders.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

/// What the names of roots begin with, before the number of the run.
constexpr std::string_view kRootName = ".CleanOnQuit";

}  // namespace

Picture Clipboard::Picture() const {
  return {};
}
void Clipboard::Picture(const brivolant::Picture&) {}

void StandardErrorLog::Write(std::string_view line) {
  std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
}

SystemRandom::SystemRandom() {
  std::random_device device;
  generator_.seed(std::uint64_t{device()} << 32 | device());
}

double SystemRandom::Rnd() {
  const std::lock_guard lock(mutex_);
  // 53 random bits: every value is exact and below 1.
  return static_cast<double>(generator_() >> 11) * 0x1.0p-53;
}

bool FreedesktopDesktop::Reveal(const FolderItem& item) {
  QDBusInterface manager(QStringLiteral("org.freedesktop.FileManager1"),
                         QStringLiteral("/org/freedesktop/FileManager1"),
                         QStringLiteral("org.freedesktop.FileManager1"));
  if (manager.isValid()) {
    const QDBusReply<void> reply =
        manager.call(QStringLiteral("ShowItems"),
                     QStringList{QString::fromStdString(item.URLPath())}, QString());
    if (reply.isValid()) return true;
  }
  return QProcess::startDetached(QStringLiteral("xdg-open"),
                                 {QString::fromStdString(item.Parent().ShellPath())});
}

std::string FreedesktopDesktop::Eject(const FolderItem& root) {
  const QStorageInfo storage(QFile::decodeName(root.Path().c_str()));
  const QString service = QStringLiteral("org.freedesktop.UDisks2");
  const QString path = QStringLiteral("/org/freedesktop/UDisks2/block_devices/") +
                       QString::fromUtf8(storage.device()).section(QLatin1Char('/'), -1);
  QDBusInterface volume(service, path, QStringLiteral("org.freedesktop.UDisks2.Filesystem"),
                        QDBusConnection::systemBus());
  const QDBusReply<void> unmounted = volume.call(QStringLiteral("Unmount"), QVariantMap());
  if (!unmounted.isValid()) {
    if (unmounted.error().name().endsWith(QLatin1String("DeviceBusy"))) return "busy";
    return unmounted.error().message().toStdString();
  }
  QDBusInterface block(service, path, QStringLiteral("org.freedesktop.UDisks2.Block"),
                       QDBusConnection::systemBus());
  const QString drive = block.property("Drive").value<QDBusObjectPath>().path();
  QDBusInterface ejector(service, drive, QStringLiteral("org.freedesktop.UDisks2.Drive"),
                         QDBusConnection::systemBus());
  const QDBusReply<void> ejected = ejector.call(QStringLiteral("Eject"), QVariantMap());
  // An unmounted stick without an ejectable tray is safe to pull: that is success.
  (void)ejected;
  return {};
}

namespace {

/// Where desktops keep the address of their picture.
struct PictureSetting {
  const char* desktop;
  const char* schema;
  const char* key;
  bool path;
};
constexpr std::array<PictureSetting, 7> kPictureSettings{{
    {"GNOME", "org.gnome.desktop.background", "picture-uri", false},
    {"GNOME", "org.gnome.desktop.background", "picture-uri-dark", false},
    {"Unity", "org.gnome.desktop.background", "picture-uri", false},
    {"Budgie", "org.gnome.desktop.background", "picture-uri", false},
    {"Pantheon", "org.gnome.desktop.background", "picture-uri", false},
    {"X-Cinnamon", "org.cinnamon.desktop.background", "picture-uri", false},
    {"MATE", "org.mate.background", "picture-filename", true},
}};

bool SetBySettings(const FolderItem& image) {
  const QString program = QStandardPaths::findExecutable(QStringLiteral("gsettings"));
  const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'));
  bool set = false;
  for (const PictureSetting& setting : kPictureSettings) {
    if (program.isEmpty() || !desktops.contains(QLatin1String(setting.desktop))) continue;
    const QString value =
        QString::fromStdString(setting.path ? image.ShellPath() : image.URLPath());
    const int code =
        QProcess::execute(program, {QStringLiteral("set"), QString::fromLatin1(setting.schema),
                                    QString::fromLatin1(setting.key), value});
    // An older desktop has no picture for the dark of its own.
    set = set || code == 0;
  }
  return set;
}

}  // namespace

bool FreedesktopDesktop::SetPicture(const FolderItem& image) {
  const QString address = QString::fromStdString(image.URLPath());
  // Plasma's own call is the surest there; a portal of its may only know a newer one.
  QDBusInterface plasma(QStringLiteral("org.kde.plasmashell"), QStringLiteral("/PlasmaShell"),
                        QStringLiteral("org.kde.PlasmaShell"));
  if (plasma.isValid()) {
    QString quoted = address;
    quoted.replace(QLatin1Char('\\'), QStringLiteral("\\\\"))
        .replace(QLatin1Char('\''), QStringLiteral("\\'"));
    const QString script = QStringLiteral(
                               "for (const d of desktops()) { d.wallpaperPlugin = 'org.kde.image';"
                               "d.currentConfigGroup = ['Wallpaper', 'org.kde.image', 'General'];"
                               "d.writeConfig('Image', '%1'); }")
                               .arg(quoted);
    const QDBusReply<void> reply = plasma.call(QStringLiteral("evaluateScript"), script);
    if (reply.isValid()) return true;
  }
  QDBusInterface portal(QStringLiteral("org.freedesktop.portal.Desktop"),
                        QStringLiteral("/org/freedesktop/portal/desktop"),
                        QStringLiteral("org.freedesktop.portal.Wallpaper"));
  if (portal.isValid() && portal.property("version").toUInt() > 0) {
    const QDBusReply<QDBusObjectPath> reply =
        portal.call(QStringLiteral("SetWallpaperURI"), QString(), address,
                    QVariantMap{{QStringLiteral("show-preview"), false},
                                {QStringLiteral("set-on"), QStringLiteral("background")}});
    if (reply.isValid()) return true;
  }
  return SetBySettings(image);
}

CleanOnQuit::~CleanOnQuit() {
  if (root_ && !keep_) (void)root_.DeleteFolder();
}

bool CleanOnQuit::Configure(const FolderItem& root) {
  FolderItem folder = root ? root
                           : DocumentsFolder().Child(std::string(kRootName.substr(1)) +
                                                     "com.quillmere.brivolantPhotos");
  // A leading dot is how a folder is hidden here. Two running programs never share a root.
  std::string name = folder.Name();
  if (!name.starts_with('.')) name.insert(0, 1, '.');
  const std::string number =
      Hexadecimal(static_cast<std::uint64_t>(random_.Rnd() * 4294967295.0), 8);
  // It has another name until it is locked: a root that is not is taken for one left by a crash.
  const FolderItem young = folder.Parent().Child(name + "~" + number);
  folder = folder.Parent().Child(name + "-" + number);
  if (young.CreateAsFolder()) return false;
  FileLock lock(young);
  if (young.MoveFileTo(folder)) {
    (void)young.Delete();
    return false;
  }
  root_ = folder;
  lock_ = std::move(lock);
  return true;
}

FolderItem CleanOnQuit::RootOf(const FolderItem& item) {
  FolderItem root = item;
  while (root && !root.Name().starts_with(kRootName)) root = root.Parent();
  return root;
}

FolderItem CleanOnQuit::Child(std::string_view name) {
  const std::lock_guard lock(mutex_);
  if (!root_) return {};
  std::string random;
  for (int i = 0; i < 9; ++i) {
    random += LowerCase(Hexadecimal(static_cast<std::uint64_t>(random_.Rnd() * 256), 2));
  }
  const FolderItem folder = root_.Child(random);
  if (folder.CreateAsFolder()) return {};
  return folder.Child(name);
}

}  // namespace brivolant
