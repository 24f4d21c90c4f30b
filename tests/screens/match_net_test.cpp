// A match played by a host and a joiner in one process, each with its match window, on loopback
// and the virtual clock: the joiner runs the host's stamped commands at their stamps, two machines
// whose matches went apart both stop, and a machine that leaves keeps its leave in its record.
#include <QLineEdit>
#include <QPushButton>
#include <QTcpServer>
#include <QTest>

#include "TestSupport.h"
#include "computer/Autopilot.h"
#include "net/Guest.h"
#include "net/Host.h"
#include "net/NetSupport.h"
#include "screens/MatchNet.h"
#include "screens/MatchStrip.h"

using namespace testing_support;

namespace {

class MatchNet : public ScreensTest {
protected:
    void TearDown() override {
        hosting.reset();
        joining.reset();
        ScreensTest::TearDown();
    }
    // Player 1 plays at the host, player 2 at the joiner, whose match is seeded with
    // `joinerSeed` (the host's 99 unless said otherwise).
    void Connect(std::optional<std::uint64_t> joinerSeed = {}) {
        const net::Lobby lobby = TestLobby(game::GameType::OneVsOne, {1});
        ASSERT_TRUE(host.open(lobby, QStringLiteral("red"), 0));
        guest.join(QStringLiteral("127.0.0.1:%1").arg(host.port()), QStringLiteral("red"), "Bo");
        ASSERT_TRUE(QTest::qWaitFor([&] { return host.taken(1); }, 5000));
        ASSERT_TRUE(host.start());
        game::MatchSetup setup = WithShippedArt(game::setupOf(lobby.setup));
        hosting = std::make_unique<screens::MatchView>(setup, sound, keys, ShippedData());
        setup.seed = joinerSeed.value_or(setup.seed);
        joining = std::make_unique<screens::MatchView>(setup, sound, keys, ShippedData());
        hosting->hostNetwork(host, {true, false, false, false});
        joining->joinNetwork(guest, 1, {});
        for (screens::MatchView* v : {hosting.get(), joining.get()}) {
            v->onNetworkBroken = [this](const QString& why) { broken << why; };
            v->showCentred();
        }
    }
    // Runs both machines until `done`; the matches step on what comes through the event loop.
    bool Until(const std::function<bool()>& done, int ms = 5000) {
        return clock.runUntil([&] { return QCoreApplication::processEvents(), done(); }, ms);
    }
    // Player 1 throws from the host's window.
    void Throw(int angle, int velocity) {
        screens::MatchStrip& strip = *hosting->strip();
        strip.angleBox()->setText(QString::number(angle));
        strip.velocityBox()->setText(QString::number(velocity));
        ASSERT_TRUE(Until([&] { return hosting->match().canThrow(); }));
        strip.throwButton()->click();
        ASSERT_TRUE(Until([&] { return hosting->match().phase() == game::Phase::Flying; }));
    }

    net::Host host{"2.0.0", {}};
    net::Guest guest{"2.0.0", {}};
    std::unique_ptr<screens::MatchView> hosting, joining;
    QStringList broken;
};

TEST_F(MatchNet, TheJoinerRunsTheHostsCommandsAtTheirStampsAndNeverAhead) {
    Connect();
    const game::Match &h = hosting->match(), &j = joining->match();
    ASSERT_TRUE(Until([&] { return h.inputOpen(); }));
    hosting->send({.kind = game::Command::Kind::Angle, .text = QStringLiteral("7")});
    Throw(80, 90);
    EXPECT_EQ(h.flight().angle, 80) << "the boxes' commands in the order they were typed";
    // A pause during the flight is stamped ahead of the host's match, as far as the joiners may
    // run, and holds both flights in one place.
    Until([] { return false; }, 300);
    hosting->pause();
    const int pausedAt = clock.tickCount();
    ASSERT_TRUE(Until([&] { return h.paused() && j.paused(); }));
    const int waited = clock.tickCount() - pausedAt;
    EXPECT_TRUE(waited > 10 && waited <= net::Ticking::kLeadMs) << waited << " ms: at its stamp";
    clock.advance(1000);
    QCoreApplication::processEvents();
    EXPECT_EQ(j.now(), h.now());
    EXPECT_EQ(j.projectile().pos, h.projectile().pos);
    hosting->resume();
    int ahead = 0;
    Until([&] { return ahead += j.clock() > h.clock() + net::Ticking::kLeadMs, h.over(); }, 3000);
    EXPECT_EQ(ahead, 0) << "the joiner never runs beyond what the host allowed";
    EXPECT_TRUE(broken.isEmpty()) << broken.join('\n').toStdString();
    EXPECT_EQ(j.commands(), h.commands());
}

TEST_F(MatchNet, AJoinersMatchRunsNoFurtherThanTheHostAllowed) {
    QTcpServer byHand;
    ASSERT_TRUE(byHand.listen(QHostAddress::LocalHost, 0));
    guest.join(QStringLiteral("127.0.0.1:%1").arg(byHand.serverPort()), QStringLiteral("red"),
               "Bo");
    ASSERT_TRUE(QTest::qWaitFor([&] { return byHand.hasPendingConnections(); }, 5000));
    RawPeer fake(byHand.nextPendingConnection());
    const net::Lobby lobby = TestLobby(game::GameType::OneVsOne, {1});
    game::Match m(WithShippedArt(game::setupOf(lobby.setup)));
    computer::Autopilot pilot(1);
    screens::MatchNet joined(m, pilot, guest, 1);
    int allowed = 0;
    QObject::connect(&guest, &net::Guest::tick, [&](int at) { allowed = at; });
    for (const net::Message& message :
         {net::Message(net::Welcome{1, lobby}), {net::Start{lobby}}, {net::Tick{1000}}})
        fake.Send(message);
    ASSERT_TRUE(QTest::qWaitFor([&] { return allowed == 1000; }, 5000));
    joined.runTo(5000);
    EXPECT_EQ(m.clock(), 1000);
}

TEST_F(MatchNet, MachinesWhoseMatchesWentApartBothStopAtTheFirstTurn) {
    Connect(7);
    ASSERT_TRUE(Until([&] { return broken.size() == 2; }));
    EXPECT_TRUE(broken[0].contains(QLatin1String("went another way")));
}

TEST_F(MatchNet, AMachineThatLeavesInFlightSaysSoInItsRecord) {
    // Its leave would otherwise wait its turn behind the flight, after the record.
    Connect();
    ASSERT_TRUE(Until([&] { return hosting->match().inputOpen(); }));
    Throw(80, 90);
    hosting->send({.kind = game::Command::Kind::Leave});
    EXPECT_TRUE(hosting->match().left());
    EXPECT_EQ(hosting->match().commands().back().kind, game::Command::Kind::Leave);
}

}  // namespace
