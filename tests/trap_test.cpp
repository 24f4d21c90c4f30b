// The keyboard trap of the match screen: the key test, typed codes, flying with the arrow keys,
// and Escape pausing a flight that "Resume" lets fly on, on the virtual clock.
#include <QKeyEvent>
#include <QLineEdit>
#include <map>

#include "ScreensSupport.h"

using namespace testing_support;
using namespace modMain;

namespace {

struct Shot {
    std::map<int, QPoint> path;  // projectile place by flight tick
    QImage scene;                // the city after the throw
    int misses = 0;
};

class Trap : public ScreensTest {
protected:
    bool Played(const char* sound) {
        return std::any_of(effects.played.begin(), effects.played.end(),
                           [&](const QString& p) { return Relative(p) == QLatin1String(sound); });
    }

    // Throws at 20 degrees with velocity 30 into a building; with `pause`, Escape at flight
    // tick 5 and "Resume" three seconds later.
    Shot Throw(frmGrumbo& f, bool pause);

    // Starts a match to one frag and throws straight up into player 1, who stands in the way;
    // `onPump` acts at every pump of the hit handling and what follows it.
    frmGrumbo& HitWith(std::function<void(frmGrumbo&)> onPump) {
        intFragLimit = 1;
        frmGrumbo& f = StartMatch(2);
        PutInThePathOfAnUpwardThrow(f, 1);
        f.txtAngle->setText(QStringLiteral("90"));
        f.txtVel->setText(QStringLiteral("50"));
        clock.onPump = [&f, onPump] { onPump(f); };
        f.cmdThrow->click();
        return f;
    }
};

Shot Trap::Throw(frmGrumbo& f, bool pause) {
    Shot shot;
    clock.onPump = [&] {
        if (f.tmrMain.Enabled() || f.intFlightTime > 0)
            shot.path[f.intFlightTime] = f.imgProjectile->pos();
    };
    f.txtAngle->setText(QStringLiteral("20"));
    f.txtVel->setText(QStringLiteral("30"));
    f.cmdThrow->click();
    if (pause) {
        clock.RunUntil([&] { return f.intFlightTime >= 5; }, 5000);
        Tap(ui::VkEscape);
        frmEndgame& box = frmEndgame::Instance();
        EXPECT_TRUE(box.Loaded());
        EXPECT_EQ(BoxTexts(), kPausedBox);
        EXPECT_FALSE(f.picUI->isEnabled());
        EXPECT_FALSE(f.tmrCollision.Enabled());
        EXPECT_EQ(QApplication::activeWindow(), box.window()) << "the box has the keyboard";
        // The window system cannot close the box behind the players' backs.
        box.window()->close();
        EXPECT_TRUE(box.Loaded());
        const int frozenAt = f.intFlightTime;
        const QPoint place = f.imgProjectile->pos();
        clock.Advance(1500);
        Tap(ui::VkEscape);  // a second Escape changes nothing
        clock.Advance(1500);
        EXPECT_EQ(f.intFlightTime, frozenAt) << "the flight stands still";
        EXPECT_EQ(f.imgProjectile->pos(), place);
        box.cmdPlay->click();
        EXPECT_FALSE(box.Loaded());
        EXPECT_TRUE(f.picUI->isEnabled());
        clock.Advance(kPollMs);
        EXPECT_EQ(QApplication::activeWindow(), f.window()) << "the keyboard goes back";
    }
    EXPECT_TRUE(clock.RunUntil([&] { return InputOpen(f); }, kThrowLimitMs));
    clock.onPump = nullptr;
    shot.path.erase(0);
    shot.scene = f.picBld->surface().image();
    shot.misses = f.intMisses[0];
    return shot;
}

}  // namespace

