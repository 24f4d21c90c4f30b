#pragma once
// Matches on the model alone: the shipped characters, a seed, keys a test presses, and the
// sounds the match asked for.
#include <gtest/gtest.h>

#include <QStringList>
#include <functional>

#include "computer/Autopilot.h"
#include "game/Match.h"

namespace testing_support {

// The art of a shipped character, from the source tree's data folder.
game::CharacterArt ShippedArt(const QString& character);
// `art` with every picture cut to, or widened with white to, `width` x `height`.
game::CharacterArt Resized(const game::CharacterArt& art, int width, int height);
// Two or four players named "Player 1" to "Player 4" with shipped characters, music off.
game::MatchSetup ShippedSetup(int players = 2, std::uint64_t seed = 42);
// The same in a calm city: no wind blows a projectile off its way.
game::MatchSetup CalmSetup(int players = 2, std::uint64_t seed = 42);
// `setup` with the shipped pictures of its seats' characters and the turn marker.
game::MatchSetup WithShippedArt(game::MatchSetup setup);

// Plays `m` again from its record, written out and read back, and expects the same end: the
// final board, the last city, the time and every command. Returns the record's size in bytes.
qsizetype ExpectPlaysAgain(const game::Match& m);

// A match with the keys and the event log a test needs.
class Play {
public:
    // With `pilot`, the computer plays the seats the setup gives it, from that seed.
    explicit Play(const game::MatchSetup& setup, std::optional<std::uint64_t> pilot = {});
    // Runs until the first round stands.
    Play& started();
    void run(int ms);
    // Runs in steps of 1 ms until `done` holds; false after `limitMs`.
    bool runUntil(const std::function<bool()>& done, int limitMs = 60000);
    // Chooses `kind`, types angle and velocity and throws, if the boxes allow it: true then.
    bool launch(int angle, int velocity, game::ProjectileKind kind = game::ProjectileKind::Normal);
    // The same, and returns once the turn has passed or the match has ended.
    bool throwAt(int angle, int velocity, game::ProjectileKind kind = game::ProjectileKind::Normal);
    // Gives the match a command from the current player, now.
    bool send(game::Command::Kind kind, const QString& text = {}, int value = 0);
    // Presses `key` for one poll of the keyboard trap.
    void tap(int key);
    void type(const QString& text);
    // Types "\hop fremble" and flies the thrower with the arrow keys, 3 pixels a poll, until his
    // top-left corner is within 3 pixels of `place`.
    void flyTo(QPoint place);
    // Flies the thrower over player `target` and drops a projectile of `kind` on his head (in a
    // calm city); returns once the turn has passed or the match has ended.
    bool dropOn(int target, game::ProjectileKind kind = game::ProjectileKind::Normal);

    std::optional<computer::Autopilot> pilot;  // before the match, which holds on to it
    game::Match match;
    // Every event so far, sounds as their files.
    QStringList sounds;
    std::vector<game::MatchEvent> events;

private:
    void collect();
};

}  // namespace testing_support

// Texts in the messages of failed checks.
inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }
