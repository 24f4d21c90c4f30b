#include "screens/frmPlayer.h"

#include <QDir>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <algorithm>

#include "match/frmGrumbo.h"
#include "media/Transparency.h"
#include "modmain/modMain.h"
#include "screens/FrontEnd.h"
#include "screens/frmSetup.h"
#include "ui/ArrowControl.h"
#include "ui/MessageBox.h"
#include "ui/PictureBox.h"
#include "ui/Program.h"
#include "ui/ScreenLook.h"

using namespace modMain;

namespace {
constexpr int kWidth = 240, kHeight = 229;
constexpr int kNameLength = 15;
constexpr int kEnter = 13;
constexpr int kMinWidth = 30, kMaxWidth = 80, kMinHeight = 35, kMaxHeight = 150;
// Never listed by the scan; typing the secret name (in any case) adds them.
const QString kDunik = QStringLiteral("Dunik");
const QString kVostrel = QStringLiteral("Vostrel");

QString CharacterFolder() { return DataFile(QStringLiteral("characters")); }
QString CharacterFile(const QString& file) { return CharacterFolder() + QLatin1Char('/') + file; }

QString CharacterSound(const QString& name) {
    static const std::pair<const char*, const char*> sounds[] = {{"Classic Grumbo", "classicG"},
                                                                 {"Rapper Grumbo", "rapperG"},
                                                                 {"Robo Grumbo", "roboG"},
                                                                 {"Sorcerer Grumbo", "sorcererG"},
                                                                 {"Space Grumbo", "spaceG"},
                                                                 {"Suit Grumbo", "suitG"},
                                                                 {"Dunik", "dunikG"},
                                                                 {"Vostrel", "vostrelG"}};
    for (const auto& [character, sound] : sounds)
        if (name == QLatin1String(character))
            return DataFile(QStringLiteral("sounds/%1.wav").arg(QLatin1String(sound)));
    return QString();
}

// The bitmaps of the folder in alphabetical order, ignoring case (hidden files are left out).
QStringList ListBitmaps() {
    QStringList files =
        QDir(CharacterFolder()).entryList({QStringLiteral("*.bmp")}, QDir::Files, QDir::NoSort);
    std::sort(files.begin(), files.end(), [](const QString& a, const QString& b) {
        const int c = a.compare(b, Qt::CaseInsensitive);
        return c != 0 ? c < 0 : a < b;
    });
    return files;
}

// The pose files must follow the standing picture: base + "1.bmp" somewhere after it, and
// base + "2.bmp" after that.
bool HasBothPoses(const QStringList& files, qsizetype at, const QString& base) {
    const qsizetype one = files.indexOf(base + QStringLiteral("1.bmp"), at + 1);
    return one >= 0 && files.indexOf(base + QStringLiteral("2.bmp"), one + 1) >= 0;
}
}  // namespace

frmPlayer::frmPlayer() : ui::Form(kWidth, kHeight, ui::FrontEndFlags()) {}

frmPlayer& frmPlayer::Instance() {
    static frmPlayer f;
    return f;
}

void frmPlayer::CreateControls(QWidget* window) {
    background_ = ui::WindowColour();
    frontend::PrepareWindow(window, background_);

    txtPname = new QLineEdit(window);
    txtPname->setGeometry(61, 12, 113, 18);
    txtPname->setAlignment(Qt::AlignCenter);
    txtPname->setMaxLength(kNameLength);
    ui::OnKeyPress(txtPname, [this](ui::CharCode& key) { txtPname_KeyPress(key); });

    imgPlayer = new ui::PictureBox(window, QStringLiteral("imgPlayer"), 0, 0, 1, 1, background_);

    // Only the bar's two arrow buttons show, left and right of the name; the name box keeps the
    // keyboard focus when they are clicked, so the players can go on typing.
    FlatScroll = new ui::ArrowControl(window, Qt::Horizontal, 50, 175, 145, 20, 12);
    FlatScroll->setFocusPolicy(Qt::TabFocus);
    FlatScroll->OnChange([this] { FlatScroll_Change(); });

    txtName = frontend::MakeDisplayBox(window, 62, 176, 121, 19, QString());
    txtName->setAlignment(Qt::AlignCenter);
    ui::SetBackColour(txtName, ui::ButtonFaceColour());
    QObject::connect(txtName, &QLineEdit::textChanged, [this] { txtName_Change(); });

    cmdBack = new QPushButton(QStringLiteral("Back"), window);
    cmdBack->setGeometry(66, 203, 57, 20);
    cmdOk = new QPushButton(QStringLiteral("Next"), window);
    cmdOk->setGeometry(123, 203, 57, 20);
    QObject::connect(cmdBack, &QPushButton::clicked, [this] { cmdBack_Click(); });
    QObject::connect(cmdOk, &QPushButton::clicked, [this] { cmdOk_Click(); });

    lblNoCharacters = new QLabel(window);
    lblNoCharacters->setGeometry(4, kHeight / 2 - 8, kWidth - 8, 16);
    lblNoCharacters->setAlignment(Qt::AlignCenter);
    lblNoCharacters->hide();
    txtPname->setFocus();
}

void frmPlayer::Form_Load() {
    blnBackToSetup = false;
    PlaySoundFile(CharacterSound(QStringLiteral("Classic Grumbo")));
    ScanCharacters();
    if (intCharacterCount == 0) ShowNoCharacters();
    else {
        ShowPreview(strCharacterList[0]);
        // The loading's only sound is the one above.
        const QSignalBlocker quiet(txtName);
        txtName->setText(strCharacterList[0]);
    }
    FlatScroll->SetMax(intCharacterCount - 1);
    SetCaption(QStringLiteral("Player 1"));
}

