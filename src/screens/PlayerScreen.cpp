#include "screens/PlayerScreen.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QValidator>
#include <algorithm>

#include "core/Numbers.h"
#include "core/Transparency.h"
#include "game/Characters.h"
#include "game/Names.h"
#include "screens/Characters.h"
#include "screens/FrontEnd.h"
#include "screens/Pictures.h"
#include "ui/ArrowControl.h"
#include "ui/CanvasWidget.h"
#include "ui/Input.h"
#include "ui/MessageBox.h"
#include "ui/OwnedBox.h"
#include "ui/ScreenLook.h"

namespace screens {

namespace {
// The screen grew a row at the bottom for the seat, and another below it for a seat played at
// another computer; the character is shown in the middle of the part above them. The joiner's
// page has no use for the last row and goes without it.
constexpr int kWidth = 240, kHeight = 255, kPreviewHeight = 229, kNetworkRow = 20;
constexpr char16_t kEnter = 13;

QString caption(int pass) { return QStringLiteral("Player %1").arg(pass + 1); }

// Names are counted in the characters a player sees, and no line break or control character gets
// into one, typed or pasted.
class NameValidator : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& input, int& pos) const override {
        input = game::tidyName(input);
        pos = std::min(pos, static_cast<int>(input.size()));
        return Acceptable;
    }
};
}  // namespace

PlayerScreen::PlayerScreen(const core::DataFolder& data, media::Sound& sound)
    : ui::Window(kWidth, kHeight, ui::frontEndFlags()),
      data_(data),
      sound_(sound),
      background_(ui::windowColour()) {
    prepareWindow(this, background_);
    nameBox = new QLineEdit(this);
    nameBox->setGeometry(61, 12, 113, 18);
    nameBox->setAlignment(Qt::AlignCenter);
    nameBox->setValidator(new NameValidator(nameBox));
    ui::onKeyPress(nameBox, [this](ui::CharCode& key) { typed(key); });
    preview = new ui::CanvasWidget(this, 0, 0, core::Canvas(1, 1, background_));
    // Only the bar's two arrow buttons show, left and right of the name; the name box keeps the
    // keyboard focus when they are clicked, so the players can go on typing.
    browser = new ui::ArrowControl(this, Qt::Horizontal, 50, 175, 145, 20, 12);
    browser->setFocusPolicy(Qt::TabFocus);
    browser->onChange([this] {
        const QString& name = list_[browser->value()];
        showPreview(name);
        characterBox->setText(name);
    });
    characterBox = makeDisplayBox(this, 62, 176, 121, 19, QString());
    characterBox->setAlignment(Qt::AlignCenter);
    ui::setBackColour(characterBox, ui::buttonFaceColour());
    QObject::connect(characterBox, &QLineEdit::textChanged, this, [this](const QString& name) {
        const QString s = game::chosenSound(name);
        if (!s.isEmpty()) sound_.playEffect(data_.path(s));
    });
    backButton = new QPushButton(QStringLiteral("Back"), this);
    backButton->setGeometry(66, 203, 57, 20);
    nextButton = new QPushButton(QStringLiteral("Next"), this);
    nextButton->setGeometry(123, 203, 57, 20);
    QObject::connect(backButton, &QPushButton::clicked, this, [this] { back(); });
    QObject::connect(nextButton, &QPushButton::clicked, this, [this] { next(); });
    noCharacters_ = new QLabel(this);
    noCharacters_->setGeometry(4, 40, kWidth - 8, 128);
    noCharacters_->setAlignment(Qt::AlignCenter);
    noCharacters_->hide();
    createSeat();
    nameBox->setFocus();

    sound_.playEffect(data_.path(game::chosenSound(QLatin1String(game::kKnownCharacters[0].name))));
    list_ = scanCharacters(data_);
    if (list_.isEmpty()) {
        showNoCharacters();
    } else {
        showPreview(list_[0]);
        // The screen's only sound as it opens is the one above.
        const QSignalBlocker quiet(characterBox);
        characterBox->setText(list_[0]);
    }
    browser->setMax(static_cast<int>(list_.size()) - 1);
    // Once the list is known: whether the name box opens depends on it.
    showSeat();
    setWindowTitle(caption(0));
}

