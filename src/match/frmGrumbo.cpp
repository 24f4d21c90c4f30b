#include "match/frmGrumbo.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "media/ProjectileFrames.h"
#include "media/Transparency.h"
#include "ui/Fonts.h"
#include "ui/Labels.h"

using namespace modMain;

namespace {

QLabel* BoardLabel(QWidget* parent, int left, int top, int width, const QString& text,
                   const QColor& colour) {
    QLabel* l = ui::MakeLabel(parent, left, top, width, 25, text);
    l->setFont(ui::Tahoma(19, true));
    ui::SetLabelColour(l, colour);
    l->hide();
    return l;
}
}  // namespace

frmGrumbo::frmGrumbo()
    : ui::Form(field::kWidth, field::kHeight + field::kStripHeight),
      tmrMain(32),
      tmrCollision(60),
      tmrTrap(20),
      tmrPind(125),
      tmrMIDI(1000) {
    LoadProjectileFrames();
}

frmGrumbo::~frmGrumbo() = default;

namespace {
// Stands in while no screens are wired: a match built without them shows no boxes.
class NoOverlays : public MatchOverlays, public LoadingBox {
public:
    LoadingBox& Loading() override { return *this; }
    void ShowGameOver() override {}
    void Open(QWidget*) override {}
    void SetStatus(const QString&) override {}
    void SetProgress(double) override {}
    void Close() override {}
};
}  // namespace

MatchOverlays& frmGrumbo::Overlays() {
    static NoOverlays none;
    return overlays_ ? *overlays_ : none;
}

frmGrumbo& frmGrumbo::Instance() {
    static frmGrumbo f;
    return f;
}

void frmGrumbo::LoadProjectileFrames() {
    for (int f = 0; f < 4; ++f) {
        Projectile[f] = media::ProjectileSurface(0, f);
        nuke[f] = media::ProjectileSurface(1, f);
        war[f] = media::ProjectileSurface(2, f);
        mag[f] = media::ProjectileSurface(3, f);
    }
}

void frmGrumbo::CreateControls(QWidget* window) {
    SetCaption(QStringLiteral("Grumbo"));
    CreatePlayField(window);
    CreateStatusStrip(window);
    CreateFinalBoard(window);
    // Timers come back in their designed state with every showing of the screen.
    tmrMain.SetInterval(32);
    tmrMain.SetEnabled(false);
    tmrCollision.SetInterval(60);
    tmrCollision.SetEnabled(false);
    tmrPind.SetInterval(125);
    tmrPind.SetEnabled(false);
    tmrMIDI.SetInterval(1000);
    tmrMIDI.SetEnabled(false);
    tmrTrap.SetInterval(20);
    ConnectHandlers();
    tmrTrap.SetEnabled(true);
}

void frmGrumbo::CreatePlayField(QWidget* window) {
    picBg =
        new ui::PictureBox(window, QStringLiteral("picBg"), 0, 0, field::kWidth, field::kHeight);
    picBld =
        new ui::PictureBox(window, QStringLiteral("picBld"), 0, 0, field::kWidth, field::kHeight);

    Player.assign(1, NewCharacterBox());

    picPlayerpoints = new ui::PictureBox(picBld, QStringLiteral("picPlayerpoints"), 6, 3, 181, 73);
    for (int i = 0; i < 4; ++i) {
        lblPlayerPoints[i] = ui::MakeLabel(picPlayerpoints, 4, 3 + 16 * i, 175, 15, QString());
        ui::SetLabelColour(lblPlayerPoints[i], Qt::white);
        lblPlayerPoints[i]->hide();
    }

    picArrow = new ui::PictureBox(picBld, QStringLiteral("picArrow"), 634, 5, 84, 30);
    lblWind = ui::MakeLabel(picArrow, 16, 14, 56, 15, QString(), Qt::AlignCenter);
    ui::SetLabelColour(lblWind, QColor(220, 220, 220));

    imgPind = new ui::PictureBox(picBld, QStringLiteral("imgPind"), 0, 0, 20, 20);
    imgPind->hide();
    lblPind = ui::MakeLabel(picBld, 0, 0, 147, 15, QStringLiteral("player name"), Qt::AlignCenter);
    ui::SetLabelColour(lblPind, Qt::white);
    lblPind->hide();

    imgProjectile = new ui::PictureBox(picBld, QStringLiteral("imgProjectile"), 0, 0, 10, 10);
    imgProjectile->ShowFrame(Projectile[0]);
    imgProjectile->hide();

    lblPoint = ui::MakeLabel(picBld, 0, 0, 56, 18, QString(), Qt::AlignCenter);
    lblPoint->hide();
}

ui::PictureBox* frmGrumbo::NewCharacterBox() {
    return new ui::PictureBox(picBld, QStringLiteral("Player"), 0, field::kOutOfPlay, 40, 60);
}

