#include "screens/TitleScreen.h"

#include <QLabel>
#include <QPushButton>

#include "core/Transparency.h"
#include "game/Characters.h"
#include "screens/FrontEnd.h"
#include "screens/Pictures.h"
#include "ui/Activation.h"
#include "ui/CanvasWidget.h"
#include "ui/Fonts.h"
#include "ui/ScreenLook.h"

namespace screens {

namespace {
constexpr int kDanceMs = 150;
constexpr int kFirstLeft = 24, kColumnStep = 48;
constexpr QSize kEmptyPlace{31, 33};
// The feet of every dancer stand on this row, whatever the picture's height.
constexpr int kFeetLine = 110;
}  // namespace

TitleScreen::TitleScreen(const core::DataFolder& data, media::Sound& sound, int danceFrame)
    : ui::Window(323, 180, ui::frontEndFlags()),
      data_(data),
      danceFrame_(danceFrame),
      background_(ui::menuColour()),
      dancing_(kDanceMs, [this] { dance(); }) {
    setWindowTitle(gameTitle());
    prepareWindow(this, background_);
    auto* title = new QLabel(gameTitle(), this);
    title->setGeometry(16, 8, 273, 27);
    title->setAlignment(Qt::AlignCenter);
    title->setFont(ui::tahoma(ui::kLargeText, true));
    for (int i = 0; i < 12; ++i)
        dancers_[static_cast<std::size_t>(i)] =
            new ui::CanvasWidget(this, kFirstLeft + kColumnStep * (i % 6), i < 6 ? 88 : 56,
                                 core::Canvas(kEmptyPlace.width(), kEmptyPlace.height()));
    auto* start = new QPushButton(QStringLiteral("Start"), this);
    start->setGeometry(258, 152, 57, 21);
    auto* exit = new QPushButton(QStringLiteral("Exit"), this);
    exit->setGeometry(9, 152, 57, 21);
    QObject::connect(start, &QPushButton::clicked, this, [this] { this->start(); });
    QObject::connect(exit, &QPushButton::clicked, this, [this] { this->exit(); });
    // Between the two, on their row, so that neither they nor the dancers move.
    auto* join = new QPushButton(QStringLiteral("Join..."), this);
    join->setGeometry(133, 152, 57, 21);
    QObject::connect(join, &QPushButton::clicked, this, [this] { this->join(); });
    // The pictures come anew whenever the screen becomes the active one.
    ui::onActivate(this, [this] { loadDancers(); });
    sound.playEffect(data.path(QStringLiteral("sounds/g2intro.wav")));
}

void TitleScreen::start() {
    if (onStart) onStart();
}

void TitleScreen::exit() {
    if (onExit) onExit();
}

void TitleScreen::join() {
    if (onJoin) onJoin();
}

void TitleScreen::loadDancers() {
    for (int i = 0; i < 12; ++i) {
        ui::CanvasWidget* w = dancers_[static_cast<std::size_t>(i)];
        const QString file =
            QStringLiteral("characters/%1%2.bmp")
                .arg(QLatin1String(game::kDancers[static_cast<std::size_t>(i % 6)]))
                .arg(i < 6 ? 1 : 2);
        // A picture that cannot be read or is no character's leaves an empty place of the
        // screen's colour, and the others dance on.
        QImage image;
        core::Canvas picture = readPicture(data_.path(file), kCharacterPicture, image)
                                   ? core::Canvas(image)
                                   : core::Canvas(w->width(), w->height());
        core::makeTransparent(picture, [this](int, int) { return background_; });
        w->setCanvas(picture);
        w->move(w->x(), kFeetLine - picture.height());
    }
    dancing_.setEnabled(true);
}

void TitleScreen::dance() {
    danceFrame_ = danceFrame_ == 1 ? 0 : 1;
    const bool firstPose = danceFrame_ == 1;
    for (int i = 0; i < 12; ++i)
        dancers_[static_cast<std::size_t>(i)]->setVisible((i < 6) == firstPose);
}

}  // namespace screens
