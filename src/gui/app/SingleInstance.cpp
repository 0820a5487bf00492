#include "app/SingleInstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>

#include <optional>

namespace velto {

namespace {

// The request: this line, one line per file (UTF-8), and an empty line; the answer: kAcceptedLine.
constexpr char kRequestLine[] = "velto-open";
constexpr char kAcceptedLine[] = "ok";

QByteArray Request(const QStringList& files) {
    QByteArray request = QByteArray(kRequestLine) + '\n';
    for (const QString& file : files)
        request += QFileInfo(file).absoluteFilePath().toUtf8() + '\n';
    return request + '\n';
}

// The files of a complete request; nothing while it is still arriving.
std::optional<QStringList> FilesOf(const QByteArray& received) {
    if (!received.endsWith("\n\n"))
        return std::nullopt;
    QList<QByteArray> lines = received.split('\n');
    if (lines.isEmpty() || lines.front() != kRequestLine)
        return QStringList();
    QStringList files;
    for (qsizetype i = 1; i < lines.size(); ++i)
        if (!lines[i].isEmpty())
            files.append(QString::fromUtf8(lines[i]));
    return files;
}

} // namespace

SingleInstance::SingleInstance(QString name, QObject* parent) : QObject(parent), m_name(std::move(name)) {}

SingleInstance::~SingleInstance() = default;

QString SingleInstance::UserSocketName() {
    // The home folder tells users apart on every platform; its hash keeps the name short and plain.
    const QByteArray home = QCryptographicHash::hash(QDir::homePath().toUtf8(), QCryptographicHash::Sha1);
    return QStringLiteral("velto-") + QString::fromLatin1(home.toHex().left(16));
}

bool SingleInstance::HandOver(const QStringList& files) {
    QLocalSocket socket;
    socket.connectToServer(m_name);
    if (!socket.waitForConnected(kAnswerTimeoutMs))
        return false;
    socket.write(Request(files));
    if (!socket.waitForBytesWritten(kAnswerTimeoutMs))
        return false;
    QByteArray answer;
    while (!answer.contains('\n') && socket.waitForReadyRead(kAnswerTimeoutMs))
        answer += socket.readAll();
    return answer.startsWith(kAcceptedLine);
}

bool SingleInstance::Listen() {
    m_server = new QLocalServer(this);
    // Only this user may hand files over.
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, &SingleInstance::Accept);
    if (m_server->listen(m_name))
        return true;
    // Nobody answered on the socket (HandOver was tried first), so it is one a crashed Velto left.
    QLocalServer::removeServer(m_name);
    return m_server->listen(m_name);
}

void SingleInstance::Accept() {
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { ReadRequest(socket); });
    }
}

void SingleInstance::ReadRequest(QLocalSocket* socket) {
    QByteArray received = socket->property("received").toByteArray() + socket->readAll();
    socket->setProperty("received", received);
    const std::optional<QStringList> files = FilesOf(received);
    if (!files)
        return;
    socket->write(QByteArray(kAcceptedLine) + '\n');
    socket->flush();
    socket->disconnectFromServer();
    emit filesHandedOver(*files);
}

} // namespace velto
