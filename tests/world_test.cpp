// The world a round is built in: sky, skyline, characters on their roofs, blending, wind,
// turn indicator and music, checked on pixels, positions and the virtual clock.
#include <QLabel>
#include <QPushButton>
#include <set>

#include "TestSupport.h"
#include "media/Transparency.h"
#include "modmain/modMain.h"
#include "screens/frmLoading.h"

using namespace testing_support;
using namespace modMain;
using ui::RGB;

namespace {
constexpr std::int32_t kLit = RGB(229, 244, 182);
constexpr std::int32_t kDark = RGB(50, 50, 50);

// Height of the city at column x: rows from the ground up to the first pixel that is not sky.
int RoofHeight(const frmGrumbo& f, int x) {
    for (int y = 0; y < field::kGroundLine; ++y)
        if (f.picBld->Point(x, y) != f.picBg->Point(x, y)) return field::kGroundLine - y;
    return 0;
}

int CentreColumn(const ui::PictureBox& p) { return p.Left() + p.Width() / 2; }

// Checks what any city must satisfy; returns the roof heights seen, column by column.
void ExpectWellFormedCity(const frmGrumbo& f, int players) {
    ASSERT_EQ(RoofHeight(f, 0), 0) << "column 0 stays sky";
    ASSERT_GT(RoofHeight(f, 719), 0) << "the last building reaches 719";
    ASSERT_EQ(RoofHeight(f, 720), 0) << "and the skyline ends at 720";
    const std::set<int> nightTops{98, 85, 75}, dayTops{150, 170, 125};
    for (int x = 1; x < 720; ++x) {
        // Columns at multiples of 12 may be the one-pixel sky gap between two buildings.
        if (x % 12 == 0) continue;
        const int h = RoofHeight(f, x);
        ASSERT_EQ(h % 18, 0) << "x " << x;
        ASSERT_GE(h, 90);
        ASSERT_LE(h, (intBuildingHeight + 4) * 18);
        // A building only changes at a multiple of 12 (its body starts one pixel further).
        if (x % 12 != 1) {
            ASSERT_EQ(h, RoofHeight(f, x - 1)) << "x " << x;
        }
        const std::int32_t roof = f.picBld->Point(x, field::kGroundLine - h);
        const int grey = roof & 0xFF;
        ASSERT_EQ(roof, RGB(grey, grey, grey));
        ASSERT_TRUE((f.blnDay ? dayTops : nightTops).count(grey)) << "roof grey " << grey;
    }
    int lastCentre = -1;
    for (int i = 0; i < players; ++i) {
        const ui::PictureBox& p = *f.Player[i];
        const int c = CentreColumn(p);
        ASSERT_LE(p.Top(), field::kGroundLine) << "player " << i << " is in play";
        EXPECT_EQ(p.Top() + p.Height(), field::kGroundLine - RoofHeight(f, c)) << "player " << i;
        EXPECT_GT(c, lastCentre) << "players stand left to right by index";
        lastCentre = c;
    }
}

// Random numbers that build a known city: per building shade, height and width draws, then one
// number per window, bottom row first.
struct PlannedBuilding {
    int shade, heightStep, widthStep;  // the draws' results
    bool lit;                          // all its windows lit or dark
    int closingWidth = 0;              // the width the skyline's end imposes, if any
};
std::vector<double> Script(std::vector<double> roof, const std::vector<PlannedBuilding>& city,
                           bool day, int heightSetting) {
    std::vector<double> r = std::move(roof);
    int x = 0;
    for (const PlannedBuilding& b : city) {
        r.push_back(((day ? b.shade - 3 : b.shade) + 0.5) / 3);
        r.push_back((b.heightStep + 0.5) / heightSetting);
        r.push_back((b.widthStep + 0.5) / 3);
        const int w = b.closingWidth ? b.closingWidth : (b.widthStep + 4) * 12,
                  h = (b.heightStep + 5) * 18;
        for (int i = 0; i < (h / 18) * (w / 12); ++i) r.push_back(b.lit ? 0.25 : 0.75);
        x += w;
    }
    return r;
}
}  // namespace

class World : public GameTest {};

