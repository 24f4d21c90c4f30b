#include "screens/frmEndgame.h"

#include <QLabel>
#include <QPushButton>

#include "match/frmGrumbo.h"
#include "modmain/modMain.h"
#include "screens/frmCredits.h"
#include "screens/frmSetup.h"
#include "screens/frmSplash.h"
#include "ui/Fonts.h"
#include "ui/OwnedBox.h"
#include "ui/Program.h"
#include "ui/RaisedFrame.h"

using namespace modMain;

namespace {
const QString kResume = QStringLiteral("Resume");
const QString kStartOver = QStringLiteral("Start Over");

// The match's input strip takes no clicks or keys while the box is up.
void EnableMatchInput(bool on) {
    frmGrumbo& match = frmGrumbo::Instance();
    if (match.Loaded()) match.picUI->setEnabled(on);
}

// The next screen opens before the match screen closes, so that the program never stands
// without a window, which would end it. `blnInMatch` must be False by then: closing the match
// screen while a match runs ends the program.
void LeaveMatchFor(ui::Form& next) {
    next.Show();
    frmGrumbo::Instance().Unload();
}
}  // namespace

frmEndgame::frmEndgame() : ui::Form(256, 78, Qt::Tool | Qt::FramelessWindowHint) {}

frmEndgame& frmEndgame::Instance() {
    static frmEndgame f;
    return f;
}

void frmEndgame::CreateControls(QWidget* window) {
    SetCaption(QStringLiteral("Game Over"));
    window->setFont(ui::Tahoma(ui::kSmallText));
    leaving_ = false;
    lblCaption = new QLabel(window);
    lblCaption->setGeometry(70, 7, 105, 19);
    lblCaption->setAlignment(Qt::AlignCenter);
    cmdPlay = new QPushButton(window);
    cmdPlay->setGeometry(7, 49, 73, 23);
    cmdCredits = new QPushButton(window);
    cmdCredits->setGeometry(90, 49, 75, 23);
    cmdQuit = new QPushButton(QStringLiteral("Quit"), window);
    cmdQuit->setGeometry(174, 49, 75, 23);
    Relabel(false);
    new ui::RaisedFrame(window, 1);
    QObject::connect(cmdPlay, &QPushButton::clicked, cmdPlay, [this] { cmdPlay_Click(); });
    QObject::connect(cmdCredits, &QPushButton::clicked, cmdCredits, [this] { cmdCredits_Click(); });
    QObject::connect(cmdQuit, &QPushButton::clicked, cmdQuit, [this] { cmdQuit_Click(); });
}

void frmEndgame::Relabel(bool pause) {
    lblCaption->setText(pause ? QStringLiteral("Game Paused")
                              : QStringLiteral("Thanks for Playing"));
    cmdPlay->setText(pause ? kResume : QStringLiteral("Play Again"));
    cmdCredits->setText(pause ? kStartOver : QStringLiteral("View Credits"));
}

void frmEndgame::Form_Load() { EnableMatchInput(false); }

void frmEndgame::Form_Unload(bool& cancel) {
    // The box has no close box; should the window system close it anyway while the match stands,
    // the match would be left frozen with its input off, so only the buttons close it.
    if (!leaving_ && frmGrumbo::Instance().Loaded()) cancel = true;
}

void frmEndgame::ShowGameOver(QWidget* owner) {
    const bool wasUp = Loaded();
    Show(owner);
    if (wasUp) Relabel(false);
    else if (Loaded()) ui::KeepAboveOwner(window());
}

void frmEndgame::ShowPause(QWidget* owner) {
    Load(owner);
    if (!Loaded()) return;
    Relabel(true);
    Show(owner);
    ui::KeepAboveOwner(window());
}

void frmEndgame::Leave() {
    leaving_ = true;
    Unload();
}

void frmEndgame::cmdPlay_Click() {
    frmGrumbo& match = frmGrumbo::Instance();
    EnableMatchInput(true);
    const bool resume = cmdPlay->text() == kResume;
    if (!resume) {
        blnInMatch = false;
        LeaveMatchFor(frmSplash::Instance());
    } else if (blnFlightPaused) {
        // The flight counts its own ticks and both timers go on with the countdowns they had, so
        // the collision checks fall between the same flight steps as without the pause.
        match.tmrMain.Resume();
        match.tmrCollision.Resume();
    }
    Leave();
    if (resume && match.Loaded()) ui::GiveFocus(match.window());
}

void frmEndgame::cmdCredits_Click() {
    const bool startOver = cmdCredits->text() == kStartOver;
    EnableMatchInput(true);
    blnInMatch = false;
    if (startOver) LeaveMatchFor(frmSetup::Instance());
    else LeaveMatchFor(frmCredits::Instance());
    Leave();
}

void frmEndgame::cmdQuit_Click() {
    leaving_ = true;
    frmGrumbo::Instance().Unload();
    ui::EndProgram();
}
