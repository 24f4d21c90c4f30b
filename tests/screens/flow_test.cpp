// The flow between the screens as the players click through them: every button of the pause and
// the game-over box, the credits, and a second match of the same run with player selection left
// and taken up again. Closing the windows before a match is for the real program to show
// (tests/e2e/closing.sh).
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include "ScreensFlow.h"
#include "screens/MatchStrip.h"
#include "ui/CanvasWidget.h"

using namespace testing_support;

namespace {

using Flow = FlowTest;
const QString kTitle = QStringLiteral("Grumbo 2 - Kravenmoor");
const char* const kClosed = "closed by the window system";

TEST_F(Flow, EveryButtonOfThePauseAndTheGameOverBoxLeadsWhereItShould) {
    // Whether the match ended, the button (or the window system closing the box, which has no
    // close box), the windows left up, and the key that leaves the credits (none: their close box).
    // The boxes' captions are for the golden pictures to show.
    const std::tuple<bool, const char*, QStringList, Qt::Key> rows[] = {
        {false, "Resume", {"Ann - 0 pts"}, {}},
        {false, "Start Over", {"Setup"}, {}},
        {false, "Quit", {}, {}},
        {false, kClosed, {}, {}},
        {true, "Play Again", {kTitle}, {}},
        {true, "View Credits", {"Grumbo Credits"}, Qt::Key_Space},
        {true, "View Credits", {"Grumbo Credits"}, {}},
        {true, "Quit", {}, {}},
        {true, kClosed, {}, {}}};
    for (const auto& [ended, button, windows, leave] : rows) {
        SCOPED_TRACE(button);
        app::ScreenFlow& f = StartProgram();
        quits = 0;
        ASSERT_TRUE(ToMatch() && RoundStands());
        if (ended) ASSERT_TRUE(Win());
        else Tap(game::key::kEscape);
        ASSERT_TRUE(f.box() && f.box()->isVisible());
        EXPECT_FALSE(f.match()->strip()->isEnabled());
        sound.tunes.clear();
        if (QLatin1String(button) == kClosed) f.box()->close();
        else Click(f.box(), button);
        clock.advance(20);
        EXPECT_EQ(VisibleWindows(), windows);
        EXPECT_EQ(quits, windows.isEmpty() ? 1 : 0) << "the program ends with its last window";
        if (f.match()) EXPECT_TRUE(f.match()->strip()->isEnabled() && !f.match()->match().paused());
        else EXPECT_EQ(sound.tunes.value(0).left(6), "close ") << "the music stops";
        if (!f.credits()) continue;
        if (leave == Qt::Key{}) f.credits()->close();
        else QTest::keyClick(f.credits(), leave);
        clock.advance(20);
        EXPECT_EQ(VisibleWindows(), QStringList{kTitle});
    }
}

TEST_F(Flow, PlayerSelectionClosedBeforeEveryoneChoseStartsNoMatch) {
    QTest::keyClicks(ToPlayers(4).nameBox, "Ann\rBo\r");
    flow->players()->close();
    EXPECT_TRUE(VisibleWindows().isEmpty() && !flow->match()) << "players 3 and 4 have not chosen";
}

// How far the middle of `inner` lies from the middle of `outer`, in half pixels.
QPoint OffCentre(const QRect& inner, const QRect& outer) {
    return QPoint(2 * inner.left() + inner.width(), 2 * inner.top() + inner.height()) -
           QPoint(2 * outer.left() + outer.width(), 2 * outer.top() + outer.height());
}

TEST_F(Flow, ScreensAreFixedToolWindowsOpenedCentredButTheGameOverBoxLeavesTheBoardReadable) {
    const QRect desktop = QGuiApplication::primaryScreen()->availableGeometry();
    const auto expectCentred = [&](const QWidget* w) {
        SCOPED_TRACE(w->windowTitle().toStdString());
        const QPoint off = OffCentre(w->frameGeometry(), desktop);
        EXPECT_TRUE(std::abs(off.x()) <= 1 && std::abs(off.y()) <= 1) << "frame and all";
    };
    // Small, of a fixed size, with only a close box.
    const auto expectScreen = [&](const QWidget* w) {
        expectCentred(w);
        SCOPED_TRACE(w->windowTitle().toStdString());
        EXPECT_EQ(w->windowType(), Qt::Tool);
        EXPECT_EQ(w->windowFlags() & (Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint |
                                      Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint),
                  Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint);
        EXPECT_EQ(w->minimumSize(), w->maximumSize()) << "a fixed size";
    };
    screens::CreditsScreen credits(ShippedData());
    credits.showCentred();
    expectScreen(&credits);
    screens::PlayerScreen& players = ToPlayers();
    expectScreen(&players);
    players.back();
    expectScreen(flow->setup());
    app::ScreenFlow& f = StartProgram();
    expectScreen(f.title());
    ASSERT_TRUE(ToMatch() && RoundStands());
    expectCentred(f.match());
    Tap(game::key::kEscape);
    expectCentred(f.box());
    Click(f.box(), "Resume");
    ASSERT_TRUE(Win());
    // The board's four rows, 25 pixels high every 32 from 112, on the field's 466 rows.
    const QRect match = f.match()->geometry(), box = f.box()->geometry();
    EXPECT_LE(std::abs(OffCentre(box, match).x()), 1) << "centred over the match window";
    for (int row = 0; row < 4; ++row)
        EXPECT_FALSE(box.intersects(QRect(match.left(), match.top() + 112 + 32 * row, 722, 25)));
    EXPECT_GE(box.top(), match.top() + 112) << "below the board, not above it";
    EXPECT_LE(box.bottom(), match.top() + 466) << "over the field";
}

TEST_F(Flow, CreditsCompleteOnceTheirBufferHasPassedAndThreeKeysLeave) {
    OwnData own, words;
    own.credits("10 lines\n" + QStringLiteral("IIIIIIIIII\n").repeated(10));
    words.credits("Lines: 3\na\nb\nc\n");
    EXPECT_EQ(screens::CreditsScreen(words.folder()).buffer().height(), 150) << "no number";
    screens::CreditsScreen c(own.folder());
    clock.advance(25 * (351 + c.buffer().height()));
    EXPECT_FALSE(c.completed());
    clock.advance(25);
    EXPECT_TRUE(c.completed());
    int left = 0;
    c.onLeave = [&] { ++left; };
    for (Qt::Key key :
         {Qt::Key_A, Qt::Key_Left, Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        QTest::keyClick(&c, key);
    EXPECT_EQ(left, 4);
}

TEST_F(Flow, ASecondMatchAfterPlayAgainStartsAfreshButKeepsWhatNothingResets) {
    app::ScreenFlow& f = StartProgram();
    clock.advance(150);
    ASSERT_TRUE(ToMatch() && RoundStands());
    TypeCode(QStringLiteral("\\HOP FREMBLE"));
    ASSERT_TRUE(Win());
    Click(f.box(), "Play Again");
    EXPECT_EQ(sound.effects.count("sounds/g2intro.wav"), 2);
    clock.advance(150);
    EXPECT_TRUE(!f.title()->dancer(0)->isVisible() && f.title()->dancer(6)->isVisible())
        << "the dance goes on from the frame it had reached";
    f.title()->start();
    QTest::keyClick(f.setup()->gameType, Qt::Key_Up);
    f.setup()->next();
    screens::PlayerScreen* p = f.players();
    QTest::keyClicks(p->nameBox, "Cy\rdunik");
    sound.effects.clear();
    Click(p, "Back");
    EXPECT_EQ(VisibleWindows(), QStringList{"Setup"});
    ASSERT_EQ(f.players(), p) << "hidden, not closed";
    EXPECT_TRUE(p->windowTitle() == "Player 1" && p->nameBox->text().isEmpty());
    EXPECT_EQ(f.settings().players(), 2) << "the setup opens with its defaults";
    f.setup()->next();
    EXPECT_EQ(VisibleWindows(), QStringList{"Player 1"});
    EXPECT_EQ(p->characters().size(), 7) << "not loaded again";
    EXPECT_TRUE(sound.effects.isEmpty());
    p->back();
    f.setup()->close();
    ASSERT_TRUE(RoundStands()) << "Bo's character from the first match is still chosen";
    EXPECT_EQ(VisibleWindows(), QStringList{"Cy - 0 pts"});
    const game::Match& m = f.match()->match();
    EXPECT_EQ(m.name(1), "Bo");
    EXPECT_TRUE(m.modes().flying) << "typed modes carry over";
    EXPECT_EQ(std::tuple(m.stats(0).frags, m.stats(0).points, m.round(), m.settings().fragLimit),
              std::tuple(0, 0, 1, 3));
    QTest::keyClicks(f.match()->strip()->angleBox(), "4a-5. 67");
    EXPECT_EQ(m.angleText(), "456") << "digits only, three at most";
    EXPECT_FALSE(f.match()->strip()->throwButton()->isEnabled()) << "no velocity yet";
}

}  // namespace
