#pragma once
// The folder that holds the game's data: characters, sounds, tunes, the turn marker, the credits.
#include <QString>

namespace core {

class DataFolder {
public:
    explicit DataFolder(QString root) : root_(std::move(root)) {}
    // The data beside a program in `programFolder`, as in the build tree; or else in
    // ../share/grumbo2 (a bin/ folder under any prefix) or ../share/games/grumbo2 (/usr/games in
    // a Debian package), as after an installation wherever it went.
    static DataFolder forProgram(const QString& programFolder);

    const QString& root() const { return root_; }
    // `relative` ("sounds/throw.wav") inside the folder.
    QString path(const QString& relative) const { return root_ + QLatin1Char('/') + relative; }

private:
    QString root_;
};

}  // namespace core
