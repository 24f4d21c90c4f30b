// Building a round: sky, city, characters, wind and the screen furniture that shows the sky.
#include <QLabel>

#include "match/frmGrumbo.h"

using namespace modMain;
using grumbo::Int;
using grumbo::Rnd;

void frmGrumbo::DrawSky() {
    bool day = true;
    if (intTimeOfDay == 2) day = true;
    else if (intTimeOfDay == 3) day = false;
    else day = Int(Rnd() * 2) == 0;
    blnDay = day;
    field::PaintSky(*picBg, day ? field::kDaySky : field::kNightSky);
}

void frmGrumbo::BlendCharacters() {
    LoadingBox& loading = Overlays().Loading();
    const int n = intPlayers;
    for (int i = 0; i < n; ++i) {
        ui::PictureBox& p = *Player[i];
        p.Cls();
        loading.SetStatus(QStringLiteral("Rendering Player ") + QString::number(i + 1) +
                          QStringLiteral("..."));
        DoEvents();
        MakeTransparent(p);
        loading.SetProgress(static_cast<double>(i) / n * 20 + 67);
        intMissMark[i] = intMisses[i];
    }
}

void frmGrumbo::ResetWindBox() {
    picArrow->ClearPicture();
    MakeTransparent(*picArrow);
}

void frmGrumbo::ResetPointsBox() {
    picPlayerpoints->ClearPicture();
    MakeTransparent(*picPlayerpoints);
}

void frmGrumbo::GameLoad() {
    const int n = intPlayers;
    LoadingBox& loading = Overlays().Loading();
    loading.Open(window());

    for (int i = 0; i < n; ++i) Player[i]->hide();
    picArrow->hide();
    picPlayerpoints->hide();

    loading.SetStatus(QStringLiteral("Rendering Sky..."));
    DoEvents();
    DrawSky();
    loading.SetProgress(3);
    picBld->SetPicture(picBg->surface());
    loading.SetProgress(5);
    for (int i = 0; i < n; ++i) Player[i]->SetTop(field::kOutOfPlay);
    loading.SetProgress(7);

    loading.SetStatus(QStringLiteral("Rendering Buildings..."));
    DoEvents();
    DrawBuildings();

    BlendCharacters();
    strFragged.clear();

    loading.SetStatus(QStringLiteral("Creating Wind..."));
    DoEvents();
    DrawRoundWind();
    ResetWindBox();
    loading.SetProgress(90);
    DrawWind();
    loading.SetProgress(95);
    ResetPointsBox();
    AlignBanana();
    loading.SetProgress(100);

    for (int i = 0; i < n; ++i) Player[i]->show();
    picArrow->show();
    picPlayerpoints->show();
    ShowTurnTitle();
    pIndication();
    blnRoundOver = false;
    loading.Close();
}