void frmPlayer::ScanCharacters() {
    intCharacterCount = 0;
    const QStringList files = ListBitmaps();
    for (qsizetype i = 0; i < files.size(); ++i) {
        if (intCharacterCount == static_cast<int>(strCharacterList.size())) break;
        const QString base = files[i].section(QLatin1Char('.'), 0, 0);
        if (base == kDunik || base == kVostrel) continue;
        if (!HasBothPoses(files, i, base)) continue;
        QStringList pictures{files[i], base + QStringLiteral("1.bmp"),
                             base + QStringLiteral("2.bmp")};
        // The preview and the match load the standing picture by the character's name; a file
        // listed under another spelling ("X.BMP", "X.old.bmp") is only a character with it.
        if (files[i] != base + QStringLiteral(".bmp")) pictures << base + QStringLiteral(".bmp");
        if (!std::all_of(pictures.begin(), pictures.end(),
                         [this](const QString& f) { return FitsTheLimits(f); }))
            continue;
        strCharacterList[intCharacterCount] = base;
        ++intCharacterCount;
    }
}

bool frmPlayer::FitsTheLimits(const QString& file) {
    // A bitmap that cannot be read fails like one of the wrong size.
    if (!picPreload.Load(CharacterFile(file))) return false;
    const int w = picPreload.Width(), h = picPreload.Height();
    return w >= kMinWidth && w <= kMaxWidth && h >= kMinHeight && h <= kMaxHeight;
}

void frmPlayer::ShowPreview(const QString& name) {
    if (!imgPlayer->LoadPicture(CharacterFile(name + QStringLiteral(".bmp"))))
        imgPlayer->ClearPicture();
    const int w = imgPlayer->Width(), h = imgPlayer->Height();
    imgPlayer->Move(grumbo::CInt(kWidth / 2.0 - w / 2.0), grumbo::CInt(kHeight / 2.0 - h / 2.0));
    media::MakeTransparent(*imgPlayer, 0, 0, w, h, background_);
}

void frmPlayer::ShowNoCharacters() {
    // Nothing to choose, so no match can start: the screen says why, and only "Back" and the
    // close box do anything.
    imgPlayer->hide();
    FlatScroll->setEnabled(false);
    const QString text =
        QStringLiteral("No characters in %1").arg(QDir::toNativeSeparators(CharacterFolder()));
    lblNoCharacters->setText(QFontMetrics(lblNoCharacters->font())
                                 .elidedText(text, Qt::ElideMiddle, lblNoCharacters->width()));
    lblNoCharacters->setToolTip(text);
    lblNoCharacters->show();
}

void frmPlayer::FlatScroll_Change() {
    const QString& name = strCharacterList[FlatScroll->Value()];
    ShowPreview(name);
    txtName->setText(name);
}

void frmPlayer::txtName_Change() {
    const QString sound = CharacterSound(txtName->text());
    if (!sound.isEmpty()) PlaySoundFile(sound);
}

void frmPlayer::Unlock(const QString& name) {
    const int top = FlatScroll->Max() + 1;
    // Without any character there is nothing to unlock into; past the last entry of the list
    // the secret name simply stays typed.
    if (intCharacterCount == 0 || top >= static_cast<int>(strCharacterList.size())) return;
    FlatScroll->SetMax(top);
    strCharacterList[top] = name;
    FlatScroll->SetValue(top);
}

void frmPlayer::txtPname_KeyPress(ui::CharCode& KeyAscii) {
    const QString candidate = (txtPname->text() + QChar(KeyAscii)).toLower();
    if (candidate == kDunik.toLower()) Unlock(kDunik);
    if (candidate == kVostrel.toLower()) Unlock(kVostrel);
    if (KeyAscii == kEnter) cmdOk_Click();
}

void frmPlayer::NextPlayer(int player) {
    SetCaption(QStringLiteral("Player %1").arg(player + 1));
    txtPname->clear();
    txtPname->setFocus();
}

void frmPlayer::cmdOk_Click() {
    if (intCharacterCount == 0) return;
    if (txtPname->text().isEmpty()) {
        ui::MsgBox(QStringLiteral("Enter a player name"), frontend::GameTitle());
        return;
    }
    const int k = Caption().back().digitValue() - 1;
    if (k < 0 || k > 3) return;
    strPlayerName[k] = txtPname->text();
    strCharacter[k] = txtName->text();
    const bool lastPlayer = k == 3 || (k == 1 && intGameType == 1);
    if (lastPlayer) Unload();
    else NextPlayer(k + 1);
}

void frmPlayer::cmdBack_Click() {
    frmSetup::Instance().Show();
    window()->hide();
    SetCaption(QStringLiteral("Player 1"));
    txtPname->clear();
    blnBackToSetup = true;
}

void frmPlayer::Form_Unload(bool&) {
    // Entries left from an earlier match count as chosen.
    const int players = intGameType == 1 ? 2 : 4;
    const bool everyoneChose = std::none_of(strCharacter.begin(), strCharacter.begin() + players,
                                            [](const QString& c) { return c.isEmpty(); });
    if (everyoneChose) frmGrumbo::Instance().Show();
    else ui::EndProgram();
}
