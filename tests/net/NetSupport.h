#pragma once
// Shared ground for the network tests: a lobby, and a bare socket that speaks the protocol by
// hand (or not at all), as a hostile or broken machine would.
#include <QTcpSocket>
#include <initializer_list>
#include <memory>
#include <optional>

#include "net/Protocol.h"

namespace testing_support {

// Ann, Bo, Cy and Dee in their seats; `remote` are the seats other machines play.
net::Lobby TestLobby(game::GameType type, std::initializer_list<int> remote);

class RawPeer {
public:
    // Connects to the host on `port` of this machine.
    explicit RawPeer(quint16 port);
    // Takes a socket already connected.
    explicit RawPeer(QTcpSocket* socket) : socket_(socket) {}
    void Send(const net::Message& m) { SendBytes(net::frame(m)); }
    void SendBytes(const QByteArray& bytes);
    // The next message from the other end; none when it closes or says nothing for 5 s.
    std::optional<net::Message> Next();
    // Waits for the other end to close the connection.
    bool Closed();
    QTcpSocket& socket() { return *socket_; }

private:
    std::unique_ptr<QTcpSocket> socket_;
    net::FrameReader reader_{net::kLargestMessage};
};

}  // namespace testing_support
