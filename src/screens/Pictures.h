#pragma once
// The pictures a match needs, read from the data folder. A picture that is missing, cannot be
// read, or is not of its kind's size is named to the players once a run, and a plain grey figure
// stands in for it so that the match plays on.
#include <QSet>
#include <QString>

#include "core/Bitmap.h"
#include "core/DataFolder.h"
#include "game/Match.h"

namespace screens {

// What a picture is for, and so how large it may be. A file larger than the largest picture of
// its kind can be is not read at all.
struct PictureKind {
    const char* name;
    QSize smallest, largest;
};
constexpr PictureKind kCharacterPicture{"a character", game::kSmallestCharacter,
                                        game::kLargestCharacter};
// The shipped marker is 20 x 24 pixels; four times that each way still hangs over its player.
constexpr PictureKind kMarkerPicture{"the turn marker", {1, 1}, {80, 96}};

// Reads the picture at `path` into `image` when it can be read and has the size of its kind;
// `error`, when given, says why not.
bool readPicture(const QString& path, const PictureKind& kind, QImage& image,
                 core::PictureError* error = nullptr);

class Pictures {
public:
    explicit Pictures(core::DataFolder data) : data_(std::move(data)) {}
    // The standing picture and the two throwing poses of `character`.
    game::CharacterArt character(const QString& character);
    // The turn marker.
    core::Canvas marker();

private:
    core::Canvas load(const QString& relative, const PictureKind& kind, QSize standIn);
    core::Canvas standIn(const QString& path, const core::PictureError& why, QSize size);

    core::DataFolder data_;
    QSet<QString> reported_;
};

}  // namespace screens
