// The end of every throw: the flight stops, the turn passes, and the next player's input opens.
#include <QFrame>
#include <QLabel>
#include <QLineEdit>

#include "impact/ImpactSteps.h"

using namespace modMain;
using grumbo::Int;
using grumbo::Rnd;

namespace {
// A fragged pair of team mates, or three frags of four: the round is decided and about to be
// rebuilt, so nobody needs to be skipped any more.
bool RoundDecided(const QString& fragged) {
    return impact::TeamFragged(fragged) || fragged.size() == 3;
}

// Teams alternate: 0, 2, 1, 3. Characters gone this round are passed over.
grumbo::Integer NextPlayer(const frmGrumbo& f, grumbo::Integer current) {
    if (intGameType != 2) return current == 0 ? 1 : 0;
    static constexpr grumbo::Integer kAfter[4] = {2, 3, 1, 0};
    grumbo::Integer next = current;
    // Four steps go all the way round; more could only repeat them.
    for (int step = 0; step < 4; ++step) {
        next = kAfter[next];
        if (RoundDecided(f.strFragged) || f.Player[next]->Top() <= field::kGroundLine) break;
    }
    return next;
}

// The selectors of the kinds the player holds stand in a row right of the normal projectile's.
void ShowSpecials(frmGrumbo& f) {
    static const char* const kAnnouncement[4] = {nullptr, "sounds/nBan.wav", "sounds/wBan.wav",
                                                 "sounds/mBan.wav"};
    int x = f.picSelect[0]->Left();
    for (int k = 1; k <= 3; ++k) {
        if (!f.blnAllProjectiles) {
            if (f.intSpecials[f.intCurrentPlayer][k] != 1) continue;
            PlaySoundFile(DataFile(QString::fromLatin1(kAnnouncement[k])));
        }
        ui::PictureBox& icon = *f.picSelect[k];
        icon.show();
        icon.SetLeft(x + icon.Width() + 5);
        x = icon.Left();
    }
}
}  // namespace

bool impact::TeamFragged(const QString& fragged) {
    const auto has = [&](char c) { return fragged.contains(QLatin1Char(c)); };
    return (has('0') && has('1')) || (has('2') && has('3'));
}

void frmGrumbo::Afterthrow() {
    const Integer thrower = intCurrentPlayer;
    lblPlayerPoints[thrower]->setText(strPlayerName[thrower] + QStringLiteral(": ") +
                                      QString::number(lngPoints[thrower]));
    tmrMain.SetEnabled(false);
    tmrCollision.SetEnabled(false);
    imgProjectile->hide();
    imgProjectile->Move(intHandX, intHandY);
    intFlightTime = 0;
    dblGust = 0;
    DoEvents();

    // Back to the standing pose; this also wipes an explosion drawn over a self-fragged thrower.
    LoadCharacterPicture(thrower, QString());
    MakeTransparent(*Player[thrower]);

    if (intProjectileKind != 0) intSpecials[thrower][intProjectileKind] = 0;
    for (int k = 1; k <= 3; ++k) picSelect[k]->hide();
    boxSelect->move(8, boxSelect->y());
    intProjectileKind = 0;
    DoEvents();

    intCurrentPlayer = NextPlayer(*this, thrower);
    ShowTurnTitle();
    ShowSpecials(*this);
    AlignBanana();

    if (blnWindGusts) {
        DrawWindStrength();
        if (intWindMode != 0) intWindMode = static_cast<Integer>(Int(2 * Rnd()) + 1);
        ResetWindBox();
        DrawWind();
    }
    if (!blnRoundOver) pIndication();

    for (QLineEdit* box : {txtAngle, txtVel}) {
        box->setEnabled(true);
        box->clear();
    }
    txtAngle->setFocus();
}
