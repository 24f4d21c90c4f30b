// The box over the match in both its uses, game over and pause: when it opens, what its buttons
// lead to, and what a second match after "Play Again" starts with.
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <tuple>

#include "ScreensSupport.h"

using namespace testing_support;
using namespace modMain;

namespace {
class Endgame : public ScreensTest {
protected:
    frmEndgame& box = frmEndgame::Instance();
};

QRgb Pixel(const QImage& image, int x, int y) { return image.pixel(x, y) | 0xFF000000u; }
}  // namespace

TEST_F(Endgame, OpensFiveSecondsAfterTheFinalBoardWithARaisedEdge) {
    intFragLimit = 1;
    frmGrumbo& f = StartMatch(2);
    PutInThePathOfAnUpwardThrow(f, 1);
    std::int32_t boardAt = 0, boxAt = 0;
    clock.onPump = [&] {
        if (!boardAt && MatchOver(f)) boardAt = clock.TickCount();
        if (!boxAt && box.Loaded()) boxAt = clock.TickCount();
    };
    ASSERT_TRUE(PlayThrow(clock, f, 90, 50));
    ASSERT_TRUE(WaitForBox());
    clock.Advance(20);
    clock.onPump = nullptr;
    EXPECT_GE(boxAt - boardAt, 5000);
    EXPECT_LT(boxAt - boardAt, 5100);

    EXPECT_EQ(BoxTexts(), kGameOverBox);
    EXPECT_FALSE(f.picUI->isEnabled());
    QWidget* w = box.window();
    EXPECT_EQ(w->size(), QSize(256, 78));
    EXPECT_EQ(w->minimumSize(), w->maximumSize()) << "a fixed size";
    EXPECT_TRUE(w->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(w->parentWidget(), f.window()) << "owned by the match screen";

    const QImage shot = w->grab().toImage();
    const QRgb light = w->palette().color(QPalette::Light).rgb();
    const QRgb dark = w->palette().color(QPalette::Dark).rgb();
    ASSERT_NE(light, dark);
    for (int x = 0; x < 255; ++x) {
        EXPECT_EQ(Pixel(shot, x, 0), light) << "top edge at " << x;
        EXPECT_EQ(Pixel(shot, x + 1, 77), dark) << "bottom edge at " << x + 1;
    }
    for (int y = 0; y < 77; ++y) {
        EXPECT_EQ(Pixel(shot, 0, y), light) << "left edge at " << y;
        EXPECT_EQ(Pixel(shot, 255, y + 1), dark) << "right edge at " << y + 1;
    }
    EXPECT_NE(Pixel(shot, 1, 1), light) << "lines one pixel wide";
    EXPECT_NE(Pixel(shot, 254, 76), dark);

    // Closing the match window under it takes the box away at once, not when the window goes.
    const QPointer<QWidget> open = w;
    f.window()->close();
    EXPECT_TRUE(open.isNull() || !open->isVisible());
}

TEST_F(Endgame, EveryButtonOfBothUsesLeadsWhereItShould) {
    enum Button { Play, Credits, Quit };
    struct Row {
        bool pause;
        Button button;
        bool matchGoes, programEnds;
        ui::Form* shown;  // the screen that opens, if any
    } rows[] = {
        {false, Play, true, false, &frmSplash::Instance()},
        {false, Credits, true, false, &frmCredits::Instance()},
        {false, Quit, true, true, nullptr},
        {true, Play, false, false, nullptr},
        {true, Credits, true, false, &frmSetup::Instance()},
        {true, Quit, true, true, nullptr},
    };
    ui::Form* screens[] = {&frmSplash::Instance(), &frmCredits::Instance(), &frmSetup::Instance()};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << (row.pause ? "pause" : "game over") << ", button " << row.button);
        frmGrumbo& f = row.pause ? StartMatch(2) : PlayToTheFinalBoard();
        if (row.pause) Tap(ui::VkEscape);
        else ASSERT_TRUE(WaitForBox());
        ASSERT_TRUE(box.Loaded());
        music.commands.clear();
        QPushButton* buttons[] = {box.cmdPlay, box.cmdCredits, box.cmdQuit};
        buttons[row.button]->click();
        clock.Advance(20);

        EXPECT_FALSE(box.Loaded());
        EXPECT_EQ(f.Loaded(), !row.matchGoes);
        EXPECT_EQ(programEnds > 0, row.programEnds);
        if (row.matchGoes) {
            EXPECT_FALSE(
                music.commands.filter(QRegularExpression(QStringLiteral("^close "))).isEmpty())
                << "the music stops with the match";
        } else {
            EXPECT_TRUE(f.picUI->isEnabled());
            EXPECT_FALSE(f.tmrMain.Enabled()) << "no flight starts";
        }
        for (ui::Form* s : screens) EXPECT_EQ(s->Loaded(), s == row.shown);

        frmCredits::Instance().Unload();
        for (ui::Form* s : screens) s->Unload();
        LeaveMatch();
        programEnds = 0;
    }
}

