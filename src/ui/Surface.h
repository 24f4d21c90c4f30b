#pragma once
// A raster that keeps its drawing. Colours are 24-bit values red + 256 x green + 65536 x blue;
// reading outside the raster gives -1.
#include <QImage>
#include <QRect>
#include <QString>
#include <cstdint>

namespace ui {

constexpr std::int32_t RGB(int r, int g, int b) { return r + 256 * g + 65536 * b; }
constexpr std::int32_t kWhite = RGB(255, 255, 255);

// The parts of a colour.
constexpr int Red(std::int32_t c) { return c & 0xFF; }
constexpr int Green(std::int32_t c) { return (c >> 8) & 0xFF; }
constexpr int Blue(std::int32_t c) { return (c >> 16) & 0xFF; }

inline QRgb ToQRgb(std::int32_t c) { return qRgb(Red(c), Green(c), Blue(c)); }
inline std::int32_t FromQRgb(QRgb q) { return RGB(qRed(q), qGreen(q), qBlue(q)); }

class Surface {
public:
    Surface() = default;
    Surface(int width, int height, std::int32_t fill = kWhite);
    explicit Surface(QImage image);

    int Width() const { return image_.width(); }
    int Height() const { return image_.height(); }
    bool IsNull() const { return image_.isNull(); }
    const QImage& image() const { return image_; }

    std::int32_t Point(int x, int y) const {
        if (x < 0 || y < 0 || x >= Width() || y >= Height()) return -1;
        return FromQRgb(reinterpret_cast<const QRgb*>(image_.constScanLine(y))[x]);
    }
    void PSet(int x, int y, std::int32_t colour);
    // A line stops one pixel short of its end point (a zero-length line is one pixel).
    void Line(int x1, int y1, int x2, int y2, std::int32_t colour);
    void FillRect(int x1, int y1, int x2, int y2, std::int32_t colour);
    // Circle outline in `colour`; when `filled`, the inside takes `fillColour`.
    void Circle(int cx, int cy, int radius, std::int32_t colour, bool filled,
                std::int32_t fillColour);
    void Fill(std::int32_t colour);
    // Copies `src` with its top-left corner at (x, y), clipped.
    void Blit(const Surface& src, int x, int y);

    // Bounding box of everything drawn since the last TakeDirty().
    QRect TakeDirty();

    // Reads a bitmap file; false (and the surface unchanged) when it cannot be read.
    bool Load(const QString& path);

private:
    void HLine(int x1, int x2, int y, QRgb colour);
    void Mark(const QRect& r) { dirty_ |= r; }

    QImage image_;
    QRect dirty_;
};

}  // namespace ui
