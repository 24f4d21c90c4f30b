// What a throw leaves behind: craters, hits, the turn change, points and the final board. The
// handlers are called directly on a standing round; time is the virtual clock's.
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <vector>

#include "TestSupport.h"
#include "modmain/modMain.h"
#include "ui/Timer.h"

using namespace testing_support;
using namespace modMain;

namespace {
int Centre(const ui::PictureBox& p) { return grumbo::CInt(p.Left() + p.Width() / 2.0); }

void Script(std::vector<double> values) { grumbo::ScriptRnd(values.data(), values.size()); }

bool IsSky(const frmGrumbo& f, int x, int y) {
    return f.picBld->Point(x, y) == f.picBg->Point(x, y);
}
}  // namespace

class Impact : public GameTest {
protected:
    frmGrumbo& Start(int players) {
        frmGrumbo& f = StartMatch(players);
        blnWindGusts = false;
        intFragLimit = 99;
        f.tmrMIDI.SetEnabled(false);  // a tune change would draw from scripted random numbers
        effects.played.clear();
        return f;
    }
    // Puts the projectile's centre at (x, y).
    static void ShotAt(frmGrumbo& f, int x, int y) {
        f.imgProjectile->Move(x - f.imgProjectile->Width() / 2, y - f.imgProjectile->Height() / 2);
        ASSERT_EQ(Centre(*f.imgProjectile), x);
    }
    // Stands a character with its centre at x.
    static void CentreAt(ui::PictureBox& p, int x) {
        p.SetLeft(x - p.Width() / 2);
        ASSERT_EQ(Centre(p), x);
    }
    QStringList Played() const {
        QStringList out;
        for (const QString& p : effects.played) out << Relative(p);
        return out;
    }
    // The side scores and the round number the board shows.
    static QStringList Board(const frmGrumbo& f) {
        return {f.lblLeft->text(), f.lblRight->text(), f.lblcRound->text()};
    }
};

TEST_F(Impact, NearMissPointsFallWithTheDistanceToTheEnemies) {
    frmGrumbo& f = Start(2);
    const int enemy = Centre(*f.Player[1]);
    f.lblPoint->setText(QStringLiteral("none"));
    ShotAt(f, enemy - 4, 300);
    f.Points();
    EXPECT_EQ(f.lngPoints[0], 0);
    EXPECT_EQ(f.lblPoint->text(), QStringLiteral("none"));
    ShotAt(f, enemy + 5, 300);
    f.Points();
    EXPECT_EQ(f.lngPoints[0], 20000);
    EXPECT_EQ(f.lblPoint->text(), QStringLiteral("20000"));
    EXPECT_EQ(f.lblPoint->y(), 300 - 5 - 10 - 28) << "the popup rises 28 px above its start";
    EXPECT_TRUE(f.lblPoint->isHidden());
    ShotAt(f, enemy - 7, 300);  // the fractional quotient counts: not 142 x 100
    f.Points();
    EXPECT_EQ(f.lngPoints[0], 20000 + 14285);
    LeaveMatch();

    // In teams both enemy distances add up; one enemy too close spoils it all.
    frmGrumbo& g = Start(4);
    CentreAt(*g.Player[2], 400);
    CentreAt(*g.Player[3], 600);
    ShotAt(g, 300, 300);
    g.Points();
    EXPECT_EQ(g.lngPoints[0], 500);
    CentreAt(*g.Player[3], 296);
    CentreAt(*g.Player[2], 306);
    g.Points();
    EXPECT_EQ(g.lngPoints[0], 500);
}

