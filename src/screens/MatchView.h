#pragma once
// The match window: the field and the strip below it, drawn from the match and driven by one
// timer that moves the match on by the time that has passed. It plays what the match asks for
// and tells its owner when the pause box or the game-over box is due.
#include <QPointer>
#include <functional>
#include <memory>

#include "computer/Autopilot.h"
#include "core/DataFolder.h"
#include "game/Match.h"
#include "game/Replay.h"
#include "media/Sound.h"
#include "screens/LoadingBox.h"
#include "ui/Keyboard.h"
#include "ui/Timer.h"
#include "ui/Window.h"

namespace net {
class Host;
class Guest;
}  // namespace net

namespace screens {

class MatchField;
class MatchNet;
class MatchStrip;

class MatchView : public ui::Window {
public:
    MatchView(const game::MatchSetup& setup, media::Sound& sound, ui::Keyboard& keyboard,
              core::DataFolder data);
    ~MatchView() override;

    const game::Match& match() const { return match_; }
    // After the pause box: the match goes on, and its window takes the keyboard again.
    void resume();
    // Gives the match what a player or the window did, now.
    void send(game::Command command);
    // Plays `replay` in this window instead of taking the players' input: Space pauses and goes
    // on, + and - change the speed, Escape ends it. Call it before the window shows.
    void playBack(game::Replay replay);
    bool replaying() const { return replay_.has_value(); }
    // The replay's speed, 1, 2, 4 or 8, and whether it stands still.
    int speed() const { return speed_; }
    bool replayHeld() const { return held_; }

    // Plays the match with other machines, as their host or as a joiner: every command goes
    // through `host` or `guest`, and only the seats this machine plays take its input.
    void hostNetwork(net::Host& host, const std::array<bool, 4>& local);
    // A joiner's computer plays his seat at `computer`'s skill, when he chose so.
    void joinNetwork(net::Guest& guest, int seat, std::optional<game::Skill> computer);
    // The computer of this machine plays `seat` from now on, its player having gone.
    void takeOver(int seat);
    // Stands the match still on every machine, as Escape would; the key comes up with resume().
    void pause();
    bool networked() const { return net_ != nullptr; }

    MatchStrip* strip() const { return strip_; }
    MatchField* field() const { return field_; }
    LoadingBox* loadingBox() const { return loading_.data(); }

    std::function<void()> onPaused;
    std::function<void()> onGameOver;
    // Escape during a replay.
    std::function<void()> onReplayEnded;
    // A match with other machines that cannot go on, and why.
    std::function<void(const QString& why)> onNetworkBroken;

private:
    void step();
    void catchUp();
    void startNetwork(const std::array<bool, 4>& local);
    void hearKeys();
    void playEvents();
    void refresh();
    int nextWait() const;
    QString title() const;
    bool eventFilter(QObject* watched, QEvent* event) override;

    game::Match match_;
    computer::Autopilot pilot_;
    media::Sound& sound_;
    bool keysHeard_ = false;
    core::DataFolder data_;
    MatchField* field_ = nullptr;
    MatchStrip* strip_ = nullptr;
    QPointer<LoadingBox> loading_;
    ui::Timer timer_;
    std::int32_t lastTick_ = 0;
    std::optional<game::Replay> replay_;
    std::unique_ptr<MatchNet> net_;
    bool pauseHeld_ = false;
    int speed_ = 1;
    bool held_ = false;
};

}  // namespace screens
