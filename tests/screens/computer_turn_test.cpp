// The computer's turn as the match window shows it, in virtual time: the keyboard focus follows
// its typing, the selection frame stands at its projectile a while before it throws, and Throw
// looks pressed just before the throw, while the person's typing, choice and Throw count for
// nothing in its turn.
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>

#include "ScreensFlow.h"
#include "computer/Autopilot.h"
#include "screens/MatchStrip.h"
#include "ui/CanvasWidget.h"

using namespace testing_support;
using computer::Autopilot;

namespace {

// What the strip showed at one virtual millisecond of the computer's turn.
struct Moment {
    QString angle, velocity;
    QWidget* focus;
    int frameLeft;
    bool throwDown, throwEnabled;
};

class ComputerTurn : public FlowTest {
protected:
    // Player 1 is the computer, player 2 the person Bo, who gives every thrower all the special
    // projectiles while the computer's first turn goes on and throws his own turns away.
    void SetUp() override {
        FlowTest::SetUp();
        ToPlayers(2, {game::Skill::Hard}).next();
        QTest::keyClicks(flow->players()->nameBox, QStringLiteral("Bo\r"));
        ASSERT_TRUE(RoundStands());
        TypeCode(QStringLiteral("\\ZAP PLINKOS"));
    }
    const game::Match& match() { return flow->match()->match(); }
    screens::MatchStrip& strip() { return *flow->match()->strip(); }

    // Runs until the computer's turn opens with the special projectiles in hand.
    bool ComputersTurnWithSpecials() {
        for (int turn = 0; turn < 6; ++turn) {
            if (!clock.runUntil([&] { return match().inputOpen(); }, 60000)) return false;
            const bool computers = match().currentPlayer() == 0;
            if (computers && match().selectorShown(game::ProjectileKind::Nuke)) return true;
            if (!computers) {
                QTest::keyClicks(strip().angleBox(), QStringLiteral("135"));
                QTest::keyClicks(strip().velocityBox(), QStringLiteral("300"));
                strip().throwButton()->click();
            }
            clock.runUntil([&] { return !match().inputOpen(); }, 20000);
        }
        return false;
    }

    // The computer's turn, one virtual millisecond at a time, up to its throw.
    std::vector<Moment> WatchUntilTheThrow() {
        std::vector<Moment> seen;
        screens::MatchStrip& s = strip();
        while (match().phase() == game::Phase::Aiming && seen.size() < 20000) {
            seen.push_back({s.angleBox()->text(), s.velocityBox()->text(),
                            flow->match()->focusWidget(), s.selectionFrame()->x(),
                            s.throwButton()->isDown(), s.throwButton()->isEnabled()});
            clock.advance(1);
        }
        return seen;
    }
};

TEST_F(ComputerTurn, TheStripFollowsItsTypingItsChoiceAndItsPressOfThrowButNotAPersons) {
    ASSERT_TRUE(ComputersTurnWithSpecials());
    QTest::keyClicks(strip().velocityBox(), QStringLiteral("12"));
    EXPECT_TRUE(strip().velocityBox()->isReadOnly());
    QTest::mouseClick(strip().selector(1), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(match().chosenKind(), game::ProjectileKind::Normal) << "the person chose for it";
    const std::vector<Moment> seen = WatchUntilTheThrow();
    ASSERT_EQ(match().phase(), game::Phase::Flying) << "it threw";
    const game::ProjectileKind kind = match().chosenKind();
    ASSERT_NE(kind, game::ProjectileKind::Normal) << "a special projectile helps it here";
    screens::MatchStrip& s = strip();
    const int throwAt = static_cast<int>(seen.size());
    const int frameAtChoice = s.selector(static_cast<int>(kind))->x() - 1;
    for (int t = 0; t < throwAt; ++t) {
        const Moment& now = seen[static_cast<std::size_t>(t)];
        const int before = throwAt - t;
        SCOPED_TRACE(testing::Message() << before << " ms before the throw");
        const bool typingAngle =
            now.velocity.isEmpty() && !now.angle.isEmpty() && now.angle != seen.back().angle;
        ASSERT_TRUE(!typingAngle || now.focus == s.angleBox()) << "typing the angle";
        ASSERT_TRUE(now.velocity.isEmpty() || now.focus == s.velocityBox())
            << "typing the velocity";
        // The frame stands at its choice for a clear moment before the throw.
        ASSERT_TRUE(before > 500 || now.frameLeft == frameAtChoice);
        // Throw goes down a moment before the throw, looking like a person's press.
        ASSERT_TRUE(before > Autopilot::kThrowHeldMs - 10 || (now.throwDown && now.throwEnabled));
        ASSERT_FALSE(before > Autopilot::kThrowHeldMs + 10 && (now.throwDown || now.throwEnabled))
            << "a person could throw for it";
    }
    EXPECT_FALSE(s.throwButton()->isDown()) << "released with the throw";
    // The boxes showing its typing send nothing of their own, nor did the person's hands: a
    // command a key.
    int keys = 0;
    for (const game::Command& c : match().commands())
        if (c.seat == 0 && c.at >= match().aimingSince()) ++keys;
    EXPECT_EQ(keys, seen.back().angle.size() + seen.back().velocity.size() + 2)
        << "the digits, its choice and Throw";
}

TEST_F(ComputerTurn, AClickOnThrowWhileTheComputerHoldsItThrowsNothingForIt) {
    ASSERT_TRUE(ComputersTurnWithSpecials());
    QPushButton* button = strip().throwButton();
    ASSERT_TRUE(clock.runUntil([&] { return button->isDown(); }, 20000));
    const QString velocity = match().velocityText();
    QTest::mouseClick(button, Qt::LeftButton);
    clock.advance(1);
    EXPECT_EQ(match().phase(), game::Phase::Aiming) << "the person's click threw for it";
    EXPECT_TRUE(button->isDown()) << "still held by the computer";
    ASSERT_TRUE(clock.runUntil([&] { return match().phase() == game::Phase::Flying; },
                               Autopilot::kThrowHeldMs));
    EXPECT_EQ(QString::number(match().flight().velocity), velocity);
    // Closing the match window in the midst of it all ends the program; every other stage is
    // for the real program to show (tests/e2e/closing.sh).
    flow->match()->close();
    clock.advance(50);
    EXPECT_EQ(quits, 1);
}

}  // namespace
