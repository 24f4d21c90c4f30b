#include "core/Transparency.h"

#include <algorithm>

#include "core/Numbers.h"

namespace core {

void makeTransparent(Canvas& picture, float startX, float startY, float endX, float endY,
                     const Behind& behind) {
    // Points outside the picture read as no colour, which is not white: only the part inside
    // counts. Each pixel is looked at once, so the order in which they are visited is free.
    const int x1 = std::max(roundHalfEven(startX), 0);
    const int x2 = std::min(roundHalfEven(endX), picture.width() - 1);
    const int y1 = std::max(roundHalfEven(startY), 0);
    const int y2 = std::min(roundHalfEven(endY), picture.height() - 1);
    for (int y = y1; y <= y2; ++y) {
        QRgb* row = picture.row(y);
        for (int x = x1; x <= x2; ++x)
            if (row[x] == kWhite.rgb()) row[x] = behind(x, y).rgb();
    }
}

void makeTransparent(Canvas& picture, const Canvas& behind, QPoint at) {
    // The same as asking behind.point() for every white pixel, a row at a time.
    const QRgb none = Colour().rgb();
    const int width = picture.width(), height = picture.height();
    const int behindWidth = behind.width(), behindHeight = behind.height();
    for (int y = 0; y < height; ++y) {
        QRgb* row = picture.row(y);
        const int by = at.y() + y;
        const QRgb* under = by >= 0 && by < behindHeight
                                ? reinterpret_cast<const QRgb*>(behind.image().constScanLine(by))
                                : nullptr;
        for (int x = 0; x < width; ++x) {
            if (row[x] != kWhite.rgb()) continue;
            const int bx = at.x() + x;
            row[x] = under && bx >= 0 && bx < behindWidth ? under[bx] | 0xff000000 : none;
        }
    }
}

void makeTransparent(Canvas& picture, const Behind& behind) {
    makeTransparent(picture, 0, 0, static_cast<float>(picture.width()),
                    static_cast<float>(picture.height()), behind);
}

}  // namespace core
