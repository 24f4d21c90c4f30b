#pragma once
// Reading one data file whole into memory. The data folder is the players' to change, and whatever
// stands there under a data file's name must neither hang the game nor fill its memory: only a
// regular file (after links are followed) is read, it is opened without blocking, and a file
// larger than its kind may be is refused before any of it is read.
#include <QByteArray>
#include <QString>
#include <optional>

namespace core {

// The largest data files the game reads, by kind, each a generous multiple of the largest one
// shipped. Pictures are limited by their size in pixels instead (screens/Pictures.h).
namespace limit {
// A sound effect: the longest shipped is the title's 155 KB; this is some 20 s of CD audio.
constexpr qint64 kSound = 4 << 20;
// Decoded, a sound may last this long at most, however well its file is compressed.
constexpr int kSoundSeconds = 20;
// A tune: a MIDI file of the shipped ones' kind is under 50 KB.
constexpr qint64 kTune = 512 << 10;
// The credits: half a kilobyte shipped; the scroll's buffer holds a few hundred lines anyway.
constexpr qint64 kCredits = 64 << 10;
// A window icon: the shipped ones are PNG pictures of up to 256 x 256 pixels, under 3 KB.
constexpr qint64 kIcon = 256 << 10;
constexpr int kIconSide = 512;
}  // namespace limit

// Why a data file was not read.
struct FileError {
    bool missing = false;  // nothing stands under its name (a broken link counts as nothing)
    QString reason;        // what is wrong with what stands there
};

// The bytes of the regular file at `path`, or nothing when it is missing, is not a regular file,
// cannot be read or holds more than `largest` bytes; `error`, when given, then says which.
std::optional<QByteArray> readDataFile(const QString& path, qint64 largest,
                                       FileError* error = nullptr);

// The same for a file the game does without when it must: one that is there but refused is named
// on standard error, once a run; a missing one is passed over in silence.
std::optional<QByteArray> readDataFileOrWarn(const QString& path, qint64 largest);

// One line on standard error the first time in a run that `path` is refused, saying why.
void warnOnce(const QString& path, const QString& reason);

}  // namespace core
