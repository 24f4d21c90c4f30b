#pragma once
// A picture surface on a screen: a widget that shows a Surface, keeps what is drawn on it, and
// repaints only what changed. It has a persistent picture (a loaded bitmap or a copy of another
// surface) that Cls restores, or its back colour when it has none.
//
// A see-through box leaves its pure white pixels unpainted, so that whatever lies behind it on the
// screen shows there. Only the screen is spared: the surface keeps its white, and every pixel read
// from it is the picture's own.
#include <QWidget>

#include "ui/Surface.h"

namespace ui {

class PictureBox : public QWidget {
public:
    PictureBox(QWidget* parent, QString name, int left, int top, int width, int height,
               std::int32_t backColour = kWhite);

    const QString& Name() const { return name_; }
    Surface& surface() { return surface_; }
    const Surface& surface() const { return surface_; }

    std::int32_t Point(int x, int y) const { return surface_.Point(x, y); }
    void PSet(int x, int y, std::int32_t colour);
    void Line(int x1, int y1, int x2, int y2, std::int32_t colour);
    void Circle(int cx, int cy, int radius, std::int32_t colour, bool filled, std::int32_t fill);
    // Wipes the drawing: the persistent picture shows again, or the back colour without one.
    void Cls();
    // Loads a bitmap as the persistent picture and takes its size; false, with `error` saying why
    // when given, when it is missing or cannot be read.
    bool LoadPicture(const QString& path, PictureError* error = nullptr);
    void SetPicture(const Surface& picture);
    void ClearPicture();
    // Shows `picture` as it is without making it persistent (animation frames).
    void ShowFrame(const Surface& picture);

    int Left() const { return x(); }
    int Top() const { return y(); }
    int Width() const { return width(); }
    int Height() const { return height(); }
    void SetLeft(int left) { move(left, y()); }
    void SetTop(int top) { move(x(), top); }
    void Move(int left, int top) { move(left, top); }
    // 0 brings the box to the front of its siblings, 1 sends it to the back.
    void ZOrder(int position);

    // Tells the screen that the surface changed outside the calls above.
    void Changed();
    void SetSeeThrough(bool on);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Resize(int w, int h);

    QString name_;
    std::int32_t back_;
    Surface surface_;
    Surface picture_;
    bool repaintQueued_ = false;
    bool seeThrough_ = false;
};

}  // namespace ui
