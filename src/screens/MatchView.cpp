#include "screens/MatchView.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>
#include <algorithm>

#include "game/Music.h"
#include "screens/LoadingBox.h"
#include "screens/MatchField.h"
#include "screens/MatchNet.h"
#include "screens/MatchStrip.h"
#include "screens/MatchTexts.h"
#include "ui/Clock.h"
#include "ui/OwnedBox.h"

namespace screens {

namespace {
constexpr int kStripHeight = 44;
// When nothing else is due the window still looks in now and then.
constexpr int kLongestWaitMs = 1000;
constexpr int kFastestReplay = 8;
// The computer's draws come from a generator of their own, so that the cities and winds of a seed
// are the same whoever plays.
constexpr std::uint64_t kPilotSeedMix = 0x9e3779b97f4a7c15;
}  // namespace

MatchView::MatchView(const game::MatchSetup& setup, media::Sound& sound, ui::Keyboard& keyboard,
                     core::DataFolder data)
    : ui::Window(game::kFieldWidth, game::kFieldHeight + kStripHeight, Qt::Window),
      match_(setup),
      pilot_(setup.seed ^ kPilotSeedMix),
      sound_(sound),
      data_(std::move(data)) {
    match_.setPilot(&pilot_);
    field_ = new MatchField(this, match_);
    strip_ = new MatchStrip(this, match_, pilot_, [this](game::Command c) { send(c); });
    timer_.setHandler([this] { step(); });
    // The keyboard trap hears the keys from the moment the match window, or its loading box over
    // it, has the keyboard: Escape pauses the start too.
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](QWindow* w) {
        if (w && (w == windowHandle() || (loading_ && w == loading_->windowHandle()))) hearKeys();
    });
    QObject::connect(&keyboard, &ui::Keyboard::changed, this, [this](int key, bool down) {
        if (!keysHeard_ || replay_) return;
        using Kind = game::Command::Kind;
        send({.kind = down ? Kind::KeyDown : Kind::KeyUp, .value = key});
    });
    lastTick_ = ui::clock().tickCount();
    refresh();
}

MatchView::~MatchView() {
    net_.reset();
    sound_.closeTune(data_.path(game::tuneFile(match_.tune())));
    delete loading_.data();
}

void MatchView::resume() {
    send({.kind = game::Command::Kind::Resume});
    if (std::exchange(pauseHeld_, false))
        send({.kind = game::Command::Kind::KeyUp, .value = game::key::kEscape});
    ui::giveFocus(this);
}

void MatchView::hostNetwork(net::Host& host, const std::array<bool, 4>& local) {
    net_ = std::make_unique<MatchNet>(match_, pilot_, host, local);
    startNetwork(local);
}

void MatchView::joinNetwork(net::Guest& guest, int seat, std::optional<game::Skill> computer) {
    net_ = std::make_unique<MatchNet>(match_, pilot_, guest, seat);
    std::array<bool, 4> local{};
    local[static_cast<std::size_t>(seat)] = true;
    startNetwork(local);
    if (computer) pilot_.takeOver(seat, *computer);
}

void MatchView::takeOver(int seat) {
    pilot_.takeOver(seat, game::kUsualSkill);
    if (net_) net_->takeOver(seat);
}

void MatchView::pause() {
    send({.kind = game::Command::Kind::KeyDown, .value = game::key::kEscape});
    pauseHeld_ = true;
}

void MatchView::startNetwork(const std::array<bool, 4>& local) {
    // The computer plays this machine's computer seats through the host, like a person would.
    match_.setPilot(nullptr);
    pilot_.playOnly(local);
    strip_->setLocalSeats(local);
    // Later, not now: a command may arrive while the match is being stepped.
    net_->onArrived = [this] {
        QMetaObject::invokeMethod(
            this, [this] { step(); }, Qt::QueuedConnection);
    };
    net_->onBroken = [this](const QString& why) {
        if (onNetworkBroken) onNetworkBroken(why);
    };
}

void MatchView::send(game::Command command) {
    if (replay_) return;
    // Leaving ends this machine's match at once, so that its record says so; the other machines
    // learn of it from the connection's end.
    if (net_ && command.kind != game::Command::Kind::Leave) {
        net_->send(command);
        refresh();
        return;
    }
    // The command takes effect now: the match first catches up with the clock, without showing
    // the moment before, which would put the box being typed in back as it was.
    catchUp();
    command.at = match_.clock();
    // What the keyboard and the mouse do counts for the player whose turn it is.
    command.seat = match_.currentPlayer();
    match_.apply(command);
    refresh();
}

