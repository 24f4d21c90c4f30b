// Aiming, flight, magnetic pull, collision checks and the timer calibration, driven through the
// real match screen offscreen on the virtual clock.
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "TestSupport.h"
#include "flight/frmSynchronization.h"
#include "modmain/modMain.h"
#include "screens/frmLoading.h"

using namespace testing_support;
using namespace modMain;
using ui::RGB;

namespace {

class Flight : public GameTest {
protected:
    // A match on a field of plain sky, without wind, the characters other than the thrower
    // parked below the field: nothing but the flight itself acts on the projectile.
    frmGrumbo& CalmMatch(int players = 2) {
        frmGrumbo& f = StartMatch(players);
        f.picBld->SetPicture(f.picBg->surface());
        Calm(f);
        return f;
    }

    static void Calm(frmGrumbo& f) {
        dblWind = 0;
        dblGust = 0;
        intWindMode = 0;
        for (int i = 0; i < intPlayers; ++i)
            if (i != f.intCurrentPlayer) f.Player[i]->SetTop(field::kOutOfPlay);
    }

    static void Type(QLineEdit* box, const QString& text) {
        box->clear();
        QTest::keyClicks(box, text);
    }

    // Types and throws as a player would, then moves the trajectory's origin to (handX, handY).
    static void Throw(frmGrumbo& f, const QString& angle, const QString& velocity, int handX,
                      int handY) {
        Type(f.txtAngle, angle);
        Type(f.txtVel, velocity);
        ASSERT_TRUE(f.cmdThrow->isEnabled());
        QTest::mouseClick(f.cmdThrow, Qt::LeftButton);
        f.intHandX = static_cast<grumbo::Integer>(handX);
        f.intHandY = static_cast<grumbo::Integer>(handY);
    }

    // Ends a throw the way the turn change leaves things for a new one by the same player.
    static void Reopen(frmGrumbo& f, int player = 0) {
        f.tmrMain.SetEnabled(false);
        f.tmrCollision.SetEnabled(false);
        f.intCurrentPlayer = static_cast<grumbo::Integer>(player);
        f.intFlightTime = 0;
        f.intProjectileKind = 0;
        f.txtAngle->setEnabled(true);
        f.txtVel->setEnabled(true);
        Calm(f);
        f.AlignBanana();
    }

    // Runs the flight up to its tick `ticks`, or until it has ended.
    void RunTicks(frmGrumbo& f, int ticks) {
        clock.RunUntil([&] { return f.intFlightTime >= ticks || !f.tmrMain.Enabled(); },
                       ticks * 40 + 500);
    }

    int Left(frmGrumbo& f) { return f.imgProjectile->Left(); }
    int Top(frmGrumbo& f) { return f.imgProjectile->Top(); }
};

}  // namespace

TEST_F(Flight, KeysAndPastedTextDecideWhetherThrowIsEnabled) {
    frmGrumbo& f = StartMatch(2);
    QTest::keyClicks(f.txtAngle, "4a-.5x");
    EXPECT_EQ(f.txtAngle->text(), QStringLiteral("45")) << "letters, minus and point are swallowed";
    EXPECT_FALSE(f.cmdThrow->isEnabled()) << "velocity still empty";
    QTest::keyClicks(f.txtVel, "1234");
    EXPECT_EQ(f.txtVel->text(), QStringLiteral("123")) << "a fourth digit does not fit";
    EXPECT_TRUE(f.cmdThrow->isEnabled());
    QTest::keyClick(f.txtVel, Qt::Key_Backspace);
    EXPECT_EQ(f.txtVel->text(), QStringLiteral("12")) << "Backspace passes the filter";

    f.txtAngle->clear();
    EXPECT_FALSE(f.cmdThrow->isEnabled()) << "emptying one box";
    QTest::keyClicks(f.txtAngle, "0");
    EXPECT_TRUE(f.cmdThrow->isEnabled()) << "filling it again";

    // Text that arrives without typing is not filtered; a non-number counts as empty.
    f.txtVel->setText(QStringLiteral("5x"));
    EXPECT_FALSE(f.cmdThrow->isEnabled());
    f.txtVel->setText(QStringLiteral(" 5"));
    EXPECT_FALSE(f.cmdThrow->isEnabled());
    f.txtVel->setText(QStringLiteral("50"));
    EXPECT_TRUE(f.cmdThrow->isEnabled());
}

