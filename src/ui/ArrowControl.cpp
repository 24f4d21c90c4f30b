#include "ui/ArrowControl.h"

#include <qdrawutil.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygon>
#include <algorithm>

namespace ui {

namespace {
// A held button waits a moment before it repeats, then repeats quickly, like a scroll bar's.
constexpr int kRepeatDelayMs = 400;
constexpr int kRepeatEveryMs = 50;
}  // namespace

ArrowControl::ArrowControl(QWidget* parent, Qt::Orientation orientation, int left, int top,
                           int width, int height, int buttonLength)
    : QWidget(parent), orientation_(orientation), buttonLength_(buttonLength) {
    setGeometry(left, top, width, height);
    setFocusPolicy(Qt::StrongFocus);
    repeat_.setHandler([this] { repeatPress(); });
}

void ArrowControl::setRange(int min, int max) {
    min_ = min;
    max_ = std::max(min, max);
    setValue(value_);
}

void ArrowControl::setValue(int value) {
    value = std::clamp(value, min_, max_);
    if (value == value_) return;
    value_ = value;
    if (onChange_) onChange_();
}

void ArrowControl::setSteps(int small, int large) {
    small_ = small;
    large_ = large;
}

QRect ArrowControl::buttonRect(int direction) const {
    const bool vertical = orientation_ == Qt::Vertical;
    const int length = vertical ? height() : width();
    const int button = buttonLength_ > 0 ? buttonLength_ : length / 2;
    // Up is the top button, right the right one.
    const bool atStart = vertical ? direction > 0 : direction < 0;
    const int from = atStart ? 0 : length - button;
    return vertical ? QRect(0, from, width(), button) : QRect(from, 0, button, height());
}

ArrowControl::Part ArrowControl::partAt(const QPoint& pos) const {
    for (int direction : {-1, 1})
        if (buttonRect(direction).contains(pos)) return {direction, false};
    if (!rect().contains(pos)) return {};
    // A click on the track pages towards the side it lies on.
    const QRect up = buttonRect(1);
    const bool towardsUp =
        orientation_ == Qt::Vertical ? pos.y() < up.top() + up.height() : pos.x() >= up.left();
    return {towardsUp ? 1 : -1, true};
}

void ArrowControl::press(Part part) {
    setValue(value_ + part.direction * (part.onTrack ? large_ : small_));
}

void ArrowControl::repeatPress() {
    if (pressed_.direction == 0) return;
    press(pressed_);
    repeat_.setInterval(kRepeatEveryMs);
}

void ArrowControl::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
    pressed_ = partAt(event->position().toPoint());
    if (pressed_.direction == 0) return;
    press(pressed_);
    repeat_.setInterval(kRepeatDelayMs);
    repeat_.setEnabled(true);
    update();
}

void ArrowControl::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return QWidget::mouseReleaseEvent(event);
    pressed_ = {};
    repeat_.setEnabled(false);
    update();
}

void ArrowControl::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Right: press({1, false}); break;
        case Qt::Key_Down:
        case Qt::Key_Left: press({-1, false}); break;
        case Qt::Key_PageUp: press({1, true}); break;
        case Qt::Key_PageDown: press({-1, true}); break;
        case Qt::Key_Home: setValue(min_); break;
        case Qt::Key_End: setValue(max_); break;
        default: return QWidget::keyPressEvent(event);
    }
}

void ArrowControl::focusInEvent(QFocusEvent* event) {
    update();
    QWidget::focusInEvent(event);
}

void ArrowControl::focusOutEvent(QFocusEvent* event) {
    update();
    QWidget::focusOutEvent(event);
}

void ArrowControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().color(QPalette::Midlight));
    // The arrows take the highlight colour while the keyboard works the control.
    const QColor arrow = !isEnabled() ? palette().color(QPalette::Mid)
                         : hasFocus() ? palette().color(QPalette::Highlight)
                                      : palette().color(QPalette::ButtonText);
    for (int direction : {-1, 1}) {
        const QRect r = buttonRect(direction);
        const bool down = pressed_.direction == direction && !pressed_.onTrack;
        const QBrush face = palette().brush(QPalette::Button);
        qDrawWinButton(&p, r, palette(), down, &face);
        const QPoint c = r.center() + (down ? QPoint(1, 1) : QPoint());
        // A right-angled tip: `half` pixels either side of the axis, about as long.
        const int half = std::max(1, std::min(r.width(), r.height()) / 3);
        const bool vertical = orientation_ == Qt::Vertical;
        // Sign of the direction the arrow points in, along the control's axis.
        const int s = vertical ? -direction : direction;
        const int apex = s * ((half + 1) / 2), base = -s * (half / 2);
        const auto at = [&](int along, int across) {
            return vertical ? c + QPoint(across, along) : c + QPoint(along, across);
        };
        const QPolygon tip({at(apex, 0), at(base, -half), at(base, half)});
        p.setPen(arrow);
        p.setBrush(arrow);
        p.drawPolygon(tip);
    }
}

}  // namespace ui
