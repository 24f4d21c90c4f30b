#include "core/Transparency.h"

#include "core/Numbers.h"

namespace core {

void makeTransparent(Canvas& picture, float startX, float startY, float endX, float endY,
                     const Behind& behind) {
    const int x1 = roundHalfEven(startX), x2 = roundHalfEven(endX);
    const int y1 = roundHalfEven(startY), y2 = roundHalfEven(endY);
    for (int x = x1; x <= x2; ++x)
        for (int y = y1; y <= y2; ++y)
            if (picture.point(x, y) == kWhite) picture.setPixel(x, y, behind(x, y));
}

void makeTransparent(Canvas& picture, const Behind& behind) {
    makeTransparent(picture, 0, 0, static_cast<float>(picture.width()),
                    static_cast<float>(picture.height()), behind);
}

}  // namespace core
