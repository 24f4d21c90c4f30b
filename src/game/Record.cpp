#include "game/Record.h"

#include <QStringDecoder>
#include <charconv>
#include <limits>

#include "game/Names.h"

namespace game {

namespace {
const char* const kHeader = "grumbo2 record";
const char* const kKindNames[] = {"normal", "nuke", "war", "magnetic"};
const char* const kSkills[] = {"easy", "normal", "hard"};
const char* const kTimes[] = {"random", "day", "night"};
struct CommandName {
    Command::Kind kind;
    const char* name;
};
constexpr CommandName kCommands[] = {
    {Command::Kind::Angle, "angle"},   {Command::Kind::Velocity, "velocity"},
    {Command::Kind::Choose, "choose"}, {Command::Kind::Throw, "throw"},
    {Command::Kind::KeyDown, "down"},  {Command::Kind::KeyUp, "up"},
    {Command::Kind::Resume, "resume"}, {Command::Kind::Leave, "leave"},
};

QByteArray number(double v) {
    // The shortest text that reads back as the very same number.
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, v).ptr;
    return QByteArray(buffer, static_cast<int>(end - buffer));
}

const char* nameOf(Command::Kind kind) {
    for (const CommandName& c : kCommands)
        if (c.kind == kind) return c.name;
    return "?";
}

// The lines of a record, read one after the other; the first fault ends the reading.
class Reader {
public:
    explicit Reader(const QString& text, bool numbered = true)
        : lines_(text.split(QLatin1Char('\n'))), numbered_(numbered) {
        // A last line break leaves an empty line behind it.
        if (!lines_.isEmpty() && lines_.back().isEmpty()) lines_.removeLast();
    }
    bool failed() const { return !error_.isEmpty(); }
    const QString& error() const { return error_; }
    bool atEnd() const { return at_ >= lines_.size(); }
    const QString& peek() const { return lines_[at_]; }