TEST_F(Impact, CratersAreSkyAndWarTunnelsSkipTheRedRing) {
    frmGrumbo& f = Start(2);
    const ui::PictureBox& p = *f.Player[0];
    const int x = Centre(p), y = p.Top() + p.Height() + 40;  // well inside his own building
    const ui::Surface before = f.picBld->surface();
    ShotAt(f, x, y);
    const std::int32_t t0 = clock.TickCount();
    f.HitBuilding();
    EXPECT_GE(clock.TickCount() - t0, 8) << "the crater grows ring by ring";
    for (int dy = -8; dy <= 8; ++dy)
        for (int dx = -8; dx <= 8; ++dx)
            if (dx * dx + dy * dy <= 49 || (dx * dy == 0 && dx + dy != 0)) {
                ASSERT_TRUE(IsSky(f, x + dx, y + dy)) << dx << "," << dy;
            }
    EXPECT_EQ(f.picBld->Point(x + 11, y), before.Point(x + 11, y));
    EXPECT_TRUE(Played().contains(QStringLiteral("sounds/bc.wav")));

    // Two war hits 6 pixels apart in untouched city: overlapping holes, at once, without red.
    const int wx = 400, wy = field::kGroundLine - 30;
    f.intProjectileKind = 2;
    const std::int32_t t1 = clock.TickCount();
    for (int dx : {0, 6}) {
        ShotAt(f, wx + dx, wy);
        f.HitBuilding();
    }
    EXPECT_EQ(clock.TickCount(), t1);
    EXPECT_TRUE(f.blnWarHit);
    for (int dy = -12; dy <= 12; ++dy)
        for (int dx = -12; dx <= 18; ++dx) {
            if (dx * dx + dy * dy <= 49 || (dx - 6) * (dx - 6) + dy * dy <= 49) {
                ASSERT_TRUE(IsSky(f, wx + dx, wy + dy)) << dx << "," << dy;
            }
            ASSERT_NE(f.picBld->Point(wx + dx, wy + dy), ui::RGB(130, 20, 20));
        }
    EXPECT_EQ(f.intMisses[0], 0);

    // An exploding character gets a ring per pixel of half its height: 20 on a 40 pixel high
    // picture, and on a 41 pixel one too (20 <= 20.5 < 21).
    for (int height : {40, 41}) {
        ui::PictureBox box(f.picBld, QStringLiteral("Player"), 100, 100, 60, height);
        f.Explode(box);
        EXPECT_EQ(box.Top(), field::kOutOfPlay);
        EXPECT_EQ(box.Point(30 - 20, 20), ui::RGB(134, 20, 2)) << height;
        EXPECT_EQ(box.Point(30 - 21, 20), ui::kWhite) << height;
        EXPECT_EQ(box.Point(30, 20), ui::RGB(125, 20, 2));
    }
}

TEST_F(Impact, TurnsAlternatePassOverFraggedCharactersAndShowHeldSpecials) {
    frmGrumbo& f = Start(2);
    f.intSpecials = {};
    f.intSpecials[0][1] = 1;
    f.intSpecials[1][2] = 1;
    f.intSpecials[1][3] = 1;
    f.intProjectileKind = 1;
    f.Afterthrow();
    EXPECT_EQ(f.intCurrentPlayer, 1);
    EXPECT_EQ(f.Caption(), QStringLiteral("Player 2 - 0 pts"));
    EXPECT_EQ(f.lblPlayerPoints[0]->text(), QStringLiteral("Player 1: 0"));
    EXPECT_TRUE(f.txtAngle->isEnabled() && f.txtAngle->text().isEmpty());
    // The used special is taken; the next thrower's show side by side.
    EXPECT_EQ(f.intSpecials[0][1], 0);
    EXPECT_EQ(f.intProjectileKind, 0);
    EXPECT_TRUE(f.picSelect[1]->isHidden());
    const int step = f.picSelect[0]->Width() + 5;
    EXPECT_EQ(f.picSelect[2]->Left(), f.picSelect[0]->Left() + step);
    EXPECT_EQ(f.picSelect[3]->Left(), f.picSelect[0]->Left() + 2 * step);
    EXPECT_FALSE(f.picSelect[2]->isHidden() || f.picSelect[3]->isHidden());
    EXPECT_EQ(Played().filter(QStringLiteral("Ban.wav")),
              (QStringList{QStringLiteral("sounds/wBan.wav"), QStringLiteral("sounds/mBan.wav")}));
    f.Afterthrow();
    EXPECT_EQ(f.intCurrentPlayer, 0);
    LeaveMatch();

    frmGrumbo& g = Start(4);
    std::vector<int> order{g.intCurrentPlayer};
    for (int i = 0; i < 4; ++i) {
        g.Afterthrow();
        order.push_back(g.intCurrentPlayer);
    }
    EXPECT_EQ(order, (std::vector<int>{0, 2, 1, 3, 0}));
    g.Player[2]->SetTop(field::kOutOfPlay);
    g.strFragged = QStringLiteral("2");
    g.Afterthrow();
    EXPECT_EQ(g.intCurrentPlayer, 1);
    g.Afterthrow();
    EXPECT_EQ(g.intCurrentPlayer, 3);
    // A wiped-out team ends the round: the order goes on without skipping.
    g.Player[3]->SetTop(field::kOutOfPlay);
    g.strFragged = QStringLiteral("23");
    g.intCurrentPlayer = 0;
    g.Afterthrow();
    EXPECT_EQ(g.intCurrentPlayer, 2);
}

