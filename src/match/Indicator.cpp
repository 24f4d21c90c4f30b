// The marker that bobs above the player whose turn it is.
#include <QLabel>

#include "match/frmGrumbo.h"

using namespace modMain;

void frmGrumbo::pIndication() {
    const ui::PictureBox& P = *Player[intCurrentPlayer];
    const QString path = DataFile(QStringLiteral("pIndication.bmp"));
    // Reloaded on every call so that its white pixels are white again for the blending.
    ui::PictureError why;
    if (!imgPind->LoadPicture(path, &why)) imgPind->SetPicture(MissingPicture(path, why, 20, 24));
    const double centre = P.Left() + P.Width() / 2.0;
    imgPind->Move(grumbo::CInt(centre - imgPind->Width() / 2.0), P.Top() - 75);
    lblPind->move(grumbo::CInt(centre - lblPind->width() / 2.0), P.Top() - 95);
    lblPind->setText(strPlayerName[intCurrentPlayer]);
    tmrPind.SetEnabled(true);
}

void frmGrumbo::tmrPind_Timer() {
    MakeTransparent(*imgPind);
    ++intPindCount;
    lblPind->show();
    imgPind->show();
    lblPind->raise();
    imgPind->raise();
    if (intPindCount == 15) {
        intPindCount = 0;
        tmrPind.SetEnabled(false);
        lblPind->hide();
        imgPind->hide();
        return;
    }
    static constexpr int kBob[7] = {0, 8, -4, -4, 8, -4, -4};
    if (intPindCount >= 1 && intPindCount <= 6)
        imgPind->SetTop(imgPind->Top() + kBob[intPindCount]);
}
