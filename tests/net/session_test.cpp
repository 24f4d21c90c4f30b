// A host and its joiners on this machine's loopback, driven by the event loop; the waits of the
// match (silence in a turn, a greeting that never comes, ticks) run on the virtual clock.
#include <QTcpServer>

#include "net/Guest.h"
#include "net/Host.h"
#include "net/NetSupport.h"
#include "ui/Clock.h"

using game::Command;
using game::GameType;
using namespace net;
using namespace testing_support;
using Kind = game::Command::Kind;

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
        Joiner(const QString& version, const std::vector<FileDigest>& data)
            : guest(version, data) {}
        Guest guest;
        QStringList refused, hostLeft, othersLeft;
        std::vector<Command> commands;
        std::vector<int> mismatches;
        int tick = -1;
        bool welcomed = false, started = false;
    };

    Session() {
        ui::setClock(&clock);
        host.setMatchClock([this] { return hostTime; });
        QObject::connect(&host, &Host::command,
                         [this](const Command& c) { commands.push_back(c); });
        QObject::connect(&host, &Host::turnedAway,
                         [this](const QString& why) { turnedAway << why; });
        QObject::connect(&host, &Host::left,
                         [this](int seat, const QString& name, const QString& why) {
                             left << QStringLiteral("%1 %2: %3").arg(seat).arg(name, why);
                         });
        QObject::connect(&host, &Host::digestMismatch, [this](int seat, int at) {
            mismatches.push_back({seat, at});
        });
    }
    ~Session() override { ui::setClock(nullptr); }

    Joiner& Join(const QString& name, const QString& code = kCode, const QString& version = "2.0.0",
                 const std::vector<FileDigest>& data = kData, quint16 port = 0) {
        Joiner* j = joiners.emplace_back(std::make_unique<Joiner>(version, data)).get();
        Guest* g = &j->guest;
        QObject::connect(g, &Guest::refused, [j](const QString& why) { j->refused << why; });
        QObject::connect(g, &Guest::hostLeft, [j](const QString& why) { j->hostLeft << why; });
        QObject::connect(g, &Guest::otherLeft, [j](int seat, const QString& why) {
            j->othersLeft << QString::number(seat) + QLatin1Char(' ') + why;
        });
        QObject::connect(g, &Guest::command, [j](const Command& c) { j->commands.push_back(c); });
        QObject::connect(g, &Guest::digestMismatch, [j](int at) { j->mismatches.push_back(at); });
        QObject::connect(g, &Guest::tick, [j](int at) { j->tick = at; });
        QObject::connect(g, &Guest::welcomed, [j] { j->welcomed = true; });
        QObject::connect(g, &Guest::started, [j] { j->started = true; });
        g->join(QStringLiteral("127.0.0.1:%1").arg(port ? port : host.port()), code, name);
        return *j;
    }
    Joiner& Seated(const QString& name, const QString& code = kCode) {
        Joiner& j = Join(name, code);
        EXPECT_TRUE(Wait([&] { return j.welcomed; })) << j.refused.join(";").toStdString();
        return j;
    }
    // A bare socket that says hello as `name` and is given `seat`.
    RawPeer& RawSeated(const QString& name, int seat) {
        RawPeer& raw = *raws.emplace_back(std::make_unique<RawPeer>(host.port()));
        raw.Send(Hello{1, "2.0.0", kCode, name, kData});
        EXPECT_TRUE(Wait([&] { return host.taken(seat); }));
        return raw;
    }
    // A host played by hand, holding the hello of the joiner it returns.
    std::pair<RawPeer&, Joiner&> ByHand() {
        QTcpServer& fake = *fakes.emplace_back(std::make_unique<QTcpServer>());
        EXPECT_TRUE(fake.listen(QHostAddress::LocalHost, 0));
        Joiner& al = Join("Al", kCode, "2.0.0", kData, fake.serverPort());
        EXPECT_TRUE(Wait([&] { return fake.hasPendingConnections(); }));
        RawPeer& raw = *raws.emplace_back(std::make_unique<RawPeer>(fake.nextPendingConnection()));
        As<Hello>(raw.Next());
        return {raw, al};
    }

    ui::VirtualClock clock;  // first, so that it outlives every timer
    int hostTime = 0;
    Host host{"2.0.0", kData};
    std::vector<Command> commands;
    QStringList turnedAway, left;
    std::vector<std::pair<int, int>> mismatches;
    std::vector<std::unique_ptr<Joiner>> joiners;
    std::vector<std::unique_ptr<QTcpServer>> fakes;
    std::vector<std::unique_ptr<RawPeer>> raws;
};

