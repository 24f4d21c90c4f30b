#include "GameSupport.h"

#include "game/Record.h"
#include "game/Replay.h"
#include "screens/Pictures.h"

namespace testing_support {

game::CharacterArt ShippedArt(const QString& character) {
    return screens::Pictures(core::DataFolder(QStringLiteral(GRUMBO_DATA_DIR)))
        .character(character);
}

game::CharacterArt Resized(const game::CharacterArt& art, int width, int height) {
    const auto resized = [&](const core::Canvas& c) {
        core::Canvas r(width, height);
        r.blit(c, 0, 0);
        return r;
    };
    return {resized(art.standing), {resized(art.poses[0]), resized(art.poses[1])}};
}

game::MatchSetup ShippedSetup(int players, std::uint64_t seed) {
    static const char* const kCharacters[4] = {"Classic Grumbo", "Rapper Grumbo", "Robo Grumbo",
                                               "Suit Grumbo"};
    game::MatchSetup s;
    s.settings.gameType = players == 4 ? game::GameType::TwoVsTwo : game::GameType::OneVsOne;
    s.settings.music = false;
    s.seed = seed;
    for (int i = 0; i < 4; ++i) {
        s.players[static_cast<std::size_t>(i)].name = QStringLiteral("Player %1").arg(i + 1);
        s.players[static_cast<std::size_t>(i)].character = QString::fromLatin1(kCharacters[i]);
    }
    return WithShippedArt(s);
}

game::MatchSetup WithShippedArt(game::MatchSetup setup) {
    screens::Pictures pictures(core::DataFolder(QStringLiteral(GRUMBO_DATA_DIR)));
    for (game::PlayerSetup& p : setup.players)
        if (!p.character.isEmpty()) p.art = pictures.character(p.character);
    setup.marker = pictures.marker();
    return setup;
}

game::MatchSetup CalmSetup(int players, std::uint64_t seed) {
    game::MatchSetup s = ShippedSetup(players, seed);
    s.settings.windExtremity = 0;
    s.settings.windGusts = false;
    return s;
}

qsizetype ExpectPlaysAgain(const game::Match& m) {
    const QByteArray text = game::writeRecord(game::recordOf(m));
    const game::ReadRecord read = game::readRecord(text);
    EXPECT_TRUE(read.record) << read.error.toStdString();
    if (!read.record) return 0;
    game::Match again(WithShippedArt(game::setupOf(*read.record)));
    EXPECT_TRUE(game::playToTheEnd(again, *read.record)) << "its moves are in the record";
    EXPECT_TRUE(again.board() == m.board()) << "the same final board";
    EXPECT_TRUE(again.scene() == m.scene()) << "the same last city";
    EXPECT_EQ(again.clock(), m.clock());
    EXPECT_EQ(again.commands(), m.commands()) << "the last, at the very end, too";
    return text.size();
}

Play::Play(const game::MatchSetup& setup, std::optional<std::uint64_t> pilot) : match(setup) {
    if (pilot) match.setPilot(&this->pilot.emplace(*pilot));
    collect();
}

Play& Play::started() {
    EXPECT_TRUE(runUntil([&] { return match.phase() == game::Phase::Aiming; }));
    return *this;
}

void Play::collect() {
    for (const game::MatchEvent& e : match.takeEvents()) {
        if (e.kind == game::MatchEvent::Kind::Sound) sounds << e.file;
        events.push_back(e);
    }
}

void Play::run(int ms) {
    match.advance(ms);
    collect();
}

bool Play::runUntil(const std::function<bool()>& done, int limitMs) {
    for (int t = 0; t < limitMs && !done(); ++t) run(1);
    return done();
}

bool Play::send(game::Command::Kind kind, const QString& text, int value) {
    const bool applied = match.apply({match.clock(), match.currentPlayer(), kind, text, value});
    collect();
    return applied;
}

bool Play::launch(int angle, int velocity, game::ProjectileKind kind) {
    using Kind = game::Command::Kind;
    send(Kind::Choose, {}, static_cast<int>(kind));
    send(Kind::Angle, QString::number(angle));
    send(Kind::Velocity, QString::number(velocity));
    return match.canThrow() && send(Kind::Throw);
}

bool Play::throwAt(int angle, int velocity, game::ProjectileKind kind) {
    return launch(angle, velocity, kind) &&
           runUntil([&] { return match.over() || match.phase() == game::Phase::Aiming; });
}

void Play::tap(int key) {
    send(game::Command::Kind::KeyDown, {}, key);
    run(20);
    send(game::Command::Kind::KeyUp, {}, key);
}

void Play::type(const QString& text) {
    for (QChar c : text) {
        if (c == QLatin1Char('\\')) tap(game::key::kBackslash);
        else if (c == QLatin1Char(' ')) tap(game::key::kSpace);
        else tap(c.toUpper().unicode());
    }
}

void Play::flyTo(QPoint place) {
    if (!match.modes().flying) type(QStringLiteral("\\hop fremble"));
    const auto& me = [&]() -> const game::Figure& { return match.figure(match.currentPlayer()); };
    for (int i = 0; i < 1000; ++i) {
        const QPoint d = place - me().pos;
        if (std::abs(d.x()) < 3 && std::abs(d.y()) < 3) return;
        if (std::abs(d.x()) >= 3) tap(d.x() < 0 ? game::key::kLeft : game::key::kRight);
        else tap(d.y() < 0 ? game::key::kUp : game::key::kDown);
    }
}

bool Play::dropOn(int target, game::ProjectileKind kind) {
    const game::Figure& t = match.figure(target);
    const game::Figure& me = match.figure(match.currentPlayer());
    // The projectile waits at the thrower's hand: his left edge, or his right edge on the right.
    const bool right = match.currentPlayer() > match.players() / 2 - 1;
    const int hand = t.pos.x() + t.width() / 2 - 5;
    flyTo({right ? hand - me.width() + 10 : hand, t.pos.y() - 40 + 11});
    return throwAt(90, 0, kind);
}

}  // namespace testing_support
