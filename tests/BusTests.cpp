// SPDX-License-Identifier: MIT
// The desktop's services that are asked over D-Bus, played by this program on a bus of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <atomic>
#include <functional>
#include <thread>

#include "Helpers.h"
#include "browser/SearchIndex.h"
#include "browser/SpotlightQuery.h"
#include "platform/services/SystemServices.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A service at one path that answers calls by a function.
class Service final : public QDBusVirtualObject {
 public:
  using Answer = std::function<QDBusMessage(const QDBusMessage&)>;
  Service(const QString& name, const QString& path, Answer answer)
      : bus_(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), name)),
        name_(name),
        path_(path),
        answer_(std::move(answer)) {
    EXPECT_TRUE(bus_.registerVirtualObject(path, this, QDBusConnection::SubPath));
    EXPECT_TRUE(bus_.registerService(name));
  }
  ~Service() override {
    bus_.unregisterService(name_);
    bus_.unregisterObject(path_);
    QDBusConnection::disconnectFromBus(name_);
  }
  QString introspect(const QString&) const override { return xml; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    if (message.interface() == QLatin1String("org.freedesktop.DBus.Introspectable")) return false;
    calls.push_back(message.member().toStdString());
    bus.send(answer_(message));
    return true;
  }

  QString xml;
  std::vector<std::string> calls;

 private:
  QDBusConnection bus_;
  QString name_;
  QString path_;
  Answer answer_;
};

/// Runs on another thread, while this one plays the services.
template <class Result>
Result Ask(const std::function<Result()>& question) {
  Result result{};
  std::atomic<bool> done = false;
  std::thread asking([&] {
    result = question();
    done = true;
  });
  while (!done) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  asking.join();
  return result;
}

