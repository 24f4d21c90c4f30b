#include "ui/Surface.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ui {

Surface::Surface(int width, int height, std::int32_t fill)
    : image_(std::max(width, 1), std::max(height, 1), QImage::Format_RGB32) {
    image_.fill(ToQRgb(fill));
}

Surface::Surface(QImage image) : image_(image.convertToFormat(QImage::Format_RGB32)) {}

bool Surface::Load(const QString& path) {
    QImage img;
    if (!img.load(path) || img.isNull()) return false;
    image_ = img.convertToFormat(QImage::Format_RGB32);
    dirty_ = image_.rect();
    return true;
}

void Surface::PSet(int x, int y, std::int32_t colour) {
    if (x < 0 || y < 0 || x >= Width() || y >= Height()) return;
    reinterpret_cast<QRgb*>(image_.scanLine(y))[x] = ToQRgb(colour);
    Mark(QRect(x, y, 1, 1));
}

void Surface::HLine(int x1, int x2, int y, QRgb colour) {
    if (y < 0 || y >= Height()) return;
    if (x1 > x2) std::swap(x1, x2);
    x1 = std::max(x1, 0);
    x2 = std::min(x2, Width() - 1);
    if (x1 > x2) return;
    QRgb* row = reinterpret_cast<QRgb*>(image_.scanLine(y));
    std::fill(row + x1, row + x2 + 1, colour);
    Mark(QRect(x1, y, x2 - x1 + 1, 1));
}

void Surface::Line(int x1, int y1, int x2, int y2, std::int32_t colour) {
    if (x1 == x2 && y1 == y2) {
        PSet(x1, y1, colour);
        return;
    }
    if (y1 == y2) {
        HLine(x1, x2 > x1 ? x2 - 1 : x2 + 1, y1, ToQRgb(colour));
        return;
    }
    // Bresenham; the end point itself is not drawn, so lines laid end to end never overlap.
    const int dx = std::abs(x2 - x1), sx = x1 < x2 ? 1 : -1;
    const int dy = -std::abs(y2 - y1), sy = y1 < y2 ? 1 : -1;
    int err = dx + dy;
    while (x1 != x2 || y1 != y2) {
        PSet(x1, y1, colour);
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

void Surface::FillRect(int x1, int y1, int x2, int y2, std::int32_t colour) {
    if (y1 > y2) std::swap(y1, y2);
    const QRgb q = ToQRgb(colour);
    for (int y = std::max(y1, 0); y <= std::min(y2, Height() - 1); ++y) HLine(x1, x2, y, q);
}

void Surface::Circle(int cx, int cy, int radius, std::int32_t colour, bool filled,
                     std::int32_t fillColour) {
    if (radius < 0) return;
    // Row by row: each row's half width comes from the circle's equation, rounded; the outline
    // takes the ends of every row and of every column, so it has no gaps at the top and bottom.
    const QRgb inside = ToQRgb(fillColour);
    for (int dy = -radius; dy <= radius; ++dy) {
        const int half =
            static_cast<int>(std::sqrt(double(radius) * radius - double(dy) * dy) + 0.5);
        if (filled) HLine(cx - half, cx + half, cy + dy, inside);
        PSet(cx - half, cy + dy, colour);
        PSet(cx + half, cy + dy, colour);
    }
    for (int dx = -radius; dx <= radius; ++dx) {
        const int half =
            static_cast<int>(std::sqrt(double(radius) * radius - double(dx) * dx) + 0.5);
        PSet(cx + dx, cy - half, colour);
        PSet(cx + dx, cy + half, colour);
    }
}

void Surface::Fill(std::int32_t colour) {
    image_.fill(ToQRgb(colour));
    dirty_ = image_.rect();
}

void Surface::Blit(const Surface& src, int x, int y) {
    for (int sy = 0; sy < src.Height(); ++sy) {
        const int ty = y + sy;
        if (ty < 0 || ty >= Height()) continue;
        const int x1 = std::max(0, x), x2 = std::min(Width(), x + src.Width());
        if (x1 >= x2) continue;
        const QRgb* from = reinterpret_cast<const QRgb*>(src.image_.constScanLine(sy)) + (x1 - x);
        std::copy(from, from + (x2 - x1), reinterpret_cast<QRgb*>(image_.scanLine(ty)) + x1);
    }
    Mark(QRect(x, y, src.Width(), src.Height()) & image_.rect());
}

QRect Surface::TakeDirty() {
    QRect r = dirty_;
    dirty_ = QRect();
    return r;
}

}  // namespace ui
