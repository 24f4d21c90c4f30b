#pragma once
// The records of the matches played, kept in the player's data folder: one small text file a
// match, the newest 50. A record that cannot be written costs the match nothing: one line on
// standard error.
#include <QDateTime>
#include <QString>

#include "game/Record.h"

namespace app {

class RecordStore {
public:
    static constexpr int kKept = 50;

    // Records go into `folder`, which need not exist yet.
    explicit RecordStore(QString folder) : folder_(std::move(folder)) {}
    // "replays" in the player's data folder.
    static QString usualFolder();

    // Writes `record` as the match of `when`; returns the file, or nothing when it failed.
    QString keep(const game::Record& record, const QDateTime& when) const;
    const QString& folder() const { return folder_; }

private:
    void forgetOldest() const;

    QString folder_;
};

// The record in the file at `path`, or why it cannot be played: the file's name and the reason.
game::ReadRecord readRecordFile(const QString& path);

}  // namespace app
