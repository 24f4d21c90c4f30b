#include "screens/frmCredits.h"

#include <QFile>
#include <QTextStream>
#include <algorithm>

#include "modmain/modMain.h"
#include "screens/frmSplash.h"
#include "ui/Fonts.h"
#include "ui/ScreenLook.h"
#include "ui/Text.h"

namespace {
constexpr int kScreenWidth = 530, kScreenHeight = 351;
constexpr int kBufferWidth = 507;
// Black space below the text, so the last line scrolls out before the end is announced.
constexpr int kBufferMargin = 150;
constexpr int kMaxBufferHeight = 16384;
constexpr int kLineGap = 3;
constexpr int kScrollMs = 25;
const std::int32_t kLightGrey = ui::RGB(224, 224, 224);
const std::int32_t kBlack = ui::RGB(0, 0, 0);

QFont BufferFont() { return ui::Tahoma(ui::kLargeText); }
}  // namespace

frmCredits::frmCredits() : ui::Form(kScreenWidth, kScreenHeight, ui::FrontEndFlags()) {}

frmCredits& frmCredits::Instance() {
    static frmCredits f;
    return f;
}

void frmCredits::CreateControls(QWidget* window) {
    SetCaption(QStringLiteral("Grumbo Credits"));
    window->setFont(ui::Tahoma(ui::kSmallText));
    picScreen = new ui::PictureBox(window, QStringLiteral("frmCredits"), 0, 0, kScreenWidth,
                                   kScreenHeight, kBlack);
    tmrCredits.SetEnabled(false);
    OnTimer(tmrCredits, [this] { tmrCredits_Timer(); });
    ui::OnKeyPress(window, [this](ui::CharCode& KeyAscii) { Form_KeyPress(KeyAscii); });
}

void frmCredits::Form_Load() {
    ReadCredits();
    lngScrollLeft = 0;
    lngScrollTop = kScreenHeight;
    lngBufferHeight = picCredits.Height();
    lngBufferWidth = picCredits.Width();
    tmrCredits.SetEnabled(true);
    tmrCredits.SetInterval(kScrollMs);
}

void frmCredits::ReadCredits() {
    // A missing or unreadable file scrolls like an empty one: nothing but the black margin, then
    // the end of the credits.
    QFile file(modMain::DataFile(QStringLiteral("Credits.txt")));
    const bool open = file.open(QIODevice::ReadOnly | QIODevice::Text);
    QTextStream in(&file);
    strCreditLine = open ? in.readLine() : QString();
    const int h = ui::TextHeight(BufferFont(), QStringLiteral("Test Height"));
    // A line count far beyond any credits would ask for a buffer of gigabytes; it is capped,
    // and a negative one counts as none.
    const double lines =
        std::clamp(grumbo::Val(strCreditLine), 0.0, double(kMaxBufferHeight - kBufferMargin) / h);
    picCredits = ui::Surface(kBufferWidth, grumbo::CInt(lines * h) + kBufferMargin, kBlack);
    CurrentY = 0;
    while (open && !in.atEnd()) {
        strCreditLine = in.readLine();
        PrintText(strCreditLine);
    }
}

void frmCredits::PrintText(const QString& text) {
    const QFont font = BufferFont();
    const int x = grumbo::CInt(picCredits.Width() / 2.0 - ui::TextWidth(font, text) / 2.0);
    const int y = CurrentY;
    ui::PrintText(picCredits, x + kLineGap, y + kLineGap, text, font, kLightGrey);
    CurrentY = y + kLineGap + ui::TextHeight(font, text);
}

void frmCredits::tmrCredits_Timer() {
    picScreen->surface().Blit(picCredits, lngScrollLeft, lngScrollTop);
    picScreen->Changed();
    lngScrollTop -= 1;
    if (lngScrollTop < -lngBufferHeight) {
        tmrCredits.SetEnabled(false);
        const QString done = QStringLiteral("Credits Completed");
        const QFont font = ui::Tahoma(ui::kSmallText);
        const int x = grumbo::CInt((kScreenWidth - ui::TextWidth(font, done)) / 2.0);
        const int y = grumbo::CInt(kScreenHeight / 2.0);
        ui::PrintText(picScreen->surface(), x, y, done, font, kLightGrey);
        picScreen->update();
    }
}

void frmCredits::Form_KeyPress(ui::CharCode& KeyAscii) {
    if (KeyAscii == ' ' || KeyAscii == 27 || KeyAscii == '\r') Unload();
}

void frmCredits::Form_Unload(bool& cancel) {
    (void)cancel;
    tmrCredits.SetEnabled(false);
    frmSplash::Instance().Show();
}
