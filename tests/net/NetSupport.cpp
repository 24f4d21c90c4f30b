#include "net/NetSupport.h"

#include <QHostAddress>
#include <QTest>

#include "gtest/gtest.h"

namespace testing_support {

net::Lobby TestLobby(game::GameType type, std::initializer_list<int> remote) {
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

RawPeer::RawPeer(quint16 port) : socket_(std::make_unique<QTcpSocket>()) {
    socket_->connectToHost(QHostAddress::LocalHost, port);
    if (!QTest::qWaitFor([&] { return socket_->state() == QAbstractSocket::ConnectedState; }, 5000))
        ADD_FAILURE() << "no connection to port " << port;
}

void RawPeer::SendBytes(const QByteArray& bytes) {
    socket_->write(bytes);
    socket_->flush();
}

std::optional<net::Message> RawPeer::Next() {
    std::optional<QByteArray> text;
    if (!QTest::qWaitFor([&] { return (text = reader_.next(*socket_)).has_value(); }, 5000))
        return std::nullopt;
    return net::decode(*text).message;
}

bool RawPeer::Closed() {
    return QTest::qWaitFor([&] { return socket_->state() == QAbstractSocket::UnconnectedState; },
                           5000);
}

}  // namespace testing_support