void Write(int to, const std::string& bytes) {
  EXPECT_EQ(write(to, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

/// A row with one column.
std::string Row(const std::string& value) {
  std::string row;
  for (const auto n : {1U, 2U, static_cast<unsigned>(value.size())}) {
    row.append(reinterpret_cast<const char*>(&n), sizeof n);
  }
  return row + value + '\0';
}

using Files = std::optional<std::vector<FolderItem>>;

Files AskIndex(const std::string& text) {
  return Ask<Files>([&] {
    const std::atomic<bool> never = false;
    return SearchIndex::AskLocalSearch(text, never);
  });
}

struct Index {
  std::string text;
  std::string question;
  std::string rows;
  Service service;

  explicit Index(const char* name)
      : service(QString::fromLatin1(name), QStringLiteral("/org/freedesktop/Tracker3/Endpoint"),
                [this](const QDBusMessage& call) {
                  const auto arguments = call.arguments();
                  question = arguments.at(0).toString().toStdString();
                  text = qdbus_cast<QVariantMap>(arguments.at(2))
                             .value(QStringLiteral("text"))
                             .toString()
                             .toStdString();
                  const auto pipe = arguments.at(1).value<QDBusUnixFileDescriptor>();
                  Write(pipe.fileDescriptor(), rows);
                  return call.createReply(QStringList{QStringLiteral("url")});
                }) {}
};

TEST(LocalSearch, AnswersUnderEitherNameAndTheTextIsNoPartOfTheQuestion) {
  EXPECT_FALSE(AskIndex("beach").has_value());
  for (const char* name :
       {"org.freedesktop.LocalSearch3", "org.freedesktop.Tracker3.Miner.Files"}) {
    Index index(name);
    index.rows = Row("file:///home/ann/My%20Beach.jpg") + Row("https://beach.example") +
                 Row("file:///home/ann/h%C3%B6he%20beach");
    const std::string hostile = "bea\") } DELETE { ?a ?b ?c";
    const Files files = AskIndex(hostile);
    ASSERT_TRUE(files.has_value());
    EXPECT_THAT(*files, ElementsAre(FolderItem("/home/ann/My Beach.jpg"),
                                    FolderItem("/home/ann/h\xC3\xB6he beach")));
    EXPECT_EQ(index.text, hostile);
    EXPECT_THAT(index.question, testing::Not(HasSubstr("DELETE")));
  }
}

TEST(LocalSearch, AnErrorIsNoAnswer) {
  Service broken(
      QStringLiteral("org.freedesktop.LocalSearch3"),
      QStringLiteral("/org/freedesktop/Tracker3/Endpoint"), [](const QDBusMessage& call) {
        return call.createErrorReply(QStringLiteral("org.example.Broken"), QStringLiteral("no"));
      });
  EXPECT_FALSE(AskIndex("beach").has_value());
}

std::vector<std::string> Search(const FolderItem& root, const char* text) {
  SpotlightQuery query;
  query.Roots = {root};
  query.Query = text;
  bool done = false;
  query.Completed = [&] { done = true; };
  query.Run();
  const QDeadlineTimer limit(20000);
  while (!done && !limit.hasExpired()) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  EXPECT_TRUE(done);
  std::vector<std::string> names;
  for (int i = 0; i < query.Count(); ++i) names.push_back(query.Item(i).Row()->Name);
  return names;
}

TEST(LocalSearch, AddsToTheWalkAndNeverEndsIt) {
  const TemporaryFolder folder;
  ASSERT_FALSE(folder.Child(".kept").CreateAsFolder());
  // Known to both, to the walk alone, to the index alone; gone, and of another name.
  for (const char* name : {"beach 1.jpg", "beach 2.jpg", ".kept/beach 3.jpg", "hill.jpg"}) {
    folder.Write(name, "x");
  }
  Index index("org.freedesktop.LocalSearch3");
  for (const char* name : {"beach 1.jpg", ".kept/beach 3.jpg", "hill.jpg", "beach-gone.jpg"}) {
    index.rows += Row(folder.Child(name).URLPath());
  }
  const TemporaryFolder elsewhere;
  index.rows += Row(elsewhere.Write("beach 4.jpg", "x").URLPath());
  EXPECT_THAT(Search(folder.Item(), "beach"),
              ElementsAre("beach 1.jpg", "beach 2.jpg", "beach 3.jpg"));
}

TEST(LocalSearch, ASilentIndexHoldsNothingUp) {
  const TemporaryFolder folder;
  folder.Write("beach.jpg", "x");
  // It begins an answer and never ends it.
  std::vector<QDBusUnixFileDescriptor> kept;
  const Service index(QStringLiteral("org.freedesktop.LocalSearch3"),
                      QStringLiteral("/org/freedesktop/Tracker3/Endpoint"),
                      [&](const QDBusMessage& call) {
                        kept.push_back(call.arguments().at(1).value<QDBusUnixFileDescriptor>());
                        return call.createReply(QStringList{QStringLiteral("url")});
                      });
  EXPECT_THAT(Search(folder.Item(), "beach"), ElementsAre("beach.jpg"));
  EXPECT_EQ(kept.size(), 1U);
}

}  // namespace
}  // namespace brivolant::test

/// A match of the desktop's launcher, as it travels: (sssida{sv}).
struct RunnerMatch {
  QString address;
};
using RunnerMatches = QList<RunnerMatch>;
Q_DECLARE_METATYPE(RunnerMatch)
QDBusArgument& operator<<(QDBusArgument& out, const RunnerMatch& match) {
  out.beginStructure();
  out << match.address << QStringLiteral("title") << QStringLiteral("icon") << 100 << 0.7
      << QVariantMap{{QStringLiteral("subtext"), QStringLiteral("~/Pictures")}};
  out.endStructure();
  return out;
}
const QDBusArgument& operator>>(const QDBusArgument& in, RunnerMatch&) {
  return in;
}

namespace brivolant::test {
namespace {

QDBusMessage Done(const QDBusMessage& call) {
  return call.createReply();
}

TEST(Baloo, IsAskedWhereItRunsAndItsMatchesAreFiles) {
  qDBusRegisterMetaType<RunnerMatch>();
  qDBusRegisterMetaType<RunnerMatches>();
  const auto ask = [] {
    return Ask<std::vector<FolderItem>>([] { return SearchIndex::AskBaloo("beach"); });
  };
  bool strange = false;
  Service runner(QStringLiteral("org.kde.runners.baloo"), QStringLiteral("/runner"),
                 [&](const QDBusMessage& call) {
                   if (strange) return call.createReply(QStringLiteral("another shape"));
                   return call.createReply(QVariant::fromValue(
                       RunnerMatches{{QStringLiteral("file:///home/ben/beach%201.jpg")},
                                     {QStringLiteral("https://beach.example")},
                                     {QStringLiteral("file:///home/ben/Beach")}}));
                 });
  EXPECT_THAT(ask(), IsEmpty());
  EXPECT_THAT(runner.calls, IsEmpty());
  Service index(QStringLiteral("org.kde.baloo"), QStringLiteral("/"), Done);
  EXPECT_THAT(ask(),
              ElementsAre(FolderItem("/home/ben/beach 1.jpg"), FolderItem("/home/ben/Beach")));
  strange = true;
  EXPECT_THAT(ask(), IsEmpty());
}

struct Background {
  QByteArray path = qgetenv("PATH");
  QByteArray desktop = qgetenv("XDG_CURRENT_DESKTOP");
  TemporaryFolder folder;
  FolderItem picture = FolderItem("/home/ann/it's \"me\".jpg");

  /// A program of that name that notes what it is asked, and fails if it is told to.
  void Settings(const char* desktops, int code) {
    const FolderItem program =
        folder.Write("gsettings", "#!/bin/sh\necho \"$@\" >>'" + folder.Child("asked").ShellPath() +
                                      "'\nexit " + std::to_string(code) + "\n");
    QFile::setPermissions(QFile::decodeName(program.Path().c_str()),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("PATH", QByteArray::fromStdString(folder.Item().ShellPath()) + ':' + path);
    qputenv("XDG_CURRENT_DESKTOP", desktops);
  }
  std::string Asked() const { return ReadFile(folder.Child("asked")).value_or(""); }
  bool Set() const {
    return Ask<bool>([this] { return FreedesktopDesktop().SetPicture(picture); });
  }
  ~Background() {
    qputenv("PATH", path);
    qputenv("XDG_CURRENT_DESKTOP", desktop);
  }
};

TEST(Background, GoesToTheSettingOfTheDesktopThatRuns) {
  Background t;
  t.Settings("", 0);
  EXPECT_FALSE(t.Set());
  EXPECT_EQ(t.Asked(), "");
  t.Settings("ubuntu:GNOME", 0);
  EXPECT_TRUE(t.Set());
  const std::string uri = t.picture.URLPath();
  EXPECT_EQ(t.Asked(), "set org.gnome.desktop.background picture-uri " + uri +
                           "\nset org.gnome.desktop.background picture-uri-dark " + uri + "\n");
  t.Settings("MATE", 0);
  EXPECT_TRUE(t.Set());
  EXPECT_THAT(t.Asked(),
              HasSubstr("org.mate.background picture-filename " + t.picture.ShellPath()));
  t.Settings("GNOME", 1);
  EXPECT_FALSE(t.Set());
}

TEST(Background, PlasmaIsAskedFirstAndANameCannotLeaveItsScript) {
  Background t;
  t.Settings("GNOME", 0);
  std::string script;
  Service plasma(QStringLiteral("org.kde.plasmashell"), QStringLiteral("/PlasmaShell"),
                 [&](const QDBusMessage& call) {
                   script = call.arguments().at(0).toString().toStdString();
                   return call.createReply(QString());
                 });
  plasma.xml = QStringLiteral(
      "<interface name='org.kde.PlasmaShell'><method name='evaluateScript'>"
      "<arg type='s' direction='in'/><arg type='s' direction='out'/></method></interface>");
  EXPECT_TRUE(t.Set());
  EXPECT_THAT(script, HasSubstr("writeConfig('Image', 'file://"));
  const std::size_t value = script.find("'file://");
  // The quote of the name does not end the text.
  EXPECT_EQ(script.substr(value).find("');"), script.substr(value).rfind("');"));
  EXPECT_EQ(t.Asked(), "");
}

}  // namespace
}  // namespace brivolant::test

int main(int argc, char** argv) {
  // Before anything asks for the session's bus.
  QProcess daemon;
  daemon.start(
      QStringLiteral("dbus-daemon"),
      {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
  if (!daemon.waitForStarted() || !daemon.waitForReadyRead(10000)) return 1;
  qputenv("DBUS_SESSION_BUS_ADDRESS", daemon.readLine().trimmed());
  QCoreApplication application(argc, argv);
  testing::InitGoogleMock(&argc, argv);
  const int code = RUN_ALL_TESTS();
  daemon.kill();
  daemon.waitForFinished();
  return code;
}