void frmGrumbo::CreateStatusStrip(QWidget* window) {
    picUI = new QWidget(window);
    picUI->setGeometry(0, field::kHeight, field::kWidth, field::kStripHeight);
    picUI->setAutoFillBackground(true);

    ui::MakeLabel(picUI, 376, 16, 29, 15, QStringLiteral("Angle"));
    txtAngle = new QLineEdit(picUI);
    txtAngle->setGeometry(408, 14, 74, 18);
    ui::MakeLabel(picUI, 497, 16, 43, 15, QStringLiteral("Velocity"));
    txtVel = new QLineEdit(picUI);
    txtVel->setGeometry(540, 13, 75, 18);
    for (QLineEdit* box : {txtAngle, txtVel}) {
        box->setMaxLength(3);
        box->setFont(ui::Tahoma(11));
    }
    cmdThrow = new QPushButton(QStringLiteral("Throw"), picUI);
    cmdThrow->setGeometry(645, 11, 65, 21);
    cmdThrow->setFont(ui::Tahoma(11));
    QWidget::setTabOrder(txtAngle, txtVel);
    QWidget::setTabOrder(txtVel, cmdThrow);

    boxSelect = new QFrame(picUI);
    boxSelect->setGeometry(8, 13, 16, 16);
    boxSelect->setFrameStyle(QFrame::Box | QFrame::Plain);
    boxSelect->setLineWidth(1);
    const int selectLeft[4] = {9, 28, 47, 67};
    for (int k = 0; k < 4; ++k) {
        picSelect[k] =
            new ui::PictureBox(picUI, QStringLiteral("picSelect"), selectLeft[k], 14, 14, 14);
        picSelect[k]->surface().Blit(media::SelectorSurface(k), 1, 1);
        picSelect[k]->setVisible(k == 0);
    }

    Label2 = ui::MakeLabel(picUI, 104, 15, 51, 15, QStringLiteral(" Frag Limit"));
    lblFlimit = ui::MakeLabel(picUI, 155, 15, 30, 15, QString());
    Label6 = ui::MakeLabel(picUI, 190, 15, 36, 15, QStringLiteral(" Round"));
    lblcRound = ui::MakeLabel(picUI, 226, 15, 30, 15, QStringLiteral("1"));
    lblScore = ui::MakeLabel(picUI, 261, 15, 34, 15, QStringLiteral(" Score:"));
    lblLeft = ui::MakeLabel(picUI, 295, 15, 18, 15, QStringLiteral("0"));
    Label7 = ui::MakeLabel(picUI, 314, 15, 10, 15, QStringLiteral("to"));
    lblRight = ui::MakeLabel(picUI, 324, 15, 30, 15, QStringLiteral("0"));
}

void frmGrumbo::CreateFinalBoard(QWidget* window) {
    const QColor grey(128, 128, 128);
    const QColor text = window->palette().color(QPalette::ButtonText);
    lbl1 = BoardLabel(picBld, 272, 40, 65, QStringLiteral("Score:"), grey);
    lbl2 = BoardLabel(picBld, 344, 40, 25, QStringLiteral("99"), text);
    lbl3 = BoardLabel(picBld, 376, 40, 25, QStringLiteral("to"), grey);
    lbl4 = BoardLabel(picBld, 408, 40, 25, QStringLiteral("99"), text);
    lbl5 = BoardLabel(picBld, 104, 80, 121, QStringLiteral("Frags"), grey);
    lbl6 = BoardLabel(picBld, 232, 80, 121, QStringLiteral("Points"), grey);
    lbl7 = BoardLabel(picBld, 360, 80, 121, QStringLiteral("Accuracy"), grey);
    lbl8 = BoardLabel(picBld, 488, 80, 121, QStringLiteral("Name"), grey);
    for (int i = 0; i < 4; ++i) {
        const int top = 112 + 32 * i;
        lblFrags[i] = BoardLabel(picBld, 104, top, 121, QStringLiteral("0"), Qt::white);
        lblPoints[i] = BoardLabel(picBld, 232, top, 121, QStringLiteral("0"), Qt::white);
        lblAccuracy[i] = BoardLabel(picBld, 360, top, 121, QStringLiteral("0"), Qt::white);
        lblName[i] = BoardLabel(picBld, 520, top, 193, QString(), Qt::white);
    }
}

void frmGrumbo::ConnectHandlers() {
    OnTimer(tmrPind, [this] { tmrPind_Timer(); });
    OnTimer(tmrMIDI, [this] { tmrMIDI_Timer(); });
    ConnectFlightHandlers();
}

void frmGrumbo::MakeTransparent(ui::PictureBox& pic) {
    MakeTransparent(pic, 0, 0, static_cast<float>(pic.Width()), static_cast<float>(pic.Height()));
}

void frmGrumbo::ShowTurnTitle() {
    SetCaption(strPlayerName[intCurrentPlayer] + QStringLiteral(" - ") +
               QString::number(lngPoints[intCurrentPlayer]) + QStringLiteral(" pts"));
}

bool frmGrumbo::ThrowerOnRight() const { return intCurrentPlayer > intPlayers / 2 - 1; }

void frmGrumbo::MakeTransparent(ui::PictureBox& pic, float StartX, float StartY, float EndX,
                                float EndY) {
    // Characters blend with the city behind them; everything else shows the plain sky.
    media::MakeTransparent(pic, StartX, StartY, EndX, EndY, [&](int x, int y) {
        const ui::PictureBox* behind = pic.Name() == QLatin1String("Player") ? picBld : picBg;
        return behind->Point(pic.Left() + x, pic.Top() + y);
    });
}