TEST_F(Flight, ThrowMirrorsRightSideAnglesAndPlaysTheCharactersSound) {
    frmGrumbo& f = CalmMatch(2);
    const struct {
        int player;
        const char *character, *typed;
        int angle;
        const char* sound;
    } cases[] = {{0, "Dunik", "0", 0, "sounds/dThrow.wav"},
                 {0, "Vostrel", "45", 45, "sounds/vGrr.wav"},
                 {0, "Sorcerer Grumbo", "90", 90, "sounds/sThrow.wav"},
                 {1, "sorcerer grumbo", "0", 180, "sounds/throw.wav"},
                 {1, "Rapper Grumbo", "999", -819, "sounds/throw.wav"},
                 {1, "Rapper Grumbo", "90", 90, "sounds/throw.wav"},
                 {1, "Classic Grumbo", "45", 135, "sounds/throw.wav"}};
    for (const auto& c : cases) {
        Reopen(f, c.player);
        strCharacter[c.player] = QString::fromLatin1(c.character);
        dblMagX = 1.5;
        f.blnWarHit = f.blnNukedPlayer = true;
        Throw(f, c.typed, "50", 300, 300);
        EXPECT_EQ(f.intAngle, c.angle) << "player " << c.player << " typed " << c.typed;
        EXPECT_EQ(Relative(effects.played.last()), QString::fromLatin1(c.sound)) << c.character;
        EXPECT_FALSE(f.cmdThrow->isEnabled() || f.txtAngle->isEnabled() || f.txtVel->isEnabled());
        EXPECT_FALSE(dblMagX != 0 || f.blnWarHit || f.blnNukedPlayer);
        EXPECT_TRUE(f.imgProjectile->isVisible() && f.tmrMain.Enabled() &&
                    f.tmrCollision.Enabled());
    }
    // 135 degrees: the floor of 50 x cos takes the horizontal component to -36, not -35.
    RunTicks(f, 1);
    EXPECT_EQ(f.intAngle, 135);
    EXPECT_EQ(f.dblVelX, -36);
    EXPECT_EQ(f.dblVelY, 35);
}

TEST_F(Flight, ClosedFormPositionsWithAndWithoutWind) {
    frmGrumbo& f = CalmMatch(2);
    Throw(f, "45", "50", 100, 300);
    RunTicks(f, 1);
    EXPECT_EQ(f.dblVelX, 35);
    EXPECT_EQ(f.dblVelY, 35);
    RunTicks(f, 10);
    EXPECT_EQ(QPoint(Left(f), Top(f)), QPoint(135, 270));
    RunTicks(f, 71);
    EXPECT_EQ(Top(f), 299) << "h = 1.491 at tau 7.1";
    RunTicks(f, 72);
    EXPECT_EQ(Left(f), 352);
    EXPECT_GT(Top(f), 300);

    // Wind to the right at 0.5: the drift grows by 0.5 a tick and acts through the whole flight.
    Reopen(f);
    intWindMode = 2;
    dblWind = 0.5;
    Throw(f, "45", "50", 100, 300);
    RunTicks(f, 10);
    EXPECT_EQ(Left(f), 135 + 5);
    RunTicks(f, 30);
    EXPECT_EQ(Left(f), 205 + 45);
    Reopen(f);
    intWindMode = 1;
    dblWind = 0.5;
    Throw(f, "45", "50", 100, 300);
    RunTicks(f, 10);
    EXPECT_EQ(Left(f), 135 - 5);
}

