#pragma once
// A match played with other machines. Every command, this machine's own included, goes to the
// host, which stamps it with its match time and hands it to every machine in one order; each
// machine applies only what comes back, so every match runs the same. A joiner's match runs no
// further than the host has said it may. At the start of every turn the machines compare a digest
// of their matches.
#include <QObject>
#include <QString>
#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>

#include "computer/Autopilot.h"
#include "game/Match.h"

namespace net {
class Host;
class Guest;
}  // namespace net

namespace screens {

// A hash of what every machine must agree on at the start of a turn.
std::uint64_t matchDigest(const game::Match& match);

class MatchNet : public QObject {
public:
    // The host's machine, which plays the seats marked in `local`.
    MatchNet(game::Match& match, computer::Autopilot& pilot, net::Host& host,
             const std::array<bool, 4>& local);
    // A joiner's machine, which plays `seat`.
    MatchNet(game::Match& match, computer::Autopilot& pilot, net::Guest& guest, int seat);
    // The connection may outlive the match: it no longer asks this one for the time.
    ~MatchNet() override;

    // Whether this machine's keyboard, mouse or computer plays `seat`.
    bool local(int seat) const { return local_[static_cast<std::size_t>(seat)]; }
    // Sends what this machine's keyboard or mouse did, for the seat it plays that is on turn
    // (keys for its first seat otherwise); aiming for another machine's seat is dropped.
    void send(game::Command command);
    // Runs the match towards match time `target`, taking the commands that fall due on the way;
    // a joiner's match goes no further than the host has let it. Then this machine's computer
    // acts, and a new turn's digest goes out.
    void runTo(int target);
    // This machine plays `seat` from now on, its player's machine having gone.
    void takeOver(int seat);

    // A command or leave to run arrived: the window steps.
    std::function<void()> onArrived;
    // The match cannot go on together: the host went away, a digest differed.
    std::function<void(const QString& why)> onBroken;

private:
    void arrive(const game::Command& stamped);
    void afterStep();
    void sendOut(const game::Command& command);

    game::Match& match_;
    computer::Autopilot& pilot_;
    net::Host* host_ = nullptr;
    net::Guest* guest_ = nullptr;
    std::array<bool, 4> local_{};
    // Commands stamped for a match time this match has not reached yet, in their order.
    std::deque<game::Command> due_;
    // How far the host has let a joiner's match run.
    int allowed_ = 0;
    int digestAt_ = -1;
};

}  // namespace screens
