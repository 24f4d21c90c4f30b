#include "core/Canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace core {

Canvas::Canvas(int width, int height, Colour fill)
    : image_(std::max(width, 1), std::max(height, 1), QImage::Format_RGB32),
      width_(image_.width()),
      height_(image_.height()) {
    image_.fill(fill.rgb());
}

Canvas::Canvas(const QImage& image)
    : image_(image.convertToFormat(QImage::Format_RGB32)),
      width_(image_.width()),
      height_(image_.height()) {}

void Canvas::setPixel(int x, int y, Colour colour) {
    if (x < 0 || y < 0 || x >= width() || y >= height()) return;
    reinterpret_cast<QRgb*>(image_.scanLine(y))[x] = colour.rgb();
}

void Canvas::fillRow(int x1, int x2, int y, QRgb colour) {
    if (y < 0 || y >= height()) return;
    if (x1 > x2) std::swap(x1, x2);
    x1 = std::max(x1, 0);
    x2 = std::min(x2, width() - 1);
    if (x1 > x2) return;
    QRgb* pixels = reinterpret_cast<QRgb*>(image_.scanLine(y));
    std::fill(pixels + x1, pixels + x2 + 1, colour);
}

void Canvas::line(int x1, int y1, int x2, int y2, Colour colour) {
    if (x1 == x2 && y1 == y2) {
        setPixel(x1, y1, colour);
        return;
    }
    if (y1 == y2) {
        fillRow(x1, x2 > x1 ? x2 - 1 : x2 + 1, y1, colour.rgb());
        return;
    }
    // Bresenham, without the end point.
    const int dx = std::abs(x2 - x1), sx = x1 < x2 ? 1 : -1;
    const int dy = -std::abs(y2 - y1), sy = y1 < y2 ? 1 : -1;
    int err = dx + dy;
    while (x1 != x2 || y1 != y2) {
        setPixel(x1, y1, colour);
        const int e2 = 2 * err;
        if (e2 >= dy) {
            err += dy;
            x1 += sx;
        }
        if (e2 <= dx) {
            err += dx;
            y1 += sy;
        }
    }
}

void Canvas::fillRect(int x1, int y1, int x2, int y2, Colour colour) {
    if (y1 > y2) std::swap(y1, y2);
    for (int y = std::max(y1, 0); y <= std::min(y2, height() - 1); ++y)
        fillRow(x1, x2, y, colour.rgb());
}

void Canvas::circle(int cx, int cy, int radius, Colour outline, std::optional<Colour> fill) {
    if (radius < 0) return;
    // Row by row: each row's half width comes from the circle's equation, rounded; the outline
    // takes the ends of every row and of every column, so it has no gaps at the top and bottom.
    const auto halfWidth = [radius](int d) {
        return static_cast<int>(std::sqrt(double(radius) * radius - double(d) * d) + 0.5);
    };
    for (int dy = -radius; dy <= radius; ++dy) {
        const int half = halfWidth(dy);
        if (fill) fillRow(cx - half, cx + half, cy + dy, fill->rgb());
        setPixel(cx - half, cy + dy, outline);
        setPixel(cx + half, cy + dy, outline);
    }
    for (int dx = -radius; dx <= radius; ++dx) {
        const int half = halfWidth(dx);
        setPixel(cx + dx, cy - half, outline);
        setPixel(cx + dx, cy + half, outline);
    }
}

void Canvas::fill(Colour colour) { image_.fill(colour.rgb()); }

void Canvas::blit(const Canvas& source, int x, int y) {
    const int x1 = std::max(0, x), x2 = std::min(width(), x + source.width());
    if (x1 >= x2) return;
    for (int sy = 0; sy < source.height(); ++sy) {
        const int ty = y + sy;
        if (ty < 0 || ty >= height()) continue;
        const QRgb* from =
            reinterpret_cast<const QRgb*>(source.image_.constScanLine(sy)) + (x1 - x);
        std::copy(from, from + (x2 - x1), reinterpret_cast<QRgb*>(image_.scanLine(ty)) + x1);
    }
}

}  // namespace core
