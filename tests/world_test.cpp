// The world a round is built in: sky, skyline, characters on their roofs, blending, wind, turn
// indicator and music, checked on pixels, positions and the virtual clock.
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <set>
#include <tuple>

#include "TestSupport.h"
#include "modmain/modMain.h"
#include "screens/frmLoading.h"

using namespace testing_support;
using namespace modMain;
using ui::RGB;

namespace {
constexpr std::int32_t kLit = RGB(229, 244, 182);
constexpr std::int32_t kDark = RGB(50, 50, 50);
constexpr std::int32_t kDaySky = RGB(3, 61, 155);

// Height of the city at column x: rows from the ground up to the first pixel that is not sky.
int RoofHeight(const frmGrumbo& f, int x) {
    for (int y = 0; y < field::kGroundLine; ++y)
        if (f.picBld->Point(x, y) != f.picBg->Point(x, y)) return field::kGroundLine - y;
    return 0;
}

int LeftOnRoof(const ui::PictureBox& p, int buildingLeft, int buildingWidth) {
    return static_cast<int>(grumbo::Int(buildingLeft + buildingWidth / 2 - p.Width() / 2.0));
}

// What any city must satisfy.
void ExpectWellFormedCity(const frmGrumbo& f, int players) {
    ASSERT_EQ(RoofHeight(f, 0), 0) << "column 0 stays sky";
    ASSERT_GT(RoofHeight(f, 719), 0) << "the last building reaches 719";
    ASSERT_EQ(RoofHeight(f, 720), 0) << "and the skyline ends at 720";
    const std::set<int> tops = f.blnDay ? std::set<int>{150, 170, 125} : std::set<int>{98, 85, 75};
    // Columns at multiples of 12 may be the one-pixel sky gap between two buildings.
    for (int x = 1; x < 720; ++x) {
        if (x % 12 == 0) continue;
        const int h = RoofHeight(f, x);
        ASSERT_TRUE(h % 18 == 0 && h >= 90 && h <= (intBuildingHeight + 4) * 18) << "x " << x;
        // A building only changes at a multiple of 12 (its body starts one pixel further).
        if (x % 12 != 1) {
            ASSERT_EQ(h, RoofHeight(f, x - 1)) << "x " << x;
        }
        const std::int32_t roof = f.picBld->Point(x, field::kGroundLine - h);
        const int grey = roof & 0xFF;
        ASSERT_EQ(roof, RGB(grey, grey, grey));
        ASSERT_TRUE(tops.count(grey)) << "roof grey " << grey;
    }
    // Buildings are numbered from 0 at the left; each player stands on one his index allows.
    const std::set<int> roofs[2][4] = {{{1, 2, 3}, {7, 8, 9}}, {{1, 2}, {3, 4}, {7, 8}, {9, 10}}};
    const auto city = [&](int x) { return f.picBld->Point(x, 465) != f.picBg->Point(x, 465); };
    int lastCentre = -1;
    for (int i = 0; i < players; ++i) {
        const ui::PictureBox& p = *f.Player[i];
        const int c = p.Left() + p.Width() / 2;
        int building = -1;
        for (int x = 1; x <= c; ++x) building += city(x) && !city(x - 1);
        EXPECT_TRUE(roofs[players / 4][i].count(building)) << "player " << i;
        EXPECT_EQ(p.Top() + p.Height(), field::kGroundLine - RoofHeight(f, c)) << "player " << i;
        EXPECT_GT(c, lastCentre) << "players stand left to right by index";
        lastCentre = c;
    }
}

// Random numbers that build a known city: per building shade, height and width draws, then one
// number per window.
struct PlannedBuilding {
    int shade, heightStep, widthStep;
    bool lit;              // all its windows lit or dark
    int closingWidth = 0;  // the width the skyline's end imposes, if any
};
std::vector<double> Script(std::vector<double> r, const std::vector<PlannedBuilding>& city,
                           bool day) {
    for (const PlannedBuilding& b : city) {
        r.push_back(((day ? b.shade - 3 : b.shade) + 0.5) / 3);
        r.push_back((b.heightStep + 0.5) / 8);  // the usual building height setting
        r.push_back((b.widthStep + 0.5) / 3);
        const int w = b.closingWidth ? b.closingWidth : (b.widthStep + 4) * 12;
        for (int i = 0; i < (b.heightStep + 5) * (w / 12); ++i) r.push_back(b.lit ? 0.25 : 0.75);
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
    std::vector<double> script = Script({0.0, 0.99}, city, true);
    script.insert(script.end(), {0.9, 0.5});  // the round's wind: to the right, 0.11
    grumbo::ScriptRnd(script.data(), script.size());
    f.GameLoad();
    // Building 5 (x 241..288): shade 5 top grey 125, height (5 + 5) x 18 = 180, windows dark.
    EXPECT_EQ(RoofHeight(f, 241), 180);
    EXPECT_EQ(f.picBld->Point(241, field::kGroundLine - 180), RGB(125, 125, 125));
    EXPECT_EQ(f.picBld->Point(240 + 4, field::kGroundLine - 14), kDark);
    EXPECT_EQ(f.picBld->Point(192 + 4, field::kGroundLine - 14), kLit);  // building 4: lit
    EXPECT_EQ(f.picBld->Point(192 + 7, field::kGroundLine - 5), kLit);   // the window's far corner
    EXPECT_NE(f.picBld->Point(192 + 8, field::kGroundLine - 5), kLit);   // its end column is wall
    EXPECT_EQ(RoofHeight(f, 719), 90);
    EXPECT_EQ(RoofHeight(f, 720), 0);
    EXPECT_EQ(RoofHeight(f, 240), 0) << "a one-pixel gap between buildings 4 and 5";
    // Player 0 on building 1 (x 48..96), player 1 on building 9 (x 432..480), centred.
    EXPECT_EQ(f.Player[0]->Left(), LeftOnRoof(*f.Player[0], 48, 48));
    EXPECT_EQ(f.Player[0]->Top() + f.Player[0]->Height(), field::kGroundLine - RoofHeight(f, 72));
    EXPECT_EQ(f.Player[1]->Left(), LeftOnRoof(*f.Player[1], 432, 48));
    // The city took exactly its numbers, in order: the wind got the two after them.
    EXPECT_EQ(intWindMode, 2);
    EXPECT_DOUBLE_EQ(dblWind, 0.11);

    // Four players in a ten-building city: nine 72-wide buildings reach 648, whose closing width
    // 72 makes ten; the last player's roof draw asks for building 10.
    LeaveMatch();
    intTimeOfDay = 3;
    frmGrumbo& g = StartMatch(4);
    city.assign(9, {1, 2, 2, true});
    city.push_back({0, 0, 0, false, 72});
    script = Script({0.0, 0.0, 0.0, 0.99}, city, false);
    grumbo::ScriptRnd(script.data(), script.size());
    g.GameLoad();
    ExpectWellFormedCity(g, 4);
    EXPECT_EQ(g.Player[3]->Left(), LeftOnRoof(*g.Player[3], 648, 72));
}

TEST_F(World, SkyGradientsAndTheRandomTimeOfDay) {
    frmGrumbo& f = StartMatch(2);
    // Random time of day is an even draw between the day and the night sky.
    for (const double draw : {0.0, 0.4999, 0.5, 0.9999}) {
        grumbo::ScriptRnd(&draw, 1);
        f.GameLoad();
        EXPECT_EQ(f.blnDay, draw < 0.5) << draw;
        EXPECT_EQ(f.picBg->Point(0, 0), draw < 0.5 ? kDaySky : RGB(46, 11, 71));
    }
    for (int time : {2, 3}) {
        intTimeOfDay = static_cast<grumbo::Integer>(time);
        f.GameLoad();
        EXPECT_EQ(f.blnDay, time == 2);
    }
    EXPECT_EQ(f.picBg->Point(300, 465), RGB(76, 7, 147));
    intTimeOfDay = 2;
    f.GameLoad();
    EXPECT_EQ(f.picBg->Point(721, 465), RGB(80, 167, 254));
    EXPECT_EQ(f.picBld->Point(0, 0), kDaySky) << "the scene starts as a copy of the sky";

    // Half steps round to the even neighbour: 0, .5, 1, 1.5, 2, 2.5 -> 0 0 1 2 2 2.
    ui::Surface s(3, 11, 0);
    DrawGradient(s, 0, 0, 0, 5, 0, 0, 0, 2, 0, 10);
    const int expected[] = {0, 0, 1, 2, 2, 2, 3, 4, 4, 4, 5};
    for (int y = 0; y <= 10; ++y) EXPECT_EQ(s.Point(1, y), RGB(expected[y], 0, 0)) << "row " << y;
    EXPECT_EQ(s.Point(0, 4), RGB(2, 0, 0)) << "a line starts at its first column";
    EXPECT_EQ(s.Point(2, 4), 0) << "and stops short of its end column";
}

TEST_F(World, LoadingScreenReportsEveryStep) {
    for (int players : {2, 4}) {
        SCOPED_TRACE(testing::Message() << players << " players");
        std::vector<double> progress;
        std::vector<int> bar;  // what the loading screen's bar itself shows
        QStringList status;
        bool round = false;  // the calibration before the round drives the bar its own way
        frmLoading::Instance().onProgress = [&](double v) {
            if (!round) return;
            progress.push_back(v);
            bar.push_back(frmLoading::Instance().window()->findChild<QProgressBar*>()->value());
        };
        frmLoading::Instance().onStatus = [&](const QString& s) {
            status.push_back(s);
            round = round || s == QStringLiteral("Rendering Sky...");
        };
        frmGrumbo& f = StartMatch(players);
        EXPECT_EQ(status.first(), QStringLiteral("Synchronizing Timers..."));
        QStringList steps{"Rendering Sky...", "Rendering Buildings..."};
        for (int i = 1; i <= players; ++i) steps << QStringLiteral("Rendering Player %1...").arg(i);
        steps << "Creating Wind...";
        EXPECT_EQ(status.mid(status.indexOf(steps[0]), steps.size()), steps);
        // Sky 3, scene 5, parking 7, the buildings up to 67, the players from 67 on in steps that
        // share 20 among them, then 90, 95, 100.
        std::vector<double> tail{67};
        for (int i = 0; i < players; ++i) tail.push_back(67 + 20.0 * i / players);
        tail.insert(tail.end(), {90, 95, 100});
        ASSERT_GE(progress.size(), tail.size() + 3);
        EXPECT_EQ(std::vector<double>(progress.begin(), progress.begin() + 3),
                  (std::vector<double>{3, 5, 7}));
        EXPECT_EQ(
            std::vector<double>(progress.end() - static_cast<long>(tail.size()), progress.end()),
            tail);
        for (std::size_t i = 0; i < progress.size(); ++i) {
            EXPECT_GE(progress[i], i ? progress[i - 1] : 0);
            EXPECT_EQ(bar[i], static_cast<int>(progress[i]));
        }
        EXPECT_FALSE(frmLoading::Instance().Loaded()) << "the loading screen closes with the round";
        EXPECT_TRUE(f.Player[players - 1]->isVisible());
        LeaveMatch();
    }
}

TEST_F(World, CharactersShowTheCityBehindThemOtherBoxesTheSky) {
    frmGrumbo& f = StartMatch(2);
    ui::PictureBox& p = *f.Player[0];
    EXPECT_TRUE(ShowsPicture(p, QStringLiteral("characters/Classic Grumbo.bmp"), f.picBld));
    // The wind box shows the sky, not the buildings, even where it stands in front of one.
    const ui::PictureBox& box = *f.picArrow;
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
    f.MakeTransparent(ind, -1.4f, -1.4f, 10, 10);
    f.MakeTransparent(ind, -1.4f, -1.4f, 10, 10);
    EXPECT_EQ(ind.Point(3, 3), f.picBg->Point(ind.Left() + 3, ind.Top() + 3));
    EXPECT_EQ(ind.Point(0, 0), f.picBg->Point(ind.Left(), ind.Top()));
}

TEST_F(World, WindArrowLengthHeadAndLabel) {
    frmGrumbo& f = StartMatch(2);
    // Half length L = 2 x Int(wind x 100 / 2) + 2 on the stored double: 0.58 gives 58.
    const struct {
        double wind;
        int L;
        const char* label;
    } cases[] = {{0, 2, "0 pps"},      {0.01, 2, "1 pps"},  {0.02, 4, "2 pps"},
                 {0.03, 4, "3 pps"},   {0.05, 6, "5 pps"},  {0.21, 22, "21 pps"},
                 {0.36, 38, "36 pps"}, {0.58, 58, "58 pps"}};
    const ui::PictureBox& a = *f.picArrow;
    const auto out = [](int x) { return x < 0 || x > 83; };
    const auto lit = [&](int x, int y) { return out(x) || a.Point(x, y) == RGB(220, 220, 220); };
    for (const auto& c : cases)
        for (int dir : {-1, 1}) {
            SCOPED_TRACE(testing::Message() << c.wind << " towards " << dir);
            dblWind = c.wind;
            intWindMode = static_cast<grumbo::Integer>(dir < 0 ? 1 : 2);
            f.picArrow->ClearPicture();
            f.DrawWind();
            EXPECT_EQ(f.lblWind->text(), QLatin1String(c.label));
            // The shaft runs from 42 - L up to, not including, 42 + L.
            EXPECT_TRUE(lit(42 - c.L, 6) && lit(42 + c.L - 1, 6));
            if (dir > 0 && c.L < 42) {
                EXPECT_FALSE(lit(42 - c.L - 1, 5));
            }
            // The head: rows 4 to 8 at the tip's base, 5 to 7 beyond it, then row 6 alone.
            const int base = 42 + dir * c.L;
            for (int y = 3; y <= 9; ++y) {
                EXPECT_EQ(lit(base, y), (y >= 4 && y <= 8) || out(base)) << y;
                EXPECT_EQ(lit(base + dir, y), (y >= 5 && y <= 7) || out(base + dir)) << y;
                EXPECT_EQ(lit(base + 2 * dir, y), y == 6 || out(base + 2 * dir)) << y;
            }
            const int tail = 42 - dir * c.L;
            if (tail > 0 && tail < 83) {
                EXPECT_FALSE(lit(tail, 4)) << "only one head";
            }
        }
    // The label is written in its light grey on the sky: no sky is that light in all three parts.
    f.picArrow->ClearPicture();
    f.MakeTransparent(*f.picArrow);
    const QLabel& label = *f.lblWind;
    const QImage screen =
        f.window()->grab(QRect(label.mapTo(f.window(), QPoint(0, 0)), label.size())).toImage();
    int light = 0;
    for (int y = 0; y < screen.height(); ++y)
        for (int x = 0; x < screen.width(); ++x) {
            const QRgb c = screen.pixel(x, y);
            light += std::min({qRed(c), qGreen(c), qBlue(c)}) >= 200;
        }
    EXPECT_GT(light, 10);
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
    EXPECT_TRUE(*hundredths.begin() >= 1 && *hundredths.rbegin() <= 21);
    EXPECT_GT(hundredths.size(), 10u);
    LeaveMatch();
    // No wind means none, even when an earlier match left some behind.
    dblWind = 0.17;
    intWindExtremity = 0;
    frmGrumbo& g = StartMatch(2);
    EXPECT_EQ(dblWind, 0);
    EXPECT_EQ(g.lblWind->text(), QStringLiteral("0 pps"));
}

TEST_F(World, IndicatorBobsFifteenTicksAndACallWhileRunningMovesIt) {
    frmGrumbo& f = StartMatch(2);
    f.intPindCount = 0;
    f.tmrPind.SetEnabled(false);
    f.pIndication();
    const ui::PictureBox& p = *f.Player[0];
    const int top = p.Top() - 75;
    EXPECT_EQ(f.imgPind->Top(), top);
    EXPECT_EQ(f.lblPind->y(), p.Top() - 95);
    const double centre = p.Left() + p.Width() / 2.0;
    EXPECT_NEAR(f.imgPind->Left(), centre - f.imgPind->Width() / 2.0, 0.5);
    EXPECT_NEAR(f.lblPind->x(), centre - f.lblPind->width() / 2.0, 0.5);
    EXPECT_EQ(f.lblPind->text(), QStringLiteral("Player 1"));
    const int offsets[] = {8, 4, 0, 8, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    for (int tick = 1; tick <= 14; ++tick) {
        clock.Advance(125);
        EXPECT_EQ(f.imgPind->Top(), top + offsets[tick - 1]) << "tick " << tick;
        EXPECT_TRUE(f.imgPind->isVisible());
    }
    clock.Advance(125);
    EXPECT_FALSE(f.imgPind->isVisible() || f.lblPind->isVisible() || f.tmrPind.Enabled());
    EXPECT_EQ(f.intPindCount, 0);
    // Its white parts took the sky colour, also where a building stands behind.
    EXPECT_EQ(f.imgPind->Point(0, 0), f.picBg->Point(f.imgPind->Left(), f.imgPind->Top()));

    // Called again after four ticks (+8 -4 -4 +8), it moves on from its count.
    f.pIndication();
    clock.Advance(125 * 4);
    f.intCurrentPlayer = 1;
    f.pIndication();
    const ui::PictureBox& q = *f.Player[1];
    EXPECT_EQ(f.imgPind->Top(), q.Top() - 75);
    EXPECT_EQ(f.lblPind->text(), QStringLiteral("Player 2"));
    clock.Advance(125);  // tick 5: -4 from the new place
    EXPECT_EQ(f.imgPind->Top(), q.Top() - 79);
    clock.Advance(125 * 9);  // ticks 6 to 14
    EXPECT_TRUE(f.imgPind->isVisible());
    clock.Advance(125);
    EXPECT_FALSE(f.imgPind->isVisible()) << "ends 11 ticks after the second call";
}

TEST_F(World, EveryTuneChangesAtItsLengthAndMusicStopsWithTheScreen) {
    // Seconds each tune plays before the next one starts.
    const int seconds[22] = {233, 177, 297, 225, 371, 162, 270, 416, 112, 62, 272,
                             211, 345, 179, 88,  193, 97,  50,  156, 44,  24, 126};
    frmGrumbo& f = StartMatch(2);
    ASSERT_EQ(music.commands.size(), 1);
    EXPECT_TRUE(f.tmrMIDI.Enabled());
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
        EXPECT_TRUE(f.intTune >= 1 && f.intTune <= 22);
    }
    // The timer runs on the clock, once a second.
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

TEST_F(World, SecondMatchResetsScoresAndANewRoundKeepsThem) {
    const MatchSettings s = SetupDefaults();
    EXPECT_EQ(std::tuple(s.dblGravity, int{s.intFragLimit}, int{s.intWindExtremity},
                         int{s.intBuildingHeight}, int{s.intGameType}, int{s.intTimeOfDay},
                         s.blnWindGusts, s.blnMusic),
              std::tuple(9.8, 3, 20, 8, 1, 1, true, true));

    frmGrumbo& f = StartMatch(4);
    for (QLabel* line : f.lblPlayerPoints) EXPECT_TRUE(line->isVisible());
    f.lngPoints = {100, 200, 300, 400};
    f.intFrags[2] = 3;
    f.intMisses[1] = 5;
    f.intCurrentPlayer = 2;
    f.lblcRound->setText(QStringLiteral("4"));
    LeaveMatch();
    EXPECT_EQ(programEnds, 0) << "leaving through the game-over screen does not end the program";

    frmGrumbo& g = StartMatch(2);
    g.window()->resize(900, 700);
    EXPECT_EQ(g.window()->size(), QSize(722, 510)) << "the window keeps its size";
    for (int i = 0; i < 4; ++i) EXPECT_EQ(g.lblPlayerPoints[i]->isVisible(), i < 2);
    EXPECT_FALSE(g.cmdThrow->isEnabled());
    EXPECT_TRUE(messages.isEmpty()) << messages.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(g.Player.size(), 2u) << "the extra boxes of the earlier match are gone";
    EXPECT_EQ(g.lngPoints, (std::array<grumbo::Long, 4>{0, 0, 0, 0}));
    EXPECT_EQ(g.intFrags[2] + g.intMisses[1] + g.intCurrentPlayer, 0);
    EXPECT_EQ(g.lblcRound->text(), QStringLiteral("1"));
    EXPECT_EQ(g.Caption(), QStringLiteral("Player 1 - 0 pts"));
    EXPECT_EQ(g.intTickDivisor, 10);

    // A new round keeps scores, misses and the turn.
    g.lngPoints[1] = 2500;
    g.intMisses[1] = 2;
    g.intCurrentPlayer = 1;
    g.strFragged = QStringLiteral("0");
    g.GameLoad();
    EXPECT_EQ(g.Caption(), QStringLiteral("Player 2 - 2500 pts"));
    EXPECT_EQ(g.intMissMark[1], 2);
    EXPECT_TRUE(g.strFragged.isEmpty());
    EXPECT_FALSE(g.blnRoundOver);
    // The projectile waits at the right-side thrower's hand: right edges together, 11 px above.
    EXPECT_EQ(g.imgProjectile->Left() + g.imgProjectile->Width(),
              g.Player[1]->Left() + g.Player[1]->Width());
    EXPECT_EQ(g.intHandY, g.Player[1]->Top() - 11);
}
