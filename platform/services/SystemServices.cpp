// SPDX-License-Identifier: MIT
#include "platform/services/SystemServices.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QVariantMap>
#include <array>
#include <cstdio>
#include <filesystem>

#include "platform/files/MountTable.h"
#include "platform/pictures/Picture.h"
#include "platform/services/SharedFolders.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

/// What the names of roots begin with, before the number of the run.
constexpr std::string_view kRootName = ".CleanOnQuit";

}  // namespace

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

namespace {

/// Milliseconds that another program of the desktop may take to answer.
constexpr int kDesktopPatience = 5000;

/// What a program of the session answers; an error if none does in time.
QDBusMessage AskDesktop(const char* service, const char* path, const char* interface,
                        const char* method, const QVariantList& arguments) {
  QDBusMessage question =
      QDBusMessage::createMethodCall(QString::fromLatin1(service), QString::fromLatin1(path),
                                     QString::fromLatin1(interface), QString::fromLatin1(method));
  question.setArguments(arguments);
  return QDBusConnection::sessionBus().call(question, QDBus::Block, kDesktopPatience);
}

bool Done(const QDBusMessage& answer) {
  return answer.type() == QDBusMessage::ReplyMessage;
}

}  // namespace

bool FreedesktopDesktop::Reveal(const FolderItem& item) {
  constexpr const char* kManager = "org.freedesktop.FileManager1";
  if (Done(AskDesktop(kManager, "/org/freedesktop/FileManager1", kManager, "ShowItems",
                      {QStringList{QString::fromStdString(item.URLPath())}, QString()}))) {
    return true;
  }
  return QProcess::startDetached(QStringLiteral("xdg-open"),
                                 {QString::fromStdString(item.Parent().URLPath())});
}

namespace {

const QString kDisks = QStringLiteral("org.freedesktop.UDisks2");

/// The answer of the service of disks; a stick with much to write takes long.
QDBusMessage AskDisks(const QString& path, const char* interface, const char* method,
                      const QVariantList& arguments) {
  constexpr int kPatience = 600000;
  QDBusMessage question = QDBusMessage::createMethodCall(
      kDisks, path, QString::fromLatin1(interface), QString::fromLatin1(method));
  question.setArguments(arguments);
  return QDBusConnection::systemBus().call(question, QDBus::Block, kPatience);
}

/// The object of a device: what is no letter or digit of its name stands as "_2d".
QString DiskObject(const std::string& device) {
  std::error_code error;
  const auto real = std::filesystem::canonical(device, error);
  QString path = QStringLiteral("/org/freedesktop/UDisks2/block_devices/");
  for (const char c : (error ? std::filesystem::path(device) : real).filename().string()) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = byte < 0x80 && QChar::isLetterOrNumber(byte);
    path += plain ? QString(QLatin1Char(c))
                  : QStringLiteral("_%1").arg(static_cast<int>(byte), 2, 16, QLatin1Char('0'));
  }
  return path;
}

std::string RunUnmount(const std::vector<std::string>& command) {
  QStringList arguments;
  for (std::size_t i = 1; i < command.size(); ++i) {
    arguments << QFile::decodeName(command[i].c_str());
  }
  QProcess program;
  program.start(QString::fromStdString(command.front()), arguments);
  constexpr int kPatience = 600000;
  if (!program.waitForFinished(kPatience)) return program.errorString().toStdString();
  if (program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0) return {};
  const std::string error = program.readAllStandardError().trimmed().toStdString();
  if (error.find("busy") != std::string::npos) return "busy";
  return error.empty() ? command.front() + " failed" : error;
}

}  // namespace

std::string FreedesktopDesktop::Eject(const FolderItem& root) {
  const MountTable table = MountTable::Now();
  const std::vector<std::string> command = table.UnmountCommand(root);
  if (!command.empty()) return RunUnmount(command);
  const Mount* mount = table.Of(root);
  if (mount == nullptr || mount->Root != root) return "nothing is mounted there";
  const QString path = DiskObject(mount->Device);
  const QDBusMessage unmounted = AskDisks(path, "org.freedesktop.UDisks2.Filesystem", "Unmount",
                                          {QVariant::fromValue(QVariantMap())});
  if (unmounted.type() == QDBusMessage::ErrorMessage) {
    if (unmounted.errorName().endsWith(QLatin1String("DeviceBusy"))) return "busy";
    return unmounted.errorMessage().toStdString();
  }
  const QDBusMessage drive =
      AskDisks(path, "org.freedesktop.DBus.Properties", "Get",
               {QStringLiteral("org.freedesktop.UDisks2.Block"), QStringLiteral("Drive")});
  if (drive.arguments().isEmpty()) return {};
  const auto answer = drive.arguments().constFirst().value<QDBusVariant>();
  // An unmounted stick without an ejectable tray is safe to pull: that is success.
  (void)AskDisks(answer.variant().value<QDBusObjectPath>().path(), "org.freedesktop.UDisks2.Drive",
                 "Eject", {QVariant::fromValue(QVariantMap())});
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
    QProcess settings;
    settings.start(program, {QStringLiteral("set"), QString::fromLatin1(setting.schema),
                             QString::fromLatin1(setting.key), value});
    const bool ended = settings.waitForFinished(kDesktopPatience);
    // An older desktop has no picture for the dark of its own.
    set =
        set || (ended && settings.exitStatus() == QProcess::NormalExit && settings.exitCode() == 0);
  }
  return set;
}

}  // namespace

bool FreedesktopDesktop::SetPicture(const FolderItem& image) {
  const QString address = QString::fromStdString(image.URLPath());
  QString quoted = address;
  quoted.replace(QLatin1Char('\\'), QStringLiteral("\\\\"))
      .replace(QLatin1Char('\''), QStringLiteral("\\'"));
  const QString script = QStringLiteral(
                             "for (const d of desktops()) { d.wallpaperPlugin = 'org.kde.image';"
                             "d.currentConfigGroup = ['Wallpaper', 'org.kde.image', 'General'];"
                             "d.writeConfig('Image', '%1'); }")
                             .arg(quoted);
  // Plasma's own call is the surest there; a portal of its may only know a newer one.
  if (Done(AskDesktop("org.kde.plasmashell", "/PlasmaShell", "org.kde.PlasmaShell",
                      "evaluateScript", {script}))) {
    return true;
  }
  constexpr const char* kPortal = "org.freedesktop.portal.Desktop";
  constexpr const char* kPortalPath = "/org/freedesktop/portal/desktop";
  const QString wallpaper = QStringLiteral("org.freedesktop.portal.Wallpaper");
  const QDBusMessage version = AskDesktop(kPortal, kPortalPath, "org.freedesktop.DBus.Properties",
                                          "Get", {wallpaper, QStringLiteral("version")});
  const bool knows = Done(version) && !version.arguments().isEmpty() &&
                     version.arguments().constFirst().value<QDBusVariant>().variant().toUInt() > 0;
  if (knows &&
      Done(AskDesktop(kPortal, kPortalPath, "org.freedesktop.portal.Wallpaper", "SetWallpaperURI",
                      {QString(), address,
                       QVariantMap{{QStringLiteral("show-preview"), false},
                                   {QStringLiteral("set-on"), QStringLiteral("background")}}}))) {
    return true;
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
