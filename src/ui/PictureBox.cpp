#include "ui/PictureBox.h"

#include <QPaintEvent>
#include <QPainter>

namespace ui {

namespace {
// The part `r` of `image`, its pure white pixels made fully transparent.
QImage WithoutWhite(const QImage& image, const QRect& r) {
    QImage out = image.copy(r).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < out.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < out.width(); ++x)
            if (row[x] == qRgb(255, 255, 255)) row[x] = qRgba(0, 0, 0, 0);
    }
    return out;
}
}  // namespace

PictureBox::PictureBox(QWidget* parent, QString name, int left, int top, int width, int height,
                       std::int32_t backColour)
    : QWidget(parent),
      name_(std::move(name)),
      back_(backColour),
      surface_(width, height, backColour) {
    setObjectName(name_);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setGeometry(left, top, width, height);
}

void PictureBox::PSet(int x, int y, std::int32_t colour) {
    surface_.PSet(x, y, colour);
    Changed();
}

void PictureBox::Line(int x1, int y1, int x2, int y2, std::int32_t colour) {
    surface_.Line(x1, y1, x2, y2, colour);
    Changed();
}

void PictureBox::Circle(int cx, int cy, int radius, std::int32_t colour, bool filled,
                        std::int32_t fill) {
    surface_.Circle(cx, cy, radius, colour, filled, fill);
    Changed();
}

void PictureBox::Resize(int w, int h) {
    if (w != width() || h != height()) resize(w, h);
}

void PictureBox::Cls() {
    if (picture_.IsNull()) {
        if (surface_.Width() != width() || surface_.Height() != height())
            surface_ = Surface(width(), height(), back_);
        else surface_.Fill(back_);
    } else {
        surface_ = picture_;
        Resize(picture_.Width(), picture_.Height());
    }
    update();
}

bool PictureBox::LoadPicture(const QString& path, PictureError* error) {
    Surface loaded;
    if (!loaded.Load(path, error)) return false;
    SetPicture(loaded);
    return true;
}

void PictureBox::SetPicture(const Surface& picture) {
    picture_ = picture;
    Cls();
}

void PictureBox::ClearPicture() {
    picture_ = Surface();
    Cls();
}

void PictureBox::ShowFrame(const Surface& picture) {
    surface_ = picture;
    Resize(picture.Width(), picture.Height());
    update();
}

void PictureBox::ZOrder(int position) {
    if (position == 0) raise();
    else lower();
}

void PictureBox::Changed() {
    // Many single-pixel writes in a row become one repaint of their bounding box, done when the
    // program next pumps events.
    if (repaintQueued_) return;
    repaintQueued_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            repaintQueued_ = false;
            const QRect r = surface_.TakeDirty();
            if (!r.isEmpty()) update(r);
        },
        Qt::QueuedConnection);
}

void PictureBox::SetSeeThrough(bool on) {
    seeThrough_ = on;
    // Qt paints what lies behind a widget only when the widget does not claim to cover itself.
    setAttribute(Qt::WA_OpaquePaintEvent, !on);
    update();
}

void PictureBox::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    const QRect r = event->rect();
    if (seeThrough_) {
        const QRect inside = r & surface_.image().rect();
        p.drawImage(inside.topLeft(), WithoutWhite(surface_.image(), inside));
        return;
    }
    p.drawImage(r.topLeft(), surface_.image(), r);
    const QRect outside = r & QRect(surface_.Width(), 0, width(), height());
    if (!outside.isEmpty()) p.fillRect(outside, QColor::fromRgb(ToQRgb(back_)));
}

}  // namespace ui
