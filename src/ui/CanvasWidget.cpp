#include "ui/CanvasWidget.h"

#include <QPaintEvent>
#include <QPainter>

namespace ui {

CanvasWidget::CanvasWidget(QWidget* parent, int left, int top, const core::Canvas& canvas)
    : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    move(left, top);
    setCanvas(canvas);
}

void CanvasWidget::setCanvas(const core::Canvas& canvas) {
    canvas_ = canvas;
    resize(canvas.width(), canvas.height());
    update();
}

void CanvasWidget::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    p.drawImage(event->rect().topLeft(), canvas_.image(), event->rect());
}

}  // namespace ui
