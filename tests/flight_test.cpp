// Aiming, flight, magnetic pull, collision checks and the timer calibration on the real match
// screen, offscreen, on the virtual clock.
#include <QCoreApplication>
#include <QFileInfo>
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include "TestSupport.h"
#include "flight/frmSynchronization.h"
#include "modmain/modMain.h"
#include "screens/frmLoading.h"

using namespace testing_support;
using namespace modMain;

namespace {

class Flight : public GameTest {
protected:
    // Plain sky, no wind, everybody but the thrower parked: only the flight acts on the projectile.
    frmGrumbo& CalmMatch(int players = 2) {
        frmGrumbo& f = StartMatch(players);
        f.picBld->SetPicture(f.picBg->surface());
        Calm(f);
        return f;
    }
    static void Calm(frmGrumbo& f) {
        dblWind = dblGust = 0;
        intWindMode = 0;
        for (int i = 0; i < intPlayers; ++i)
            if (i != f.intCurrentPlayer) f.Player[i]->SetTop(field::kOutOfPlay);
    }
    // Types and throws as a player would, then moves the trajectory's origin to (handX, handY).
    static void Throw(frmGrumbo& f, const QString& angle, const QString& velocity, int handX,
                      int handY) {
        for (auto [box, text] : {std::pair{f.txtAngle, angle}, {f.txtVel, velocity}}) {
            box->clear();
            QTest::keyClicks(box, text);
        }
        ASSERT_TRUE(f.cmdThrow->isEnabled());
        QTest::mouseClick(f.cmdThrow, Qt::LeftButton);
        f.intHandX = static_cast<grumbo::Integer>(handX);
        f.intHandY = static_cast<grumbo::Integer>(handY);
    }
    // Leaves things as the turn change does for a new throw by `player`.
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
    // What the screen shows in `r` of the match window once pending repaints are done.
    static QImage OnScreen(frmGrumbo& f, const QRect& r) {
        QCoreApplication::processEvents();
        QWidget* w = f.window();
        return w->screen()->grabWindow(w->winId(), r.x(), r.y(), r.width(), r.height()).toImage();
    }
    static QPoint At(frmGrumbo& f) { return f.imgProjectile->geometry().topLeft(); }
};

}  // namespace

TEST_F(Flight, KeyFilterAndTheThrowButton) {
    frmGrumbo& f = StartMatch(2);
    QTest::keyClicks(f.txtAngle, "4a-.5x");
    EXPECT_EQ(f.txtAngle->text(), QStringLiteral("45"));
    EXPECT_FALSE(f.cmdThrow->isEnabled()) << "velocity still empty";
    QTest::keyClicks(f.txtVel, "1234");
    EXPECT_EQ(f.txtVel->text(), QStringLiteral("123")) << "a fourth digit does not fit";
    EXPECT_TRUE(f.cmdThrow->isEnabled());
    QTest::keyClick(f.txtVel, Qt::Key_Backspace);
    EXPECT_EQ(f.txtVel->text(), QStringLiteral("12"));

    // Only ASCII digits: a space, an Arabic-Indic three and codes from U+8000 up are swallowed.
    const QString typed[] = {QStringLiteral("1"),      QStringLiteral(" "),
                             QStringLiteral("\u0663"), QStringLiteral("\u8000"),
                             QStringLiteral("\uFF11"), QStringLiteral("\U0001F600"),
                             QStringLiteral("2")};
    for (QLineEdit* box : {f.txtAngle, f.txtVel}) {
        box->clear();
        for (const QString& t : typed)
            QTest::sendKeyEvent(QTest::Click, box, Qt::Key_unknown, t, Qt::NoModifier);
        EXPECT_EQ(box->text(), QStringLiteral("12"));
    }
    // Pasted text is not filtered; a non-number counts as empty.
    for (const auto& [text, enabled] :
         {std::pair{"5x", false}, {" 5", false}, {"", false}, {"50", true}}) {
        f.txtVel->setText(QString::fromLatin1(text));
        EXPECT_EQ(f.cmdThrow->isEnabled(), enabled) << text;
    }
}

