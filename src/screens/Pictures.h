#pragma once
// The pictures a match needs, read from the data folder. A picture that is missing, cannot be
// read, or is no character's size is named to the players once a run, and a plain grey figure
// stands in for it so that the match plays on.
#include <QSet>
#include <QString>

#include "core/DataFolder.h"
#include "game/Match.h"

namespace screens {

class Pictures {
public:
    explicit Pictures(core::DataFolder data) : data_(std::move(data)) {}
    // The standing picture and the two throwing poses of `character`.
    game::CharacterArt character(const QString& character);
    // The turn marker.
    core::Canvas marker();

private:
    core::Canvas load(const QString& relative, bool character, QSize standIn);
    core::Canvas standIn(const QString& path, bool missing, const QString& reason, QSize size);

    core::DataFolder data_;
    QSet<QString> reported_;
};

}  // namespace screens