TEST_F(Impact, WindGustsRedrawTheWindAfterEveryThrow) {
    frmGrumbo& f = Start(2);
    blnWindGusts = true;
    intWindExtremity = 35;
    dblWind = 0.30;  // an arrow from x 10 to 74 before the throw
    intWindMode = 1;
    f.DrawWind();
    dblGust = 4.2;
    f.intFlightTime = 7;
    Script({0.4, 0.9});
    f.Afterthrow();
    EXPECT_EQ(dblGust, 0) << "the next flight starts without drift";
    EXPECT_EQ(f.intFlightTime, 0);
    EXPECT_DOUBLE_EQ(dblWind, 0.15);
    EXPECT_EQ(intWindMode, 2);
    EXPECT_EQ(f.lblWind->text(), QStringLiteral("15 pps"));
    const ui::PictureBox& box = *f.picArrow;
    EXPECT_EQ(box.Point(10, 6), f.picBg->Point(box.Left() + 10, box.Top() + 6))
        << "the old arrow is gone";
    // At extremity 35 every gust lies between 0.01 and 0.36; gusts blow even at no wind.
    for (const auto& [extremity, draw, wind] :
         {std::tuple{35, 0.0, 0.01}, {35, 0.99999, 0.36}, {0, 0.7, 0.01}}) {
        intWindExtremity = static_cast<grumbo::Integer>(extremity);
        Script({draw, 0.1});
        f.Afterthrow();
        EXPECT_DOUBLE_EQ(dblWind, wind);
        EXPECT_EQ(intWindMode, 1);
    }
}

TEST_F(Impact, HitScoresTheSideAndANewCityKeepsScoresAndTurn) {
    frmGrumbo& f = Start(2);
    f.PlayerCollision(1);
    EXPECT_EQ(f.intFrags[0], 1);
    EXPECT_EQ(f.lngPoints[0], 25000);
    EXPECT_EQ(f.lblPoint->text(), QStringLiteral("25000"));
    EXPECT_EQ(Board(f), (QStringList{"1", "0", "2"}));
    const QStringList played = Played();
    EXPECT_LT(played.indexOf(QStringLiteral("Explosion-2.au")),
              played.indexOf(QStringLiteral("sounds/ge.wav")));
    // The new round: everybody back on a roof, the scores kept, the turn with player 2.
    EXPECT_TRUE(f.strFragged.isEmpty());
    EXPECT_FALSE(f.blnRoundOver);
    EXPECT_LE(f.Player[1]->Top(), field::kGroundLine);
    EXPECT_EQ(f.Caption(), QStringLiteral("Player 2 - 0 pts"));
    EXPECT_EQ(f.lblPlayerPoints[0]->text(), QStringLiteral("Player 1: 25000"));

    strCharacter[1] = QStringLiteral("Dunik");
    f.PlayerCollision(1);  // an own goal scores for the other side
    EXPECT_EQ(f.lngPoints[1], -5000);
    EXPECT_EQ(f.lblPoint->text(), QStringLiteral("-5000"));
    EXPECT_EQ(Board(f), (QStringList{"2", "0", "3"}));
    EXPECT_TRUE(Played().contains(QStringLiteral("sounds/dHit.wav")));
    EXPECT_TRUE(messages.isEmpty());
}