void PlayerScreen::createSeat() {
    computerBox = new QCheckBox(QStringLiteral("Computer"), this);
    computerBox->setGeometry(48, 230, 76, 20);
    skillBox = new QComboBox(this);
    skillBox->setGeometry(126, 230, 66, 20);
    // In the order of the skills, so that an item's index is its skill.
    skillBox->addItems({QStringLiteral("Easy"), QStringLiteral("Normal"), QStringLiteral("Hard")});
    // Clicking them leaves the keyboard with the name box.
    computerBox->setFocusPolicy(Qt::TabFocus);
    skillBox->setFocusPolicy(Qt::TabFocus);
    QObject::connect(computerBox, &QCheckBox::toggled, skillBox, &QWidget::setEnabled);
    QObject::connect(computerBox, &QCheckBox::toggled, this, [this] { offerUnworn(); });
    networkBox = new QCheckBox(QStringLiteral("Network"), this);
    networkBox->setGeometry(48, 250, 76, 20);
    networkBox->setFocusPolicy(Qt::TabFocus);
    // A seat is played here by a person, here by the computer, or elsewhere: never two of them.
    QObject::connect(computerBox, &QCheckBox::toggled, this, [this](bool on) {
        if (on) networkBox->setChecked(false);
    });
    QObject::connect(networkBox, &QCheckBox::toggled, this, [this](bool on) {
        if (on) computerBox->setChecked(false);
        showRemote(on);
    });
    fitRows(true);
}

void PlayerScreen::fitRows(bool withNetworkRow) {
    networkBox->setVisible(withNetworkRow);
    setFixedSize(kWidth, kHeight + (withNetworkRow ? kNetworkRow : 0));
}

void PlayerScreen::showRemote(bool remote) {
    // The name and character are chosen at the other computer. Without any character the boxes
    // stay closed whatever the seat.
    const bool open = !remote && !list_.isEmpty();
    nameBox->setEnabled(open);
    browser->setEnabled(open);
    characterBox->setEnabled(!remote);
    // Also when the screen comes back after "Back": the button that was clicked last keeps the
    // keyboard otherwise.
    if (open) nameBox->setFocus();
}

void PlayerScreen::offerUnworn() {
    // The computer looks like nobody else in the match, while there are characters enough; a
    // person may still browse it to any other.
    if (computerBox->isChecked()) chooseUnworn();
}

void PlayerScreen::chooseUnworn() {
    if (!worn_.contains(characterBox->text())) return;
    for (int i = 0; i < list_.size(); ++i) {
        if (worn_.contains(list_[i])) continue;
        browser->setValue(i);
        return;
    }
}

void PlayerScreen::showSeat() {
    const auto at = static_cast<std::size_t>(pass_);
    const Seat& seat = seats_[at];
    // A seat given both to the computer and to another computer is played elsewhere: that
    // player is waiting to join.
    const bool remote = remote_[at] && !joiner_;
    computerBox->setChecked(seat.has_value() && !remote);
    networkBox->setChecked(remote);
    showRemote(remote);
    skillBox->setCurrentIndex(static_cast<int>(seat.value_or(game::kUsualSkill)));
    skillBox->setEnabled(computerBox->isChecked());
    offerUnworn();
}

void PlayerScreen::begin(int players, const std::array<Seat, 4>& seats,
                         const std::array<bool, 4>& remote) {
    players_ = players;
    seats_ = seats;
    remote_ = remote;
    joiner_ = false;
    fitRows(true);
    worn_.clear();
    pass_ = 0;
    showSeat();
}

void PlayerScreen::beginJoiner(int seat, const QStringList& wornElsewhere) {
    joiner_ = true;
    fitRows(false);
    pass_ = std::clamp(seat, 0, 3);
    seats_ = {};
    remote_ = {};
    worn_ = wornElsewhere;
    setWindowTitle(caption(pass_));
    nameBox->clear();
    showSeat();
    // He joins a match whose other players have chosen already: he first sees a character of his
    // own, and may still browse to any.
    chooseUnworn();
    nameBox->setFocus();
}

