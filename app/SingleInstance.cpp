#include "app/SingleInstance.h"

#include <unistd.h>

#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>

namespace vellumo {

namespace {

// What a later start sends: a version, the --recursive flag, the paths.
constexpr quint32 kHandOverVersion = 1;
constexpr int kWaitMilliseconds = 3000;

// The socket's path: in the user's runtime folder (private to the user and
// emptied at logout), or beside Qt's temporary files with the user's id.
QString ServerName() {
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (!runtime.isEmpty()) {
        return QDir(runtime).filePath(QStringLiteral("org.vellumo.Vellumo.socket"));
    }
    return QStringLiteral("org.vellumo.Vellumo-%1").arg(::getuid());
}

}  // namespace

SingleInstance::SingleInstance(QObject* parent) : QObject(parent) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, &SingleInstance::Accept);
}

bool SingleInstance::HandOver(const QStringList& paths, bool recursive) {
    QLocalSocket socket;
    socket.connectToServer(ServerName());
    if (!socket.waitForConnected(kWaitMilliseconds)) {
        return false;
    }
    QStringList absolute;
    for (const QString& path : paths) {
        absolute << QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    }
    QByteArray message;
    QDataStream out(&message, QIODevice::WriteOnly);
    out << kHandOverVersion << recursive << absolute;
    socket.write(message);
    // The window answers once it has the paths: only then is this start
    // done with.
    if (!socket.waitForBytesWritten(kWaitMilliseconds) ||
        !socket.waitForReadyRead(kWaitMilliseconds)) {
        return false;
    }
    return socket.read(1) == "1";
}

bool SingleInstance::Listen() {
    if (server_.listen(ServerName())) {
        return true;
    }
    // No one answered HandOver(), so the socket left behind is a crashed
    // window's: take its place.
    QLocalServer::removeServer(ServerName());
    return server_.listen(ServerName());
}

void SingleInstance::Accept() {
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        auto* in = new QDataStream(socket);
        connect(socket, &QObject::destroyed, socket, [in] { delete in; });
        connect(socket, &QLocalSocket::readyRead, this, [this, socket, in] {
            in->startTransaction();
            quint32 version = 0;
            bool recursive = false;
            QStringList paths;
            *in >> version >> recursive >> paths;
            if (!in->commitTransaction()) {
                return;  // the rest is still coming
            }
            if (version != kHandOverVersion) {
                socket->disconnectFromServer();
                return;
            }
            socket->write("1");
            socket->flush();
            Q_EMIT pathsArrived(paths, recursive);
        });
    }
}

}  // namespace vellumo