    void fail(const QString& why) {
        if (error_.isEmpty())
            error_ = numbered_ ? QStringLiteral("line %1: %2").arg(at_ + 1).arg(why) : why;
    }
    // The rest of the next line after `key` and a space (empty for the key alone).
    QString value(const char* key) {
        if (failed()) return {};
        if (atEnd()) {
            error_ = QStringLiteral("it ends before its \"%1\" line").arg(QLatin1String(key));
            return {};
        }
        const QString& line = lines_[at_];
        const QString k = QLatin1String(key);
        if (line == k) return ++at_, QString();
        if (!line.startsWith(k + QLatin1Char(' '))) {
            fail(QStringLiteral("\"%1\" expected").arg(k));
            return {};
        }
        ++at_;
        return line.mid(k.size() + 1);
    }
    // A whole number from `lowest` to `highest`.
    long long whole(const QString& text, long long lowest, long long highest, const char* what) {
        bool ok = false;
        const long long n = text.toLongLong(&ok);
        if (!ok || n < lowest || n > highest || text.startsWith(QLatin1Char('+')))
            fail(QStringLiteral("%1 must be a whole number from %2 to %3")
                     .arg(QLatin1String(what))
                     .arg(lowest)
                     .arg(highest));
        return n;
    }
    long long whole(const char* key, long long lowest, long long highest) {
        return whole(value(key), lowest, highest, key);
    }
    // One of `names`, as its index.
    template <std::size_t N>
    int oneOf(const QString& text, const char* const (&names)[N], const char* what) {
        for (std::size_t i = 0; i < N; ++i)
            if (text == QLatin1String(names[i])) return static_cast<int>(i);
        fail(QStringLiteral("unknown %1 \"%2\"").arg(QLatin1String(what), text.left(20)));
        return 0;
    }
    bool onOff(const char* key) { return oneOf(value(key), {"off", "on"}, key) == 1; }
    // The line before the one to read next, for faults found after reading it.
    void back() { --at_; }
    void skip() { ++at_; }

private:
    QStringList lines_;
    bool numbered_;
    qsizetype at_ = 0;
    QString error_;
};

void readSettings(Reader& in, Record& r) {
    MatchSettings& s = r.settings;
    bool ok = false;
    const QString gravity = in.value("gravity");
    s.gravity = gravity.toDouble(&ok);
    if (!ok || s.gravity < kMinGravityTenths / 10.0 || s.gravity > kMaxGravityTenths / 10.0) {
        in.back();
        in.fail(QStringLiteral("gravity must be from %1 to %2")
                    .arg(kMinGravityTenths / 10.0)
                    .arg(kMaxGravityTenths / 10.0));
    }
    s.gameType = static_cast<GameType>(in.oneOf(in.value("game"), {"1vs1", "2vs2"}, "game"));
    s.timeOfDay = static_cast<TimeOfDay>(in.oneOf(in.value("time"), kTimes, "time of day"));
    s.fragLimit = static_cast<int>(in.whole("frags", kMinFragLimit, kMaxFragLimit));
    s.windExtremity = static_cast<int>(in.whole("wind", kMinWindExtremity, kMaxWindExtremity));
    s.buildingHeight = static_cast<int>(in.whole("height", kMinBuildingHeight, kMaxBuildingHeight));
    s.windGusts = in.onOff("gusts");
    s.music = in.onOff("music");
}

void readCarry(Reader& in, Carry& c) {
    const QStringList held = in.value("specials").split(QLatin1Char(' '));
    for (std::size_t p = 0; p < c.specials.size(); ++p) {
        const QString kinds = held.value(static_cast<qsizetype>(p));
        if (kinds.size() != kKinds)
            return in.back(), in.fail(QStringLiteral("specials: four groups of four digits"));
        for (std::size_t k = 0; k < c.specials[p].size(); ++k)
            c.specials[p][k] = kinds[static_cast<qsizetype>(k)] == QLatin1Char('1');
    }
    c.codes = CodeBuffer(in.value("code"));
    const QStringList modes = in.value("modes").split(QLatin1Char(' '), Qt::SkipEmptyParts);
    c.modes.flying = modes.contains(QLatin1String("flying"));
    c.modes.allProjectiles = modes.contains(QLatin1String("allprojectiles"));
    c.modes.invulnerable = modes.contains(QLatin1String("invulnerable"));
    c.projectileFrame = static_cast<int>(in.whole("frame", 0, kFrames - 1));
    c.indicatorCount = static_cast<int>(in.whole("marker", 0, std::numeric_limits<int>::max()));
    c.tune = static_cast<int>(in.whole("tune", 0, 22));
}

void readSeat(Reader& in, int player, SeatRecord& seat) {
    const QStringList who = in.value("player").split(QLatin1Char(' '));
    if (in.failed()) return;
    if (who.value(0) != QString::number(player + 1))
        return in.back(), in.fail(QStringLiteral("player %1 expected").arg(player + 1));
    if (who.value(1) == QLatin1String("computer"))
        seat.computer = static_cast<Skill>(in.oneOf(who.value(2), kSkills, "skill"));
    else if (who.size() != 2 || who[1] != QLatin1String("person"))
        return in.back(), in.fail(QStringLiteral("a player is a person or the computer"));
    seat.name = in.value("name");
    if (!in.failed() && (seat.name.isEmpty() || tidyName(seat.name) != seat.name))
        return in.back(), in.fail(QStringLiteral("no name a player could have typed"));
    seat.character = in.value("character");
    // The name becomes part of a path in the data folder.
    if (!in.failed() &&
        (seat.character.isEmpty() || seat.character.size() > 100 ||
         seat.character.contains(QLatin1Char('/')) || seat.character.contains(QLatin1Char('\\')) ||
         seat.character.startsWith(QLatin1Char('.')) || tidyName(seat.character).size() < 1))
        return in.back(), in.fail(QStringLiteral("no character's name"));
}

std::optional<Command> readCommand(Reader& in, int players, int after) {
    QString why;
    const std::optional<Command> c = game::readCommand(in.peek(), players, &why);
    if (!c) return in.fail(why), std::nullopt;
    if (c->at < after) return in.fail(QStringLiteral("a command out of order")), std::nullopt;
    in.skip();
    return c;
}

}  // namespace