TEST_F(Flight, ThrowMirrorsRightSideAnglesAndPlaysTheCharactersSound) {
    frmGrumbo& f = CalmMatch(2);
    const struct {
        int player;
        const char *character, *typed;
        int angle;
        const char* sound;
    } cases[] = {{0, "Dunik", "0", 0, "dThrow"},
                 {0, "Vostrel", "45", 45, "vGrr"},
                 {0, "Sorcerer Grumbo", "90", 90, "sThrow"},
                 {1, "sorcerer grumbo", "0", 180, "throw"},
                 {1, "Rapper Grumbo", "999", -819, "throw"},
                 {1, "Rapper Grumbo", "90", 90, "throw"},
                 {1, "Classic Grumbo", "45", 135, "throw"}};
    for (const auto& c : cases) {
        Reopen(f, c.player);
        strCharacter[c.player] = QString::fromLatin1(c.character);
        dblMagX = 1.5;
        f.blnWarHit = f.blnNukedPlayer = true;
        Throw(f, c.typed, "50", 300, 300);
        EXPECT_EQ(f.intAngle, c.angle) << "player " << c.player << " typed " << c.typed;
        // The left side throws in pose 1, the right side in pose 2.
        const QString pose =
            QStringLiteral("characters/%1%2.bmp").arg(c.character).arg(c.player + 1);
        if (QFileInfo::exists(DataFile(pose))) {
            EXPECT_TRUE(ShowsPicture(*f.Player[c.player], pose));
        }
        EXPECT_EQ(Relative(effects.played.last()), QStringLiteral("sounds/%1.wav").arg(c.sound));
        EXPECT_FALSE(f.cmdThrow->isEnabled() || f.txtAngle->isEnabled() || f.txtVel->isEnabled());
        EXPECT_FALSE(dblMagX != 0 || f.blnWarHit || f.blnNukedPlayer);
        EXPECT_TRUE(f.imgProjectile->isVisible() && f.tmrMain.Enabled() &&
                    f.tmrCollision.Enabled());
    }
    // 135 degrees: the floor of 50 x cos takes the horizontal component to -36, not -35.
    RunTicks(f, 1);
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
    EXPECT_EQ(At(f), QPoint(135, 270));
    RunTicks(f, 71);
    EXPECT_EQ(At(f).y(), 299) << "h = 1.491 at tau 7.1";
    RunTicks(f, 72);
    EXPECT_EQ(At(f).x(), 352);
    EXPECT_GT(At(f).y(), 300);

    // Wind 0.5: the drift grows by 0.5 a tick and acts through the whole flight.
    for (int mode : {1, 2}) {
        Reopen(f);
        intWindMode = static_cast<grumbo::Integer>(mode);
        dblWind = 0.5;
        Throw(f, "45", "50", 100, 300);
        const int side = mode == 1 ? -1 : 1;
        RunTicks(f, 10);
        EXPECT_EQ(At(f).x(), 135 + side * 5);
        RunTicks(f, 30);
        EXPECT_EQ(At(f).x(), 205 + side * 45);
    }
}

