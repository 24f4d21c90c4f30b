#include "net/Protocol.h"

#include <QStringDecoder>
#include <QtEndian>
#include <algorithm>
#include <limits>

#include "game/Keys.h"
#include "game/Match.h"
#include "game/Names.h"

namespace net {

namespace {

constexpr int kMaxTime = std::numeric_limits<int>::max();
QByteArray hex64(std::uint64_t v) { return QByteArray::number(static_cast<qulonglong>(v), 16); }

// One line of free text: no line breaks, no longer than a line may be.
QByteArray oneLine(const QString& text) {
    QString line = text.left(kLongestLine);
    for (QChar& c : line)
        if (c.unicode() < 32) c = QLatin1Char(' ');
    return line.toUtf8();
}

QByteArray remoteLine(const Lobby& lobby) {
    QByteArray line = "remote";
    for (int i = 0; i < 4; ++i)
        if (lobby.remote[static_cast<std::size_t>(i)]) line += ' ' + QByteArray::number(i + 1);
    return line;
}

QByteArray lobbyText(const Lobby& lobby) {
    game::Record setup = lobby.setup;
    setup.commands.clear();
    setup.endedAt = 0;
    setup.finished = false;
    return remoteLine(lobby) + '\n' + game::writeRecord(setup);
}

// Reading a message: the first fault is kept, and the message is then no message.
class Reader {
public:
    explicit Reader(QStringList lines) : lines_(std::move(lines)) {}
    bool failed() const { return !error_.isEmpty(); }
    const QString& error() const { return error_; }
    void fail(const QString& why) {
        if (error_.isEmpty()) error_ = why;
    }
    qsizetype size() const { return lines_.size(); }
    const QString& line(qsizetype i) const { return lines_[i]; }

    // The rest of line `i` after `key` and a space; empty for the key alone.
    QString value(qsizetype i, const char* key) {
        const QString k = QLatin1String(key);
        if (i >= lines_.size()) return fail(QStringLiteral("no \"%1\" line").arg(k)), QString();
        if (lines_[i] == k) return {};
        if (!lines_[i].startsWith(k + QLatin1Char(' ')))
            return fail(QStringLiteral("\"%1\" expected").arg(k)), QString();
        return lines_[i].mid(k.size() + 1);
    }
    // Digits only, from `lowest` to `highest`.
    long long whole(const QString& text, long long lowest, long long highest, const char* what) {
        bool ok = !text.isEmpty() && text.size() <= 20 &&
                  std::all_of(text.begin(), text.end(), [](QChar c) {
                      return c >= QLatin1Char('0') && c <= QLatin1Char('9');
                  });
        const long long n = ok ? text.toLongLong(&ok) : 0;
        if (!ok || n < lowest || n > highest) {
            fail(QStringLiteral("%1 must be a whole number from %2 to %3")
                     .arg(QLatin1String(what))
                     .arg(lowest)
                     .arg(highest));
            return lowest;
        }
        return n;
    }
    std::uint64_t hash(const QString& text) {
        bool ok = text.size() <= 16 && !text.isEmpty() &&
                  std::all_of(text.begin(), text.end(), [](QChar c) {
                      return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) ||
                             (c >= QLatin1Char('a') && c <= QLatin1Char('f'));
                  });
        const std::uint64_t h = ok ? text.toULongLong(&ok, 16) : 0;
        if (!ok) fail(QStringLiteral("a hash must be up to 16 hexadecimal digits"));
        return h;
    }
    QString shortLine(const QString& text, const char* what) {
        if (text.size() > kLongestLine)
            fail(QStringLiteral("%1 is longer than %2 characters")
                     .arg(QLatin1String(what))
                     .arg(kLongestLine));
        return text;
    }
    QString name(const QString& text) {
        if (text.isEmpty() || game::tidyName(text) != text)
            fail(QStringLiteral("no name a player could have typed"));
        return text;
    }
    // The character's name becomes part of a path in the data folder.
    QString character(const QString& text) {
        const bool breaksALine = std::any_of(text.begin(), text.end(), [](QChar c) {
            return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
                   c.category() == QChar::Separator_Paragraph;
        });
        if (text.isEmpty() || text.size() > 100 || text.contains(QLatin1Char('/')) ||
            text.contains(QLatin1Char('\\')) || text.startsWith(QLatin1Char('.')) || breaksALine)
            fail(QStringLiteral("no character's name"));
        return text;
    }
    void end(qsizetype lines) {
        if (lines_.size() > lines) fail(QStringLiteral("more follows than the message holds"));
    }

private:
    QStringList lines_;
    QString error_;
};

std::optional<Lobby> readLobby(const QString& text, Reader& in) {
    const qsizetype eol = text.indexOf(QLatin1Char('\n'));
    const QString remote = in.value(1, "remote");
    if (in.failed()) return std::nullopt;
    Lobby lobby;
    for (const QString& word : remote.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const auto seat = in.whole(word, 1, 4, "a remote seat") - 1;
        if (in.failed()) return std::nullopt;
        lobby.remote[static_cast<std::size_t>(seat)] = true;
    }
    // The setup follows the "remote" line, in the match record's own form.
    const qsizetype setupStart = text.indexOf(QLatin1Char('\n'), eol + 1) + 1;
    const game::ReadRecord read =
        game::readRecord(setupStart > 0 ? text.mid(setupStart).toUtf8() : QByteArray());
    if (!read.record) return in.fail(QStringLiteral("its setup: ") + read.error), std::nullopt;
    lobby.setup = *read.record;
    if (!lobby.setup.commands.empty() || lobby.setup.endedAt != 0)
        return in.fail(QStringLiteral("a setup holds no commands")), std::nullopt;
    for (int i = lobby.setup.settings.players(); i < 4; ++i)
        if (lobby.remote[static_cast<std::size_t>(i)])
            return in.fail(QStringLiteral("a remote seat the match does not have")), std::nullopt;
    return lobby;
}

Hello readHello(const QString& first, Reader& in) {
    Hello h;
    h.protocol = static_cast<int>(in.whole(first, 0, 1'000'000, "the protocol version"));
    // A greeting of another version is read no further: its lines may mean something else.
    if (in.failed() || h.protocol != kProtocolVersion) return h;
    h.game = in.shortLine(in.value(1, "game"), "the game's version");
    h.code = in.shortLine(in.value(2, "code"), "the join code");
    h.name = in.name(in.value(3, "name"));
    if (in.size() - 4 > kMostDataFiles)
        in.fail(QStringLiteral("more than %1 data files").arg(kMostDataFiles));
    for (qsizetype i = 4; i < in.size() && !in.failed(); ++i) {
        const QString file = in.value(i, "file");
        const qsizetype space = file.indexOf(QLatin1Char(' '));
        FileDigest d;
        d.hash = in.hash(file.left(space));
        d.path = in.shortLine(file.mid(space + 1), "a data file's path");
        if (space < 0 || d.path.isEmpty()) in.fail(QStringLiteral("a data file without a path"));
        h.data.push_back(d);
    }
    return h;
}

}  // namespace