TEST_F(Session, CommandsReachEveryMachineInOneOrderWithTheHostsStampsAndDigestsAndLeavesAreTold) {
    ASSERT_TRUE(host.open(TestLobby(GameType::TwoVsTwo, {1, 2}), kCode, 0));
    EXPECT_FALSE(host.start());  // seats still wait
    Joiner& a = Seated("Al", "  Otter LAMP brave ");
    Joiner& b = Seated("Bea");
    EXPECT_EQ(std::pair(a.guest.seat(), b.guest.seat()), std::pair(1, 2));
    ASSERT_TRUE(b.guest.chooseSeat("Bea", "Sorcerer Grumbo"));
    // Every joiner sees the lobby change.
    ASSERT_TRUE(
        Wait([&] { return a.guest.lobby().setup.seats[2].character == "Sorcerer Grumbo"; }));
    EXPECT_EQ(host.lobby().setup.seats[1].name, "Al");
    ASSERT_TRUE(host.start());
    ASSERT_TRUE(Wait([&] { return a.started && b.started; }));
    EXPECT_EQ(b.guest.lobby(), host.lobby());

    hostTime = 1500;
    EXPECT_TRUE(a.guest.send({3, 1, Kind::Angle, "45", 0}));
    EXPECT_TRUE(b.guest.send({4, 2, Kind::Throw, "", 0}));
    EXPECT_TRUE(host.send({0, 0, Kind::KeyDown, "", 27}));
    EXPECT_TRUE(host.send({0, 3, Kind::Choose, "", 1}));
    EXPECT_FALSE(host.send({0, 1, Kind::Throw, "", 0}));  // Al's seat is Al's
    EXPECT_FALSE(a.guest.send({0, 2, Kind::Throw, "", 0}));
    ASSERT_TRUE(Wait([&] { return a.commands.size() == 4 && b.commands.size() == 4; }));
    hostTime = 2000;
    EXPECT_TRUE(a.guest.send({0, 1, Kind::Velocity, "60", 0}));
    ASSERT_TRUE(Wait([&] { return a.commands.size() == 5 && b.commands.size() == 5; }));

    EXPECT_EQ(a.commands, commands);
    EXPECT_EQ(b.commands, commands);
    std::vector<int> stamps, seats;
    for (const Command& c : commands) stamps.push_back(c.at), seats.push_back(c.seat);
    EXPECT_EQ(stamps, (std::vector<int>{1500, 1500, 1500, 1500, 2000}));
    std::sort(seats.begin(), seats.end());
    EXPECT_EQ(seats, (std::vector<int>{0, 1, 1, 2, 3}));

    hostTime = 2100;
    clock.advance(Host::kTickMs);
    EXPECT_TRUE(Wait([&] { return a.tick == 2100 && b.tick == 2100; }));

    // Digests that differ are reported on both sides; Al's and the host's have crossed once his
    // command is back.
    host.submitDigest(3000, 0xabc);
    a.guest.submitDigest(3000, 0xabc);
    b.guest.submitDigest(3000, 0xdef);
    ASSERT_TRUE(Wait([&] { return !mismatches.empty() && !b.mismatches.empty(); }));
    a.guest.send({0, 1, Kind::Throw, "", 0});
    ASSERT_TRUE(Wait([&] { return a.commands.size() == 6; }));
    EXPECT_EQ(mismatches, (std::vector<std::pair<int, int>>{{2, 3000}}));
    EXPECT_EQ(b.mismatches, std::vector<int>{3000});
    EXPECT_TRUE(a.mismatches.empty());

    // Whoever leaves says why, and the others hear it.
    a.guest.leave("off to bed");
    ASSERT_TRUE(Wait([&] { return !left.isEmpty() && !b.othersLeft.isEmpty(); }));
    EXPECT_EQ(left, QStringList{"1 Al: off to bed"});
    EXPECT_EQ(b.othersLeft, QStringList{"1 off to bed"});
    host.close("the host quit");
    EXPECT_TRUE(Wait([&] { return b.hostLeft == QStringList{"the host quit"}; }));
}

