#include "screens/MatchField.h"

#include <QPainter>

#include "game/Match.h"
#include "screens/MatchTexts.h"
#include "ui/Fonts.h"

namespace screens {

namespace {
// The points box and its lines.
constexpr QRect kPointsBox{6, 3, 181, 73};
constexpr QPoint kFirstLine{4, 3};
constexpr QSize kLine{175, 15};
constexpr int kLineStep = 16;
// The wind's label inside the wind box, and the turn marker's name label.
constexpr QRect kWindLabel{16, 14, 56, 15};
constexpr int kNameLabelHeight = 15;
// The final board.
constexpr int kBoardHeight = 25;
constexpr QColor kGrey{128, 128, 128};
// The side score is the board's headline. The desktop's black button text all but vanished on the
// night sky; banana yellow stands out on the day's blue and the night's purple alike.
constexpr QColor kScoreColour{255, 221, 51};

// A label's text: nothing of it shows outside its place.
void text(QPainter& p, const QRect& r, const QString& s, const QColor& colour,
          Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter) {
    p.setPen(colour);
    p.setClipRect(r);
    p.drawText(r, static_cast<int>(align), s);
    p.setClipping(false);
}

// Pure white is see-through on the projectile, which flies over sky and city alike.
QImage withoutWhite(const core::Canvas& c) {
    QImage out = c.image().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < out.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < out.width(); ++x)
            if (row[x] == core::kWhite.rgb()) row[x] = qRgba(0, 0, 0, 0);
    }
    return out;
}

void drawFigure(QPainter& p, const game::Match& m, int player) {
    const game::Figure& f = m.figure(player);
    p.drawImage(f.pos, f.canvas().image());
}

void drawBoxes(QPainter& p, const game::Match& m) {
    p.drawImage(kPointsBox.topLeft(), m.sky().image().copy(kPointsBox));
    p.setFont(ui::tahoma(ui::kSmallText));
    for (int i = 0; i < m.players(); ++i)
        text(p, QRect(kPointsBox.topLeft() + kFirstLine + QPoint(0, kLineStep * i), kLine),
             panelLine(m, i), Qt::white);
    p.drawImage(game::kWindBox.topLeft(), m.windBox().image());
    text(p, kWindLabel.translated(game::kWindBox.topLeft()), windText(m.wind()),
         QColor::fromRgb(game::kWindColour.rgb()), Qt::AlignCenter);
}

void drawBoard(QPainter& p, const game::Match& m, const game::Board& b) {
    p.setFont(ui::tahoma(ui::kLargeText, true));
    const auto cell = [&](int left, int top, int width, const QString& s, const QColor& c) {
        text(p, QRect(left, top, width, kBoardHeight), s, c);
    };
    cell(272, 40, 65, QStringLiteral("Score:"), kGrey);
    cell(344, 40, 25, QString::number(b.left), kScoreColour);
    cell(376, 40, 25, QStringLiteral("to"), kGrey);
    cell(408, 40, 25, QString::number(b.right), kScoreColour);
    cell(104, 80, 121, QStringLiteral("Frags"), kGrey);
    cell(232, 80, 121, QStringLiteral("Points"), kGrey);
    cell(360, 80, 121, QStringLiteral("Accuracy"), kGrey);
    cell(488, 80, 121, QStringLiteral("Name"), kGrey);
    for (std::size_t i = 0; i < b.rows.size(); ++i) {
        const int top = 112 + 32 * static_cast<int>(i);
        cell(104, top, 121, QString::number(b.rows[i].frags), Qt::white);
        cell(232, top, 121, QString::number(b.rows[i].points), Qt::white);
        cell(360, top, 121, accuracyText(b.rows[i].accuracy), Qt::white);
        cell(520, top, 193, m.name(b.rows[i].player), Qt::white);
    }
}

void drawMarkerAndPopup(QPainter& p, const game::Match& m) {
    p.setFont(ui::tahoma(ui::kSmallText));
    const game::PointsPopup& popup = m.popup();
    if (popup.visible())
        text(p, QRect(popup.pos(), game::PointsPopup::kSize), QString::number(popup.points()),
             QColor::fromRgb(popup.colour().rgb()), Qt::AlignCenter);
    const game::Indicator& marker = m.indicator();
    if (!marker.visible()) return;
    text(p, QRect(marker.labelPos(), QSize(game::Indicator::kLabelWidth, kNameLabelHeight)),
         m.name(marker.player()), Qt::white, Qt::AlignCenter);
    p.drawImage(marker.picturePos(), marker.picture().image());
}
}  // namespace

MatchField::MatchField(QWidget* parent, const game::Match& match) : QWidget(parent), match_(match) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setGeometry(0, 0, game::kFieldWidth, game::kFieldHeight);
}

void MatchField::paintEvent(QPaintEvent*) {
    // Back to front: the projectile flies behind everything but the city; the characters after
    // the first stand in front of the boxes and the board; the popup and the marker come last.
    QPainter p(this);
    const game::Match& m = match_;
    p.drawImage(0, 0, m.scene().image());
    if (m.projectile().shown)
        p.drawImage(m.projectile().pos, withoutWhite(m.projectile().picture()));
    if (m.figuresShown()) drawFigure(p, m, 0);
    if (m.boxesShown()) drawBoxes(p, m);
    if (m.board()) drawBoard(p, m, *m.board());
    if (m.figuresShown())
        for (int i = 1; i < m.players(); ++i) drawFigure(p, m, i);
    drawMarkerAndPopup(p, m);
}

}  // namespace screens