const char* kindOf(const Message& m) {
    static const char* const kNames[] = {"hello",   "welcome", "refused", "seat", "start",
                                         "command", "tick",    "digest",  "bye",  "left"};
    static_assert(std::size(kNames) == std::variant_size_v<Message>);
    return kNames[m.index()];
}

QByteArray encode(const Message& message) {
    struct Writer {
        QByteArray operator()(const Hello& h) const {
            QByteArray out = "hello " + QByteArray::number(h.protocol) + "\ngame " +
                             oneLine(h.game) + "\ncode " + oneLine(h.code) + "\nname " +
                             oneLine(h.name);
            for (const FileDigest& f : h.data)
                out += "\nfile " + hex64(f.hash) + ' ' + oneLine(f.path);
            return out;
        }
        QByteArray operator()(const Welcome& w) const {
            return "welcome " + QByteArray::number(w.seat + 1) + '\n' + lobbyText(w.lobby);
        }
        QByteArray operator()(const Refused& r) const { return "refused " + oneLine(r.reason); }
        QByteArray operator()(const SeatChoice& s) const {
            return "seat\nname " + oneLine(s.name) + "\ncharacter " + oneLine(s.character);
        }
        QByteArray operator()(const Start& s) const { return "start\n" + lobbyText(s.lobby); }
        QByteArray operator()(const CommandMessage& c) const {
            return "command " + game::commandText(c.command);
        }
        QByteArray operator()(const Tick& t) const { return "tick " + QByteArray::number(t.at); }
        QByteArray operator()(const Digest& d) const {
            return "digest " + QByteArray::number(d.at) + ' ' + hex64(d.hash);
        }
        QByteArray operator()(const Bye& b) const { return "bye " + oneLine(b.reason); }
        QByteArray operator()(const Left& l) const {
            return "left " + QByteArray::number(l.seat + 1) + ' ' + oneLine(l.reason);
        }
    };
    return std::visit(Writer{}, message);
}

