#pragma once
// A canvas on a screen, pixel for pixel, taking the canvas's size.
#include <QWidget>

#include "core/Canvas.h"

namespace ui {

class CanvasWidget : public QWidget {
public:
    CanvasWidget(QWidget* parent, int left, int top, const core::Canvas& canvas);
    void setCanvas(const core::Canvas& canvas);
    const core::Canvas& canvas() const { return canvas_; }
    // To draw on the canvas in place; the widget repaints afterwards.
    core::Canvas& draw() {
        update();
        return canvas_;
    }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    core::Canvas canvas_;
};

}  // namespace ui
