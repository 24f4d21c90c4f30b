#include "screens/MatchView.h"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>

#include "game/Music.h"
#include "screens/LoadingBox.h"
#include "screens/MatchField.h"
#include "screens/MatchStrip.h"
#include "screens/MatchTexts.h"
#include "ui/Clock.h"
#include "ui/OwnedBox.h"

namespace screens {

namespace {
constexpr int kStripHeight = 44;
// When nothing else is due the window still looks in now and then.
constexpr int kLongestWaitMs = 1000;
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
    strip_ = new MatchStrip(this, match_);
    timer_.setHandler([this] { step(); });
    // The keyboard trap hears the keys from the moment the match window, or its loading box over
    // it, has the keyboard: Escape pauses the start too.
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](QWindow* w) {
        if (w && (w == windowHandle() || (loading_ && w == loading_->windowHandle()))) hearKeys();
    });
    QObject::connect(&keyboard, &ui::Keyboard::changed, this, [this](int key, bool down) {
        if (!keysHeard_) return;
        using Kind = game::Command::Kind;
        send({.kind = down ? Kind::KeyDown : Kind::KeyUp, .value = key});
    });
    lastTick_ = ui::clock().tickCount();
    refresh();
}

MatchView::~MatchView() {
    sound_.closeTune(data_.path(game::tuneFile(match_.tune())));
    delete loading_.data();
}

void MatchView::resume() {
    send({.kind = game::Command::Kind::Resume});
    ui::giveFocus(this);
}

void MatchView::send(game::Command command) {
    // The command takes effect now: the match first catches up with the clock.
    step();
    command.at = match_.clock();
    // What the keyboard and the mouse do counts for the player whose turn it is.
    command.seat = match_.currentPlayer();
    match_.apply(command);
    refresh();
}

void MatchView::step() {
    const std::int32_t now = ui::clock().tickCount();
    match_.advance(ui::ticksSince(lastTick_, now));
    lastTick_ = now;
    refresh();
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
    const QString title = ui::plainTitle(matchTitle(match_));
    if (windowTitle() != title) setWindowTitle(title);
    const game::Loading& loading = match_.loading();
    if (loading.shown) {
        if (!loading_) loading_ = new LoadingBox(this);
        loading_->showState(loading);
    } else if (loading_) {
        loading_->deleteLater();
        loading_.clear();
    }
    if (match_.takeChange()) field_->update();
    timer_.setInterval(std::clamp(match_.msUntilNextEvent(), 1, kLongestWaitMs));
    timer_.setEnabled(true);
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
                if (onPaused) onPaused();
                break;
            case Kind::GameOver:
                if (onGameOver) onGameOver();
                break;
        }
    }
}

}  // namespace screens