QByteArray frame(const Message& message) {
    const QByteArray text = encode(message);
    QByteArray out(4, '\0');
    qToBigEndian(static_cast<quint32>(text.size()), out.data());
    return out + text;
}

Decoded decode(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    if (utf8.hasError() || text.contains(QChar::Null))
        return {std::nullopt, "a message of no text"};
    Reader in(text.split(QLatin1Char('\n')));
    const QString& first = in.line(0);
    const QString kind = first.section(QLatin1Char(' '), 0, 0);
    const QString rest = first.section(QLatin1Char(' '), 1);
    std::optional<Message> m;
    if (kind == QLatin1String("hello")) {
        m = readHello(rest, in);
    } else if (kind == QLatin1String("welcome")) {
        const int seat = static_cast<int>(in.whole(rest, 1, 4, "the seat")) - 1;
        if (const auto lobby = in.failed() ? std::nullopt : readLobby(text, in)) {
            if (!lobby->remote[static_cast<std::size_t>(seat)])
                in.fail(QStringLiteral("a seat given that no other computer plays"));
            m = Welcome{seat, *lobby};
        }
    } else if (kind == QLatin1String("refused")) {
        m = Refused{in.shortLine(rest, "the reason")};
        in.end(1);
    } else if (kind == QLatin1String("seat")) {
        SeatChoice s;
        if (!rest.isEmpty()) in.fail(QStringLiteral("\"seat\" takes its lines"));
        s.name = in.name(in.value(1, "name"));
        s.character = in.character(in.value(2, "character"));
        in.end(3);
        m = s;
    } else if (kind == QLatin1String("start")) {
        if (!rest.isEmpty()) in.fail(QStringLiteral("\"start\" takes its lines"));
        if (const auto lobby = in.failed() ? std::nullopt : readLobby(text, in)) m = Start{*lobby};
    } else if (kind == QLatin1String("command")) {
        // A command reads as in a match record, after its word.
        QString why;
        if (const auto c = game::readCommand(rest, 4, &why)) m = CommandMessage{*c};
        else in.fail(why);
        in.end(1);
    } else if (kind == QLatin1String("tick")) {
        m = Tick{static_cast<int>(in.whole(rest, 0, kMaxTime, "a tick's time"))};
        in.end(1);
    } else if (kind == QLatin1String("digest")) {
        Digest d;
        d.at = static_cast<int>(
            in.whole(rest.section(QLatin1Char(' '), 0, 0), 0, kMaxTime, "a digest's time"));
        d.hash = in.hash(rest.section(QLatin1Char(' '), 1));
        in.end(1);
        m = d;
    } else if (kind == QLatin1String("bye")) {
        m = Bye{in.shortLine(rest, "the reason")};
        in.end(1);
    } else if (kind == QLatin1String("left")) {
        const int seat =
            static_cast<int>(in.whole(rest.section(QLatin1Char(' '), 0, 0), 1, 4, "the seat")) - 1;
        m = Left{seat, in.shortLine(rest.section(QLatin1Char(' '), 1), "the reason")};
        in.end(1);
    } else {
        in.fail(QStringLiteral("an unknown message \"%1\"").arg(kind.left(20)));
    }
    if (in.failed()) return {std::nullopt, QStringLiteral("%1: %2").arg(kind.left(20), in.error())};
    return {m, {}};
}

std::optional<QByteArray> FrameReader::next(QIODevice& in) {
    if (!error_.isEmpty()) return std::nullopt;
    if (length_ < 0) {
        header_ += in.read(4 - header_.size());
        if (header_.size() < 4) return std::nullopt;
        length_ = qFromBigEndian<quint32>(header_.constData());
        header_.clear();
        if (length_ == 0) return error_ = QStringLiteral("an empty message"), std::nullopt;
        if (length_ > largest_) {
            error_ = QStringLiteral("a message of %1 bytes, larger than the %2 allowed")
                         .arg(length_)
                         .arg(largest_);
            return std::nullopt;
        }
    }
    // Only what has arrived: read() would otherwise make room for the whole frame at once.
    const qint64 wanted = std::min(length_ - text_.size(), in.bytesAvailable());
    if (wanted > 0) text_ += in.read(wanted);
    if (text_.size() < length_) return std::nullopt;
    length_ = -1;
    return std::exchange(text_, {});
}

}  // namespace net
