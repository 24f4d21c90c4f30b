// A host and its joiners on this machine's loopback, driven by the event loop; the waits of the
// match (silence in a turn, a greeting that never comes, ticks) run on the virtual clock.
#include <QTcpServer>
#include <QTest>
#include <QtEndian>

#include "gtest/gtest.h"
#include "net/Guest.h"
#include "net/Host.h"
#include "net/NetSupport.h"
#include "ui/Clock.h"

using game::Command;
using game::GameType;
using namespace net;
using testing_support::RawPeer;
using testing_support::TestLobby;

namespace {

const QString kCode = QStringLiteral("otter lamp brave");
const std::vector<FileDigest> kData = {{"characters/Dunik.bmp", 11}, {"sounds/throw.wav", 7}};

template <class T>
T As(const std::optional<Message>& m) {
    EXPECT_TRUE(m && std::holds_alternative<T>(*m)) << (m ? kindOf(*m) : "nothing");
    return m && std::holds_alternative<T>(*m) ? std::get<T>(*m) : T();
}

bool Wait(const std::function<bool()>& done) { return QTest::qWaitFor(done, 5000); }

class Session : public ::testing::Test {
protected:
    struct Joiner {
        std::unique_ptr<Guest> guest;
        QStringList refused, hostLeft;
        std::vector<Command> commands;
        std::vector<int> mismatches;
        int tick = -1;
        bool welcomed = false, started = false;
    };

    Session() {
        ui::setClock(&clock);
        host.setMatchClock([this] { return hostTime; });
        QObject::connect(&host, &Host::command,
                         [this](const Command& c) { hostCommands.push_back(c); });
        QObject::connect(&host, &Host::turnedAway,
                         [this](const QString& why) { turnedAway << why; });
        QObject::connect(&host, &Host::left,
                         [this](int seat, const QString& name, const QString& why) {
                             left.push_back({seat, name, why});
                         });
        QObject::connect(&host, &Host::digestMismatch, [this](int seat, int at) {
            mismatches.push_back({seat, at});
        });
    }
    ~Session() override { ui::setClock(nullptr); }

    Joiner& Join(const QString& name, const QString& code = kCode, const QString& version = "2.0.0",
                 const std::vector<FileDigest>& data = kData, quint16 port = 0) {
        auto j = std::make_unique<Joiner>();
        j->guest = std::make_unique<Guest>(version, data);
        Joiner* p = j.get();
        Guest* g = j->guest.get();
        QObject::connect(g, &Guest::refused, [p](const QString& why) { p->refused << why; });
        QObject::connect(g, &Guest::hostLeft, [p](const QString& why) { p->hostLeft << why; });
        QObject::connect(g, &Guest::command, [p](const Command& c) { p->commands.push_back(c); });
        QObject::connect(g, &Guest::digestMismatch, [p](int at) { p->mismatches.push_back(at); });
        QObject::connect(g, &Guest::tick, [p](int at) { p->tick = at; });
        QObject::connect(g, &Guest::welcomed, [p] { p->welcomed = true; });
        QObject::connect(g, &Guest::started, [p] { p->started = true; });
        g->join(QStringLiteral("127.0.0.1:%1").arg(port ? port : host.port()), code, name);
        joiners.push_back(std::move(j));
        return *p;
    }
    // Al in seat 2 and Bea in seat 3 of a "2 vs 2", the match begun.
    std::pair<Joiner*, Joiner*> StartTwo() {
        EXPECT_TRUE(host.open(TestLobby(GameType::TwoVsTwo, {1, 2}), kCode, 0));
        Joiner& a = Join("Al");
        EXPECT_TRUE(Wait([&] { return a.welcomed; }));
        Joiner& b = Join("Bea");
        EXPECT_TRUE(Wait([&] { return b.welcomed; }));
        EXPECT_TRUE(host.start()) << host.error().toStdString();
        EXPECT_TRUE(Wait([&] { return a.started && b.started; }));
        return {&a, &b};
    }

