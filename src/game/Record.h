#pragma once
// A match kept as text: how it was set up and every command that entered it, so that it plays
// again exactly. The format is readable in a text editor; its first line names its version, and a
// record of another version is refused, since the same commands may play out otherwise under
// other rules.
#include <QByteArray>
#include <QString>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "game/Command.h"
#include "game/Match.h"

namespace game {

constexpr int kRecordVersion = 1;
// Larger files are no record of a match anyone played.
constexpr qint64 kLargestRecord = 1 << 20;

struct SeatRecord {
    QString name;
    QString character;
    // The computer played the seat, at this skill.
    std::optional<Skill> computer;
    bool operator==(const SeatRecord&) const = default;
};

struct Record {
    MatchSettings settings;
    std::uint64_t seed = 0;
    Carry carry;
    // Players 1 to 4; a "1 vs 1" match has the first two.
    std::array<SeatRecord, 4> seats;
    std::vector<Command> commands;
    // Match time of the end, and whether it was the final board or the players left.
    int endedAt = 0;
    bool finished = false;
    bool operator==(const Record&) const = default;
};

// The record of `match` as it stands: finished when it shows its final board, else left now.
Record recordOf(const Match& match);
// `record`'s setup, with the pictures the match needs left to the caller.
MatchSetup setupOf(const Record& record);

QByteArray writeRecord(const Record& record);

// A command on a line of its own, as records and the network write it: "1900 2 angle 45" is
// match time, player from 1, what, and what with.
QByteArray commandText(const Command& command);
// `line` read as a command of a match of `players`; none, with why in `error`, when it is none.
std::optional<Command> readCommand(const QString& line, int players, QString* error);

struct ReadRecord {
    std::optional<Record> record;
    // Why there is none: one line.
    QString error;
};
ReadRecord readRecord(const QByteArray& text);

}  // namespace game
