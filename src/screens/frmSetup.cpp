#include "screens/frmSetup.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSlider>

#include "core/Numeric.h"
#include "modmain/modMain.h"
#include "screens/FrontEnd.h"
#include "screens/frmPlayer.h"
#include "ui/ArrowControl.h"
#include "ui/Labels.h"
#include "ui/ScreenLook.h"

using namespace modMain;

namespace {
// Gravity is chosen in tenths.
constexpr int kGravityTenths = 10;

// The gravity is written and read back with the decimal point whatever the desktop's locale, so
// the stored value is exactly the control's value divided by ten.
QString GravityText(int tenths) {
    const QString whole = QString::number(tenths / kGravityTenths);
    const int fraction = tenths % kGravityTenths;
    return fraction == 0 ? whole : whole + QLatin1Char('.') + QString::number(fraction);
}
double ReadGravity(const QString& text) { return QLocale::c().toDouble(text); }

Integer WholeNumber(const QLineEdit* box) { return grumbo::CInt(grumbo::Val(box->text())); }

QString GameTypeText(int type) {
    return type == 1 ? QStringLiteral("1 vs 1") : QStringLiteral("2 vs 2");
}

QString TimeOfDayText(int time) {
    switch (time) {
        case 2: return QStringLiteral("Day");
        case 3: return QStringLiteral("Night");
        default: return QStringLiteral("Random");
    }
}

// A plain label as wide as its text.
QLabel* PlainLabel(QWidget* parent, int left, int top, const QString& text) {
    QLabel* l = ui::MakeLabel(parent, left, top, 0, 0, text);
    l->adjustSize();
    return l;
}

ui::ArrowControl* MakeArrows(QWidget* parent, int left, int top, int min, int max, int value,
                             int largeStep = 1) {
    auto* a = new ui::ArrowControl(parent, Qt::Vertical, left, top, 17, 19);
    a->SetRange(min, max);
    a->SetValue(value);
    a->SetSteps(1, largeStep);
    return a;
}

QSlider* MakeSlider(QWidget* parent, int left, int top, int min, int max, int value,
                    int largeStep) {
    auto* s = new QSlider(Qt::Vertical, parent);
    s->setGeometry(left, top, 15, 85);
    s->setRange(min, max);
    s->setValue(value);
    s->setSingleStep(1);
    s->setPageStep(largeStep);
    return s;
}

QCheckBox* MakeCheckBox(QWidget* parent, int left, int top, int width, const QString& text,
                        bool checked) {
    auto* c = new QCheckBox(text, parent);
    c->setGeometry(left, top, width, 17);
    c->setChecked(checked);
    return c;
}
}  // namespace

frmSetup::frmSetup() : ui::Form(323, 180, ui::FrontEndFlags()) {}

frmSetup& frmSetup::Instance() {
    static frmSetup f;
    return f;
}

void frmSetup::CreateControls(QWidget* window) {
    SetCaption(QStringLiteral("Setup"));
    frontend::PrepareWindow(window, ui::WindowColour());
    Label2 = PlainLabel(window, 9, 5, QStringLiteral("Gravity Level (0.5 - 20)"));
    Label3 = PlainLabel(window, 8, 50, QStringLiteral("Game Type"));
    Label1 = PlainLabel(window, 7, 91, QStringLiteral("Time of Day"));
    Label5 = PlainLabel(window, 8, 137, QStringLiteral("Frag Limit"));
    Label4 = PlainLabel(window, 136, 6, QStringLiteral("Wind Extremity"));
    Label6 = PlainLabel(window, 220, 6, QStringLiteral("Building Height"));
    CreateChoosers(window);
    cmdStart = new QPushButton(QStringLiteral("Next"), window);
    cmdStart->setGeometry(258, 152, 57, 21);
    QObject::connect(cmdStart, &QPushButton::clicked, [this] { cmdStart_Click(); });
}

