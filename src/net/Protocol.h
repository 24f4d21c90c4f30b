#pragma once
// What the computers of one match say to each other. A match is its setup, its seed and its
// commands, so every machine runs the same match and only commands travel: the host stamps each
// command with the match time at which it takes effect and hands it to everyone in one order.
// Every message is a frame: four bytes of big-endian length, then that many bytes of UTF-8 text
// whose first word names the message (docs/network.md). Whatever arrives is read as hostile: a
// fault gives one line saying what was wrong, never a crash or memory without bound.
#include <QByteArray>
#include <QIODevice>
#include <QString>
#include <array>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "game/Command.h"
#include "game/Record.h"

namespace net {

// A machine that speaks another version is refused, as its messages may mean something else.
constexpr int kProtocolVersion = 1;
constexpr quint16 kDefaultPort = 47474;
// The largest message once a machine has joined; the greeting may be larger, as it lists every
// data file with its hash.
constexpr qint64 kLargestMessage = 64 * 1024;
constexpr qint64 kLargestGreeting = 1024 * 1024;
constexpr int kMostDataFiles = 4096;
// Reasons, join codes and version texts are one short line.
constexpr int kLongestLine = 200;

// A data file, by its path in the data folder, and the hash of its bytes.
struct FileDigest {
    QString path;
    std::uint64_t hash = 0;
    bool operator==(const FileDigest&) const = default;
};

// How the match is set up, with no commands yet, and which seats play on other machines.
struct Lobby {
    game::Record setup;
    std::array<bool, 4> remote{};
    bool operator==(const Lobby&) const = default;
};

// Joiner to host: the first message, asking for a seat.
struct Hello {
    int protocol = kProtocolVersion;
    QString game;  // the game's version
    QString code;  // the join code the player typed
    QString name;
    std::vector<FileDigest> data;
    bool operator==(const Hello&) const = default;
};
// Host to joiner: the seat (0 to 3) he was given, and the lobby; again whenever it changes.
struct Welcome {
    int seat = 0;
    Lobby lobby;
    bool operator==(const Welcome&) const = default;
};
// Host to a would-be joiner, who is then disconnected.
struct Refused {
    QString reason;
    bool operator==(const Refused&) const = default;
};
// Joiner to host: who plays his seat.
struct SeatChoice {
    QString name;
    QString character;
    bool operator==(const SeatChoice&) const = default;
};
// Host to joiners: the match begins, set up as this.
struct Start {
    Lobby lobby;
    bool operator==(const Start&) const = default;
};
// A command: from a joiner, for his own seat (its time is ignored); from the host, stamped.
struct CommandMessage {
    game::Command command;
    bool operator==(const CommandMessage&) const = default;
};
// Host to joiners: the host's match has reached `at`; every command before it has been sent.
// Joiner to host: still there, with his match at `at`.
struct Tick {
    int at = 0;
    bool operator==(const Tick&) const = default;
};
// A hash of the whole match state at the end of a turn, to find machines that went apart.
struct Digest {
    int at = 0;
    std::uint64_t hash = 0;
    bool operator==(const Digest&) const = default;
};
// Leaving, or being sent away, and why.
struct Bye {
    QString reason;
    bool operator==(const Bye&) const = default;
};

// Host to joiners: the player at another computer who played `seat` (0 to 3) is gone, and why.
struct Left {
    int seat = 0;
    QString reason;
    bool operator==(const Left&) const = default;
};

using Message = std::variant<Hello, Welcome, Refused, SeatChoice, Start, CommandMessage, Tick,
                             Digest, Bye, Left>;

// The word that opens the message's text ("hello", "command", ...).
const char* kindOf(const Message& message);

// The message's text, without the length.
QByteArray encode(const Message& message);
// The length and the text, ready for the socket.
QByteArray frame(const Message& message);

struct Decoded {
    std::optional<Message> message;
    // Why there is none: one line.
    QString error;
};
// Checks everything a message can be checked for alone: its form, its numbers' ranges, names a
// player could type. What depends on earlier messages (order, seats) is the receiver's to check.
Decoded decode(const QByteArray& text);

// Cuts frames out of a stream, never holding more than one frame of at most `largest` bytes. A
// larger length is refused as soon as it is read, before any of its bytes.
class FrameReader {
public:
    explicit FrameReader(qint64 largest = kLargestMessage) : largest_(largest) {}
    void setLargest(qint64 bytes) { largest_ = bytes; }
    // The next whole frame's text, reading from `in` no more than it needs; none while the frame
    // is incomplete or after a fault (error()).
    std::optional<QByteArray> next(QIODevice& in);
    const QString& error() const { return error_; }
    qint64 buffered() const { return text_.size(); }

private:
    qint64 largest_;
    QByteArray header_;
    qint64 length_ = -1;  // of the frame being read; -1 while its length is still to come
    QByteArray text_;
    QString error_;
};

}  // namespace net