TEST_F(Session, RefusesWrongCodeOtherVersionsOtherDataAndAFullMatch) {
    ASSERT_TRUE(host.open(TestLobby(GameType::OneVsOne, {1}), kCode, 0));
    Seated("Al");
    std::vector<FileDigest> otherData = kData;
    otherData[1].hash = 8;
    const std::pair<Joiner*, const char*> rows[] = {
        {&Join("Al", "otter lamp"), "wrong join code"},
        {&Join("Al", kCode, "1.9.0"),
         "the host plays version 2.0.0 of the game, the joining computer 1.9.0"},
        {&Join("Al", kCode, "2.0.0", otherData),
         "the game's data differs: sounds/throw.wav differs"},
        {&Join("Bo"), "the match is full"},
    };
    for (const auto& [joiner, says] : rows) {
        ASSERT_TRUE(Wait([&] { return !joiner->refused.isEmpty(); }));
        EXPECT_EQ(joiner->refused, QStringList{says});
    }
    RawPeer future(host.port());
    future.Send(Hello{2, "3.0.0", kCode, "Al", {}});
    EXPECT_TRUE(As<Refused>(future.Next()).reason.contains(QLatin1String("network version 1")));
    EXPECT_EQ(turnedAway.size(), 5);
}

TEST_F(Session, AHostOutOfOrderIsLeft) {
    auto [first, al] = ByHand();
    first.Send(CommandMessage{{10, 0, Kind::Throw, "", 0}});
    ASSERT_TRUE(Wait([&] { return !al.refused.isEmpty(); }));
    EXPECT_EQ(al.refused, QStringList{"the host broke the rules: \"command\" before the start"});
    EXPECT_EQ(As<Bye>(first.Next()).reason, "\"command\" before the start");

    auto [second, bo] = ByHand();
    const Lobby lobby = TestLobby(GameType::OneVsOne, {1});
    second.Send(Welcome{1, lobby});
    second.Send(Start{lobby});
    second.Send(CommandMessage{{500, 0, Kind::Throw, "", 0}});
    second.Send(CommandMessage{{400, 0, Kind::Throw, "", 0}});
    ASSERT_TRUE(Wait([&] { return !bo.hostLeft.isEmpty(); }));
    EXPECT_EQ(bo.hostLeft,
              QStringList{"the host broke the rules: \"command\" earlier than the last"});
    EXPECT_EQ(bo.commands.size(), 1u);

    auto [third, cy] = ByHand();
    third.Send(Welcome{1, lobby});
    third.Send(Start{lobby});
    third.Send(Left{1, "you are gone"});
    ASSERT_TRUE(Wait([&] { return !cy.hostLeft.isEmpty(); }));
    EXPECT_EQ(cy.hostLeft, QStringList{"the host broke the rules: \"left\" for a seat no other "
                                       "joining computer plays"});
}

// Garbage, a 100 MB frame and machines that die without a word are the real programs' to show
// (tests/e2e/network.sh).
TEST_F(Session, AJoinerOutOfOrderOrInAnothersSeatOrSilentInHisTurnIsSentAway) {
    ASSERT_TRUE(host.open(TestLobby(GameType::TwoVsTwo, {1, 2, 3}), kCode, 0));
    RawPeer mute(host.port()), early(host.port());
    early.Send(CommandMessage{{0, 1, Kind::Throw, "", 0}});
    EXPECT_EQ(As<Refused>(early.Next()).reason, "\"command\" before hello");
    EXPECT_TRUE(early.Closed());
    clock.advance(Host::kGreetingMs + 1000);
    EXPECT_EQ(As<Refused>(mute.Next()).reason, "no hello within 10 s");

    RawPeer& raw = RawSeated("Rawley", 1);
    Seated("Al");
    RawPeer& cheat = RawSeated("Cheat", 3);
    ASSERT_TRUE(host.start());
    As<Welcome>(cheat.Next());
    As<Start>(cheat.Next());
    cheat.Send(CommandMessage{{0, 0, Kind::Throw, "", 0}});
    EXPECT_EQ(As<Bye>(cheat.Next()).reason, "a command for player 1, whose seat is not yours");
    EXPECT_TRUE(cheat.Closed());
    EXPECT_EQ(left, QStringList{"3 Cheat: a command for player 1, whose seat is not yours"});
    EXPECT_TRUE(commands.empty());
    left.clear();

    host.setTurn(0);
    clock.advance(40'000);
    // Al's machine shows it is there, though Al does nothing.
    host.setTurn(2);
    clock.advance(60'000);
    EXPECT_TRUE(left.empty());

    host.setTurn(1);
    clock.advance(29'000);
    raw.Send(CommandMessage{{0, 1, Kind::Angle, "4", 0}});
    ASSERT_TRUE(Wait([&] { return commands.size() == 1; }));
    clock.advance(29'000);
    EXPECT_TRUE(left.empty());
    clock.advance(1'500);
    EXPECT_EQ(left,
              QStringList{"1 Rawley: nothing heard from Rawley's computer for 30 s in his turn"});
}

}  // namespace