QByteArray commandText(const Command& c) {
    QByteArray line =
        QByteArray::number(c.at) + ' ' + QByteArray::number(c.seat + 1) + ' ' + nameOf(c.kind);
    switch (c.kind) {
        case Command::Kind::Angle:
        case Command::Kind::Velocity:
            if (!c.text.isEmpty()) line += ' ' + c.text.toUtf8();
            break;
        case Command::Kind::Choose:
            if (c.value >= 0 && c.value < kKinds) line += ' ' + QByteArray(kKindNames[c.value]);
            break;
        case Command::Kind::KeyDown:
        case Command::Kind::KeyUp: line += ' ' + QByteArray::number(c.value); break;
        default: break;
    }
    return line;
}

std::optional<Command> readCommand(const QString& line, int players, QString* error) {
    Reader in(line, false);
    const QStringList words = line.split(QLatin1Char(' '));
    Command c;
    c.at = static_cast<int>(
        in.whole(words.value(0), 0, std::numeric_limits<int>::max(), "a command's time"));
    c.seat = static_cast<int>(in.whole(words.value(1), 1, players, "its player")) - 1;
    const QString kind = words.value(2);
    const auto found =
        std::find_if(std::begin(kCommands), std::end(kCommands),
                     [&](const CommandName& n) { return kind == QLatin1String(n.name); });
    if (found == std::end(kCommands))
        in.fail(QStringLiteral("unknown command \"%1\"").arg(kind.left(20)));
    if (in.failed()) return *error = in.error(), std::nullopt;
    c.kind = found->kind;
    const QString argument = words.size() > 3 ? line.section(QLatin1Char(' '), 3) : QString();
    switch (c.kind) {
        case Command::Kind::Angle:
        case Command::Kind::Velocity:
            c.text = argument;
            if (c.text.size() > kBoxLength) in.fail(QStringLiteral("more text than a box holds"));
            break;
        case Command::Kind::Choose: c.value = in.oneOf(argument, kKindNames, "projectile"); break;
        case Command::Kind::KeyDown:
        case Command::Kind::KeyUp:
            c.value = static_cast<int>(in.whole(argument, 0, Keys::kCount - 1, "a key"));
            break;
        default:
            if (!argument.isEmpty()) in.fail(QStringLiteral("\"%1\" takes nothing").arg(kind));
    }
    if (in.failed()) return *error = in.error(), std::nullopt;
    return c;
}

Record recordOf(const Match& m) {
    Record r;
    r.settings = m.settings();
    r.seed = m.setup().seed;
    r.carry = m.setup().carry;
    for (int i = 0; i < m.players(); ++i) {
        const PlayerSetup& p = m.setup().players[static_cast<std::size_t>(i)];
        r.seats[static_cast<std::size_t>(i)] = {p.name, p.character, p.computer};
    }
    r.commands = m.commands();
    r.endedAt = m.clock();
    r.finished = m.over();
    return r;
}

MatchSetup setupOf(const Record& r) {
    MatchSetup s;
    s.settings = r.settings;
    s.seed = r.seed;
    s.carry = r.carry;
    for (std::size_t i = 0; i < s.players.size(); ++i)
        s.players[i] = {r.seats[i].name, r.seats[i].character, {}, r.seats[i].computer};
    return s;
}

