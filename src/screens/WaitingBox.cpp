#include "screens/WaitingBox.h"

#include <QLabel>
#include <QPushButton>

#include "core/Numbers.h"
#include "screens/FrontEnd.h"
#include "ui/Fonts.h"
#include "ui/Labels.h"
#include "ui/ScreenLook.h"

namespace screens {

namespace {
constexpr int kWidth = 260, kMargin = 10, kValueLeft = 100, kRow = 15, kGap = 8;
constexpr int kButtonWidth = 57, kButtonHeight = 21;

QString onOff(bool on) { return on ? QStringLiteral("On") : QStringLiteral("Off"); }

// An IPv6 address goes in brackets, so that its port cannot be read as one more group of it.
QString withPort(const QString& address, quint16 port) {
    const bool v6 = address.contains(QLatin1Char(':'));
    return (v6 ? QLatin1Char('[') + address + QLatin1Char(']') : address) + QLatin1Char(':') +
           QString::number(port);
}
}  // namespace

std::vector<std::pair<QString, QString>> settingsLines(const game::MatchSettings& s) {
    // Gravity in tenths, a whole number without its ".0", as the setup screen writes it.
    const int tenths = core::roundHalfEven(s.gravity * 10);
    const QString gravity = tenths % 10 == 0
                                ? QString::number(tenths / 10)
                                : QStringLiteral("%1.%2").arg(tenths / 10).arg(tenths % 10);
    QString time;
    switch (s.timeOfDay) {
        case game::TimeOfDay::Day: time = QStringLiteral("Day"); break;
        case game::TimeOfDay::Night: time = QStringLiteral("Night"); break;
        case game::TimeOfDay::Random: time = QStringLiteral("Random"); break;
    }
    const bool single = s.gameType == game::GameType::OneVsOne;
    return {
        {QStringLiteral("Gravity Level"), gravity},
        {QStringLiteral("Game Type"), single ? QStringLiteral("1 vs 1") : QStringLiteral("2 vs 2")},
        {QStringLiteral("Time of Day"), time},
        {QStringLiteral("Frag Limit"), QString::number(s.fragLimit)},
        {QStringLiteral("Wind Extremity"), QString::number(s.windExtremity)},
        {QStringLiteral("Building Height"), QString::number(s.buildingHeight)},
        {QStringLiteral("Wind Gusts"), onOff(s.windGusts)},
        {QStringLiteral("Music"), onOff(s.music)},
    };
}

WaitingBox::WaitingBox(QWidget* owner) : ui::Window(kWidth, 100, ui::frontEndFlags(), owner) {
    setWindowTitle(gameTitle());
    prepareWindow(this, ui::windowColour());
    cancelButton = new QPushButton(QStringLiteral("Cancel"), this);
    QObject::connect(cancelButton, &QPushButton::clicked, this, [this] { cancel(); });
    onClose = [this] { cancel(); };
    arrange();
}

void WaitingBox::setAddress(const QStringList& addresses, quint16 port) {
    addresses_.clear();
    for (const QString& a : addresses) addresses_ << withPort(a, port);
    arrange();
}

void WaitingBox::setCode(const QString& code) {
    code_ = code;
    arrange();
}

void WaitingBox::setSeat(int seat, const QString& text) {
    if (seat < 0 || seat >= static_cast<int>(seats_.size())) return;
    seats_[static_cast<std::size_t>(seat)] = text;
    arrange();
}

void WaitingBox::setMessage(const QString& text) {
    message_ = text;
    arrange();
}

void WaitingBox::setSettings(const game::MatchSettings& settings) {
    settings_.clear();
    for (const auto& [name, value] : settingsLines(settings)) settings_.push_back({name, value});
    arrange();
}

QStringList WaitingBox::lines() const {
    QStringList all;
    for (std::size_t i = 0; i < shown_.size(); ++i) {
        const QLabel* l = shown_[i];
        // A value's label follows its name's on the same row.
        if (i > 0 && shown_[i - 1]->y() == l->y()) all.last() += QStringLiteral(": ") + l->text();
        else all << l->text();
    }
    return all;
}

void WaitingBox::cancel() {
    if (onCancel) onCancel();
}

void WaitingBox::arrange() {
    // The parts given so far stack from the top in groups, and the box is as high as they need.
    std::vector<std::vector<Line>> groups(4);
    if (!message_.isEmpty()) groups[0].push_back({message_, {}});
    if (!addresses_.isEmpty())
        groups[1].push_back({QStringLiteral("Give the other players this address and code"), {}});
    for (const QString& a : addresses_) groups[1].push_back({QStringLiteral("Address"), a});
    if (!code_.isEmpty()) groups[1].push_back({QStringLiteral("Code"), code_, true});
    for (std::size_t i = 0; i < seats_.size(); ++i)
        if (!seats_[i].isEmpty())
            groups[2].push_back({QStringLiteral("Player %1").arg(i + 1), seats_[i]});
    groups[3] = settings_;

    for (QLabel* l : shown_) delete l;
    shown_.clear();
    const auto place = [this](int left, int width, int top, const QString& text) {
        QLabel* l = ui::makeLabel(this, left, top, width, kRow, text);
        l->show();
        shown_.push_back(l);
        return l;
    };
    int top = kMargin;
    for (const std::vector<Line>& group : groups) {
        for (const Line& line : group) {
            if (line.value.isEmpty()) {
                place(kMargin, kWidth - 2 * kMargin, top, line.name);
            } else {
                place(kMargin, kValueLeft - kMargin, top, line.name);
                QLabel* value = place(kValueLeft, kWidth - kMargin - kValueLeft, top, line.value);
                if (line.bold) value->setFont(ui::tahoma(ui::kSmallText, true));
                // The players copy the address and code into the other computers' join boxes.
                value->setTextInteractionFlags(Qt::TextSelectableByMouse);
            }
            top += kRow;
        }
        if (!group.empty()) top += kGap;
    }
    cancelButton->setGeometry((kWidth - kButtonWidth) / 2, top, kButtonWidth, kButtonHeight);
    setFixedSize(kWidth, top + kButtonHeight + kMargin);
}

}  // namespace screens
