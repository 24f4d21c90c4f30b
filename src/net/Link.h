#pragma once
// One connection between two machines of a match, as messages: frames cut from the stream and
// decoded, each fault reported once, after which nothing more is read from it.
#include <QObject>
#include <QTcpSocket>

#include "net/Protocol.h"

namespace net {

class Link : public QObject {
    Q_OBJECT
public:
    // Takes `socket`, connected or still connecting; frames may be up to `largest` bytes.
    Link(QTcpSocket* socket, qint64 largest, QObject* parent = nullptr);
    void setLargest(qint64 bytes) { reader_.setLargest(bytes); }
    void send(const Message& message);
    // Sends `last`, if any, then closes; neither broken() nor lost() follows.
    void close(const std::optional<Message>& last);
    bool isOpen() const { return open_; }
    // What is held of the other end's messages not yet read through.
    qint64 buffered() const;
    QTcpSocket& socket() { return *socket_; }

signals:
    void received(const net::Message& message);
    // The other end sent something that is no message; nothing more is read.
    void broken(const QString& why);
    // The connection failed or the other end went away without a word.
    void lost(const QString& why);

private:
    void readAll();
    void fail(const QString& why);
    void onGone();

    QTcpSocket* socket_;
    FrameReader reader_;
    bool open_ = true;
    bool reading_ = true;
};

}  // namespace net
