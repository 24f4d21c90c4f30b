#include "screens/frmSplash.h"

#include <QLabel>
#include <QPushButton>

#include "media/Transparency.h"
#include "modmain/modMain.h"
#include "screens/FrontEnd.h"
#include "screens/frmSetup.h"
#include "ui/Activation.h"
#include "ui/Fonts.h"
#include "ui/PictureBox.h"
#include "ui/Program.h"
#include "ui/ScreenLook.h"

namespace {
constexpr int kDanceMs = 150;
constexpr std::array<const char*, 6> kDancers = {"Classic Grumbo",  "Rapper Grumbo", "Robo Grumbo",
                                                 "Sorcerer Grumbo", "Space Grumbo",  "Suit Grumbo"};
constexpr int kFirstLeft = 24, kColumnStep = 48;
// Feet of every dancer stand on this row, whatever the picture's height.
constexpr int kFeetLine = 110;

QString DancerFile(int index) {
    const int pose = index < 6 ? 1 : 2;
    return modMain::DataFile(
        QStringLiteral("characters/%1%2.bmp").arg(QLatin1String(kDancers[index % 6])).arg(pose));
}
}  // namespace

frmSplash::frmSplash() : ui::Form(323, 180, ui::FrontEndFlags()), tmrDance(kDanceMs) {}

frmSplash& frmSplash::Instance() {
    static frmSplash f;
    return f;
}

void frmSplash::CreateControls(QWidget* window) {
    SetCaption(frontend::GameTitle());
    background_ = ui::MenuColour();
    frontend::PrepareWindow(window, background_);

    lblTitle = new QLabel(frontend::GameTitle(), window);
    lblTitle->setGeometry(16, 8, 273, 27);
    lblTitle->setAlignment(Qt::AlignCenter);
    lblTitle->setFont(ui::Tahoma(ui::kLargeText, true));

    for (int i = 0; i < 12; ++i) {
        const int left = kFirstLeft + kColumnStep * (i % 6);
        const int top = i < 6 ? 88 : 56;
        imgSplash[i] = new ui::PictureBox(window, QStringLiteral("imgSplash"), left, top, 31, 33);
    }

    cmdStart = new QPushButton(QStringLiteral("Start"), window);
    cmdStart->setGeometry(258, 152, 57, 21);
    cmdExit = new QPushButton(QStringLiteral("Exit"), window);
    cmdExit->setGeometry(9, 152, 57, 21);
    QObject::connect(cmdStart, &QPushButton::clicked, [this] { cmdStart_Click(); });
    QObject::connect(cmdExit, &QPushButton::clicked, [this] { cmdExit_Click(); });

    tmrDance.SetInterval(kDanceMs);
    tmrDance.SetEnabled(false);
    OnTimer(tmrDance, [this] { tmrDance_Timer(); });
    ui::OnActivate(window, [this] { RunHandler([this] { Form_Activate(); }); });
}

void frmSplash::Form_Load() { modMain::PlaySoundFile(modMain::DataFile("sounds/g2intro.wav")); }

void frmSplash::Form_Activate() {
    // A picture that cannot be read leaves its box cleared to white, which the screen's colour
    // then takes like every other white: an empty place, and the others dance on.
    for (int i = 0; i < 12; ++i)
        if (!imgSplash[i]->LoadPicture(DancerFile(i))) imgSplash[i]->ClearPicture();
    for (int i = 0; i < 12; ++i) {
        ui::PictureBox& pic = *imgSplash[i];
        media::MakeTransparent(pic, 0, 0, pic.Width(), pic.Height(), background_);
        pic.SetTop(kFeetLine - pic.Height());
    }
    tmrDance.SetEnabled(true);
}

void frmSplash::tmrDance_Timer() {
    ++intDanceFrame;
    if (intDanceFrame == 2) intDanceFrame = 0;
    const bool firstPose = intDanceFrame == 1;
    if (firstPose) {
        for (int i = 0; i < 6; ++i) imgSplash[i]->show();
        for (int i = 6; i < 12; ++i) imgSplash[i]->hide();
    } else {
        for (int i = 0; i < 6; ++i) imgSplash[i]->hide();
        for (int i = 6; i < 12; ++i) imgSplash[i]->show();
    }
}

void frmSplash::cmdStart_Click() {
    frmSetup::Instance().Show();
    Unload();
}

void frmSplash::cmdExit_Click() { ui::EndProgram(); }

void frmSplash::Form_Unload(bool&) {
    // The dance timer belongs to the window and goes with it.
    tmrDance.SetEnabled(false);
}