TEST_F(Flight, ProjectileSpinsShowsTheSceneThroughItsWhiteAndPassesBehindCharacters) {
    frmGrumbo& f = StartMatch(2);
    clock.Advance(2000);  // the turn marker has gone
    Throw(f, "60", "55", f.intHandX, f.intHandY);
    // Each tick turns the banana a quarter turn clockwise: the next frame of the kind.
    const auto frameShown = [&] {
        for (int k = 0; k < 4; ++k)
            if (f.imgProjectile->surface().image() == f.Projectile[k].image()) return k;
        return -1;
    };
    RunTicks(f, 1);
    const int first = frameShown();
    for (int tick = 2; tick <= 5; ++tick) {
        RunTicks(f, tick);
        EXPECT_EQ(frameShown(), (first + tick - 1) % 4);
    }

    // Frozen in mid-air, every frame of every kind over the sky and over the city: where the
    // frame is white, the screen shows the scene behind it.
    f.tmrMain.SetEnabled(false);
    f.tmrCollision.SetEnabled(false);
    const std::array<ui::Surface, 4>* kinds[] = {&f.Projectile, &f.nuke, &f.war, &f.mag};
    const QPoint sky(300, 20), city(303, 440);
    ASSERT_NE(f.picBld->Point(city.x(), city.y()), f.picBg->Point(city.x(), city.y()));
    for (int kind = 0; kind < 4; ++kind)
        for (const ui::Surface& picture : *kinds[kind])
            for (const QPoint& at : {sky, city}) {
                SCOPED_TRACE(testing::Message() << "kind " << kind << " at " << at.x());
                f.imgProjectile->ShowFrame(picture);
                f.imgProjectile->Move(at.x(), at.y());
                const QImage screen = OnScreen(f, QRect(at, f.imgProjectile->size()));
                int white = 0;
                for (int y = 0; y < picture.Height(); ++y)
                    for (int x = 0; x < picture.Width(); ++x) {
                        const std::int32_t own = picture.Point(x, y);
                        white += own == ui::kWhite;
                        const std::int32_t behind = f.picBld->Point(at.x() + x, at.y() + y);
                        ASSERT_EQ(ui::FromQRgb(screen.pixel(x, y)),
                                  own == ui::kWhite ? behind : own)
                            << x << ", " << y;
                    }
                EXPECT_GT(white, 20);
            }

    // Over a character the projectile is hidden behind him.
    const ui::PictureBox& p = *f.Player[0];
    const QPoint body(p.Left() + p.Width() / 2 - 5, p.Top() + p.Height() / 2 - 5);
    f.imgProjectile->ShowFrame(f.Projectile[0]);
    f.imgProjectile->Move(body.x(), body.y());
    const QImage screen = OnScreen(f, QRect(body, QSize(10, 10)));
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 10; ++x)
            ASSERT_EQ(ui::FromQRgb(screen.pixel(x, y)),
                      p.Point(body.x() - p.Left() + x, body.y() - p.Top() + y));
}

TEST_F(Flight, LeavingTheFieldCountsOneMissAtTheEdgesAndTheTickCounterNeverWraps) {
    frmGrumbo& f = CalmMatch(2);
    // Each throw moves one pixel across a border on its first tick.
    const struct {
        const char *angle, *velocity;
        int handX, handY, left, top;
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
            EXPECT_EQ(At(f), QPoint(c.left, c.top));
        }
    }
    Reopen(f);
    Throw(f, "90", "0", 300, 100);
    f.intFlightTime = 32767;
    const int before = f.intMisses[0];
    ASSERT_TRUE(clock.RunUntil([&] { return f.intMisses[0] > before; }, 100));
    EXPECT_GE(f.intFlightTime, 0);
}

TEST_F(Flight, SelectorsMoveTheFrameAndChooseTheKind) {
    frmGrumbo& f = StartMatch(2);
    QTest::mouseClick(f.picSelect[1], Qt::LeftButton);
    EXPECT_EQ(f.intProjectileKind, 0) << "a hidden selector cannot be clicked";
    f.picSelect[1]->move(28, 14);
    f.picSelect[1]->show();
    QTest::mouseClick(f.picSelect[1], Qt::LeftButton);
    EXPECT_EQ(f.intProjectileKind, 1);
    EXPECT_EQ(f.boxSelect->geometry(), QRect(27, 13, 16, 16));
    QTest::mouseClick(f.picSelect[0], Qt::LeftButton);
    EXPECT_EQ(f.intProjectileKind, 0);
    EXPECT_EQ(f.boxSelect->x(), 8);
}

class Magnet : public Flight {
protected:
    // Players 1 to 3 share the place (400, 300): every pull below comes from one of them only.
    frmGrumbo& Field() {
        frmGrumbo& f = CalmMatch(4);
        for (int i = 1; i < 4; ++i) f.Player[i]->Move(400, 300);
        f.imgProjectile->ShowFrame(f.mag[0]);
        return f;
    }
    static void PullAt(frmGrumbo& f, int left, int top) {
        f.imgProjectile->Move(left, top);
        f.Magnetic();
    }
};

