#include "screens/PlayerScreen.h"

#include <QDir>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include "core/Numbers.h"
#include "core/Transparency.h"
#include "screens/Characters.h"
#include "screens/FrontEnd.h"
#include "screens/Pictures.h"
#include "ui/ArrowControl.h"
#include "ui/CanvasWidget.h"
#include "ui/Input.h"
#include "ui/MessageBox.h"
#include "ui/ScreenLook.h"

namespace screens {

namespace {
constexpr int kWidth = 240, kHeight = 229;
constexpr int kNameLength = 15;
constexpr char16_t kEnter = 13;

QString caption(int pass) { return QStringLiteral("Player %1").arg(pass + 1); }
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
    nameBox->setMaxLength(kNameLength);
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
        const QString s = characterSound(name);
        if (!s.isEmpty()) sound_.playEffect(data_.path(s));
    });
    auto* backButton = new QPushButton(QStringLiteral("Back"), this);
    backButton->setGeometry(66, 203, 57, 20);
    auto* nextButton = new QPushButton(QStringLiteral("Next"), this);
    nextButton->setGeometry(123, 203, 57, 20);
    QObject::connect(backButton, &QPushButton::clicked, this, [this] { back(); });
    QObject::connect(nextButton, &QPushButton::clicked, this, [this] { next(); });
    noCharacters_ = new QLabel(this);
    noCharacters_->setGeometry(4, kHeight / 2 - 8, kWidth - 8, 16);
    noCharacters_->setAlignment(Qt::AlignCenter);
    noCharacters_->hide();
    nameBox->setFocus();

    sound_.playEffect(data_.path(characterSound(QStringLiteral("Classic Grumbo"))));
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
    setWindowTitle(caption(0));
}

void PlayerScreen::begin(int players) { players_ = players; }

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
                  core::roundHalfEven(kHeight / 2.0 - picture.height() / 2.0));
}

void PlayerScreen::showNoCharacters() {
    // Nothing to choose, so no match can start: the screen says why, and only "Back" and the
    // close box do anything.
    preview->hide();
    browser->setEnabled(false);
    const QString text =
        QStringLiteral("No characters in %1")
            .arg(QDir::toNativeSeparators(data_.path(QStringLiteral("characters"))));
    noCharacters_->setText(QFontMetrics(noCharacters_->font())
                               .elidedText(text, Qt::ElideMiddle, noCharacters_->width()));
    noCharacters_->setToolTip(text);
    noCharacters_->show();
}

void PlayerScreen::unlock(const QString& hidden) {
    // Without any character there is nothing to unlock into; past the last place of the list the
    // secret name simply stays typed.
    if (list_.isEmpty() || list_.size() >= kMostCharacters) return;
    list_ << hidden;
    browser->setMax(static_cast<int>(list_.size()) - 1);
    browser->setValue(browser->max());
}

void PlayerScreen::typed(char16_t key) {
    const QString hidden = unlockedBy(nameBox->text() + QChar(key));
    if (!hidden.isEmpty()) unlock(hidden);
    if (key == kEnter) next();
}

void PlayerScreen::next() {
    if (list_.isEmpty()) return;
    if (nameBox->text().isEmpty()) {
        ui::showMessage(QStringLiteral("Enter a player name"), gameTitle());
        return;
    }
    if (onChosen) onChosen(pass_, nameBox->text(), characterBox->text());
    if (pass_ == players_ - 1) {
        if (onDone) onDone();
        return;
    }
    setWindowTitle(caption(++pass_));
    nameBox->clear();
    nameBox->setFocus();
}

void PlayerScreen::back() {
    pass_ = 0;
    setWindowTitle(caption(0));
    nameBox->clear();
    if (onBack) onBack();
}

}  // namespace screens
