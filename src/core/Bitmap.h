#pragma once
// A strict reader of Windows bitmap files. A picture is taken whole or not at all: its header must
// agree with the file's real length, its size must be a picture size, its pixel format one this
// reader knows, and every row of its pixel data must be in the file. What it refuses it explains
// in words the players can act on.
#include <QImage>
#include <QString>

namespace core {

// Why a picture file could not be used.
struct PictureError {
    bool missing = false;  // there is no such file
    QString reason;        // what is wrong with a file that is there
};

// A side longer than this is taken for a broken header. The game's own pictures are a few dozen
// pixels across; this leaves room for anything a player might reasonably draw.
constexpr int kMaxPictureSide = 4096;

// Reads the bitmap at `path` into `image` (Format_RGB32). False when the file is missing or cannot
// be read completely; `error`, when given, then says which.
bool readBitmap(const QString& path, QImage& image, PictureError* error = nullptr);

}  // namespace core
