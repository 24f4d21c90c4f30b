#include "ui/Text.h"

#include <QFontMetrics>
#include <QPainter>

#include "ui/Surface.h"

namespace ui {

int TextWidth(const QFont& font, const QString& text) {
    return QFontMetrics(font).horizontalAdvance(text);
}

int TextHeight(const QFont& font, const QString& text) {
    (void)text;
    return QFontMetrics(font).height();
}

void PrintText(Surface& target, int x, int y, const QString& text, const QFont& font,
               std::int32_t colour) {
    // The surface hands its raster over for the painting, so no copy of it is made.
    QImage image = target.image();
    target = Surface();
    {
        QPainter p(&image);
        p.setFont(font);
        p.setPen(QColor::fromRgb(ToQRgb(colour)));
        p.drawText(x, y + QFontMetrics(font).ascent(), text);
    }
    target = Surface(std::move(image));
}

}  // namespace ui