void frmSetup::CreateChoosers(QWidget* window) {
    // The controls' design-time values are the setup defaults, shown anew at every loading.
    const MatchSettings d = SetupDefaults();
    const int gravity = grumbo::CInt(d.dblGravity * kGravityTenths);
    txtGrav = frontend::MakeDisplayBox(window, 8, 21, 33, 19, GravityText(gravity));
    txtGametype = frontend::MakeDisplayBox(window, 8, 65, 64, 19, GameTypeText(d.intGameType));
    txtTime = frontend::MakeDisplayBox(window, 8, 106, 64, 19, TimeOfDayText(d.intTimeOfDay));
    txtNmatch = frontend::MakeDisplayBox(window, 8, 153, 33, 19, QString::number(d.intFragLimit));
    txtWind =
        frontend::MakeDisplayBox(window, 194, 52, 19, 19, QString::number(d.intWindExtremity));
    txtBuilding =
        frontend::MakeDisplayBox(window, 274, 52, 19, 19, QString::number(d.intBuildingHeight));

    FlatScroll = MakeArrows(window, 42, 21, 5, 200, gravity, 4);
    FlatScroll1 = MakeArrows(window, 73, 65, 1, 2, d.intGameType);
    FlatScroll2 = MakeArrows(window, 73, 106, 1, 3, d.intTimeOfDay);
    FlatScroll3 = MakeArrows(window, 42, 153, 1, 50, d.intFragLimit);
    Slider1 = MakeSlider(window, 170, 22, 0, 35, d.intWindExtremity, 5);
    Slider2 = MakeSlider(window, 248, 22, 4, 12, d.intBuildingHeight, 1);
    chkWind = MakeCheckBox(window, 148, 126, 99, QStringLiteral("  Wind Gusts"), d.blnWindGusts);
    chkMusic = MakeCheckBox(window, 260, 126, 59, QStringLiteral("  Music"), d.blnMusic);

    FlatScroll->OnChange([this] { FlatScroll_Change(); });
    FlatScroll1->OnChange([this] { FlatScroll1_Change(); });
    FlatScroll2->OnChange([this] { FlatScroll2_Change(); });
    FlatScroll3->OnChange([this] { FlatScroll3_Change(); });
    QObject::connect(Slider1, &QSlider::valueChanged, [this] { Slider1_Scroll(); });
    QObject::connect(Slider2, &QSlider::valueChanged, [this] { Slider2_Scroll(); });
}

void frmSetup::Form_Load() {
    const MatchSettings d = SetupDefaults();
    dblGravity = d.dblGravity;
    intPlayers = static_cast<Integer>(2 * d.intGameType);
    intTimeOfDay = d.intTimeOfDay;
    intGameType = d.intGameType;
    blnNextPressed = false;
}

void frmSetup::FlatScroll_Change() { txtGrav->setText(GravityText(FlatScroll->Value())); }

void frmSetup::FlatScroll1_Change() {
    const int type = FlatScroll1->Value();
    txtGametype->setText(GameTypeText(type));
    intGameType = static_cast<Integer>(type);
    intPlayers = static_cast<Integer>(2 * type);
}

void frmSetup::FlatScroll2_Change() {
    txtTime->setText(TimeOfDayText(FlatScroll2->Value()));
    intTimeOfDay = static_cast<Integer>(FlatScroll2->Value());
}

void frmSetup::FlatScroll3_Change() { txtNmatch->setText(QString::number(FlatScroll3->Value())); }

void frmSetup::Slider1_Scroll() {
    txtWind->setText(QString::number(Slider1->value()));
    // Without wind there is nothing to gust; the players may still tick it again by hand.
    if (Slider1->value() == 0) chkWind->setChecked(false);
}

void frmSetup::Slider2_Scroll() { txtBuilding->setText(QString::number(Slider2->value())); }

void frmSetup::cmdStart_Click() {
    dblGravity = ReadGravity(txtGrav->text());
    intFragLimit = WholeNumber(txtNmatch);
    intWindExtremity = WholeNumber(txtWind);
    intBuildingHeight = WholeNumber(txtBuilding);
    frmPlayer::Instance().Show();
    blnMusic = chkMusic->isChecked();
    blnWindGusts = chkWind->isChecked();
    blnNextPressed = true;
    Unload();
}

void frmSetup::Form_Unload(bool&) {
    // Players who went back from player selection left it hidden; closing the setup screen
    // closes it too, and its closing decides between a match and the program's end.
    if (blnBackToSetup && !blnNextPressed && frmPlayer::Instance().Loaded())
        frmPlayer::Instance().Unload();
}
