#include "screens/SetupScreen.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSlider>

#include "core/Numbers.h"
#include "screens/FrontEnd.h"
#include "ui/ArrowControl.h"
#include "ui/Labels.h"
#include "ui/ScreenLook.h"

namespace screens {

namespace {
// Gravity is chosen in tenths, and written with the decimal point whatever the desktop's locale,
// so the stored value is exactly the control's value divided by ten.
constexpr int kTenths = 10;
QString gravityText(int tenths) {
    const QString whole = QString::number(tenths / kTenths);
    const int fraction = tenths % kTenths;
    return fraction == 0 ? whole : whole + QLatin1Char('.') + QString::number(fraction);
}

QString gameTypeText(int type) {
    return type == 1 ? QStringLiteral("1 vs 1") : QStringLiteral("2 vs 2");
}

QString timeOfDayText(int time) {
    switch (time) {
        case 2: return QStringLiteral("Day");
        case 3: return QStringLiteral("Night");
        default: return QStringLiteral("Random");
    }
}

// The controls count game types and times of day from 1, in the order of the enums.
game::GameType gameTypeOf(int value) { return static_cast<game::GameType>(value - 1); }
game::TimeOfDay timeOfDayOf(int value) { return static_cast<game::TimeOfDay>(value - 1); }

void plainLabel(QWidget* parent, int left, int top, const QString& text) {
    QLabel* l = ui::makeLabel(parent, left, top, 0, 0, text);
    l->adjustSize();
}

ui::ArrowControl* arrows(QWidget* parent, int left, int top, int min, int max, int value,
                         int largeStep = 1) {
    auto* a = new ui::ArrowControl(parent, Qt::Vertical, left, top, 17, 19);
    a->setRange(min, max);
    a->setValue(value);
    a->setSteps(1, largeStep);
    return a;
}

QSlider* slider(QWidget* parent, int left, int min, int max, int value, int largeStep) {
    auto* s = new QSlider(Qt::Vertical, parent);
    s->setGeometry(left, 22, 15, 85);
    s->setRange(min, max);
    s->setValue(value);
    s->setSingleStep(1);
    s->setPageStep(largeStep);
    return s;
}

QCheckBox* checkBox(QWidget* parent, int left, int width, const QString& text, bool checked) {
    auto* c = new QCheckBox(text, parent);
    c->setGeometry(left, 126, width, 17);
    c->setChecked(checked);
    return c;
}
}  // namespace

SetupScreen::SetupScreen() : ui::Window(323, 180, ui::frontEndFlags()) {
    setWindowTitle(QStringLiteral("Setup"));
    prepareWindow(this, ui::windowColour());
    plainLabel(this, 9, 5, QStringLiteral("Gravity Level (0.5 - 20)"));
    plainLabel(this, 8, 50, QStringLiteral("Game Type"));
    plainLabel(this, 7, 91, QStringLiteral("Time of Day"));
    plainLabel(this, 8, 137, QStringLiteral("Frag Limit"));
    plainLabel(this, 136, 6, QStringLiteral("Wind Extremity"));
    plainLabel(this, 220, 6, QStringLiteral("Building Height"));
    createChoosers();
    auto* nextButton = new QPushButton(QStringLiteral("Next"), this);
    nextButton->setGeometry(258, 152, 57, 21);
    QObject::connect(nextButton, &QPushButton::clicked, this, [this] { next(); });
    connectChoosers();
}

void SetupScreen::createChoosers() {
    const game::MatchSettings d;
    const int tenths = core::roundHalfEven(d.gravity * kTenths);
    const int type = static_cast<int>(d.gameType) + 1, time = static_cast<int>(d.timeOfDay) + 1;
    gravityBox_ = makeDisplayBox(this, 8, 21, 33, 19, gravityText(tenths));
    gameTypeBox_ = makeDisplayBox(this, 8, 65, 64, 19, gameTypeText(type));
    timeBox_ = makeDisplayBox(this, 8, 106, 64, 19, timeOfDayText(time));
    fragBox_ = makeDisplayBox(this, 8, 153, 33, 19, QString::number(d.fragLimit));
    windBox_ = makeDisplayBox(this, 194, 52, 19, 19, QString::number(d.windExtremity));
    buildingBox_ = makeDisplayBox(this, 274, 52, 19, 19, QString::number(d.buildingHeight));

    gravity = arrows(this, 42, 21, game::kMinGravityTenths, game::kMaxGravityTenths, tenths, 4);
    gameType = arrows(this, 73, 65, 1, 2, type);
    timeOfDay = arrows(this, 73, 106, 1, 3, time);
    fragLimit = arrows(this, 42, 153, game::kMinFragLimit, game::kMaxFragLimit, d.fragLimit);
    windExtremity =
        slider(this, 170, game::kMinWindExtremity, game::kMaxWindExtremity, d.windExtremity, 5);
    buildingHeight =
        slider(this, 248, game::kMinBuildingHeight, game::kMaxBuildingHeight, d.buildingHeight, 1);
    windGusts = checkBox(this, 148, 99, QStringLiteral("  Wind Gusts"), d.windGusts);
    music = checkBox(this, 260, 59, QStringLiteral("  Music"), d.music);
}

void SetupScreen::connectChoosers() {
    gravity->onChange([this] { gravityBox_->setText(gravityText(gravity->value())); });
    gameType->onChange([this] {
        gameTypeBox_->setText(gameTypeText(gameType->value()));
        if (onGameType) onGameType(gameTypeOf(gameType->value()));
    });
    timeOfDay->onChange([this] {
        timeBox_->setText(timeOfDayText(timeOfDay->value()));
        if (onTimeOfDay) onTimeOfDay(timeOfDayOf(timeOfDay->value()));
    });
    fragLimit->onChange([this] { fragBox_->setText(QString::number(fragLimit->value())); });
    QObject::connect(windExtremity, &QSlider::valueChanged, this, [this](int value) {
        windBox_->setText(QString::number(value));
        // Without wind there is nothing to gust; the players may still tick it again by hand.
        if (value == 0) windGusts->setChecked(false);
    });
    QObject::connect(buildingHeight, &QSlider::valueChanged, this,
                     [this](int value) { buildingBox_->setText(QString::number(value)); });
}

game::MatchSettings SetupScreen::settings() const {
    game::MatchSettings s;
    s.gravity = QLocale::c().toDouble(gravityBox_->text());
    s.gameType = gameTypeOf(gameType->value());
    s.timeOfDay = timeOfDayOf(timeOfDay->value());
    s.fragLimit = core::roundHalfEven(core::leadingNumber(fragBox_->text()));
    s.windExtremity = core::roundHalfEven(core::leadingNumber(windBox_->text()));
    s.buildingHeight = core::roundHalfEven(core::leadingNumber(buildingBox_->text()));
    s.windGusts = windGusts->isChecked();
    s.music = music->isChecked();
    return s;
}

void SetupScreen::next() {
    if (onNext) onNext(settings());
}

}  // namespace screens
