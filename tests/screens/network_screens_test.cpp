// The screens' side of a match played from several computers: the seats the host leaves to
// others, the joiner's own pass of player selection and the join dialog. The waiting box's lines
// are for the golden pictures to show.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "TestSupport.h"
#include "screens/JoinDialog.h"
#include "screens/PlayerScreen.h"
#include "screens/TitleScreen.h"
#include "ui/ArrowControl.h"

using namespace testing_support;

namespace {

class NetworkScreens : public ScreensTest {
protected:
    // A player screen whose choices, as "player|name|character|skill|where", land in `chosen`.
    std::unique_ptr<screens::PlayerScreen> Players() {
        auto p = std::make_unique<screens::PlayerScreen>(ShippedData(), sound);
        p->onChosen = [this](const screens::PlayerScreen::Choice& c) {
            const QString skill =
                c.seat ? QStringList{"Easy", "Normal", "Hard"}[int(*c.seat)] : "-";
            chosen << QStringLiteral("%1|%2|%3|%4|%5")
                          .arg(c.player)
                          .arg(c.name, c.character, skill, c.remote ? "elsewhere" : "here");
        };
        p->onDone = [this] { ++done; };
        p->onBack = [this] { ++backs; };
        return p;
    }
    QStringList chosen;
    int done = 0, backs = 0;
};

TEST_F(NetworkScreens, ANetworkSeatExcludesTheComputerAndNeedsNoName) {
    auto p = Players();
    p->begin(2, {std::nullopt, game::Skill::Hard}, {false, true});
    ASSERT_TRUE(p->networkBox->isVisibleTo(p.get()));
    EXPECT_FALSE(p->networkBox->isChecked()) << "player 1 is not preset to the network";
    p->computerBox->setChecked(true);
    p->networkBox->setChecked(true);
    EXPECT_FALSE(p->computerBox->isChecked());
    EXPECT_FALSE(p->skillBox->isEnabled() || p->nameBox->isEnabled() || p->browser->isEnabled());
    p->computerBox->setChecked(true);
    EXPECT_FALSE(p->networkBox->isChecked());
    EXPECT_TRUE(p->nameBox->isEnabled() && p->browser->isEnabled()) << "as the computer's";
    p->computerBox->setChecked(false);
    QTest::keyClicks(p->nameBox, QStringLiteral("Ann\r"));
    // Seat 2 is preset both to the computer and to the network: the player elsewhere has it.
    EXPECT_EQ(p->windowTitle(), "Player 2");
    EXPECT_TRUE(p->networkBox->isChecked() && !p->computerBox->isChecked());
    EXPECT_FALSE(p->nameBox->isEnabled());
    p->next();
    EXPECT_TRUE(messages.isEmpty()) << "no name is asked for a seat played elsewhere";
    EXPECT_EQ(chosen, (QStringList{"0|Ann|Classic Grumbo|-|here", "1|||-|elsewhere"}));
    EXPECT_EQ(done, 1);
    // Ticked off again, the seat is a person's who must type a name.
    p->back();
    QTest::keyClicks(p->nameBox, QStringLiteral("Ann\r"));
    p->networkBox->setChecked(false);
    EXPECT_TRUE(p->nameBox->isEnabled());
    p->next();
    EXPECT_EQ(messages, QStringList{"Enter a player name"});
}

TEST_F(NetworkScreens, TheJoinerChoosesOnceForHisSeat) {
    auto p = Players();
    p->begin(4, {}, {true, true, true, true});
    p->beginJoiner(2, {"Classic Grumbo", "Robo Grumbo"});
    EXPECT_EQ(p->windowTitle(), "Player 3");
    EXPECT_FALSE(p->networkBox->isVisibleTo(p.get()) || p->networkBox->isChecked());
    EXPECT_EQ(p->characterBox->text(), "Rapper Grumbo") << "the first character nobody wears";
    QTest::keyClicks(p->nameBox, QStringLiteral("Dee\r"));
    EXPECT_EQ(done, 1) << "one pass is the whole of it";
    // His own computer may play his seat; what nobody wears is kept as it is.
    auto q = Players();
    q->beginJoiner(1, {"Rapper Grumbo"});
    q->computerBox->setChecked(true);
    q->skillBox->setCurrentIndex(0);
    q->next();
    EXPECT_TRUE(messages.isEmpty());
    EXPECT_EQ(chosen,
              (QStringList{"2|Dee|Rapper Grumbo|-|here", "1|Computer 2|Classic Grumbo|Easy|here"}));
    EXPECT_EQ(done, 2);
    q->back();
    EXPECT_EQ(backs, 1);
    EXPECT_EQ(q->windowTitle(), "Player 2");
}

TEST_F(NetworkScreens, TheTitleOpensAJoinDialogThatWantsBothFieldsAndShowsWhyATryFailed) {
    screens::JoinDialog d;
    QStringList joined;
    int cancels = 0;
    d.onJoin = [&](const QString& a, const QString& c) { joined << a + QLatin1Char('|') + c; };
    d.onCancel = [&] { ++cancels; };
    int joins = 0;
    StartProgram().title()->onJoin = [&] { ++joins; };
    Click(flow->title(), "Join...");
    EXPECT_EQ(joins, 1) << "the title's way in";
    d.codeBox->setText(QStringLiteral("K7Q2"));
    Click(&d, "Join");
    d.addressBox->setText(QStringLiteral("  "));
    d.join();
    d.addressBox->setText(QStringLiteral(" 10.0.0.7:4770 "));
    d.codeBox->clear();
    d.join();
    EXPECT_EQ(messages, QStringList({"Enter the host's address", "Enter the host's address",
                                     "Enter the join code"}));
    d.showError(QStringLiteral("Wrong code"));
    EXPECT_EQ(d.error(), "Wrong code");
    QTest::keyClicks(d.codeBox, QStringLiteral("K7Q2\r"));
    EXPECT_EQ(joined, QStringList{"10.0.0.7:4770|K7Q2"});
    EXPECT_TRUE(d.error().isEmpty()) << "the old failure is not the new try's";
    Click(&d, "Cancel");
    d.show();
    d.close();
    EXPECT_EQ(cancels, 2);
}

}  // namespace