TEST_F(World, SkylineIsWellFormedOverManySeeds) {
    for (int players : {2, 4}) {
        frmGrumbo& f = StartMatch(players, 1);
        for (std::uint64_t seed = 1; seed <= 40; ++seed) {
            grumbo::Seed(seed * 7919 + players);
            f.GameLoad();
            SCOPED_TRACE(testing::Message() << players << " players, seed " << seed);
            ExpectWellFormedCity(f, players);
            if (HasFatalFailure()) return;
        }
        LeaveMatch();
    }
}

TEST_F(World, ScriptedDrawsBuildTheCityTheyDescribe) {
    intTimeOfDay = 2;  // day: no draw for the sky
    frmGrumbo& f = StartMatch(2);
    // Widths 48 x 12 reach 576, then 48 reaches 624 and the closing rule makes the last 48 wide.
    std::vector<PlannedBuilding> city;
    for (int i = 0; i < 13; ++i) city.push_back({3 + i % 3, i % 8, 0, i % 2 == 0});
    city.push_back({4, 0, 2, true, 48});  // at 624 and 672 the width draw gives way to 48
    city.push_back({4, 0, 2, true, 48});
    const std::vector<double> script = Script({0.0, 0.99}, city, true, 8);
    grumbo::ScriptRnd(script.data(), script.size());
    f.GameLoad();
    // Building 5 (x 241..288): shade 5 top grey 125, height (5 + 5) x 18 = 180, windows lit.
    EXPECT_EQ(RoofHeight(f, 241), 180);
    EXPECT_EQ(f.picBld->Point(241, field::kGroundLine - 180), RGB(125, 125, 125));
    EXPECT_EQ(f.picBld->Point(240 + 4, field::kGroundLine - 14),
              kDark);  // building 5 is odd: dark windows
    EXPECT_EQ(f.picBld->Point(192 + 4, field::kGroundLine - 14), kLit);  // building 4: lit
    EXPECT_EQ(f.picBld->Point(192 + 7, field::kGroundLine - 5), kLit);   // the window's far corner
    EXPECT_NE(f.picBld->Point(192 + 8, field::kGroundLine - 5), kLit);   // its end column is wall
    EXPECT_EQ(RoofHeight(f, 719), 90);
    EXPECT_EQ(RoofHeight(f, 720), 0);
    EXPECT_EQ(RoofHeight(f, 240), 0) << "a one-pixel gap between buildings 4 and 5";
    // Player 0 on building 1 (x 48..96), player 1 on building 9 (x 432..480), centred, rounded
    // down.
    const ui::PictureBox& p0 = *f.Player[0];
    const ui::PictureBox& p1 = *f.Player[1];
    EXPECT_EQ(p0.Left(), static_cast<int>(grumbo::Int(48 + 24 - p0.Width() / 2.0)));
    EXPECT_EQ(p0.Top() + p0.Height(), field::kGroundLine - RoofHeight(f, 72));
    EXPECT_EQ(p1.Left(), static_cast<int>(grumbo::Int(432 + 24 - p1.Width() / 2.0)));
    // All scripted numbers were used, in order: the wind's draws come from the generator again.
    EXPECT_GE(dblWind, 0.01);
}

TEST_F(World, FourPlayersAllStandEvenInATenBuildingCity) {
    intTimeOfDay = 3;
    frmGrumbo& f = StartMatch(4);
    // Nine 72-wide buildings reach 648, whose closing width 72 makes ten; the last player's
    // roof draw asks for building 10.
    std::vector<PlannedBuilding> city(9, {1, 2, 2, true});
    city.push_back({0, 0, 0, false, 72});
    const std::vector<double> script = Script({0.0, 0.0, 0.0, 0.99}, city, false, 8);
    grumbo::ScriptRnd(script.data(), script.size());
    f.GameLoad();
    ExpectWellFormedCity(f, 4);
    EXPECT_EQ(f.Player[3]->Left(),
              static_cast<int>(grumbo::Int(648 + 36 - f.Player[3]->Width() / 2.0)))
        << "the last player takes the closing building";
}