TEST_F(Magnet, ZonesLiftAndResetOfAnOpposingPull) {
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
    dblMagY = 0;
    PullAt(f, 380, T - 30);
    EXPECT_EQ(dblMagY, 0) << "30 pixels above: no lift";
    dblMagX = -2.1;
    dblMagY = -1;
    PullAt(f, 380, T - 29);
    EXPECT_DOUBLE_EQ(dblMagX, 0.7) << "an opposing pull starts again from 0";
    EXPECT_DOUBLE_EQ(dblMagY, 0.2);

    for (int i = 1; i < 4; ++i) f.Player[i]->SetTop(field::kOutOfPlay);
    f.Player[0]->Move(400, 300);
    dblMagX = 0;
    PullAt(f, 380, 280);
    EXPECT_EQ(dblMagX, 0) << "the thrower never pulls";
}

TEST_F(Magnet, OnlyTheFirstCharacterInRangePulls) {
    frmGrumbo& f = Field();
    // (380, 270) lies in player 2's left-side zone and in player 3's right-side zone at once.
    f.Player[1]->SetTop(field::kOutOfPlay);
    f.Player[3]->Move(370 - f.Player[3]->Width(), 300);
    for (double pull : {0.7, -0.7}) {
        dblMagX = 0;
        PullAt(f, 380, 270);
        EXPECT_DOUBLE_EQ(dblMagX, pull);
        f.Player[2]->SetTop(field::kOutOfPlay);
    }
}

TEST_F(Magnet, PullBendsTheFlightOfTheMagneticKindOnly) {
    frmGrumbo& f = Field();
    // Ten ticks in the left-side zone; nine of them move it 6.3 pixels at tau 1.
    for (const auto& [kind, pull, left] : {std::tuple{0, 0.0, 400}, {3, 7.0, 406}}) {
        Reopen(f);
        f.Player[1]->Move(420, 240);
        f.intProjectileKind = static_cast<grumbo::Integer>(kind);
        Throw(f, "90", "0", 400, 200);
        f.tmrCollision.SetEnabled(false);  // the pull alone, no hit
        RunTicks(f, 10);
        EXPECT_NEAR(dblMagX, pull, 1e-9) << "kind " << kind;
        EXPECT_EQ(At(f).x(), left) << "kind " << kind;
    }
}