QByteArray writeRecord(const Record& r) {
    const MatchSettings& s = r.settings;
    const Carry& c = r.carry;
    QByteArray out = QByteArray(kHeader) + ' ' + QByteArray::number(kRecordVersion) + '\n';
    const auto put = [&](const char* key, const QByteArray& value) {
        out += key;
        if (!value.isEmpty()) out += ' ' + value;
        out += '\n';
    };
    put("seed", QByteArray::number(static_cast<qulonglong>(r.seed)));
    put("reseeds", QByteArray::number(c.reseeds));
    put("gravity", number(s.gravity));
    put("game", s.gameType == GameType::TwoVsTwo ? "2vs2" : "1vs1");
    put("time", kTimes[static_cast<int>(s.timeOfDay)]);
    put("frags", QByteArray::number(s.fragLimit));
    put("wind", QByteArray::number(s.windExtremity));
    put("height", QByteArray::number(s.buildingHeight));
    put("gusts", s.windGusts ? "on" : "off");
    put("music", s.music ? "on" : "off");
    QByteArrayList held;
    for (const auto& kinds : c.specials) {
        QByteArray digits;
        for (bool h : kinds) digits += h ? '1' : '0';
        held << digits;
    }
    put("specials", held.join(' '));
    put("code", c.codes.text().toUtf8());
    QByteArrayList modes;
    if (c.modes.flying) modes << "flying";
    if (c.modes.allProjectiles) modes << "allprojectiles";
    if (c.modes.invulnerable) modes << "invulnerable";
    put("modes", modes.join(' '));
    put("frame", QByteArray::number(c.projectileFrame));
    put("marker", QByteArray::number(c.indicatorCount));
    put("tune", QByteArray::number(c.tune));
    for (int i = 0; i < s.players(); ++i) {
        const SeatRecord& seat = r.seats[static_cast<std::size_t>(i)];
        put("player",
            QByteArray::number(i + 1) + ' ' +
                (seat.computer ? QByteArray("computer ") + kSkills[static_cast<int>(*seat.computer)]
                               : QByteArray("person")));
        put("name", seat.name.toUtf8());
        put("character", seat.character.toUtf8());
    }
    for (const Command& command : r.commands) out += commandText(command) + '\n';
    put("end", QByteArray::number(r.endedAt) + (r.finished ? " finished" : " left"));
    return out;
}

ReadRecord readRecord(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    if (utf8.hasError() || text.contains(QChar::Null)) return {std::nullopt, "it is no text"};
    Reader in(text);
    const QStringList header = in.atEnd() ? QStringList() : in.peek().split(QLatin1Char(' '));
    if (header.size() != 3 || header[0] + QLatin1Char(' ') + header[1] != QLatin1String(kHeader))
        return {std::nullopt, QStringLiteral("it is no record of a Grumbo 2 match")};
    if (header[2] != QString::number(kRecordVersion))
        return {std::nullopt, QStringLiteral("it was made by another version of the game (record "
                                             "version %1; this one plays version %2)")
                                  .arg(header[2].left(10))
                                  .arg(kRecordVersion)};
    in.value(kHeader);
    Record r;
    bool ok = false;
    r.seed = in.value("seed").toULongLong(&ok);
    if (!ok) in.back(), in.fail(QStringLiteral("the seed must be a whole number"));
    r.carry.reseeds = static_cast<int>(in.whole("reseeds", 0, std::numeric_limits<int>::max()));
    readSettings(in, r);
    readCarry(in, r.carry);
    for (int i = 0; i < r.settings.players(); ++i)
        readSeat(in, i, r.seats[static_cast<std::size_t>(i)]);
    while (!in.failed() && !in.atEnd() && !in.peek().startsWith(QLatin1String("end"))) {
        if (in.peek().startsWith(QLatin1String("player")))
            in.fail(QStringLiteral("more players than the game type has"));
        const int after = r.commands.empty() ? 0 : r.commands.back().at;
        if (const auto c = readCommand(in, r.settings.players(), after)) r.commands.push_back(*c);
    }
    const QStringList end = in.value("end").split(QLatin1Char(' '));
    if (!in.failed()) {
        const int after = r.commands.empty() ? 0 : r.commands.back().at;
        r.endedAt = static_cast<int>(
            in.whole(end.value(0), after, std::numeric_limits<int>::max(), "the end's time"));
        r.finished = in.oneOf(end.value(1), {"left", "finished"}, "end") == 1;
        if (!in.atEnd()) in.fail(QStringLiteral("more follows its end"));
    }
    if (in.failed()) return {std::nullopt, in.error()};
    return {r, {}};
}

}  // namespace game