void PlayerScreen::showPreview(const QString& character) {
    QImage image;
    core::Canvas picture =
        readPicture(data_.path(QStringLiteral("characters/") + character + QStringLiteral(".bmp")),
                    kCharacterPicture, image)
            ? core::Canvas(image)
            : core::Canvas(preview->width(), preview->height(), background_);
    core::makeTransparent(picture, [this](int, int) { return background_; });
    preview->setCanvas(picture);
    preview->move(core::roundHalfEven(kWidth / 2.0 - picture.width() / 2.0),
                  core::roundHalfEven(kPreviewHeight / 2.0 - picture.height() / 2.0));
}

void PlayerScreen::showNoCharacters() {
    // Nothing to choose, so no match can start: the screen says why and what a character needs,
    // and leaves "Back" and the close box as the ways out (the boxes stay closed with the seat).
    preview->hide();
    nextButton->setEnabled(false);
    const QString folder = QDir::toNativeSeparators(data_.path(QStringLiteral("characters")));
    noCharacters_->setText(
        QStringLiteral("No complete character in\n%1\n\nA character is three pictures:\n"
                       "Name.bmp, Name1.bmp and Name2.bmp,\neach 30 to 80 pixels wide\n"
                       "and 35 to 150 pixels high.")
            .arg(QFontMetrics(noCharacters_->font())
                     .elidedText(folder, Qt::ElideMiddle, noCharacters_->width())));
    noCharacters_->setToolTip(folder);
    noCharacters_->show();
}

void PlayerScreen::unlock(const QString& hidden) {
    // Past the last place of the list the secret name simply stays typed. (Without any character
    // the name box is closed, so nothing is ever unlocked into an empty list.)
    if (list_.size() >= kMostCharacters) return;
    list_ << hidden;
    browser->setMax(static_cast<int>(list_.size()) - 1);
    browser->setValue(browser->max());
}

void PlayerScreen::typed(char16_t key) {
    const QString hidden = game::unlockedBy(nameBox->text() + QChar(key));
    if (!hidden.isEmpty()) unlock(hidden);
    if (key == kEnter) next();
}

void PlayerScreen::next() {
    if (list_.isEmpty()) return;
    if (networkBox->isChecked() && !joiner_) {
        // The name comes from the other computer; nothing is typed or worn here.
        if (onChosen) onChosen({pass_, QString(), QString(), std::nullopt, true});
        nextPass();
        return;
    }
    const Seat seat = computerBox->isChecked()
                          ? Seat(static_cast<game::Skill>(skillBox->currentIndex()))
                          : std::nullopt;
    if (nameBox->text().isEmpty()) {
        if (!seat) {
            ui::showMessage(QStringLiteral("Enter a player name"), gameTitle());
            // The name is what is missing: the keyboard goes back to its box, also from a click
            // on "Next" and from a window system that activated another window when the message
            // closed.
            ui::giveFocus(this);
            nameBox->setFocus();
            return;
        }
        // The computer needs no name of its own: it goes by its seat.
        nameBox->setText(QStringLiteral("Computer %1").arg(pass_ + 1));
    }
    if (onChosen) onChosen({pass_, nameBox->text(), characterBox->text(), seat});
    worn_ << characterBox->text();
    nextPass();
}

void PlayerScreen::nextPass() {
    if (joiner_ || pass_ == players_ - 1) {
        if (onDone) onDone();
        return;
    }
    setWindowTitle(caption(++pass_));
    nameBox->clear();
    showSeat();
    nameBox->setFocus();
}

void PlayerScreen::back() {
    if (joiner_) {
        // The joiner's one pass stays his seat's, should he come back to it.
        nameBox->clear();
        if (onBack) onBack();
        return;
    }
    pass_ = 0;
    worn_.clear();
    setWindowTitle(caption(0));
    nameBox->clear();
    showSeat();
    if (onBack) onBack();
}

}  // namespace screens
