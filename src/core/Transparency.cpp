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

void makeTransparent(Canvas& picture, const Behind& behind) {
    makeTransparent(picture, 0, 0, static_cast<float>(picture.width()),
                    static_cast<float>(picture.height()), behind);
}

}  // namespace core