class Collision : public Flight {
protected:
    // A grey block at x 300..400 from y 150 down, and a throw by player 0 in the air.
    frmGrumbo& Field() {
        frmGrumbo& f = CalmMatch(2);
        f.picBld->surface().FillRect(300, 150, 400, 465, ui::RGB(90, 90, 90));
        f.Player[0]->Move(50, 100);
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
    CheckAt(f, 290, 168);  // x 300 of row 178
    EXPECT_FALSE(f.tmrMain.Enabled() || f.imgProjectile->isVisible());
    EXPECT_EQ(f.intMisses[0], 1);

    // War bores on without a miss; a nuke on an empty building is one miss, counted once.
    for (const auto& [kind, x, flies, misses] : {std::tuple{2, 320, true, 1}, {1, 360, false, 2}}) {
        Reopen(f);
        f.intProjectileKind = static_cast<grumbo::Integer>(kind);
        Throw(f, "90", "0", 100, 100);
        CheckAt(f, x, 200);
        EXPECT_EQ(f.tmrMain.Enabled() && f.imgProjectile->isVisible(), flies) << kind;
        EXPECT_EQ(f.intMisses[0], misses) << kind;
    }
}

TEST_F(Collision, CharacterHitsByPixel) {
    frmGrumbo& f = Field();
    Stand(f, 1, 500, 250);
    // A column of see-through pixels (rows y and y + 10) and one of solid ones.
    ui::Surface raw;
    ASSERT_TRUE(raw.Load(DataFile(QStringLiteral("characters/Rapper Grumbo.bmp"))));
    QPoint clear(-1, -1), solid(-1, -1);
    for (int y = 0; y + 10 < raw.Height(); ++y)
        for (int x = 0; x < raw.Width(); ++x) {
            const int white =
                (raw.Point(x, y) == ui::kWhite) + (raw.Point(x, y + 10) == ui::kWhite);
            if (white == 2 && clear.x() < 0) clear = {x, y};
            if (white == 0 && solid.x() < 0 && y > 20) solid = {x, y};
        }
    ASSERT_TRUE(clear.x() >= 0 && solid.x() >= 0);

    CheckAt(f, 500 + clear.x() - 1, 250 + clear.y());
    EXPECT_TRUE(f.tmrMain.Enabled()) << "see-through pixels in front of sky";

    Stand(f, 0, 500, 250);  // the thrower in the same place is never hit
    Stand(f, 1, 500, field::kOutOfPlay);
    CheckAt(f, 500 + solid.x() - 1, 250 + solid.y());
    CheckAt(f, 500 + solid.x() - 1, field::kOutOfPlay + solid.y());
    EXPECT_TRUE(f.tmrMain.Enabled()) << "neither the thrower nor a parked character";

    // In front of the building his see-through pixels show the building, which is no sky: he is
    // hit, and the building behind him is not reported as well.
    Stand(f, 0, 100, 100);
    Stand(f, 1, 320, 250);
    CheckAt(f, 320 + clear.x() - 1, 250 + clear.y());
    EXPECT_FALSE(f.tmrMain.Enabled());
    EXPECT_EQ(f.intMisses[0], 0);
}

TEST_F(Collision, WarProjectileScoresLowContactsAndMissesOnceWhenItLeaves) {
    frmGrumbo& f = Field();
    Reopen(f);
    f.Player[1]->Move(600, field::kOutOfPlay);  // far from the building; a parked centre counts
    f.intProjectileKind = 2;
    Throw(f, "90", "0", 100, 100);  // it falls, over sky, after its contacts below
    CheckAt(f, 320, 449);
    EXPECT_EQ(f.lngPoints[0], 0) << "a contact with its top edge above 450 scores nothing";
    CheckAt(f, 340, 450);
    const int D = grumbo::CInt(600 + f.Player[1]->Width() / 2.0) - 345;
    EXPECT_EQ(f.lngPoints[0], static_cast<long>(grumbo::Int(1000.0 / D * 100)));
    RunTicks(f, 1000);
    EXPECT_FALSE(f.tmrMain.Enabled());
    EXPECT_EQ(f.intMisses[0], 1) << "one miss, for leaving the field";
}

class Calibration : public GameTest {};

TEST_F(Calibration, AdjustsTheFlightTimerFromTheTicksTaken) {
    QStringList statuses;
    frmLoading::Instance().onStatus = [&](const QString& s) { statuses.push_back(s); };
    ui::Timer& matchTimer = frmGrumbo::Instance().tmrMain;
    // A throw that never passes the area ends all the same.
    const struct {
        int areaWidth;
        const char* result;
        int interval;
    } cases[] = {{2000, "Test did not finish, timers left at 32", 32},
                 {101, "Test completed in 720 ms, adjusted timers to 32", 32},
                 {126, "Test completed in 912 ms, adjusted timers to 26", 26},
                 {130, "Test completed in 960 ms, adjusted timers to 24", 24},
                 {133, "Test completed in 960 ms, adjusted timers to 24", 24},
                 {134, "Test completed in 984 ms, adjusted timers to 23", 23}};
    for (const auto& c : cases) {
        statuses.clear();
        frmSynchronization sync(frmLoading::Instance(), matchTimer, c.areaWidth);
        sync.Load();
        EXPECT_EQ(statuses.value(statuses.size() - 1), QLatin1String(c.result));
        EXPECT_EQ(statuses.contains(QStringLiteral("Off edge???")), c.areaWidth == 2000);
        EXPECT_FALSE(statuses.contains(QStringLiteral("Collision???")));
        EXPECT_EQ(matchTimer.Interval(), c.interval);
        sync.Unload();
        clock.Advance(5);
    }
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
