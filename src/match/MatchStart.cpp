// Opening and closing the match screen.
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QSet>
#include <algorithm>

#include "flight/frmSynchronization.h"
#include "match/frmGrumbo.h"
#include "media/Audio.h"
#include "ui/MessageBox.h"
#include "ui/Program.h"

using namespace modMain;

void frmGrumbo::Form_Load() {
    if (blnMusic) StartMusic();
    blnInMatch = true;
    for (int i = 0; i < 4; ++i) {
        lngPoints[i] = 0;
        intFrags[i] = 0;
        intMisses[i] = 0;
        intMissMark[i] = 0;
    }
    for (int i = 0; i < 4; ++i) lblName[i]->setText(strPlayerName[i]);
    lblcRound->setText(QStringLiteral("1"));
    lblFlimit->setText(QString::number(intFragLimit));
    RunCalibration();
    CreateExtraPlayers();
    Randomize();
    intProjectileKind = 0;
    intTickDivisor = 10;
    intCurrentPlayer = 0;
    intFlightTime = 0;
    GameLoad();
    cmdThrow->setEnabled(false);
    imgProjectile->ZOrder(1);
}

void frmGrumbo::StartMusic() {
    Randomize();
    intTune = static_cast<Integer>(grumbo::Int(grumbo::Rnd() * 22) + 1);
    media::Audio::Music().Play(TunePath(intTune));
    intTuneSeconds = 0;
    tmrMIDI.SetEnabled(true);
}

void frmGrumbo::RunCalibration() {
    LoadingBox& loading = Overlays().Loading();
    loading.Open(window());
    loading.SetStatus(QStringLiteral("Synchronizing Timers..."));
    frmSynchronization sync(loading, tmrMain);
    sync.Load(window());
    Delay(1000);
    sync.Unload();
    loading.Close();
}

void frmGrumbo::CreateExtraPlayers() {
    const int n = std::clamp<int>(intPlayers, 1, 4);
    for (int i = 0; i < n; ++i) {
        if (i > 0) Player.push_back(NewCharacterBox());
        LoadCharacterPicture(static_cast<Integer>(i), QString());
        lblPlayerPoints[i]->setVisible(true);
    }
}

ui::Surface frmGrumbo::MissingPicture(const QString& path, int width, int height) {
    // A missing picture is reported once per file and run, then stood in for by a plain grey
    // figure, so the match can still be played.
    static QSet<QString> reported;
    if (!reported.contains(path)) {
        reported.insert(path);
        ui::MsgBox(QStringLiteral("Cannot read the picture \"%1\". The game is missing this file; "
                                  "a plain figure stands in for it.")
                       .arg(QFileInfo(path).absoluteFilePath()),
                   QStringLiteral("Grumbo"));
    }
    ui::Surface s(width, height);
    const int cx = width / 2;
    s.Circle(cx, 8, 7, ui::RGB(40, 40, 40), true, ui::RGB(150, 150, 150));
    s.FillRect(cx - 8, 16, cx + 8, height - 20, ui::RGB(110, 110, 110));
    s.FillRect(cx - 8, height - 19, cx - 3, height - 1, ui::RGB(70, 70, 70));
    s.FillRect(cx + 3, height - 19, cx + 8, height - 1, ui::RGB(70, 70, 70));
    s.TakeDirty();
    return s;
}

bool frmGrumbo::LoadCharacterPicture(Integer player, const QString& suffix) {
    ui::PictureBox* box = Player.at(player);
    const QString path = DataFile(QStringLiteral("characters/") + strCharacter[player] + suffix +
                                  QStringLiteral(".bmp"));
    if (box->LoadPicture(path)) return true;
    box->SetPicture(MissingPicture(path, 40, 60));
    return false;
}

void frmGrumbo::Form_Unload(bool& cancel) {
    (void)cancel;
    media::Audio::Music().Close(TunePath(intTune));
    tmrMIDI.SetEnabled(false);
    // Nothing keeps ticking against controls that are about to go.
    for (ui::Timer* t : {&tmrMain, &tmrCollision, &tmrTrap, &tmrPind}) t->SetEnabled(false);
    if (blnInMatch) ui::EndProgram();
}
