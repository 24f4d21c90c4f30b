// The shipped pictures the benchmarks play with, read from the source tree's data folder.
#pragma once

#include "core/Bitmap.h"
#include "core/Canvas.h"
#include "game/Figure.h"

namespace bench {

inline core::Canvas picture(const QString& relative) {
    QImage image;
    core::readBitmap(QStringLiteral(GRUMBO_DATA_DIR "/") + relative,
                     core::largestBitmapFile(game::kLargestCharacter), image);
    return core::Canvas(image);
}

}  // namespace bench
