#include "platform/linux/Reveal.h"
#include "tests/platform_linux/Events.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <optional>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

const QString viewerName = QStringLiteral("org.freedesktop.FileManager1");

/// A session bus of the tests' own: there may be none, and the user's is not for tests.
class Bus {
  public:
    Bus() {
        daemon_.start(QStringLiteral("dbus-daemon"),
                      {QStringLiteral("--session"), QStringLiteral("--print-address"),
                       QStringLiteral("--nofork")});
        if (daemon_.waitForStarted() && daemon_.waitForReadyRead())
            qputenv("DBUS_SESSION_BUS_ADDRESS", daemon_.readLine().trimmed());
    }
    ~Bus() {
        daemon_.kill();
        daemon_.waitForFinished();
    }
    bool isRunning() const { return daemon_.state() == QProcess::Running; }

  private:
    QProcess daemon_;
};

/// A file viewer that remembers what it was asked to show.
class FileViewer : public QDBusVirtualObject {
  public:
    FileViewer()
        : connection_(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                                    QStringLiteral("viewer"))) {
        connection_.registerVirtualObject(QStringLiteral("/org/freedesktop/FileManager1"), this);
        isRegistered = connection_.registerService(viewerName);
    }
    ~FileViewer() override {
        connection_.unregisterService(viewerName);
        QDBusConnection::disconnectFromBus(QStringLiteral("viewer"));
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        if (message.member() != QLatin1String("ShowItems")) return false;
        shown = message.arguments().constFirst().toStringList();
        return connection.send(message.createReply());
    }

    bool isRegistered = false;
    std::optional<QStringList> shown;

  private:
    QDBusConnection connection_;
};

class Reveal : public testing::Test {
  protected:
    void SetUp() override {
        if (QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty())
            GTEST_SKIP() << "dbus-daemon is not installed";
        static Bus bus;
        ASSERT_TRUE(bus.isRunning());
    }

    void reveal(const std::vector<FileUrl>& urls) {
        revealInFileViewer(urls, [this](const FileUrl& folder) { opened_ = folder; });
    }

    std::optional<FileUrl> opened_;
};

TEST_F(Reveal, hasTheFileViewerShowTheFilesInOrderByTheirUrls) {
    FileViewer viewer;
    ASSERT_TRUE(viewer.isRegistered);
    reveal({FileUrl("/Trash/files/b 100%\xff"), FileUrl("/Trash/files/a")});
    runEventsUntil([&] { return viewer.shown.has_value(); });
    EXPECT_EQ(*viewer.shown,
              (QStringList{"file:///Trash/files/b%20100%25%FF", "file:///Trash/files/a"}));
    EXPECT_FALSE(opened_);
}

TEST_F(Reveal, opensTheFolderWhereThereIsNoFileViewer) {
    reveal({FileUrl("/Trash/files/a"), FileUrl("/elsewhere/b")});
    EXPECT_FALSE(opened_) << "it does not wait";
    runEventsUntil([&] { return opened_.has_value(); });
    EXPECT_EQ(*opened_, FileUrl("/Trash/files"));
}

TEST_F(Reveal, ofNothingDoesNothing) {
    FileViewer viewer;
    reveal({});
    reveal({FileUrl("/a")});
    runEventsUntil([&] { return viewer.shown.has_value(); });
    EXPECT_EQ(viewer.shown->size(), 1) << "the first call was the second request";
}

}  // namespace
}  // namespace nookwise