TEST_F(Flight, LeavingTheFieldCountsOneMissAtTheEdges) {
    frmGrumbo& f = CalmMatch(2);
    // Each throw moves one pixel across a border on its first tick.
    const struct {
        const char* angle;
        const char* velocity;
        int handX, handY;
        int left, top;
        bool miss;
    } cases[] = {
        {"0", "10", 761, 200, 762, 201, false},      {"0", "10", 762, 200, 763, 201, true},
        {"90", "0", 300, 485, 300, 486, false},      {"90", "0", 300, 486, 300, 487, true},
        {"180", "10", -39, 200, -40, 201, false},    {"180", "10", -40, 200, -41, 201, true},
        {"90", "20", 300, -1799, 300, -1800, false}, {"90", "20", 300, -1800, 300, -1801, true},
    };
    for (const auto& c : cases) {
        Reopen(f);
        const int before = f.intMisses[0];
        Throw(f, c.angle, c.velocity, c.handX, c.handY);
        RunTicks(f, 1);
        EXPECT_EQ(f.intMisses[0] - before, c.miss ? 1 : 0) << c.left << ", " << c.top;
        if (!c.miss) {
            EXPECT_EQ(QPoint(Left(f), Top(f)), QPoint(c.left, c.top));
        }
    }
}

TEST_F(Flight, TickCounterNeverWraps) {
    frmGrumbo& f = CalmMatch(2);
    Throw(f, "90", "0", 300, 100);
    f.intFlightTime = 32767;
    ASSERT_TRUE(clock.RunUntil([&] { return f.intMisses[0] > 0; }, 100));
    EXPECT_GE(f.intFlightTime, 0);
}

TEST_F(Flight, SelectorsMoveTheFrameAndChooseTheKind) {
    frmGrumbo& f = StartMatch(2);
    QTest::mouseClick(f.picSelect[1], Qt::LeftButton);
    EXPECT_EQ(f.intProjectileKind, 0) << "a hidden selector cannot be clicked";
    EXPECT_EQ(f.boxSelect->x(), 8);

    f.picSelect[1]->move(28, 14);
    f.picSelect[1]->show();
    QTest::mouseClick(f.picSelect[1], Qt::LeftButton);
    EXPECT_EQ(f.intProjectileKind, 1);
    EXPECT_EQ(f.boxSelect->geometry(), QRect(27, 13, 16, 16));

    QTest::mouseClick(f.picSelect[0], Qt::LeftButton);
    EXPECT_EQ(f.intProjectileKind, 0);
    EXPECT_EQ(f.boxSelect->x(), 8);
}

// ---- Magnetic pull -------------------------------------------------------------------------

class Magnet : public Flight {
protected:
    // Players 1 to 3 share the place (400, 300): every pull below comes from one of them only.
    frmGrumbo& Field() {
        frmGrumbo& f = CalmMatch(4);
        for (int i = 1; i < 4; ++i) f.Player[i]->Move(400, 300);
        f.imgProjectile->ShowFrame(f.mag[0]);
        return f;
    }
    void PullAt(frmGrumbo& f, int left, int top) {
        f.imgProjectile->Move(left, top);
        f.Magnetic();
    }
};

TEST_F(Magnet, ZonesAroundTheCharacter) {
    frmGrumbo& f = Field();
    const int L = 400, R = 400 + f.Player[1]->Width(), T = 300;
    const struct {
        int left, top;
        double pull;
    } cases[] = {
        {L - 20, T - 50, 0},    {L - 20, T - 49, 0.7},   // near zone
        {L - 45, T - 40, 0},    {L - 44, T - 40, 0.7},   // left side, outer end
        {L + 9, T - 40, 0.7},   {L + 10, T - 40, 0},     // left side, inner end
        {R + 35, T - 40, 0},    {R + 34, T - 40, -0.7},  // right side (Q = left + 10)
        {R - 20, T - 40, 0},    {R - 19, T - 40, -0.7},
        {L - 20, T + 200, 0.7},  // below the top edge still counts as near
    };
    for (const auto& c : cases) {
        dblMagX = dblMagY = 0;
        PullAt(f, c.left, c.top);
        EXPECT_DOUBLE_EQ(dblMagX, c.pull) << c.left << ", " << c.top;
    }
    for (int i = 1; i < 4; ++i) f.Player[i]->SetTop(field::kOutOfPlay);
    f.Player[0]->Move(400, 300);
    dblMagX = 0;
    PullAt(f, 380, 280);
    EXPECT_EQ(dblMagX, 0) << "the thrower never pulls";
}