TEST_F(World, SkyGradientRowsAndRounding) {
    intTimeOfDay = 2;
    frmGrumbo& f = StartMatch(2);
    EXPECT_EQ(f.picBg->Point(0, 0), RGB(3, 61, 155));
    EXPECT_EQ(f.picBg->Point(721, 465), RGB(80, 167, 254));
    EXPECT_EQ(f.picBld->Point(0, 0), RGB(3, 61, 155)) << "the scene starts as a copy of the sky";
    intTimeOfDay = 3;
    f.GameLoad();
    EXPECT_FALSE(f.blnDay);
    EXPECT_EQ(f.picBg->Point(300, 0), RGB(46, 11, 71));
    EXPECT_EQ(f.picBg->Point(300, 465), RGB(76, 7, 147));

    // Half steps round to the even neighbour: 0, .5, 1, 1.5, 2, 2.5 -> 0 0 1 2 2 2.
    ui::Surface s(3, 11, 0);
    DrawGradient(s, 0, 0, 0, 5, 0, 0, 0, 2, 0, 10);
    const int expected[] = {0, 0, 1, 2, 2, 2, 3, 4, 4, 4, 5};
    for (int y = 0; y <= 10; ++y) EXPECT_EQ(s.Point(1, y), RGB(expected[y], 0, 0)) << "row " << y;
    EXPECT_EQ(s.Point(0, 4), RGB(2, 0, 0)) << "a line starts at its first column";
    EXPECT_EQ(s.Point(2, 4), 0) << "and stops short of its end column";
}

TEST_F(World, LoadingScreenReportsEveryStep) {
    std::vector<double> progress;
    QStringList status;
    bool round = false;  // the calibration before the round drives the bar its own way
    frmLoading::Instance().onProgress = [&](double v) {
        if (round) progress.push_back(v);
    };
    frmLoading::Instance().onStatus = [&](const QString& s) {
        status.push_back(s);
        round = round || s == QStringLiteral("Rendering Sky...");
    };
    frmGrumbo& f = StartMatch(4);
    EXPECT_EQ(status.first(), QStringLiteral("Synchronizing Timers..."));
    EXPECT_EQ(status.mid(status.indexOf(QStringLiteral("Rendering Sky...")), 7),
              QStringList({"Rendering Sky...", "Rendering Buildings...", "Rendering Player 1...",
                           "Rendering Player 2...", "Rendering Player 3...",
                           "Rendering Player 4...", "Creating Wind..."}));
    ASSERT_GE(progress.size(), 10u);
    EXPECT_EQ(progress.back(), 100);
    for (std::size_t i = 1; i < progress.size(); ++i) EXPECT_GE(progress[i], progress[i - 1]);
    const auto at = [&](double v) { return std::count(progress.begin(), progress.end(), v); };
    EXPECT_EQ(at(67), 2) << "the last building and the first player";
    EXPECT_EQ(at(72) + at(77) + at(82), 3);
    EXPECT_EQ(at(90) + at(95), 2);
    EXPECT_FALSE(frmLoading::Instance().Loaded()) << "the loading screen closes with the round";
    EXPECT_TRUE(f.Player[3]->isVisible());
}

TEST_F(World, RandomTimeOfDayGivesBothSkies) {
    frmGrumbo& f = StartMatch(2, 3);
    int nights = 0;
    for (int i = 0; i < 60; ++i) {
        f.GameLoad();
        nights += f.blnDay ? 0 : 1;
    }
    EXPECT_GT(nights, 15);
    EXPECT_LT(nights, 45);
}

TEST_F(World, CharactersShowTheCityBehindThemOtherBoxesTheSky) {
    frmGrumbo& f = StartMatch(2);
    ui::PictureBox& p = *f.Player[0];
    ui::Surface original;
    ASSERT_TRUE(original.Load(DataFile(QStringLiteral("characters/Classic Grumbo.bmp"))));
    int white = 0;
    for (int y = 0; y < p.Height(); ++y)
        for (int x = 0; x < p.Width(); ++x) {
            if (original.Point(x, y) != ui::kWhite) {
                ASSERT_EQ(p.Point(x, y), original.Point(x, y));
                continue;
            }
            ++white;
            ASSERT_EQ(p.Point(x, y), f.picBld->Point(p.Left() + x, p.Top() + y));
        }
    EXPECT_GT(white, 0);

    // The wind box shows the sky, not the buildings, even where it stands in front of one.
    ui::PictureBox& box = *f.picArrow;
    EXPECT_EQ(box.Point(0, 29), f.picBg->Point(box.Left(), box.Top() + 29));

    // Only pure white goes; near white stays; a rectangle past the edge is harmless; twice
    // changes nothing more.
    ui::PictureBox& ind = *f.imgPind;
    ind.SetPicture(ui::Surface(4, 4, ui::kWhite));
    ind.PSet(1, 1, RGB(254, 255, 255));
    f.MakeTransparent(ind, 0, 0, 2, 2);
    EXPECT_EQ(ind.Point(1, 1), RGB(254, 255, 255));
    EXPECT_EQ(ind.Point(0, 0), f.picBg->Point(ind.Left(), ind.Top()));
    EXPECT_EQ(ind.Point(3, 3), ui::kWhite) << "outside the rectangle";
    const ui::Surface once = ind.surface();
    f.MakeTransparent(ind, -1.4f, -1.4f, 10, 10);
    f.MakeTransparent(ind, -1.4f, -1.4f, 10, 10);
    EXPECT_EQ(ind.Point(3, 3), f.picBg->Point(ind.Left() + 3, ind.Top() + 3));
    EXPECT_EQ(ind.Point(0, 0), once.Point(0, 0));

    // Screens with a flat background give every white pixel that colour instead.
    ind.SetPicture(ui::Surface(4, 4, ui::kWhite));
    ind.PSet(2, 2, RGB(10, 20, 30));
    media::MakeTransparent(ind, 0, 0, 4, 4, RGB(0, 0, 128));
    EXPECT_EQ(ind.Point(0, 3), RGB(0, 0, 128));
    EXPECT_EQ(ind.Point(2, 2), RGB(10, 20, 30));
}

