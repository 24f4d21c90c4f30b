#include "ui/Text.h"

#include <QFontMetrics>
#include <QPainter>

namespace ui {

int textWidth(const QFont& font, const QString& text) {
    return QFontMetrics(font).horizontalAdvance(text);
}

int lineHeight(const QFont& font) { return QFontMetrics(font).height(); }

void printText(core::Canvas& target, int x, int y, const QString& text, const QFont& font,
               core::Colour colour) {
    // The canvas hands its raster over for the painting, so no copy of it is made.
    QImage image = target.image();
    target = core::Canvas();
    {
        QPainter p(&image);
        p.setFont(font);
        p.setPen(QColor::fromRgb(colour.rgb()));
        p.drawText(x, y + QFontMetrics(font).ascent(), text);
    }
    target = core::Canvas(image);
}

}  // namespace ui
