// The computer's seats from the program's start to the match window: each player's pass of the
// selection offers the seat, and on the computer's turn the strip shows what it types while only
// it can throw.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "TestSupport.h"
#include "screens/MatchStrip.h"
#include "ui/ArrowControl.h"
#include "ui/CanvasWidget.h"

using namespace testing_support;

namespace {

class Seats : public ScreensTest {
protected:
    // The program with the computer at the seats `seats`, through setup to player selection.
    screens::PlayerScreen& ToPlayers(const std::array<screens::Seat, 4>& seats) {
        flow = std::make_unique<app::ScreenFlow>(
            app::Services{sound, keys, ShippedData(), [] { return 7u; }, [this] { ++quits; }},
            seats);
        flow->start();
        flow->title()->start();
        flow->setup()->next();
        return *flow->players();
    }
};

TEST_F(Seats, EachPassOffersItsSeatAndTheComputerNeedsNoName) {
    screens::PlayerScreen& p = ToPlayers({std::nullopt, game::Skill::Normal});
    EXPECT_FALSE(p.computerBox->isChecked());
    EXPECT_FALSE(p.skillBox->isEnabled());
    EXPECT_EQ(p.skillBox->currentText(), "Normal") << "the usual skill";
    p.next();
    EXPECT_EQ(messages, QStringList{"Enter a player name"}) << "a person needs a name";
    QTest::keyClicks(p.nameBox, QStringLiteral("Ann"));
    p.next();
    EXPECT_TRUE(p.computerBox->isChecked()) << "player 2 starts as the command line said";
    EXPECT_TRUE(p.skillBox->isEnabled());
    EXPECT_EQ(
        QStringList({p.skillBox->itemText(0), p.skillBox->itemText(1), p.skillBox->itemText(2)}),
        QStringList({"Easy", "Normal", "Hard"}));
    p.skillBox->setCurrentIndex(2);
    p.next();
    EXPECT_EQ(messages.size(), 1) << "no message for the computer";
    ASSERT_TRUE(flow->match());
    const game::Match& m = flow->match()->match();
    EXPECT_EQ(m.name(1), "Computer 2");
    EXPECT_FALSE(m.computer(0));
    EXPECT_EQ(m.computer(1), game::Skill::Hard);
    // The next pass starts each page afresh, its boxes as the command line said.
    ASSERT_TRUE(RoundStands());
    Tap(game::key::kEscape);
    ASSERT_TRUE(flow->box());
    Click(flow->box(), "Start Over");
    flow->setup()->next();
    screens::PlayerScreen& again = *flow->players();
    EXPECT_FALSE(again.computerBox->isChecked());
    EXPECT_TRUE(again.nameBox->text().isEmpty());
    QTest::keyClicks(again.nameBox, QStringLiteral("Cy"));
    again.next();
    EXPECT_TRUE(again.computerBox->isChecked());
    EXPECT_EQ(again.skillBox->currentText(), "Normal") << "not the Hard chosen last time";
}

TEST_F(Seats, AComputerSeatWearsACharacterNobodyElseWearsWhileThereAreEnough) {
    // Player 1 keeps the first character; the computer at seat 2 would wear it too.
    screens::PlayerScreen& p = ToPlayers({std::nullopt, game::Skill::Normal});
    QTest::keyClicks(p.nameBox, QStringLiteral("Ann"));
    p.next();
    EXPECT_EQ(p.characterBox->text(), "Rapper Grumbo");
    p.computerBox->setChecked(false);
    p.browser->setValue(0);
    p.computerBox->setChecked(true);
    EXPECT_EQ(p.characterBox->text(), "Rapper Grumbo") << "ticking the box chooses anew";
    // Four computers in "2 vs 2" look like four different players.
    const game::Skill hard = game::Skill::Hard;
    screens::PlayerScreen& q = ToPlayers({hard, hard, hard, hard});
    flow->players()->back();
    QTest::keyClick(flow->setup()->gameType, Qt::Key_Up);
    flow->setup()->next();
    QStringList worn;
    for (int k = 0; k < 4; ++k) {
        worn << q.characterBox->text();
        q.next();
    }
    ASSERT_TRUE(flow->match());
    worn.removeDuplicates();
    EXPECT_EQ(worn.size(), 4);
}

TEST_F(Seats, OnTheComputersTurnTheStripShowsItsTypingAndOnlyItThrows) {
    screens::PlayerScreen& p = ToPlayers({game::Skill::Hard});
    p.next();
    QTest::keyClicks(p.nameBox, QStringLiteral("Bo"));
    p.computerBox->setChecked(false);
    p.next();
    screens::MatchView& v = *flow->match();
    const game::Match& m = v.match();
    screens::MatchStrip& strip = *v.strip();
    clock.runUntil([&] { return !m.angleText().isEmpty(); }, 10000);
    EXPECT_EQ(m.currentPlayer(), 0);
    EXPECT_EQ(strip.angleBox()->text(), m.angleText());
    EXPECT_TRUE(strip.angleBox()->isReadOnly());
    QTest::keyClicks(strip.velocityBox(), QStringLiteral("12"));
    EXPECT_TRUE(m.velocityText().isEmpty()) << "the person cannot type for it";
    clock.runUntil([&] { return !m.velocityText().isEmpty(); }, 10000);
    EXPECT_FALSE(strip.throwButton()->isEnabled());
    // Its throw may frag Bo, and the next round opens the boxes while it is still being built.
    clock.runUntil(
        [&] { return m.currentPlayer() == 1 && m.inputOpen() && m.phase() == game::Phase::Aiming; },
        60000);
    EXPECT_TRUE(v.windowTitle().startsWith("Bo - ")) << "the turn comes back with no input";
    EXPECT_FALSE(strip.angleBox()->isReadOnly());
    for (const char c : std::string("\\ZAP PLINKOS"))
        Tap(c == '\\' ? game::key::kBackslash : c == ' ' ? game::key::kSpace : c);
    QTest::keyClicks(strip.angleBox(), QStringLiteral("45"));
    QTest::keyClicks(strip.velocityBox(), QStringLiteral("60"));
    EXPECT_TRUE(strip.throwButton()->isEnabled());
    strip.throwButton()->click();
    clock.runUntil([&] { return m.currentPlayer() == 0 && m.inputOpen(); }, 60000);
    ASSERT_TRUE(strip.selector(1)->isVisible()) << "it holds every special projectile";
    QTest::mouseClick(strip.selector(1), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(m.chosenKind(), game::ProjectileKind::Normal) << "the person cannot choose for it";
}

TEST_F(Seats, AMatchOfComputersCanBePausedLeftOrClosedAtAnyMoment) {
    // Closed, or paused and started over, a different moment each time: typing, flying, exploding,
    // dancing, on the final board.
    for (int i = 0; i < 9; ++i) {
        const int at = 500 + 4900 * i;
        SCOPED_TRACE(testing::Message() << at << " ms into the match");
        screens::PlayerScreen& p = ToPlayers({game::Skill::Hard, game::Skill::Hard});
        p.next();
        p.next();
        ASSERT_TRUE(flow->match());
        quits = 0;
        clock.advance(at);
        if (i % 2 == 0) {
            flow->match()->close();
            clock.advance(50);
            EXPECT_EQ(quits, 1);
            EXPECT_FALSE(flow->match());
        } else if (const game::Match& m = flow->match()->match();
                   std::max(m.leftScore(), m.rightScore()) < m.settings().fragLimit) {
            // (From the deciding hit on, Escape opens nothing: the game-over box is coming.)
            Tap(game::key::kEscape);
            ASSERT_TRUE(flow->box());
            const QString typed = flow->match()->match().angleText();
            clock.advance(3000);
            EXPECT_EQ(flow->match()->match().angleText(), typed) << "nothing typed while paused";
            flow->box()->choose(screens::MatchBox::Choice::StartOver);
            clock.advance(50);
            EXPECT_TRUE(flow->setup());
        }
        flow.reset();
    }
}

}  // namespace