TEST_F(World, WindArrowLengthHeadAndLabel) {
    frmGrumbo& f = StartMatch(2);
    const std::int32_t grey = RGB(220, 220, 220);
    struct Case {
        double wind;
        int L;
        const char* label;
    } cases[] = {{0, 2, "0 pps"},      {0.01, 2, "1 pps"},  {0.02, 4, "2 pps"},
                 {0.03, 4, "3 pps"},   {0.05, 6, "5 pps"},  {0.21, 22, "21 pps"},
                 {0.36, 38, "36 pps"}, {0.58, 58, "58 pps"}};
    for (const Case& c : cases) {
        for (int mode : {1, 2}) {
            SCOPED_TRACE(testing::Message() << c.wind << " mode " << mode);
            dblWind = c.wind;
            intWindMode = static_cast<grumbo::Integer>(mode);
            f.picArrow->ClearPicture();
            f.DrawWind();
            EXPECT_EQ(f.lblWind->text(), QString::fromLatin1(c.label));
            const ui::PictureBox& a = *f.picArrow;
            const auto lit = [&](int x, int y) { return x < 0 || x > 83 || a.Point(x, y) == grey; };
            // The shaft runs from 42 - L up to, not including, 42 + L.
            EXPECT_TRUE(lit(42 - c.L, 6));
            EXPECT_TRUE(lit(42 + c.L - 1, 6));
            if (mode == 2 && 42 - c.L - 1 >= 0) {
                EXPECT_FALSE(lit(42 - c.L - 1, 5));
            }
            // The head: rows 4 to 8 at the tip's base, 5 to 7 beyond it, then row 6 alone.
            const int dir = mode == 1 ? -1 : 1;
            const int base = 42 + dir * c.L;
            const auto outside = [](int x) { return x < 0 || x > 83; };
            for (int y = 3; y <= 9; ++y) {
                EXPECT_EQ(lit(base, y), (y >= 4 && y <= 8) || outside(base)) << "y " << y;
                EXPECT_EQ(lit(base + dir, y), (y >= 5 && y <= 7) || outside(base + dir));
                EXPECT_EQ(lit(base + 2 * dir, y), y == 6 || outside(base + 2 * dir));
            }
            const int tail = 42 - dir * c.L;
            if (tail > 0 && tail < 83) {
                EXPECT_FALSE(lit(tail, 4)) << "only one head";
            }
        }
    }
}

TEST_F(World, RoundWindFollowsTheSetting) {
    frmGrumbo& f = StartMatch(2, 11);
    std::set<int> hundredths;
    for (int i = 0; i < 50; ++i) {
        f.GameLoad();
        ASSERT_TRUE(intWindMode == 1 || intWindMode == 2);
        const int h = grumbo::CInt(dblWind * 100);
        EXPECT_NEAR(dblWind * 100, h, 1e-9) << "two decimals";
        hundredths.insert(h);
    }
    EXPECT_EQ(*hundredths.begin() >= 1 && *hundredths.rbegin() <= 21, true);
    EXPECT_GT(hundredths.size(), 10u);
    LeaveMatch();

    // No wind means none, even when an earlier match left some behind.
    dblWind = 0.17;
    intWindExtremity = 0;
    frmGrumbo& g = StartMatch(2);
    EXPECT_EQ(dblWind, 0);
    EXPECT_EQ(g.lblWind->text(), QStringLiteral("0 pps"));
}

