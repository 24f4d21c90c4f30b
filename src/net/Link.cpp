#include "net/Link.h"

namespace net {

Link::Link(QTcpSocket* socket, qint64 largest, QObject* parent)
    : QObject(parent), socket_(socket), reader_(largest) {
    socket_->setParent(this);
    // Without a bound the socket would take in all the other end sends while a frame it will
    // refuse is still arriving.
    socket_->setReadBufferSize(kLargestMessage);
    // Messages are small and each is wanted at once: no waiting to gather them into one packet.
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(socket_, &QTcpSocket::connected, this,
            [this] { socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1); });
    connect(socket_, &QTcpSocket::readyRead, this, &Link::readAll);
    connect(socket_, &QTcpSocket::disconnected, this, &Link::onGone);
    connect(socket_, &QTcpSocket::errorOccurred, this, &Link::onGone);
}

void Link::send(const Message& message) {
    if (open_) socket_->write(frame(message));
}

void Link::close(const std::optional<Message>& last) {
    if (!open_) return;
    if (last) send(*last);
    open_ = reading_ = false;
    // Into the system's buffers now: the owner may delete the link as soon as this returns.
    socket_->flush();
    socket_->disconnectFromHost();
}

qint64 Link::buffered() const { return reader_.buffered() + socket_->bytesAvailable(); }

void Link::readAll() {
    while (reading_ && open_) {
        const std::optional<QByteArray> text = reader_.next(*socket_);
        if (!text) {
            if (!reader_.error().isEmpty()) fail(reader_.error());
            return;
        }
        const Decoded d = decode(*text);
        if (!d.message) return fail(d.error);
        emit received(*d.message);
    }
}

void Link::fail(const QString& why) {
    reading_ = false;
    emit broken(why);
}

void Link::onGone() {
    if (!open_) return;
    // Its last words may still wait in the socket.
    readAll();
    if (!open_ || !reading_) return;
    if (socket_->state() == QAbstractSocket::ConnectedState) return;
    open_ = reading_ = false;
    const QString why = socket_->error() == QAbstractSocket::RemoteHostClosedError ||
                                socket_->error() == QAbstractSocket::UnknownSocketError
                            ? QStringLiteral("the connection closed")
                            : socket_->errorString();
    emit lost(why);
}

}  // namespace net