TEST_F(Impact, TeamRoundNeedsBothOfATeamFragged) {
    frmGrumbo& f = Start(4);
    // Player 0 hits his team mate while both enemies stand: it costs him, and decides nothing.
    f.intMisses[0] = 2;
    f.PlayerCollision(1);
    EXPECT_EQ(f.intFrags[0], 1);
    EXPECT_EQ(f.lngPoints[0], -5000);
    EXPECT_EQ(Board(f), (QStringList{"0", "0", "1"}));
    EXPECT_EQ(f.strFragged, QStringLiteral("1"));
    EXPECT_EQ(f.Player[1]->Top(), field::kOutOfPlay) << "no new city yet";
    EXPECT_EQ(f.intMissMark[0], 2);
    EXPECT_EQ(f.intCurrentPlayer, 2);
    // Player 2 takes out the other one: the right team wins the round in a new city.
    f.PlayerCollision(0);
    EXPECT_EQ(f.lngPoints[2], 25000);
    EXPECT_EQ(Board(f), (QStringList{"0", "1", "2"}));
    EXPECT_TRUE(f.strFragged.isEmpty());
    EXPECT_LE(f.Player[1]->Top(), field::kGroundLine);
    EXPECT_EQ(f.intCurrentPlayer, 1);
}

TEST_F(Impact, SpecialAwardChanceShrinksWithWastedThrows) {
    frmGrumbo& f = Start(2);
    // Wasted throws since the mark, the scripted draws (kind, then chance), the award (0: none).
    const struct {
        int wasted;
        std::vector<double> draws;
        int kind;
    } cases[] = {{0, {0.5}, 2},
                 {2, {0.0, 0.34}, 1},
                 {2, {0.0, 0.25}, 0},
                 {3, {0.9, 0.45}, 3},
                 {4, {0.0, 0.99}, 0}};
    for (const auto& c : cases) {
        f.intCurrentPlayer = 0;
        f.intSpecials = {};
        f.intMissMark[0] = 1;
        f.intMisses[0] = static_cast<grumbo::Integer>(1 + c.wasted);
        Script(c.draws);
        f.PlayerCollision(1);
        for (int k = 1; k <= 3; ++k)
            EXPECT_EQ(f.intSpecials[0][k], k == c.kind ? 1 : 0) << "wasted " << c.wasted;
    }
}

TEST_F(Impact, NukeDissolvesItsBuildingAndFragsWhoStandsOnIt) {
    frmGrumbo& f = Start(4);
    // Blocks of our own on sky, one at each border and one in the middle (x 300 to 359, roof at
    // 300); nobody stands on them at first.
    f.picBld->SetPicture(f.picBg->surface());
    for (ui::PictureBox* p : f.Player) p->SetLeft(200);
    f.intProjectileKind = 1;
    const auto block = [&](int from, int to) {
        f.picBld->surface().FillRect(from, 300, to, 465, ui::RGB(90, 90, 90));
    };
    const auto stand = [&](int i, int left) {
        f.Player[i]->Move(left, 300 - f.Player[i]->Height());
    };
    for (const auto& [from, to, impact] :
         {std::tuple{0, 40, 20}, {680, 721, 700}, {300, 359, 330}}) {
        block(from, to);
        f.VaporizeBuilding(static_cast<grumbo::Integer>(impact));
        for (int y = 290; y <= 465; ++y)
            for (int x = std::max(from - 5, 0); x <= std::min(to + 5, 721); ++x)
                ASSERT_TRUE(IsSky(f, x, y)) << x << "," << y;
    }
    EXPECT_FALSE(f.blnNukedPlayer);
    EXPECT_TRUE(Played().contains(QStringLiteral("sounds/vg.wav")));

    // Player 3 already fragged on the block: not hit again, and the throw counts as a miss.
    block(300, 359);
    f.Player[3]->Move(310, field::kOutOfPlay);
    f.blnNukedPlayer = true;
    f.VaporizeBuilding(330);
    EXPECT_FALSE(f.blnNukedPlayer);
    EXPECT_EQ(f.intFrags[0], 0);

    // Player 2 standing on it is dissolved and fragged; a left edge on the first column is spared.
    block(300, 359);
    stand(2, 310);
    stand(3, 300);
    f.VaporizeBuilding(330);
    EXPECT_TRUE(f.blnNukedPlayer);
    EXPECT_EQ(f.intFrags[0], 1);
    EXPECT_EQ(f.strFragged, QStringLiteral("2"));
    EXPECT_EQ(f.Player[2]->Top(), field::kOutOfPlay);
    EXPECT_LE(f.Player[3]->Top(), field::kGroundLine);
    EXPECT_EQ(f.intMisses[0], 0);

    // Both enemies on one block: each goes to the hit handling in turn, the one whose turn it
    // then is scores, and the left team takes the round.
    block(300, 359);
    stand(2, 310);
    stand(3, 330);
    f.intCurrentPlayer = 0;
    f.intProjectileKind = 1;
    f.VaporizeBuilding(330);
    EXPECT_EQ(f.intFrags[0], 2);
    EXPECT_EQ(f.intFrags[1], 1) << "after the first frag the turn is player 1's";
    EXPECT_EQ(Board(f), (QStringList{"1", "0", "2"}));
    EXPECT_TRUE(f.strFragged.isEmpty()) << "a new city";
    for (ui::PictureBox* p : f.Player) EXPECT_LE(p->Top(), field::kGroundLine);
}

