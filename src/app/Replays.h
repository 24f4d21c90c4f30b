#pragma once
// Playing a kept match again: the record read from its file and set up with the pictures of the
// data folder, in the match window or without one.
#include <QString>
#include <optional>
#include <ostream>

#include "core/DataFolder.h"
#include "game/Record.h"

namespace app {

struct ReplayFile {
    std::optional<game::Record> record;
    std::optional<game::MatchSetup> setup;
    // Why it cannot be played, naming the file.
    QString error;
};
// The record at `path` and its match's setup, every picture it needs read from `data`.
ReplayFile openReplay(const QString& path, const core::DataFolder& data);

// Plays the record at `path` without a window and prints its final board on `out`, a line a
// player; returns the program's exit status (2, with a line on `err`, for a record it cannot play).
int checkReplay(const QString& path, const core::DataFolder& data, std::ostream& out,
                std::ostream& err);

}  // namespace app
