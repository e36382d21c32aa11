#include "platform/linux/Reveal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <utility>

#include <gio/gio.h>

namespace nookwise {
namespace {

QDBusMessage showItems(const std::vector<FileUrl>& urls) {
    QStringList uris;
    uris.reserve(static_cast<qsizetype>(urls.size()));
    // URLs are plain ASCII, whatever bytes the names have.
    for (const auto& url : urls) uris << QString::fromStdString(url.urlString());
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
                                               QStringLiteral("/org/freedesktop/FileManager1"),
                                               QStringLiteral("org.freedesktop.FileManager1"),
                                               QStringLiteral("ShowItems"));
    call << uris << qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    return call;
}

}  // namespace

bool openWithDesktop(const FileUrl& url) {
    return g_app_info_launch_default_for_uri(url.urlString().c_str(), nullptr, nullptr) != FALSE;
}

void revealInFileViewer(const std::vector<FileUrl>& urls, OpenFolder openFolder) {
    if (urls.empty()) return;
    auto* watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(showItems(urls)));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [watcher, folder = urls.front().parent(), openFolder = std::move(openFolder)] {
                         if (QDBusPendingReply<>(*watcher).isError()) openFolder(folder);
                         watcher->deleteLater();
                     });
}

}  // namespace nookwise