TEST_F(Trap, KeysReachTheTrapWithTheirCodesOncePerPressAndRepeat) {
    frmGrumbo& f = StartMatch(2);
    // A key counts when it went down since the last poll and is still down.
    keyboard.Press('A');
    EXPECT_TRUE(keyboard.GetAsyncKeyState('A'));
    EXPECT_FALSE(keyboard.GetAsyncKeyState('A')) << "still down, but not pressed again";
    keyboard.Release('A');
    keyboard.Press('A');
    keyboard.Release('A');
    EXPECT_FALSE(keyboard.GetAsyncKeyState('A')) << "pressed and let go between two polls";
    keyboard.Press('B');
    EXPECT_FALSE(keyboard.GetAsyncKeyState('A')) << "another key";
    EXPECT_TRUE(keyboard.GetAsyncKeyState('B'));
    keyboard.Release('B');
    // A held key repeats for the trap as a typed one does.
    const auto send = [&](QEvent::Type type, bool repeat) {
        QKeyEvent e(type, Qt::Key_Right, Qt::NoModifier, QString(), repeat);
        QApplication::sendEvent(f.txtAngle, &e);
    };
    // The window system's release between two repeats does not let the key go, and every
    // repeat counts as a new press.
    send(QEvent::KeyPress, false);
    for (int i = 0; i < 3; ++i) {
        send(QEvent::KeyRelease, true);
        EXPECT_TRUE(keyboard.GetAsyncKeyState(ui::VkRight)) << "repeat " << i;
        send(QEvent::KeyPress, true);
    }
    EXPECT_TRUE(keyboard.GetAsyncKeyState(ui::VkRight));
    EXPECT_FALSE(keyboard.GetAsyncKeyState(ui::VkRight)) << "not pressed again yet";
    send(QEvent::KeyRelease, false);
    send(QEvent::KeyPress, true);  // a stray repeat after the release
    send(QEvent::KeyRelease, false);
    EXPECT_FALSE(keyboard.GetAsyncKeyState(ui::VkRight));

    struct {
        Qt::Key key;
        Qt::KeyboardModifiers mods;
        int vk;
    } keys[] = {{Qt::Key_Backslash, {}, 220},
                {Qt::Key_Bar, Qt::ShiftModifier, 220},
                {Qt::Key_1, Qt::KeypadModifier, 97},
                {Qt::Key_F1, {}, 112},
                {Qt::Key_F13, {}, 124},
                {Qt::Key_Q, Qt::ShiftModifier, 81},
                {Qt::Key_Escape, {}, 27},
                {Qt::Key_Down, {}, 40}};
    for (const auto& k : keys) {
        QTest::keyPress(f.txtAngle, k.key, k.mods);
        EXPECT_TRUE(keyboard.GetAsyncKeyState(k.vk)) << k.vk;
        QTest::keyRelease(f.txtAngle, k.key, k.mods);
    }
    QTest::keyPress(f.txtVel, Qt::Key_1);
    EXPECT_FALSE(keyboard.GetAsyncKeyState(97)) << "the 1 above the letters is no keypad key";
    QTest::keyRelease(f.txtVel, Qt::Key_1);
    EXPECT_EQ(f.txtAngle->text(), QStringLiteral("1")) << "the box's own filter keeps letters out";
    EXPECT_EQ(f.txtVel->text(), QStringLiteral("1"));
}

