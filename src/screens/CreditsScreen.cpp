#include "screens/CreditsScreen.h"

#include <QTextStream>
#include <algorithm>

#include "core/DataFile.h"
#include "core/Numbers.h"
#include "ui/CanvasWidget.h"
#include "ui/Fonts.h"
#include "ui/Input.h"
#include "ui/ScreenLook.h"
#include "ui/Text.h"

namespace screens {

namespace {
constexpr int kScreenWidth = 530, kScreenHeight = 351;
constexpr int kBufferWidth = 507;
// Black space below the text, so the last line scrolls out before the end is announced.
constexpr int kBufferMargin = 150;
constexpr int kMaxBufferHeight = 16384;
constexpr int kLineGap = 3;
constexpr int kScrollMs = 25;
constexpr core::Colour kLightGrey{224, 224, 224};

QFont bufferFont() { return ui::tahoma(ui::kLargeText); }
}  // namespace

CreditsScreen::CreditsScreen(const core::DataFolder& data)
    : ui::Window(kScreenWidth, kScreenHeight, ui::frontEndFlags()),
      scrollTop_(kScreenHeight),
      scrolling_(kScrollMs, [this] { scroll(); }) {
    setWindowTitle(QStringLiteral("Grumbo Credits"));
    setFont(ui::tahoma(ui::kSmallText));
    screen_ =
        new ui::CanvasWidget(this, 0, 0, core::Canvas(kScreenWidth, kScreenHeight, core::kBlack));
    ui::onKeyPress(this, [this](ui::CharCode& key) {
        if ((key == u' ' || key == 27 || key == u'\r') && onLeave) onLeave();
    });
    readCredits(data);
    scrolling_.setEnabled(true);
}

void CreditsScreen::readCredits(const core::DataFolder& data) {
    // A missing or unusable file scrolls like an empty one: nothing but the black margin, then
    // the end of the credits.
    QTextStream in(
        core::readDataFileOrWarn(data.path(QStringLiteral("Credits.txt")), core::limit::kCredits)
            .value_or(QByteArray()));
    const QString first = in.readLine();
    const int h = ui::lineHeight(bufferFont());
    // A line count far beyond any credits would ask for a buffer of gigabytes; it is capped, and a
    // negative one counts as none.
    const double lines =
        std::clamp(core::leadingNumber(first), 0.0, double(kMaxBufferHeight - kBufferMargin) / h);
    buffer_ =
        core::Canvas(kBufferWidth, core::roundHalfEven(lines * h) + kBufferMargin, core::kBlack);
    while (!in.atEnd()) print(in.readLine());
}

void CreditsScreen::print(const QString& line) {
    // Centred three pixels right of the middle, each line three pixels below the one before.
    const QFont font = bufferFont();
    const int x = core::roundHalfEven(buffer_.width() / 2.0 - ui::textWidth(font, line) / 2.0);
    ui::printText(buffer_, x + kLineGap, printedTo_ + kLineGap, line, font, kLightGrey);
    printedTo_ += kLineGap + ui::lineHeight(font);
}

void CreditsScreen::scroll() {
    core::Canvas& shown = screen_->draw();
    shown.blit(buffer_, 0, scrollTop_);
    scrollTop_ -= 1;
    if (scrollTop_ < -buffer_.height()) {
        scrolling_.setEnabled(false);
        const QString done = QStringLiteral("Credits Completed");
        const QFont font = ui::tahoma(ui::kSmallText);
        ui::printText(shown, core::roundHalfEven((kScreenWidth - ui::textWidth(font, done)) / 2.0),
                      core::roundHalfEven(kScreenHeight / 2.0), done, font, kLightGrey);
    }
}

}  // namespace screens
