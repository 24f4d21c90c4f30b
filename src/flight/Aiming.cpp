// The player's side of a turn: typing angle and velocity, choosing a projectile kind, throwing.
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>

#include "match/frmGrumbo.h"

using namespace modMain;

namespace {

// Only digits may be typed; control codes (Backspace, Enter, Tab, the clipboard shortcuts) pass.
void KeepDigits(ui::CharCode& KeyAscii) {
    if (KeyAscii > 31 && (KeyAscii < '0' || KeyAscii > '9')) KeyAscii = 0;
}

// Pasted text is not filtered by the keys, so anything that is not all digits counts as an empty
// box: the throw stays disabled and the flight never has to read a non-number.
void UpdateThrowButton(frmGrumbo& f) {
    const bool angle = grumbo::IsDigits(f.txtAngle->text());
    const bool velocity = grumbo::IsDigits(f.txtVel->text());
    f.cmdThrow->setEnabled(angle && velocity);
}

QString ThrowSound(const QString& character) {
    // Exact, case-sensitive names: a look-alike name gets the plain throw.
    if (character == QLatin1String("Dunik")) return QStringLiteral("sounds/dThrow.wav");
    if (character == QLatin1String("Vostrel")) return QStringLiteral("sounds/vGrr.wav");
    if (character == QLatin1String("Sorcerer Grumbo")) return QStringLiteral("sounds/sThrow.wav");
    return QStringLiteral("sounds/throw.wav");
}

}  // namespace

void frmGrumbo::txtAngle_KeyPress(ui::CharCode& KeyAscii) { KeepDigits(KeyAscii); }
void frmGrumbo::txtVel_KeyPress(ui::CharCode& KeyAscii) { KeepDigits(KeyAscii); }
void frmGrumbo::txtAngle_Change() { UpdateThrowButton(*this); }
void frmGrumbo::txtVel_Change() { UpdateThrowButton(*this); }

void frmGrumbo::picSelect_Click(Integer Index) {
    boxSelect->move(picSelect[Index]->Left() - 1, boxSelect->y());
    intProjectileKind = Index;
}

void frmGrumbo::cmdThrow_Click() {
    PlaySoundFile(DataFile(ThrowSound(strCharacter[intCurrentPlayer])));
    blnNukedPlayer = false;
    blnWarHit = false;
    // The texts stay as typed: the flight keeps reading the velocity until the turn changes.
    cmdThrow->setEnabled(false);
    txtAngle->setEnabled(false);
    txtVel->setEnabled(false);
    dblMagX = 0;
    dblMagY = 0;

    // Angles count from the thrower's own forward direction, so the right side mirrors them.
    const double typed = grumbo::Val(txtAngle->text());
    if (ThrowerOnRight()) {
        intAngle = grumbo::CInt(180 - typed);
        LoadCharacterPicture(intCurrentPlayer, QStringLiteral("2"));
    } else {
        LoadCharacterPicture(intCurrentPlayer, QStringLiteral("1"));
        intAngle = grumbo::CInt(typed);
    }
    MakeTransparent(*Player[intCurrentPlayer]);

    imgProjectile->show();
    tmrMain.SetEnabled(true);
    tmrCollision.SetEnabled(true);
}