TEST_F(Trap, CodesNeedTheBackslashIgnoreCaseAndEndAtTheTwelfthCharacter) {
    frmGrumbo& f = StartMatch(2);
    TypeKeys(QStringLiteral("hop fremble"));
    EXPECT_EQ(f.strCode, QString()) << "nothing is recorded before a backslash";
    EXPECT_FALSE(f.blnFlying);

    TypeKeys(QStringLiteral("\\hop fremb"));
    EXPECT_EQ(f.strCode, QStringLiteral("\\HOP FREMB")) << "letter keys give capitals";
    Tap('L');
    EXPECT_FALSE(Played("sounds/flyg.wav"));
    Tap('E');
    EXPECT_EQ(f.strCode, QStringLiteral("\\HOP FREMBLE"));
    EXPECT_TRUE(f.blnFlying);
    EXPECT_TRUE(Played("sounds/flyg.wav")) << "as the twelfth character is typed";
    EXPECT_FALSE(f.blnAllProjectiles);
    Tap('X');
    EXPECT_EQ(f.strCode, QString()) << "the thirteenth character empties the buffer";
    TypeKeys(QStringLiteral("q "));
    EXPECT_EQ(f.strCode, QString()) << "and keys are ignored until the next backslash";

    // A space and a letter held from before the backslash do not count once the code has
    // started: the polls before it took them.
    keyboard.Press(ui::VkSpace);
    keyboard.Press('H');
    clock.Advance(kPollMs);
    Tap(ui::VkBackslash);
    clock.Advance(kPollMs);
    keyboard.Release(ui::VkSpace);
    keyboard.Release('H');
    EXPECT_EQ(f.strCode, QStringLiteral("\\"));
    TypeKeys(QStringLiteral("a b"));
    EXPECT_EQ(f.strCode, QStringLiteral("\\A B"));

    // A backslash starts over; the keypad's 1 types "a" and F1 types "p".
    TypeKeys(QStringLiteral("\\zax\\z"));
    EXPECT_EQ(f.strCode, QStringLiteral("\\Z"));
    Tap(97);
    Tap(112);
    TypeKeys(QStringLiteral(" plinkos"));
    EXPECT_TRUE(f.blnAllProjectiles);
    EXPECT_TRUE(Played("sounds/allb.wav"));

    // Codes 65 to 124 type the characters of their codes; the keys around them type nothing.
    TypeKeys(QStringLiteral("\\"));
    for (int vk : {64, 65, 124, 125}) Tap(vk);
    EXPECT_EQ(f.strCode, QStringLiteral("\\A|"));

    effects.played.clear();
    TypeKeys(QStringLiteral("\\qix fremble"));
    EXPECT_TRUE(f.blnInvulnerable);
    EXPECT_TRUE(effects.played.isEmpty()) << "the third code has no sound";
}

TEST_F(Trap, AllProjectilesFromTheNextTurnOn) {
    intWindExtremity = 0;
    frmGrumbo& f = StartMatch(2);
    TypeKeys(QStringLiteral("\\zap plinkos"));
    for (int k = 1; k <= 3; ++k) EXPECT_FALSE(f.picSelect[k]->isVisible()) << "not yet: " << k;
    ASSERT_TRUE(PlayThrow(clock, f, 135, 999));  // up and back out of the field
    ASSERT_EQ(f.intCurrentPlayer, 1);
    for (int k = 1; k <= 3; ++k) EXPECT_TRUE(f.picSelect[k]->isVisible()) << k;
}

TEST_F(Trap, ArrowKeysFlyTheThrowerSeeThroughAndReparkTheProjectile) {
    frmGrumbo& f = StartMatch(2);
    ui::PictureBox& p = *f.Player[0];
    const int left = p.Left(), top = p.Top();

    // Flying mode off: nobody moves, but the projectile is parked at the hand again.
    f.imgProjectile->Move(300, 100);
    Tap(ui::VkRight);
    EXPECT_EQ(p.Left(), left);
    EXPECT_EQ(p.Top(), top);
    EXPECT_EQ(f.imgProjectile->Left(), left);
    EXPECT_EQ(f.imgProjectile->Top(), top - 11);

    TypeKeys(QStringLiteral("\\hop fremble"));
    ASSERT_TRUE(f.blnFlying);
    for (int i = 0; i < 4; ++i) Tap(ui::VkLeft);
    EXPECT_EQ(p.Left(), left - 12);
    EXPECT_EQ(p.Top(), top);
    EXPECT_EQ(f.intHandX, left - 12) << "the projectile follows";
    EXPECT_EQ(f.intHandY, top - 11);

    // Up and Right in one poll: only Up counts; Right, still held, is seen by the next poll.
    keyboard.Press(ui::VkRight);
    keyboard.Press(ui::VkUp);
    clock.Advance(kPollMs);
    EXPECT_EQ(p.Left(), left - 12);
    EXPECT_EQ(p.Top(), top - 3);
    clock.Advance(kPollMs);
    EXPECT_EQ(p.Left(), left - 9);
    keyboard.Release(ui::VkRight);
    keyboard.Release(ui::VkUp);
    Tap(ui::VkDown);
    EXPECT_EQ(p.Top(), top);

    // An arrow key takes the whole poll: a letter held with it is typed by the next one.
    Tap(ui::VkBackslash);
    keyboard.Press(ui::VkDown);
    keyboard.Press('H');
    clock.Advance(kPollMs);
    EXPECT_EQ(f.strCode, QStringLiteral("\\"));
    clock.Advance(kPollMs);
    EXPECT_EQ(f.strCode, QStringLiteral("\\H"));
    keyboard.Release(ui::VkDown);
    keyboard.Release('H');

    // A moved thrower is redrawn see-through at his new place.
    p.PSet(1, 1, ui::RGB(255, 0, 0));  // something drawn over the picture
    for (int i = 0; i < 10; ++i) Tap(ui::VkUp);
    EXPECT_TRUE(ShowsPicture(p, QStringLiteral("characters/Classic Grumbo.bmp"), f.picBld));
}