TEST_F(World, IndicatorBobsAndDisappearsAfterFifteenTicks) {
    frmGrumbo& f = StartMatch(2);
    f.intPindCount = 0;
    f.tmrPind.SetEnabled(false);
    f.pIndication();
    const ui::PictureBox& p = *f.Player[0];
    const int top = p.Top() - 75;
    EXPECT_EQ(f.imgPind->Top(), top);
    EXPECT_EQ(f.lblPind->y(), p.Top() - 95);
    EXPECT_EQ(f.lblPind->text(), QStringLiteral("Player 1"));
    const int offsets[] = {8, 4, 0, 8, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    for (int tick = 1; tick <= 14; ++tick) {
        clock.Advance(125);
        EXPECT_EQ(f.imgPind->Top(), top + offsets[tick - 1]) << "tick " << tick;
        EXPECT_TRUE(f.imgPind->isVisible());
    }
    clock.Advance(125);
    EXPECT_FALSE(f.imgPind->isVisible());
    EXPECT_FALSE(f.lblPind->isVisible());
    EXPECT_FALSE(f.tmrPind.Enabled());
    EXPECT_EQ(f.intPindCount, 0);
    // Its white parts took the sky colour, also where a building stands behind.
    EXPECT_EQ(f.imgPind->Point(0, 0), f.picBg->Point(f.imgPind->Left(), f.imgPind->Top() - 8 * 0));
}

TEST_F(World, IndicatorCalledAgainWhileRunningMovesAndEndsSooner) {
    frmGrumbo& f = StartMatch(2);
    f.intPindCount = 0;
    f.tmrPind.SetEnabled(false);
    f.pIndication();
    clock.Advance(125 * 4);  // four ticks: +8 -4 -4 +8
    f.intCurrentPlayer = 1;
    f.pIndication();
    const ui::PictureBox& p = *f.Player[1];
    EXPECT_EQ(f.imgPind->Top(), p.Top() - 75);
    EXPECT_EQ(f.lblPind->text(), QStringLiteral("Player 2"));
    clock.Advance(125);  // tick 5: -4 from the new place
    EXPECT_EQ(f.imgPind->Top(), p.Top() - 79);
    clock.Advance(125 * 9);  // ticks 6 to 14
    EXPECT_TRUE(f.imgPind->isVisible());
    clock.Advance(125);
    EXPECT_FALSE(f.imgPind->isVisible()) << "ends 11 ticks after the second call";
}

TEST_F(World, EveryTuneChangesAtItsLength) {
    // Seconds each tune plays before the next one starts.
    const int seconds[22] = {233, 177, 297, 225, 371, 162, 270, 416, 112, 62, 272,
                             211, 345, 179, 88,  193, 97,  50,  156, 44,  24, 126};
    frmGrumbo& f = StartMatch(2);
    for (int n = 1; n <= 22; ++n) {
        f.intTune = static_cast<grumbo::Integer>(n);
        f.intTuneSeconds = 0;
        music.commands.clear();
        for (int s = 1; s < seconds[n - 1]; ++s) f.tmrMIDI_Timer();
        EXPECT_TRUE(music.commands.isEmpty()) << "tune " << n;
        f.tmrMIDI_Timer();
        ASSERT_EQ(music.commands.size(), 2) << "tune " << n;
        EXPECT_EQ(Relative(music.commands[0].mid(6)), QStringLiteral("midi/%1.mid").arg(n));
        EXPECT_TRUE(music.commands[1].startsWith(QStringLiteral("play ")));
        EXPECT_EQ(f.intTuneSeconds, 0);
        EXPECT_GE(f.intTune, 1);
        EXPECT_LE(f.intTune, 22);
    }
}

TEST_F(World, MusicTimerRunsOnTheClockAndStopsWithTheScreen) {
    frmGrumbo& f = StartMatch(2);
    ASSERT_EQ(music.commands.size(), 1);
    EXPECT_TRUE(f.tmrMIDI.Enabled());
    f.intTune = 21;
    f.intTuneSeconds = 0;
    f.tmrMIDI.SetEnabled(true);  // the count starts afresh from here
    music.commands.clear();
    clock.Advance(23 * 1000 + 500);
    EXPECT_TRUE(music.commands.isEmpty());
    clock.Advance(1000);
    EXPECT_EQ(music.commands.size(), 2);
    LeaveMatch();
    EXPECT_TRUE(music.commands.last().startsWith(QStringLiteral("close ")));
    EXPECT_FALSE(f.tmrMIDI.Enabled());

    // Music off: nothing opens, the timer stays off, closing still sends its close.
    blnMusic = false;
    music.commands.clear();
    frmGrumbo& g = StartMatch(2);
    EXPECT_TRUE(music.commands.isEmpty());
    EXPECT_FALSE(g.tmrMIDI.Enabled());
    LeaveMatch();
    EXPECT_EQ(music.commands.size(), 1);
}

TEST_F(World, SecondMatchResetsScoresButKeepsWhatLivesLonger) {
    frmGrumbo& f = StartMatch(4);
    EXPECT_EQ(f.Player.size(), 4u);
    f.lngPoints = {100, 200, 300, 400};
    f.intFrags[2] = 3;
    f.intMisses[1] = 5;
    f.intCurrentPlayer = 2;
    f.intSpecials[1][2] = 1;
    f.strCode = QStringLiteral("ab");
    f.blnFlying = true;
    f.intFrame = 3;
    f.lblcRound->setText(QStringLiteral("4"));
    LeaveMatch();
    EXPECT_EQ(programEnds, 0) << "leaving through the game-over screen does not end the program";

    frmGrumbo& g = StartMatch(2);
    EXPECT_EQ(g.window()->size(), QSize(722, 510));
    EXPECT_FALSE(g.cmdThrow->isEnabled());
    EXPECT_TRUE(messages.isEmpty()) << messages.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(g.Player.size(), 2u) << "the extra boxes of the earlier match are gone";
    EXPECT_EQ(g.lngPoints, (std::array<grumbo::Long, 4>{0, 0, 0, 0}));
    EXPECT_EQ(g.intFrags[2], 0);
    EXPECT_EQ(g.intMisses[1], 0);
    EXPECT_EQ(g.intCurrentPlayer, 0);
    EXPECT_EQ(g.lblcRound->text(), QStringLiteral("1"));
    EXPECT_EQ(g.Caption(), QStringLiteral("Player 1 - 0 pts"));
    EXPECT_EQ(g.intSpecials[1][2], 1);
    EXPECT_EQ(g.strCode, QStringLiteral("ab"));
    EXPECT_TRUE(g.blnFlying);
    EXPECT_EQ(g.intFrame, 3);
    EXPECT_EQ(g.intTickDivisor, 10);
}

TEST_F(World, NewRoundKeepsScoresRoundAndTurn) {
    frmGrumbo& f = StartMatch(2);
    f.lngPoints[1] = 2500;
    f.intMisses[1] = 2;
    f.intCurrentPlayer = 1;
    f.strFragged = QStringLiteral("0");
    f.GameLoad();
    EXPECT_EQ(f.Caption(), QStringLiteral("Player 2 - 2500 pts"));
    EXPECT_EQ(f.intMissMark[1], 2);
    EXPECT_TRUE(f.strFragged.isEmpty());
    EXPECT_FALSE(f.blnRoundOver);
    // The projectile waits at the right-side thrower's hand: right edges together, 11 px above.
    EXPECT_EQ(f.imgProjectile->Left() + f.imgProjectile->Width(),
              f.Player[1]->Left() + f.Player[1]->Width());
    EXPECT_EQ(f.intHandY, f.Player[1]->Top() - 11);
}

TEST_F(World, ClosingTheMatchWindowDuringAMatchEndsTheProgram) {
    frmGrumbo& f = StartMatch(2);
    f.window()->close();
    EXPECT_EQ(programEnds, 1);
}

TEST_F(World, MissingCharacterPictureIsNamedAndTheMatchGoesOn) {
    intPlayers = 2;
    frmGrumbo& f = StartMatch(2);
    LeaveMatch();
    strCharacter[1] = QStringLiteral("Nobody Here");
    frmGrumbo::Instance().Show();
    ASSERT_EQ(messages.size(), 1);
    EXPECT_TRUE(messages[0].contains(QStringLiteral("characters/Nobody Here.bmp")));
    EXPECT_LE(f.Player[1]->Top(), field::kGroundLine);
    EXPECT_GT(f.Player[1]->Width(), 0);
}
