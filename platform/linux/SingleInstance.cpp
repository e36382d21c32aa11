#include "platform/linux/SingleInstance.h"

#include "platform/linux/NewFolder.h"

#include <QCryptographicHash>
#include <QLocalSocket>
#include <QThread>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <sys/file.h>

namespace nookwise {
namespace {

constexpr auto tokenVariable = "XDG_ACTIVATION_TOKEN";
/// The longest line that another instance has reason to send.
constexpr qint64 longestToken = 4096;

QString socketName(const FileUrl& socket) {
    return QString::fromLocal8Bit(
        QByteArray(socket.path().data(), qsizetype(socket.path().size())));
}

/// Asks the instance that listens at `socket` to show itself. False when none listens.
bool askToShow(const FileUrl& socket) {
    constexpr int patience = 1000;  // milliseconds
    QLocalSocket other;
    other.connectToServer(socketName(socket));
    if (!other.waitForConnected(patience)) return false;
    other.write(qgetenv(tokenVariable) + '\n');
    return other.waitForBytesWritten(patience);
}

/// False while another instance holds the lock.
bool isOurs(const FileDescriptor& lock) {
    return !lock || ::flock(lock.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

}  // namespace

SingleInstance::Places SingleInstance::places(const FileUrl& ownFolder,
                                              const std::string& runtimeFolder) {
    if (!runtimeFolder.starts_with('/')) return {ownFolder, ownFolder.append("instance.socket")};
    // Addresses of sockets are short. One for each folder of files: other users of the machine and
    // the sample home have theirs.
    const auto path = ownFolder.path();
    const auto digest = QCryptographicHash::hash(
        QByteArrayView(path.data(), qsizetype(path.size())), QCryptographicHash::Sha256);
    const auto name = "nookwise-" + digest.toHex().left(16).toStdString();
    return {ownFolder, FileUrl(runtimeFolder).append(name)};
}

std::unique_ptr<SingleInstance> SingleInstance::claim(const Places& places) {
    (void)makeFolder(places.ownFolder, FolderAccess::ownerOnly);
    const std::string path(places.ownFolder.append("instance.lock").path());
    // The lock ends with the process, however that ends.
    FileDescriptor lock(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    // The other one may not listen yet, or be about to end.
    constexpr int attempts = 60;
    constexpr unsigned long pause = 50;  // milliseconds
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (isOurs(lock))
            return std::unique_ptr<SingleInstance>(new SingleInstance(std::move(lock), places));
        if (askToShow(places.socket)) return nullptr;
        QThread::msleep(pause);
    }
    std::fputs("nookwise: it is running already, but does not answer.\n", stderr);
    return nullptr;
}

SingleInstance::SingleInstance(FileDescriptor lock, const Places& places) : lock_(std::move(lock)) {
    if (!lock_) return;
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    // What is left there is of an instance that was killed: this one holds the lock.
    QLocalServer::removeServer(socketName(places.socket));
    server_.listen(socketName(places.socket));
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] {
        while (auto* socket = server_.nextPendingConnection()) {
            QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            QObject::connect(socket, &QLocalSocket::readyRead, &server_,
                             [this, socket] { hear(*socket); });
        }
    });
}

void SingleInstance::hear(QLocalSocket& socket) {
    if (!socket.canReadLine()) {
        if (socket.bytesAvailable() > longestToken) socket.abort();
        return;
    }
    const auto token = socket.readLine(longestToken).trimmed();
    // Without it, a desktop may refuse to bring a window to the front.
    if (!token.isEmpty()) qputenv(tokenVariable, token);
    if (show_) show_();
    qunsetenv(tokenVariable);
}

}  // namespace nookwise
