#include "screens/MatchStrip.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "computer/Autopilot.h"
#include "game/Match.h"
#include "ui/CanvasWidget.h"
#include "ui/Fonts.h"
#include "ui/Input.h"
#include "ui/Labels.h"

namespace screens {

namespace {
constexpr int kStripHeight = 44;
constexpr int kSelectorTop = 14, kSelectorSize = 14;

QLabel* label(QWidget* parent, int left, int width, const QString& text) {
    return ui::makeLabel(parent, left, 15, width, 15, text);
}

void setText(QLabel* l, const QString& text) {
    if (l->text() != text) l->setText(text);
}
}  // namespace

MatchStrip::MatchStrip(QWidget* parent, const game::Match& match, const computer::Autopilot& pilot,
                       std::function<void(game::Command)> send)
    : QWidget(parent), match_(match), pilot_(pilot), send_(std::move(send)) {
    setGeometry(0, game::kFieldHeight, game::kFieldWidth, kStripHeight);
    setAutoFillBackground(true);
    createAiming();
    createSelectors();
    createScore();
    sync();
}

void MatchStrip::createAiming() {
    ui::makeLabel(this, 376, 16, 29, 15, QStringLiteral("Angle"));
    angle_ = new QLineEdit(this);
    angle_->setGeometry(408, 14, 74, 18);
    ui::makeLabel(this, 497, 16, 43, 15, QStringLiteral("Velocity"));
    velocity_ = new QLineEdit(this);
    velocity_->setGeometry(540, 13, 75, 18);
    for (QLineEdit* box : {angle_, velocity_}) {
        box->setMaxLength(3);
        box->setFont(ui::tahoma(ui::kSmallText));
        ui::onKeyPress(box, [](ui::CharCode& typed) {
            if (!game::aimingAccepts(typed)) typed = 0;
        });
    }
    throw_ = new QPushButton(QStringLiteral("Throw"), this);
    throw_->setGeometry(645, 11, 65, 21);
    throw_->setFont(ui::tahoma(ui::kSmallText));
    QWidget::setTabOrder(angle_, velocity_);
    QWidget::setTabOrder(velocity_, throw_);
    // A box that takes the match's own text back says nothing new.
    using Kind = game::Command::Kind;
    QObject::connect(angle_, &QLineEdit::textChanged, this, [this](const QString& t) {
        if (t != match_.angleText()) send_({.kind = Kind::Angle, .text = t});
        sync();
    });
    QObject::connect(velocity_, &QLineEdit::textChanged, this, [this](const QString& t) {
        if (t != match_.velocityText()) send_({.kind = Kind::Velocity, .text = t});
        sync();
    });
    QObject::connect(throw_, &QPushButton::clicked, this, [this] {
        if (!computersTurn()) send_({.kind = Kind::Throw});
        sync();
    });
}

void MatchStrip::createSelectors() {
    frame_ = new QFrame(this);
    frame_->setGeometry(match_.selectionFrameLeft(), 13, 16, 16);
    frame_->setFrameStyle(QFrame::Box | QFrame::Plain);
    frame_->setLineWidth(1);
    for (int k = 0; k < game::kKinds; ++k) {
        const auto kind = static_cast<game::ProjectileKind>(k);
        core::Canvas face(kSelectorSize, kSelectorSize);
        face.blit(game::selectorIcon(kind), 1, 1);
        auto* s = new ui::CanvasWidget(this, match_.selectorLeft(kind), kSelectorTop, face);
        ui::onClick(s, [this, kind] {
            if (!computersTurn())
                send_({.kind = game::Command::Kind::Choose, .value = static_cast<int>(kind)});
            sync();
        });
        selectors_[static_cast<std::size_t>(k)] = s;
    }
}

void MatchStrip::createScore() {
    label(this, 104, 51, QStringLiteral(" Frag Limit"));
    fragLimit_ = label(this, 155, 30, QString());
    label(this, 190, 36, QStringLiteral(" Round"));
    round_ = label(this, 226, 30, QString());
    label(this, 261, 34, QStringLiteral(" Score:"));
    left_ = label(this, 295, 18, QString());
    label(this, 314, 10, QStringLiteral("to"));
    right_ = label(this, 324, 30, QString());
}

void MatchStrip::sync() {
    const game::Match& m = match_;
    setEnabled(!m.paused() && !m.gameOverShown());
    // On the computer's turn the boxes show what it types, and only it throws.
    const bool computer = computersTurn();
    for (auto [box, text] :
         {std::pair(angle_, m.angleText()), std::pair(velocity_, m.velocityText())}) {
        box->setEnabled(m.inputOpen());
        box->setReadOnly(computer);
        if (box->text() != text && m.inputOpen()) box->setText(text);
    }
    throw_->setEnabled(m.canThrow() && !computer);
    if (computer && local_[static_cast<std::size_t>(m.currentPlayer())]) showComputersHands();
    frame_->move(m.selectionFrameLeft(), frame_->y());
    for (int k = 0; k < game::kKinds; ++k) {
        const auto kind = static_cast<game::ProjectileKind>(k);
        ui::CanvasWidget* s = selectors_[static_cast<std::size_t>(k)];
        s->move(m.selectorLeft(kind), kSelectorTop);
        s->setVisible(m.selectorShown(kind));
    }
    setText(fragLimit_, QString::number(m.settings().fragLimit));
    setText(round_, QString::number(m.round()));
    setText(left_, QString::number(m.leftScore()));
    setText(right_, QString::number(m.rightScore()));
}

void MatchStrip::focusAngle() { angle_->setFocus(); }

void MatchStrip::showComputersHands() {
    const computer::Autopilot::Hands hands = pilot_.hands(match_);
    // The keyboard follows its typing: the box it fills is the one in focus.
    using Box = computer::Autopilot::Box;
    if (hands.typingInto != Box::None) {
        QLineEdit* box = hands.typingInto == Box::Angle ? angle_ : velocity_;
        if (window()->focusWidget() != box) box->setFocus();
    }
    // Throw held down looks like a person's press, not like a greyed-out button; a click on it
    // then still throws nothing for the computer.
    if (hands.throwDown) throw_->setEnabled(true);
    if (throw_->isDown() != hands.throwDown) throw_->setDown(hands.throwDown);
}

bool MatchStrip::computersTurn() const {
    const int current = match_.currentPlayer();
    return match_.computer(current).has_value() || !local_[static_cast<std::size_t>(current)];
}

}  // namespace screens