TEST_F(Trap, ArrowKeysDuringTheMatchStartWaitForTheThrower) {
    // The turn still names the last player of an earlier "2 vs 2" match.
    frmGrumbo& f = frmGrumbo::Instance();
    f.intCurrentPlayer = 3;
    f.blnFlying = true;
    int held = 0;
    clock.onPump = [&] {
        keyboard.Release(ui::VkLeft);
        keyboard.Press(ui::VkLeft);
        ++held;
    };
    StartMatch(2);
    clock.onPump = nullptr;
    keyboard.Release(ui::VkLeft);
    ASSERT_GT(held, 100);
    EXPECT_EQ(f.intCurrentPlayer, 0);
    EXPECT_LE(f.Player[0]->Top(), field::kGroundLine) << "the first round stands";
}

TEST_F(Trap, ResumedFlightLandsWhereAnUninterruptedOneDoes) {
    const Shot plain = Throw(StartMatch(2, 7), false);
    LeaveMatch();
    const Shot paused = Throw(StartMatch(2, 7), true);
    ASSERT_GT(plain.path.size(), 20u);
    EXPECT_EQ(paused.path, plain.path) << "the same place at every tick";
    EXPECT_TRUE(paused.scene == plain.scene) << "the same crater";
    EXPECT_EQ(paused.misses, plain.misses) << "the same miss, seen by the collision check";
}

TEST_F(Trap, OnceTheFragLimitIsReachedEscapeOpensNoPauseBox) {
    // Escape at every pump from the deciding hit on: through the final board and the wait.
    bool paused = false;
    HitWith([&](frmGrumbo& f) {
        const frmEndgame& box = frmEndgame::Instance();
        paused |= box.Loaded() && box.lblCaption->text() == QLatin1String("Game Paused");
        if (f.lblLeft->text() != QLatin1String("1")) return;
        keyboard.Release(ui::VkEscape);
        keyboard.Press(ui::VkEscape);
    });
    ASSERT_TRUE(WaitForBox(60000));
    clock.Advance(1000);
    clock.onPump = nullptr;
    EXPECT_FALSE(paused);
    EXPECT_EQ(BoxTexts(), kGameOverBox);
}

TEST_F(Trap, APauseBoxStillUpAtTheEndOfTheMatchBecomesTheGameOverBox) {
    frmEndgame& box = frmEndgame::Instance();
    // Escape as the projectile hits, before the round is scored.
    bool pressed = false, paused = false;
    frmGrumbo& f = HitWith([&](frmGrumbo& f) {
        paused |= box.Loaded() && box.lblCaption->text() == QLatin1String("Game Paused");
        if (pressed || f.tmrMain.Enabled() || f.intFlightTime == 0) return;
        pressed = true;
        EXPECT_EQ(f.lblLeft->text(), QStringLiteral("0"));
        keyboard.Press(ui::VkEscape);
    });
    ASSERT_TRUE(clock.RunUntil(
        [&] { return box.Loaded() && box.cmdPlay->text() == QLatin1String("Play Again"); }, 60000));
    clock.onPump = nullptr;
    EXPECT_TRUE(paused);
    EXPECT_TRUE(MatchOver(f));
    EXPECT_EQ(BoxTexts(), kGameOverBox);
    EXPECT_FALSE(f.picUI->isEnabled());
}
