// The computer's seats from the program's start to the match window: each player's pass of the
// selection offers the seat, and a computer wears a character of its own.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

#include "ScreensFlow.h"

using namespace testing_support;

namespace {

using Seats = FlowTest;

TEST_F(Seats, EachPassOffersItsSeatAndTheComputerNeedsNoName) {
    screens::PlayerScreen& p = ToPlayers(2, {std::nullopt, game::Skill::Normal});
    EXPECT_FALSE(p.computerBox->isChecked());
    EXPECT_FALSE(p.skillBox->isEnabled());
    EXPECT_EQ(p.skillBox->currentText(), "Normal") << "the usual skill";
    p.next();
    EXPECT_EQ(messages, QStringList{"Enter a player name"}) << "a person needs a name";
    QTest::keyClicks(p.nameBox, QStringLiteral("Ann"));
    p.next();
    EXPECT_TRUE(p.computerBox->isChecked()) << "player 2 starts as the command line said";
    EXPECT_TRUE(p.skillBox->isEnabled());
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
    screens::PlayerScreen& p = ToPlayers(2, {std::nullopt, game::Skill::Normal});
    QTest::keyClicks(p.nameBox, QStringLiteral("Ann"));
    p.next();
    EXPECT_EQ(p.characterBox->text(), "Rapper Grumbo");
    p.computerBox->setChecked(false);
    p.browser->setValue(0);
    p.computerBox->setChecked(true);
    EXPECT_EQ(p.characterBox->text(), "Rapper Grumbo") << "ticking the box chooses anew";
    // Four computers in "2 vs 2" look like four different players.
    const game::Skill hard = game::Skill::Hard;
    screens::PlayerScreen& q = ToPlayers(4, {hard, hard, hard, hard});
    QStringList worn;
    for (int k = 0; k < 4; ++k, q.next()) worn << q.characterBox->text();
    ASSERT_TRUE(flow->match());
    worn.removeDuplicates();
    EXPECT_EQ(worn.size(), 4);
}

}  // namespace