TEST_F(Magnet, LiftAndResetOfOpposingPull) {
    frmGrumbo& f = Field();
    dblMagX = dblMagY = 0;
    PullAt(f, 380, 300 - 30);
    EXPECT_EQ(dblMagY, 0) << "30 pixels above: no lift";
    dblMagX = -2.1;
    dblMagY = -1;
    PullAt(f, 380, 300 - 29);
    EXPECT_DOUBLE_EQ(dblMagX, 0.7) << "an opposing pull starts again from 0";
    EXPECT_DOUBLE_EQ(dblMagY, 0.2);
}

TEST_F(Magnet, PullBendsTheFlightOfTheMagneticKindOnly) {
    frmGrumbo& f = Field();
    for (int kind : {0, 3}) {
        Reopen(f);
        f.Player[1]->Move(420, 240);
        f.intProjectileKind = static_cast<grumbo::Integer>(kind);
        Throw(f, "90", "0", 400, 200);
        f.tmrCollision.SetEnabled(false);  // the pull alone, no hit
        RunTicks(f, 10);
        if (kind == 0) {
            EXPECT_EQ(dblMagX, 0);
            EXPECT_EQ(Left(f), 400);
        } else {
            EXPECT_NEAR(dblMagX, 7, 1e-9) << "ten ticks in the left-side zone";
            EXPECT_EQ(Left(f), 406) << "nine ticks of pull move it 6.3 pixels at tau 1";
        }
    }
}

// ---- Collision checks ----------------------------------------------------------------------

class Collision : public Flight {
protected:
    // A calm match with a grey building block at x 300..400 from y 150 down, and a throw by
    // player 0 in the air (its timers on, the projectile placed by each case).
    frmGrumbo& Field() {
        frmGrumbo& f = CalmMatch(2);
        f.picBld->surface().FillRect(300, 150, 400, 465, RGB(90, 90, 90));
        f.Player[0]->Move(50, 100);  // the thrower well away from the building
        Throw(f, "90", "0", 100, 100);
        return f;
    }
    // Stands player i at (left, top), blended with what lies behind him.
    static void Stand(frmGrumbo& f, int i, int left, int top) {
        ui::PictureBox& p = *f.Player[i];
        p.Move(left, top);
        p.Cls();
        f.MakeTransparent(p, 0, 0, static_cast<float>(p.Width()), static_cast<float>(p.Height()));
    }
    // One tick of the collision timer with the projectile at (left, top).
    static void CheckAt(frmGrumbo& f, int left, int top) {
        f.imgProjectile->Move(left, top);
        f.tmrCollision.Fire();
    }
};

TEST_F(Collision, BuildingsByKind) {
    frmGrumbo& f = Field();
    CheckAt(f, 320, 167);  // row 177 lies in the building, but is not tested
    CheckAt(f, 289, 200);  // samples x 289 and 299: sky
    EXPECT_TRUE(f.tmrMain.Enabled());
    EXPECT_EQ(f.intMisses[0], 0);
    CheckAt(f, 290, 168);  // x 300 of row 178
    EXPECT_FALSE(f.tmrMain.Enabled() || f.imgProjectile->isVisible());
    EXPECT_EQ(f.intMisses[0], 1);

    Reopen(f);
    f.intProjectileKind = 2;
    Throw(f, "90", "0", 100, 100);
    CheckAt(f, 320, 200);
    EXPECT_TRUE(f.tmrMain.Enabled() && f.imgProjectile->isVisible()) << "war bores on";
    EXPECT_EQ(f.intMisses[0], 1) << "no miss for a war crater";

    Reopen(f);
    f.intProjectileKind = 1;
    Throw(f, "90", "0", 100, 100);
    CheckAt(f, 360, 200);
    EXPECT_FALSE(f.tmrMain.Enabled());
    EXPECT_EQ(f.intMisses[0], 2) << "a nuke on an empty building is one miss, counted once";
}

