#include "screens/Characters.h"

#include <QDir>
#include <algorithm>

#include "game/Characters.h"
#include "screens/Pictures.h"

namespace screens {

namespace {
// The bitmaps of the folder in alphabetical order, ignoring case (hidden files are left out).
QStringList listBitmaps(const QString& folder) {
    QStringList files =
        QDir(folder).entryList({QStringLiteral("*.bmp")}, QDir::Files, QDir::NoSort);
    std::sort(files.begin(), files.end(), [](const QString& a, const QString& b) {
        const int c = a.compare(b, Qt::CaseInsensitive);
        return c != 0 ? c < 0 : a < b;
    });
    return files;
}

// The pose files must follow the standing picture: base + "1.bmp" somewhere after it, and
// base + "2.bmp" after that. Pose files and lone pictures drop out here, before any loading.
bool hasBothPoses(const QStringList& files, qsizetype at, const QString& base) {
    const qsizetype one = files.indexOf(base + QStringLiteral("1.bmp"), at + 1);
    return one >= 0 && files.indexOf(base + QStringLiteral("2.bmp"), one + 1) >= 0;
}

// A bitmap that cannot be read fails like one of the wrong size.
bool fits(const QString& path) {
    QImage image;
    return readPicture(path, kCharacterPicture, image);
}
}  // namespace

QStringList scanCharacters(const core::DataFolder& data) {
    const QString folder = data.path(QStringLiteral("characters"));
    const QStringList files = listBitmaps(folder);
    QStringList found;
    for (qsizetype i = 0; i < files.size() && found.size() < kMostCharacters; ++i) {
        const QString base = files[i].section(QLatin1Char('.'), 0, 0);
        if (game::isHidden(base) || !hasBothPoses(files, i, base)) continue;
        QStringList pictures{files[i], base + QStringLiteral("1.bmp"),
                             base + QStringLiteral("2.bmp")};
        // The preview and the match load the standing picture by the character's name; a file
        // listed under another spelling ("X.BMP", "X.old.bmp") is only a character with it.
        if (files[i] != base + QStringLiteral(".bmp")) pictures << base + QStringLiteral(".bmp");
        if (std::all_of(pictures.begin(), pictures.end(),
                        [&](const QString& f) { return fits(folder + QLatin1Char('/') + f); }))
            found << base;
    }
    return found;
}

}  // namespace screens