    ui::VirtualClock clock;  // first, so that it outlives every timer
    int hostTime = 0;
    Host host{"2.0.0", kData};
    std::vector<Command> hostCommands;
    QStringList turnedAway;
    struct Left {
        int seat;
        QString name, why;
    };
    std::vector<Left> left;
    std::vector<std::pair<int, int>> mismatches;
    std::vector<std::unique_ptr<Joiner>> joiners;
};

TEST_F(Session, CommandsReachEveryMachineInOneOrderWithTheHostsStamps) {
    ASSERT_TRUE(host.open(TestLobby(GameType::TwoVsTwo, {1, 2}), kCode, 0));
    EXPECT_FALSE(host.start());  // seats still wait
    Joiner& a = Join("Al", "  Otter LAMP brave ");
    ASSERT_TRUE(Wait([&] { return a.welcomed; })) << a.refused.join(";").toStdString();
    Joiner& b = Join("Bea");
    ASSERT_TRUE(Wait([&] { return b.welcomed; }));
    EXPECT_EQ(a.guest->seat(), 1);
    EXPECT_EQ(b.guest->seat(), 2);
    ASSERT_TRUE(b.guest->chooseSeat("Bea", "Sorcerer Grumbo"));
    // Every joiner sees the lobby change.
    ASSERT_TRUE(Wait([&] {
        return a.guest->lobby().setup.seats[2].character == QLatin1String("Sorcerer Grumbo");
    }));
    EXPECT_EQ(host.lobby().setup.seats[1].name, "Al");
    ASSERT_TRUE(host.start());
    ASSERT_TRUE(Wait([&] { return a.started && b.started; }));
    EXPECT_EQ(b.guest->lobby(), host.lobby());

    hostTime = 1500;
    EXPECT_TRUE(a.guest->send({3, 1, Command::Kind::Angle, "45", 0}));
    EXPECT_TRUE(b.guest->send({4, 2, Command::Kind::Throw, "", 0}));
    EXPECT_TRUE(host.send({0, 0, Command::Kind::KeyDown, "", 27}));
    EXPECT_TRUE(host.send({0, 3, Command::Kind::Choose, "", 1}));
    EXPECT_FALSE(host.send({0, 1, Command::Kind::Throw, "", 0}));  // Al's seat is Al's
    EXPECT_FALSE(a.guest->send({0, 2, Command::Kind::Throw, "", 0}));
    ASSERT_TRUE(Wait([&] { return a.commands.size() == 4 && b.commands.size() == 4; }));
    hostTime = 2000;
    EXPECT_TRUE(a.guest->send({0, 1, Command::Kind::Velocity, "60", 0}));
    ASSERT_TRUE(Wait([&] { return a.commands.size() == 5 && b.commands.size() == 5; }));

    EXPECT_EQ(a.commands, hostCommands);
    EXPECT_EQ(b.commands, hostCommands);
    std::vector<int> stamps, seats;
    for (const Command& c : hostCommands) stamps.push_back(c.at), seats.push_back(c.seat);
    EXPECT_EQ(stamps, (std::vector<int>{1500, 1500, 1500, 1500, 2000}));
    std::sort(seats.begin(), seats.end());
    EXPECT_EQ(seats, (std::vector<int>{0, 1, 1, 2, 3}));

    hostTime = 2100;
    clock.advance(Host::kTickMs);
    EXPECT_TRUE(Wait([&] { return a.tick == 2100 && b.tick == 2100; }));
}

TEST_F(Session, DigestsThatDifferAreReportedOnBothSides) {
    auto [a, b] = StartTwo();
    host.submitDigest(3000, 0xabc);
    a->guest->submitDigest(3000, 0xabc);
    b->guest->submitDigest(3000, 0xdef);
    ASSERT_TRUE(Wait([&] { return !mismatches.empty() && !b->mismatches.empty(); }));
    // Al's digest and the host's have crossed once his command is back.
    a->guest->send({0, 1, Command::Kind::Throw, "", 0});
    ASSERT_TRUE(Wait([&] { return a->commands.size() == 1; }));
    EXPECT_EQ(mismatches, (std::vector<std::pair<int, int>>{{2, 3000}}));
    EXPECT_EQ(b->mismatches, std::vector<int>{3000});
    EXPECT_TRUE(a->mismatches.empty());
}

TEST_F(Session, RefusesWrongCodeOtherVersionsOtherDataAndAFullMatch) {
    ASSERT_TRUE(host.open(TestLobby(GameType::OneVsOne, {1}), kCode, 0));
    std::vector<FileDigest> otherData = kData;
    otherData[1].hash = 8;
    const struct {
        Joiner& joiner;
        const char* says;
    } rows[] = {
        {Join("Al", "otter lamp"), "wrong join code"},
        {Join("Al", kCode, "1.9.0"),
         "the host plays version 2.0.0 of the game, the joining computer 1.9.0"},
        {Join("Al", kCode, "2.0.0", otherData), "sounds/throw.wav differs"},
    };
    for (const auto& row : rows) {
        ASSERT_TRUE(Wait([&] { return !row.joiner.refused.isEmpty(); }));
        EXPECT_TRUE(row.joiner.refused[0].contains(QLatin1String(row.says)))
            << row.joiner.refused[0].toStdString();
        EXPECT_FALSE(row.joiner.welcomed);
    }
    RawPeer future(host.port());
    future.Send(Hello{2, "3.0.0", kCode, "Al", {}});
    EXPECT_TRUE(As<Refused>(future.Next()).reason.contains(QLatin1String("network version 1")));

    Joiner& al = Join("Al");
    ASSERT_TRUE(Wait([&] { return al.welcomed; }));
    Joiner& late = Join("Bo");
    ASSERT_TRUE(Wait([&] { return !late.refused.isEmpty(); }));
    EXPECT_EQ(late.refused[0], "the match is full");
    EXPECT_EQ(turnedAway.size(), 5);
}

TEST_F(Session, GarbageAndHugeFramesCostTheHostNothing) {
    ASSERT_TRUE(host.open(TestLobby(GameType::OneVsOne, {1}), kCode, 0));
    RawPeer web(host.port());
    web.SendBytes("GET / HTTP/1.1\r\nHost: grumbo\r\n\r\n");
    EXPECT_TRUE(web.Closed());
    RawPeer junk(host.port());
    junk.SendBytes(QByteArray("\0\0\0\4\xff\xfe\xfd\xfc", 8));
    EXPECT_TRUE(junk.Closed());

    RawPeer huge(host.port());
    QByteArray header(4, '\0');
    qToBigEndian<quint32>(100u << 20, header.data());
    huge.SendBytes(header);
    for (int i = 0; i < 32; ++i) huge.SendBytes(QByteArray(64 * 1024, 'x'));
    qint64 most = 0;
    EXPECT_TRUE(Wait([&] {
        most = std::max(most, host.bufferedBytes());
        return huge.socket().state() == QAbstractSocket::UnconnectedState ||
               most > kLargestGreeting;
    }));
    EXPECT_LT(most, kLargestMessage);
    ASSERT_EQ(turnedAway.size(), 3);
    EXPECT_TRUE(turnedAway[2].contains(QLatin1String("104857600"))) << turnedAway[2].toStdString();
    // The host still seats a proper joiner.
    Joiner& al = Join("Al");
    EXPECT_TRUE(Wait([&] { return al.welcomed; }));
}

TEST_F(Session, MessagesOutOfOrderEndTheConversation) {
    ASSERT_TRUE(host.open(TestLobby(GameType::OneVsOne, {1}), kCode, 0));
    RawPeer early(host.port());
    early.Send(CommandMessage{{0, 1, Command::Kind::Throw, "", 0}});
    EXPECT_EQ(As<Refused>(early.Next()).reason, "\"command\" before hello");
    EXPECT_TRUE(early.Closed());

    // A host that breaks the order, played by hand.
    QTcpServer fake;
    ASSERT_TRUE(fake.listen(QHostAddress::LocalHost, 0));
    Joiner& first = Join("Al", kCode, "2.0.0", kData, fake.serverPort());
    ASSERT_TRUE(Wait([&] { return fake.hasPendingConnections(); }));
    RawPeer byHand(fake.nextPendingConnection());
    As<Hello>(byHand.Next());
    byHand.Send(CommandMessage{{10, 0, Command::Kind::Throw, "", 0}});
    ASSERT_TRUE(Wait([&] { return !first.refused.isEmpty(); }));
    EXPECT_TRUE(first.refused[0].contains(QLatin1String("\"command\" before the start")));
    EXPECT_EQ(As<Bye>(byHand.Next()).reason, "\"command\" before the start");

    Joiner& second = Join("Al", kCode, "2.0.0", kData, fake.serverPort());
    ASSERT_TRUE(Wait([&] { return fake.hasPendingConnections(); }));
    RawPeer again(fake.nextPendingConnection());
    As<Hello>(again.Next());
    const Lobby lobby = TestLobby(GameType::OneVsOne, {1});
    again.Send(Welcome{1, lobby});
    again.Send(Start{lobby});
    again.Send(CommandMessage{{500, 0, Command::Kind::Throw, "", 0}});
    again.Send(CommandMessage{{400, 0, Command::Kind::Throw, "", 0}});
    ASSERT_TRUE(Wait([&] { return !second.hostLeft.isEmpty(); }));
    EXPECT_TRUE(second.hostLeft[0].contains(QLatin1String("earlier than the last")));
    EXPECT_EQ(second.commands.size(), 1u);
}

TEST_F(Session, ACommandForAnotherSeatSendsTheJoinerAway) {
    ASSERT_TRUE(host.open(TestLobby(GameType::OneVsOne, {1}), kCode, 0));
    RawPeer raw(host.port());
    raw.Send(Hello{1, "2.0.0", kCode, "Rawley", kData});
    EXPECT_EQ(As<Welcome>(raw.Next()).seat, 1);
    ASSERT_TRUE(host.start());
    As<Start>(raw.Next());
    raw.Send(CommandMessage{{0, 0, Command::Kind::Throw, "", 0}});
    EXPECT_EQ(As<Bye>(raw.Next()).reason, "a command for player 1, whose seat is not yours");
    EXPECT_TRUE(raw.Closed());
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(left[0].seat, 1);
    EXPECT_EQ(left[0].name, "Rawley");
    EXPECT_TRUE(hostCommands.empty());
}

TEST_F(Session, JoinersThatLeaveOrDropAreNamed) {
    ASSERT_TRUE(host.open(TestLobby(GameType::TwoVsTwo, {1, 2}), kCode, 0));
    Joiner& al = Join("Al");
    ASSERT_TRUE(Wait([&] { return al.welcomed; }));
    RawPeer raw(host.port());
    raw.Send(Hello{1, "2.0.0", kCode, "Rawley", kData});
    ASSERT_TRUE(Wait([&] { return host.taken(2); }));
    ASSERT_TRUE(host.start());
    al.guest->leave("off to bed");
    ASSERT_TRUE(Wait([&] { return left.size() == 1; }));
    raw.socket().abort();
    ASSERT_TRUE(Wait([&] { return left.size() == 2; }));
    EXPECT_EQ(left[0].seat, 1);
    EXPECT_EQ(left[0].name, "Al");
    EXPECT_EQ(left[0].why, "off to bed");
    EXPECT_EQ(left[1].seat, 2);
    EXPECT_EQ(left[1].name, "Rawley");
}

TEST_F(Session, AJoinerLearnsThatTheHostLeft) {
    auto [a, b] = StartTwo();
    host.close("the host quit");
    EXPECT_TRUE(Wait([&] { return a->hostLeft == QStringList{"the host quit"}; }));

    // A host whose machine dies says nothing.
    QTcpServer fake;
    ASSERT_TRUE(fake.listen(QHostAddress::LocalHost, 0));
    Joiner& j = Join("Al", kCode, "2.0.0", kData, fake.serverPort());
    ASSERT_TRUE(Wait([&] { return fake.hasPendingConnections(); }));
    RawPeer byHand(fake.nextPendingConnection());
    As<Hello>(byHand.Next());
    const Lobby lobby = TestLobby(GameType::OneVsOne, {1});
    byHand.Send(Welcome{1, lobby});
    byHand.Send(Start{lobby});
    ASSERT_TRUE(Wait([&] { return j.started; }));
    byHand.socket().abort();
    ASSERT_TRUE(Wait([&] { return !j.hostLeft.isEmpty(); }));
    EXPECT_TRUE(j.hostLeft[0].startsWith(QLatin1String("the host is gone")));
}

TEST_F(Session, SilenceInAJoinersTurnSendsHimAwayOnTheVirtualClock) {
    ASSERT_TRUE(host.open(TestLobby(GameType::TwoVsTwo, {1, 2}), kCode, 0));
    RawPeer mute(host.port());
    clock.advance(Host::kGreetingMs + 1000);
    EXPECT_EQ(As<Refused>(mute.Next()).reason, "no hello within 10 s");

    RawPeer raw(host.port());
    raw.Send(Hello{1, "2.0.0", kCode, "Rawley", kData});
    ASSERT_TRUE(Wait([&] { return host.taken(1); }));
    Joiner& al = Join("Al");
    ASSERT_TRUE(Wait([&] { return al.welcomed; }));
    ASSERT_TRUE(host.start());
    host.setTurn(0);
    clock.advance(40'000);
    // Al's machine shows it is there, though Al does nothing.
    host.setTurn(2);
    clock.advance(60'000);
    EXPECT_TRUE(left.empty());

    host.setTurn(1);
    clock.advance(29'000);
    raw.Send(CommandMessage{{0, 1, Command::Kind::Angle, "4", 0}});
    ASSERT_TRUE(Wait([&] { return hostCommands.size() == 1; }));
    clock.advance(29'000);
    EXPECT_TRUE(left.empty());
    clock.advance(1'500);
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(left[0].seat, 1);
    EXPECT_EQ(left[0].why, "nothing heard from Rawley's computer for 30 s in his turn");
}

}  // namespace
