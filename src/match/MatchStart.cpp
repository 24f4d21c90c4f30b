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

namespace {
// A character must fit a roof and the collision checks: a figure wider than a building or taller
// than the sky above the city would turn every throw at or from him into a hit or a miss.
constexpr int kMinCharacterWidth = 30, kMaxCharacterWidth = 80;
constexpr int kMinCharacterHeight = 35, kMaxCharacterHeight = 150;

bool CharacterSize(const ui::Surface& s) {
    return s.Width() >= kMinCharacterWidth && s.Width() <= kMaxCharacterWidth &&
           s.Height() >= kMinCharacterHeight && s.Height() <= kMaxCharacterHeight;
}
}  // namespace

ui::Surface frmGrumbo::MissingPicture(const QString& path, const ui::PictureError& why, int width,
                                      int height) {
    // Each file is reported once per run; the plain grey figure keeps the match playable.
    static QSet<QString> reported;
    if (!reported.contains(path)) {
        reported.insert(path);
        const QString file = QFileInfo(path).absoluteFilePath();
        ui::MsgBox(why.missing
                       ? QStringLiteral("The picture \"%1\" is missing. A plain figure stands in "
                                        "for it.")
                             .arg(file)
                       : QStringLiteral("The picture \"%1\" cannot be read: %2. A plain figure "
                                        "stands in for it.")
                             .arg(file, why.reason),
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
    const QString path = DataFile(QStringLiteral("characters/") + strCharacter[player] + suffix +
                                  QStringLiteral(".bmp"));
    ui::Surface picture;
    ui::PictureError why;
    if (picture.Load(path, &why)) {
        if (CharacterSize(picture)) {
            Player.at(player)->SetPicture(picture);
            return true;
        }
        why.reason = QStringLiteral(
                         "a character is %1 to %2 pixels wide and %3 to %4 pixels high, "
                         "and this picture is %5 x %6")
                         .arg(kMinCharacterWidth)
                         .arg(kMaxCharacterWidth)
                         .arg(kMinCharacterHeight)
                         .arg(kMaxCharacterHeight)
                         .arg(picture.Width())
                         .arg(picture.Height());
    }
    Player.at(player)->SetPicture(MissingPicture(path, why, 40, 60));
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
