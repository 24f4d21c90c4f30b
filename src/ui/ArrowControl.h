#pragma once
// A scroll bar reduced to its two arrow buttons: each click moves the value one step within its
// range, holding a button repeats, and with the keyboard focus the arrow keys move it too. The
// up and the right arrow raise the value.
#include <QWidget>
#include <functional>

#include "ui/Timer.h"

namespace ui {

class ArrowControl : public QWidget {
public:
    // The two buttons lie at the ends of the box, `buttonLength` pixels long each (0: half the
    // box each); what lies between them is the bar's track.
    ArrowControl(QWidget* parent, Qt::Orientation orientation, int left, int top, int width,
                 int height, int buttonLength = 0);

    int min() const { return min_; }
    int max() const { return max_; }
    int value() const { return value_; }
    // A maximum below the minimum counts as the minimum; the value is kept within the range.
    void setRange(int min, int max);
    void setMax(int max) { setRange(min_, max); }
    // Clamped to the range; runs the change handler when the value changed.
    void setValue(int value);
    // Arrow buttons and arrow keys move by `small`, clicks on the track and Page keys by `large`.
    void setSteps(int small, int large);
    void onChange(std::function<void()> handler) { onChange_ = std::move(handler); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    // Which way a part of the control moves the value: -1 down, +1 up, 0 not at all.
    struct Part {
        int direction = 0;
        bool onTrack = false;
    };
    Part partAt(const QPoint& pos) const;
    // The button that moves the value in `direction`.
    QRect buttonRect(int direction) const;
    void press(Part part);
    void repeatPress();

    Qt::Orientation orientation_;
    int buttonLength_;
    int min_ = 0, max_ = 0, value_ = 0;
    int small_ = 1, large_ = 1;
    Part pressed_;
    Timer repeat_;
    std::function<void()> onChange_;
};

}  // namespace ui
