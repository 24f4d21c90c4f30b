#include "screens/MatchBox.h"

#include <QLabel>
#include <QPushButton>

#include "game/Field.h"
#include "ui/Fonts.h"
#include "ui/OwnedBox.h"
#include "ui/RaisedFrame.h"

namespace screens {

namespace {
// The final board's last row (the fourth, in "2 vs 2") ends here in the match window: rows of 25
// pixels every 32 from 112.
constexpr int kBoardBottom = 112 + 3 * 32 + 25;
}  // namespace

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
    if (kind == Kind::GameOver && match) showBelowBoard(*match);
    else showCentred();
    ui::keepAboveOwner(this);
}

void MatchBox::showBelowBoard(const QWidget& match) {
    // The players read the final board while the box waits: it stands in the middle of the field
    // below the board, centred over the match window.
    const int top = (kBoardBottom + game::kFieldHeight - height()) / 2;
    move(match.mapToGlobal(QPoint((match.width() - width()) / 2, top)));
    show();
}

QStringList MatchBox::texts() const {
    return {caption_->text(), first_->text(), second_->text(), quit_->text()};
}

void MatchBox::choose(Choice choice) {
    if (onChoice) onChoice(choice);
}

}  // namespace screens
