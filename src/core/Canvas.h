#pragma once
// A raster that keeps what is drawn on it. The game's drawing rules are pixel-exact, so the
// canvas draws its lines, rectangles and circles itself; reading outside it gives no colour.
#include <QImage>
#include <optional>

#include "core/Colour.h"

namespace core {

class Canvas {
public:
    Canvas() = default;
    Canvas(int width, int height, Colour fill = kWhite);
    explicit Canvas(const QImage& image);

    int width() const { return width_; }
    int height() const { return height_; }
    bool isNull() const { return image_.isNull(); }
    const QImage& image() const { return image_; }

    Colour point(int x, int y) const {
        if (x < 0 || y < 0 || x >= width() || y >= height()) return {};
        return Colour::fromRgb(reinterpret_cast<const QRgb*>(image_.constScanLine(y))[x]);
    }
    // Points outside the canvas are left alone.
    void setPixel(int x, int y, Colour colour);
    // Stops one pixel short of its end point, so lines laid end to end never overlap; a line of
    // no length is one pixel.
    void line(int x1, int y1, int x2, int y2, Colour colour);
    // Both corners included.
    void fillRect(int x1, int y1, int x2, int y2, Colour colour);
    // An outline in `outline`, with the inside in `fill` when there is one.
    void circle(int cx, int cy, int radius, Colour outline, std::optional<Colour> fill);
    void fill(Colour colour);
    // Copies `source` with its top-left corner at (x, y), clipped to this canvas.
    void blit(const Canvas& source, int x, int y);

    bool operator==(const Canvas& other) const { return image_ == other.image_; }

    // The pixels of row `y`, which must lie inside the canvas, for drawing many at once.
    QRgb* row(int y) { return reinterpret_cast<QRgb*>(image_.scanLine(y)); }

private:
    void fillRow(int x1, int x2, int y, QRgb colour);

    QImage image_;
    // The image's size, asked for at every pixel: kept here rather than asked of the image.
    int width_ = 0, height_ = 0;
};

}  // namespace core