TEST_F(Endgame, ASecondMatchAfterPlayAgainStartsAfreshButKeepsWhatNothingResets) {
    intFragLimit = 2;
    intWindExtremity = 0;
    blnWindGusts = false;
    frmGrumbo& f = StartMatch(2);
    TypeKeys(QStringLiteral("\\hop fremble"));
    // Player 0 hits, player 1 misses, player 0 hits again: 2 to 0.
    PutInThePathOfAnUpwardThrow(f, 1);
    ASSERT_TRUE(PlayThrow(clock, f, 90, 50));
    ASSERT_TRUE(PlayThrow(clock, f, 135, 999));
    PutInThePathOfAnUpwardThrow(f, 1);
    ASSERT_TRUE(PlayThrow(clock, f, 90, 50));
    ASSERT_TRUE(MatchOver(f));
    const auto specials = f.intSpecials;
    const int frame = f.intFrame;
    ASSERT_TRUE(WaitForBox());
    box.cmdPlay->click();
    ASSERT_TRUE(frmSplash::Instance().Loaded());
    frmSplash::Instance().Unload();

    // The players go through setup and selection again; the match screen opens anew.
    f.Show();
    ASSERT_TRUE(f.Loaded());
    EXPECT_TRUE(blnInMatch);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(std::tuple(f.lngPoints[i], f.intFrags[i], f.intMisses[i]), std::tuple(0, 0, 0));
    EXPECT_EQ(f.intCurrentPlayer, 0);
    const QStringList board{f.lblcRound->text(), f.lblLeft->text(), f.lblRight->text()};
    EXPECT_EQ(board, (QStringList{"1", "0", "0"}));
    EXPECT_FALSE(f.lbl1->isVisible()) << "no final board";
    EXPECT_TRUE(f.picUI->isEnabled());
    EXPECT_EQ(f.Player.size(), 2u);
    EXPECT_EQ(f.intSpecials, specials) << "held projectiles carry over";
    EXPECT_EQ(f.intFrame, frame);
    EXPECT_TRUE(f.blnFlying) << "and so do the typed modes";
    EXPECT_EQ(f.strCode, QStringLiteral("\\HOP FREMBLE"));
    EXPECT_EQ(strPlayerName[1], QStringLiteral("Player 2"));
    EXPECT_EQ(intFragLimit, 2);

    // It plays to its own end, and the box opens as the game-over box again.
    PutInThePathOfAnUpwardThrow(f, 1);
    ASSERT_TRUE(PlayThrow(clock, f, 90, 50));
    PutInThePathOfAnUpwardThrow(f, 0);
    ASSERT_TRUE(PlayThrow(clock, f, 90, 50));
    const QStringList after{f.lblcRound->text(), f.lblLeft->text(), f.lblRight->text()};
    EXPECT_EQ(after, (QStringList{"3", "1", "1"}));
}