TEST_F(Collision, CharacterHitsByPixel) {
    frmGrumbo& f = Field();
    Stand(f, 1, 500, 250);
    // Find a column of see-through pixels (rows y and y + 10) and one of solid ones.
    ui::Surface raw;
    ASSERT_TRUE(raw.Load(DataFile(QStringLiteral("characters/Rapper Grumbo.bmp"))));
    QPoint clear(-1, -1), solid(-1, -1);
    for (int y = 0; y + 10 < raw.Height(); ++y)
        for (int x = 0; x < raw.Width(); ++x) {
            const bool white = raw.Point(x, y) == ui::kWhite && raw.Point(x, y + 10) == ui::kWhite;
            const bool dark = raw.Point(x, y) != ui::kWhite && raw.Point(x, y + 10) != ui::kWhite;
            if (white && clear.x() < 0) clear = {x, y};
            if (dark && solid.x() < 0 && y > 20) solid = {x, y};
        }
    ASSERT_GE(clear.x(), 0);
    ASSERT_GE(solid.x(), 0);

    CheckAt(f, 500 + clear.x() - 1, 250 + clear.y());
    EXPECT_TRUE(f.tmrMain.Enabled()) << "see-through pixels in front of sky";

    Stand(f, 0, 500, 250);  // the thrower in the same place is never hit
    Stand(f, 1, 500, field::kOutOfPlay);
    CheckAt(f, 500 + solid.x() - 1, 250 + solid.y());
    CheckAt(f, 500 + solid.x() - 1, field::kOutOfPlay + solid.y());
    EXPECT_TRUE(f.tmrMain.Enabled()) << "neither the thrower nor a parked character";

    // Standing in front of the building: the character is hit and the check stops there, so the
    // building behind him is not reported as well.
    Stand(f, 0, 100, 100);
    Stand(f, 1, 320, 250);
    CheckAt(f, 320 + solid.x() - 1, 250 + solid.y());
    EXPECT_FALSE(f.tmrMain.Enabled());
    EXPECT_EQ(f.intMisses[0], 0);
}

// ---- Calibration ---------------------------------------------------------------------------

class Calibration : public GameTest {
protected:
    QString Calibrate(int areaWidth) {
        statuses.clear();
        frmLoading::Instance().onStatus = [this](const QString& s) { statuses.push_back(s); };
        frmSynchronization sync(frmLoading::Instance(), frmGrumbo::Instance().tmrMain, areaWidth);
        sync.Load();
        const QString result = statuses.isEmpty() ? QString() : statuses.last();
        sync.Unload();
        clock.Advance(5);
        return result;
    }
    QStringList statuses;
};

TEST_F(Calibration, AdjustsTheFlightTimerFromTheTicksTaken) {
    ui::Timer& matchTimer = frmGrumbo::Instance().tmrMain;
    EXPECT_EQ(Calibrate(101), QStringLiteral("Test completed in 720 ms, adjusted timers to 32"));
    EXPECT_EQ(matchTimer.Interval(), 32);
    EXPECT_EQ(Calibrate(126), QStringLiteral("Test completed in 912 ms, adjusted timers to 26"));
    EXPECT_EQ(matchTimer.Interval(), 26);
    for (int w = 130; w <= 133; ++w)
        EXPECT_EQ(Calibrate(w), QStringLiteral("Test completed in 960 ms, adjusted timers to 24"))
            << w;
    EXPECT_EQ(Calibrate(134), QStringLiteral("Test completed in 984 ms, adjusted timers to 23"));
    EXPECT_FALSE(statuses.contains(QStringLiteral("Collision???")));
}

TEST_F(Calibration, EndsEvenWhenTheThrowNeverPassesTheArea) {
    const QString result = Calibrate(2000);
    EXPECT_EQ(result, QStringLiteral("Test did not finish, timers left at 32"));
    EXPECT_TRUE(statuses.contains(QStringLiteral("Off edge???")));
    EXPECT_EQ(frmGrumbo::Instance().tmrMain.Interval(), 32);
}

TEST_F(Calibration, RunsBehindTheLoadingScreenAtMatchStart) {
    QStringList seen;
    frmLoading::Instance().onStatus = [&](const QString& s) { seen.push_back(s); };
    frmGrumbo& f = StartMatch(2);
    EXPECT_TRUE(seen.contains(QStringLiteral("Test completed in 720 ms, adjusted timers to 32")));
    EXPECT_FALSE(seen.contains(QStringLiteral("Off edge???")));
    EXPECT_EQ(f.tmrMain.Interval(), 32);
    EXPECT_EQ(f.tmrCollision.Interval(), 60);
    EXPECT_TRUE(effects.played.contains(DataFile(QStringLiteral("sounds/gn.wav"))));
}
