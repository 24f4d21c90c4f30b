#pragma once
// Pictures have no alpha channel: pure white marks what should show through. Making a rectangle
// of a picture see-through turns each of its pure white pixels into the colour behind it, once;
// a picture that moves or whose background changes is made see-through again at its new place.
#include <QPoint>
#include <functional>

#include "core/Canvas.h"

namespace core {

// The colour behind pixel (x, y) of the picture.
using Behind = std::function<Colour(int x, int y)>;

// Columns and rows from the rounded start to the rounded end, both included, ties rounding to
// even; points outside the picture read as no colour and are left alone.
void makeTransparent(Canvas& picture, float startX, float startY, float endX, float endY,
                     const Behind& behind);
// The whole picture; the rectangle reaches one pixel past it on the right and at the bottom,
// where nothing happens.
void makeTransparent(Canvas& picture, const Behind& behind);
// The whole picture standing on `behind` with its top-left corner at `at`; what lies off `behind`
// reads as no colour.
void makeTransparent(Canvas& picture, const Canvas& behind, QPoint at);

}  // namespace core
