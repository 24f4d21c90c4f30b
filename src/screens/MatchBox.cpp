#include "screens/MatchBox.h"

#include <QLabel>
#include <QPushButton>

#include "ui/Fonts.h"
#include "ui/OwnedBox.h"
#include "ui/RaisedFrame.h"

namespace screens {

MatchBox::MatchBox(QWidget* match, Kind kind)
    : ui::Window(256, 78, Qt::Tool | Qt::FramelessWindowHint, match), kind_(kind) {
    closesOwner = true;
    setWindowTitle(QStringLiteral("Game Over"));
    setFont(ui::tahoma(ui::kSmallText));
    const bool paused = kind == Kind::Paused;
    caption_ = new QLabel(
        paused ? QStringLiteral("Game Paused") : QStringLiteral("Thanks for Playing"), this);
    caption_->setGeometry(70, 7, 105, 19);
    caption_->setAlignment(Qt::AlignCenter);
    first_ =
        new QPushButton(paused ? QStringLiteral("Resume") : QStringLiteral("Play Again"), this);
    first_->setGeometry(7, 49, 73, 23);
    second_ = new QPushButton(
        paused ? QStringLiteral("Start Over") : QStringLiteral("View Credits"), this);
    second_->setGeometry(90, 49, 75, 23);
    quit_ = new QPushButton(QStringLiteral("Quit"), this);
    quit_->setGeometry(174, 49, 75, 23);
    new ui::RaisedFrame(this, 1);
    QObject::connect(first_, &QPushButton::clicked, this,
                     [this, paused] { choose(paused ? Choice::Resume : Choice::PlayAgain); });
    QObject::connect(second_, &QPushButton::clicked, this,
                     [this, paused] { choose(paused ? Choice::StartOver : Choice::ViewCredits); });
    QObject::connect(quit_, &QPushButton::clicked, this, [this] { choose(Choice::Quit); });
    showCentred();
    ui::keepAboveOwner(this);
}

QStringList MatchBox::texts() const {
    return {caption_->text(), first_->text(), second_->text(), quit_->text()};
}

void MatchBox::choose(Choice choice) {
    if (onChoice) onChoice(choice);
}

}  // namespace screens