TEST_F(Impact, FinalBoardDarkensOddRowsAndListsEveryPlayer) {
    frmGrumbo& f = Start(2);
    intFragLimit = 1;
    f.intFrags[1] = 3;
    f.intMisses[1] = 1;
    f.intFrags[0] = 1;  // becomes 2 with the deciding hit below
    f.intMisses[0] = 1;
    f.picBld->surface().PSet(0, 1, ui::RGB(200, 101, 3));
    const std::int32_t evenRow = f.picBld->Point(500, 2);
    f.PlayerCollision(1);

    EXPECT_EQ(f.lblcRound->text(), QStringLiteral("1")) << "rounds played";
    EXPECT_EQ(f.strFragged, QStringLiteral("1")) << "no new city after the last round";
    const QStringList board{f.lbl2->text(),           f.lbl4->text(),
                            f.lblAccuracy[0]->text(), f.lblAccuracy[1]->text(),
                            f.lblFrags[0]->text(),    f.lblPoints[0]->text()};
    EXPECT_EQ(board, (QStringList{"1", "0", "66 %", "75 %", "2", "25000"}));
    EXPECT_FALSE(f.lbl8->isHidden() || f.lblName[1]->isHidden());
    EXPECT_TRUE(f.lblName[2]->isHidden() && f.picArrow->isHidden());
    EXPECT_EQ(f.Player[0]->Top(), field::kOutOfPlay);

    // 60 % of each channel, rounded: 200 -> 120, 101 -> 60.6 -> 61, 3 -> 1.8 -> 2.
    EXPECT_EQ(f.picBld->Point(0, 1), ui::RGB(120, 61, 2));
    EXPECT_EQ(f.picBld->Point(720, 1), ui::RGB(120, 61, 2));
    EXPECT_NE(f.picBld->Point(721, 1), ui::RGB(120, 61, 2)) << "the stripe stops short of the edge";
    EXPECT_EQ(f.picBld->Point(500, 2), evenRow);
    const std::int32_t sky = f.picBg->Point(0, 465);
    const auto dark = [](int v) { return grumbo::CInt(v * 0.6); };
    const std::int32_t last = ui::RGB(dark(sky & 0xFF), dark((sky >> 8) & 0xFF), dark(sky >> 16));
    EXPECT_EQ(f.picBld->Point(0, 465), last);
    EXPECT_EQ(f.picBld->Point(720, 465), last);
    EXPECT_EQ(f.picBld->Point(0, 464), f.picBg->Point(0, 464));
    LeaveMatch();

    // Without frags there is no accuracy to show.
    frmGrumbo& g = Start(4);
    g.intMisses[2] = 7;
    g.EndGame();
    EXPECT_EQ(g.lblAccuracy[2]->text(), QStringLiteral("0 %"));
    EXPECT_FALSE(g.lblFrags[3]->isHidden());
}
