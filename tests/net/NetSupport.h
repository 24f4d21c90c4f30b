#pragma once
// Shared ground for the network tests: a lobby, and a bare socket that speaks the protocol by
// hand (or not at all), as a hostile or broken machine would.
#include <gtest/gtest.h>

#include <QHostAddress>
#include <QTcpSocket>
#include <QTest>
#include <memory>

#include "net/Protocol.h"

namespace testing_support {

// Ann, Bo, Cy and Dee in their seats; `remote` are the seats other machines play.
inline net::Lobby TestLobby(game::GameType type, std::initializer_list<int> remote) {
    net::Lobby lobby;
    lobby.setup.settings.gameType = type;
    lobby.setup.seed = 99;
    lobby.setup.seats = {{{"Ann", "Classic Grumbo", {}},
                          {"Bo", "Robo Grumbo", {}},
                          {"Cy", "Dunik", {}},
                          {"Dee", "Space Grumbo", game::Skill::Hard}}};
    for (int seat : remote) lobby.remote[static_cast<std::size_t>(seat)] = true;
    return lobby;
}

class RawPeer {
public:
    // Connected to the host on `port` of this machine.
    explicit RawPeer(quint16 port) : RawPeer(new QTcpSocket) {
        socket_->connectToHost(QHostAddress::LocalHost, port);
        EXPECT_TRUE(socket_->waitForConnected(5000));
    }
    explicit RawPeer(QTcpSocket* connected) : socket_(connected) {}
    void Send(const net::Message& m) {
        socket_->write(net::frame(m));
        socket_->flush();
    }
    // The next message from the other end; none when nothing comes for 5 s.
    std::optional<net::Message> Next() {
        std::optional<QByteArray> text;
        if (!QTest::qWaitFor([&] { return (text = reader_.next(*socket_)).has_value(); }, 5000))
            return std::nullopt;
        return net::decode(*text).message;
    }
    bool Closed() {
        return QTest::qWaitFor(
            [&] { return socket_->state() == QAbstractSocket::UnconnectedState; }, 5000);
    }

private:
    std::unique_ptr<QTcpSocket> socket_;
    net::FrameReader reader_;
};

}  // namespace testing_support
