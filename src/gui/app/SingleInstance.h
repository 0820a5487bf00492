#pragma once
// One Velto per user: a program started while another runs hands its files to the running one over a
// local socket and ends; the running one opens them in windows of its own and comes to the front. A
// socket left behind by a Velto that crashed is taken over.
#include <QObject>
#include <QStringList>

class QLocalServer;
class QLocalSocket;

namespace velto {

class SingleInstance : public QObject {
    Q_OBJECT
public:
    // How long a new program waits for the running one to answer.
    static constexpr int kAnswerTimeoutMs = 3000;

    // name: the socket's name; the default one is the user's own.
    explicit SingleInstance(QString name = UserSocketName(), QObject* parent = nullptr);
    ~SingleInstance() override;

    // The socket name of this user, the same for every Velto the user starts.
    static QString UserSocketName();

    // Hands the files (absolute paths) to a running Velto; false when none answered.
    bool HandOver(const QStringList& files);
    // Becomes the running Velto that others hand their files to; false when the socket cannot be had.
    bool Listen();

signals:
    // Another program handed these files over (none: it was started without files).
    void filesHandedOver(const QStringList& files);

private:
    void Accept();
    void ReadRequest(QLocalSocket* socket);

    QString m_name;
    QLocalServer* m_server = nullptr;
};

} // namespace velto
