// A character hit: the blast, the frag and points, the round score, the thrower's dance, the end
// of the throw, a special projectile for a sharp thrower, and a new city once a side is wiped out.
#include <QLabel>

#include "impact/ImpactSteps.h"

using namespace modMain;
using grumbo::Int;
using grumbo::Rnd;

namespace {
constexpr grumbo::Long kEnemyBonus = 25000;
constexpr grumbo::Long kFriendlyFire = -5000;

bool LeftSide(int player) { return intGameType == 2 ? player <= 1 : player == 0; }
bool Gone(const frmGrumbo& f, int player) { return f.Player[player]->Top() > field::kGroundLine; }

void AddOne(QLabel* label) {
    label->setText(QString::number(static_cast<long>(grumbo::Val(label->text())) + 1));
}

void CryOut(int player) {
    const QString& who = strCharacter[player];
    QString cry = QStringLiteral("sounds/ge.wav");
    if (who == QLatin1String("Dunik")) cry = QStringLiteral("sounds/dHit.wav");
    else if (who == QLatin1String("Vostrel")) cry = QStringLiteral("sounds/vGrr.wav");
    PlaySoundFile(DataFile(cry));
}

// In "1 vs 1" every hit decides the round, own goals for the opponent; in "2 vs 2" only a team
// wiped out does, and when both go at once the right team takes it.
void ScoreRound(frmGrumbo& f, int hit) {
    QLabel* scorer = nullptr;
    if (intGameType != 2) scorer = hit != 0 ? f.lblLeft : f.lblRight;
    else if (Gone(f, 0) && Gone(f, 1)) scorer = f.lblRight;
    else if (Gone(f, 2) && Gone(f, 3)) scorer = f.lblLeft;
    if (!scorer) return;
    AddOne(scorer);
    AddOne(f.lblcRound);
    f.blnRoundOver = true;
}

// The fewer throws wasted since the last mark, the better the chance; four or more get nothing.
void MaybeAwardSpecial(frmGrumbo& f, grumbo::Integer thrower) {
    const int kind = static_cast<int>(Int(3 * Rnd())) + 1;
    const int wasted = f.intMisses[thrower] - f.intMissMark[thrower];
    bool award = wasted == 0;
    if (wasted >= 1 && wasted <= 3) award = Int(9 * Rnd()) + 1 > wasted + 1;
    if (award) f.intSpecials[thrower][kind] = 1;
}

bool NeedsNewCity(const QString& fragged) {
    return intGameType != 2 || fragged.size() >= 3 || impact::TeamFragged(fragged);
}
}  // namespace

void frmGrumbo::VictoryDance(Integer thrower) {
    for (int frame = 1; frame <= 12; ++frame) {
        LoadCharacterPicture(thrower, frame % 2 == 1 ? QStringLiteral("1") : QStringLiteral("2"));
        MakeTransparent(*Player[thrower]);
        Delay(40);
    }
}

void frmGrumbo::PlayerCollision(Integer intPlayer) {
    const Integer thrower = intCurrentPlayer;
    ui::PictureBox& hit = *Player[intPlayer];
    imgProjectile->hide();
    lblPoint->move(grumbo::CInt(hit.Left() + hit.Width() / 2.0 - lblPoint->width() / 2.0),
                   hit.Top() - 10);

    if (intProjectileKind == 1) {
        Vaporize(hit);
        PlaySoundFile(DataFile(QStringLiteral("sounds/vg.wav")));
    } else {
        Explode(hit);
        CryOut(intPlayer);
    }
    ++intFrags[thrower];
    DoEvents();

    strFragged += QString::number(intPlayer);
    ScoreRound(*this, intPlayer);

    const Long before = lngPoints[thrower];
    lngPoints[thrower] += LeftSide(thrower) == LeftSide(intPlayer) ? kFriendlyFire : kEnemyBonus;
    ShowPoints(static_cast<Integer>(lngPoints[thrower] > before ? kEnemyBonus : kFriendlyFire));
    VictoryDance(thrower);

    Afterthrow();
    if (static_cast<int>(grumbo::Val(lblRight->text())) == intFragLimit ||
        static_cast<int>(grumbo::Val(lblLeft->text())) == intFragLimit) {
        impact::FinishMatch(*this);
        return;
    }
    MaybeAwardSpecial(*this, thrower);
    if (intGameType == 2) intMissMark[thrower] = intMisses[thrower];
    if (NeedsNewCity(strFragged)) GameLoad();
}