void MatchView::step() {
    catchUp();
    refresh();
}

void MatchView::catchUp() {
    const std::int32_t now = ui::clock().tickCount();
    const int elapsed = ui::ticksSince(lastTick_, now);
    if (net_) {
        net_->runTo(match_.clock() + elapsed);
        lastTick_ = now;
        return;
    }
    if (!replay_) match_.advance(elapsed);
    else if (!held_) replay_->advance(match_, elapsed * speed_);
    lastTick_ = now;
}

void MatchView::playBack(game::Replay replay) {
    // The record holds the computer's moves too: nobody plays a seat during a replay.
    match_.setPilot(nullptr);
    replay_ = std::move(replay);
    QCoreApplication::instance()->installEventFilter(this);
    refresh();
}

bool MatchView::eventFilter(QObject* watched, QEvent* event) {
    // During a replay the keys of its windows steer it, and the boxes and buttons take nothing.
    const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    const bool mouse = event->type() == QEvent::MouseButtonPress ||
                       event->type() == QEvent::MouseButtonRelease ||
                       event->type() == QEvent::MouseButtonDblClick;
    if (!replay_ || !(key || mouse) || !watched->isWidgetType() ||
        static_cast<QWidget*>(watched)->window() != this)
        return false;
    if (event->type() != QEvent::KeyPress) return true;
    // The time until the key is played at the pace it had.
    catchUp();
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Space: held_ = !held_; break;
        case Qt::Key_Plus:
        case Qt::Key_Equal: speed_ = std::min(speed_ * 2, kFastestReplay); break;
        case Qt::Key_Minus: speed_ = std::max(speed_ / 2, 1); break;
        case Qt::Key_Escape:
            if (onReplayEnded) onReplayEnded();
            return true;
        default: return true;
    }
    refresh();
    return true;
}

void MatchView::hearKeys() {
    // Keys that went down before are not the match's (Escape that left the credits): the match
    // hears only what comes from now on.
    keysHeard_ = true;
}

void MatchView::refresh() {
    // A window system that never hands the match window the keyboard still lets the first turn
    // hear it.
    if (match_.phase() == game::Phase::Aiming) hearKeys();
    // The strip first: a turn that began opens the angle box, which then takes the keyboard.
    strip_->sync();
    playEvents();
    const QString shown = ui::plainTitle(title());
    if (windowTitle() != shown) setWindowTitle(shown);
    const game::Loading& loading = match_.loading();
    if (loading.shown) {
        if (!loading_) loading_ = new LoadingBox(this);
        loading_->showState(loading);
    } else if (loading_) {
        loading_->deleteLater();
        loading_.clear();
    }
    if (match_.takeChange()) field_->update();
    timer_.setInterval(std::clamp(nextWait(), 1, kLongestWaitMs));
    timer_.setEnabled(true);
}

int MatchView::nextWait() const {
    if (!replay_) return match_.msUntilNextEvent();
    if (held_) return kLongestWaitMs;
    int wait = match_.msUntilNextEvent();
    if (const auto at = replay_->nextAt()) wait = std::min(wait, *at - match_.clock());
    return wait / speed_;
}

QString MatchView::title() const {
    if (!replay_) return matchTitle(match_);
    QString replay = QStringLiteral("Replay");
    if (match_.left()) replay += QStringLiteral(" ended");
    else if (held_) replay += QStringLiteral(" paused");
    else if (speed_ > 1) replay += QStringLiteral(" %1x").arg(speed_);
    return replay + QStringLiteral(" - ") + matchTitle(match_);
}

void MatchView::playEvents() {
    using Kind = game::MatchEvent::Kind;
    for (const game::MatchEvent& e : match_.takeEvents()) {
        switch (e.kind) {
            case Kind::Sound: sound_.playEffect(data_.path(e.file)); break;
            case Kind::PlayTune: sound_.playTune(data_.path(game::tuneFile(e.tune))); break;
            case Kind::CloseTune: sound_.closeTune(data_.path(game::tuneFile(e.tune))); break;
            case Kind::FocusAngle: strip_->focusAngle(); break;
            case Kind::Paused:
                // A replay goes on through the pause of the match it plays.
                if (onPaused && !replay_) onPaused();
                break;
            case Kind::GameOver:
                if (onGameOver) onGameOver();
                break;
        }
    }
}

}  // namespace screens
