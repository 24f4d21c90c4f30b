#pragma once
// A strict reader of Windows bitmap files. A picture is taken whole or not at all: its header must
// agree with the file's real length, its size must be a picture size, its pixel format one this
// reader knows, and every row of its pixel data must be in the file. What it refuses it explains
// in words the players can act on.
#include <QImage>
#include <QSize>
#include <QString>

namespace core {

// Why a picture file could not be used.
struct PictureError {
    bool missing = false;  // there is no such file
    QString reason;        // what is wrong with a file that is there
};

// A side longer than this is taken for a broken header, whatever the file's size.
constexpr int kMaxPictureSide = 4096;

// The largest file a picture of at most `size` pixels can be: the largest headers, a full colour
// table and 32-bit rows.
constexpr qint64 largestBitmapFile(QSize size) {
    return 14 + 124 + 256 * 4 + qint64{size.width()} * size.height() * 4;
}

// Reads the bitmap at `path` into `image` (Format_RGB32). False when the file is missing, larger
// than `largestFile` bytes or cannot be read completely; `error`, when given, then says which.
bool readBitmap(const QString& path, qint64 largestFile, QImage& image,
                PictureError* error = nullptr);

}  // namespace core
