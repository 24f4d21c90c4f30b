#include "app/Replays.h"

#include "app/Records.h"
#include "game/Replay.h"
#include "game/Scoring.h"
#include "screens/Pictures.h"

namespace app {

namespace {
// A picture of `kind` at `relative` in the data folder; a stand-in would play another match.
std::optional<core::Canvas> picture(const core::DataFolder& data, const QString& relative,
                                    const screens::PictureKind& kind) {
    QImage image;
    if (!screens::readPicture(data.path(relative), kind, image)) return std::nullopt;
    return core::Canvas(image);
}

std::optional<game::CharacterArt> art(const core::DataFolder& data, const QString& character) {
    const QString stem = QStringLiteral("characters/") + character;
    const auto standing = picture(data, stem + QStringLiteral(".bmp"), screens::kCharacterPicture);
    const auto left = picture(data, stem + QStringLiteral("1.bmp"), screens::kCharacterPicture);
    const auto right = picture(data, stem + QStringLiteral("2.bmp"), screens::kCharacterPicture);
    if (!standing || !left || !right) return std::nullopt;
    return game::CharacterArt{*standing, {*left, *right}};
}
}  // namespace

ReplayFile openReplay(const QString& path, const core::DataFolder& data) {
    ReplayFile file;
    game::ReadRecord read = readRecordFile(path);
    if (!read.record) {
        file.error = read.error;
        return file;
    }
    game::MatchSetup setup = game::setupOf(*read.record);
    for (int i = 0; i < setup.settings.players(); ++i) {
        game::PlayerSetup& p = setup.players[static_cast<std::size_t>(i)];
        const auto pictures = art(data, p.character);
        if (!pictures) {
            file.error =
                QStringLiteral("\"%1\": the pictures of its character \"%2\" are not in %3")
                    .arg(path, p.character, data.path(QStringLiteral("characters")));
            return file;
        }
        p.art = *pictures;
    }
    const auto marker = picture(data, QStringLiteral("pIndication.bmp"), screens::kMarkerPicture);
    if (!marker) {
        file.error = QStringLiteral("\"%1\": the turn marker's picture is not in %2")
                         .arg(path, data.path(QString()));
        return file;
    }
    setup.marker = *marker;
    file.record = std::move(read.record);
    file.setup = std::move(setup);
    return file;
}

int checkReplay(const QString& path, const core::DataFolder& data, std::ostream& out,
                std::ostream& err) {
    const ReplayFile file = openReplay(path, data);
    if (!file.record) {
        err << "grumbo2: " << file.error.toStdString() << "\n";
        return 2;
    }
    game::Match match(*file.setup);
    if (!game::playToTheEnd(match, *file.record)) {
        err << "grumbo2: \"" << path.toStdString()
            << "\": it does not play out as it says it did; it may come from another version\n";
        return 2;
    }
    for (int i = 0; i < match.players(); ++i) {
        const game::PlayerStats& s = match.stats(i);
        out << match.name(i).toStdString() << '\t' << s.frags << '\t' << s.points << '\t'
            << game::accuracyPercent(s.frags, s.misses) << " %\n";
    }
    return 0;
}

}  // namespace app
