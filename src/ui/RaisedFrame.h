#pragma once
// The raised edge of a borderless box: lines along the top and left in the desktop's 3-D
// highlight colour, along the right and bottom in its 3-D shadow colour.
#include <QWidget>

namespace ui {

class RaisedFrame : public QWidget {
public:
    // Covers the whole of `box`, with lines `lineWidth` pixels wide.
    RaisedFrame(QWidget* box, int lineWidth);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int lineWidth_;
};

}  // namespace ui
