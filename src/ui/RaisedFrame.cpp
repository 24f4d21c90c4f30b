#include "ui/RaisedFrame.h"

#include <QPainter>

namespace ui {

RaisedFrame::RaisedFrame(QWidget* box, int lineWidth) : QWidget(box), lineWidth_(lineWidth) {
    setGeometry(box->rect());
    // Clicks go through to the controls inside the frame.
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void RaisedFrame::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QColor light = palette().color(QPalette::Light);
    const QColor dark = palette().color(QPalette::Dark);
    const int w = width(), h = height(), t = lineWidth_;
    p.fillRect(0, 0, w, t, light);
    p.fillRect(0, 0, t, h, light);
    p.fillRect(w - t, 0, t, h, dark);
    p.fillRect(0, h - t, w, t, dark);
}

}  // namespace ui
