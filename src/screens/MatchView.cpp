#include "screens/MatchView.h"

#include <algorithm>

#include "game/Music.h"
#include "screens/LoadingBox.h"
#include "screens/MatchField.h"
#include "screens/MatchStrip.h"
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

// What the field shows, as far as it can change: the field is repainted when this does.
struct MatchView::Look {
    std::vector<qint64> pictures;
    std::vector<QPoint> places;
    std::vector<QString> texts;
    std::vector<int> states;
    bool operator==(const Look&) const = default;
};

MatchView::MatchView(const game::MatchSetup& setup, media::Sound& sound, game::Keys& keys,
                     core::DataFolder data)
    : ui::Window(game::kFieldWidth, game::kFieldHeight + kStripHeight, Qt::Window),
      match_(setup),
      pilot_(setup.seed ^ kPilotSeedMix),
      sound_(sound),
      keys_(keys),
      data_(std::move(data)) {
    match_.setPilot(&pilot_);
    field_ = new MatchField(this, match_);
    strip_ = new MatchStrip(this, match_, pilot_);
    timer_.setHandler([this] { step(); });
    lastTick_ = ui::clock().tickCount();
    refresh();
}

MatchView::~MatchView() {
    sound_.closeTune(data_.path(game::tuneFile(match_.tune())));
    delete loading_.data();
}

void MatchView::resume() {
    match_.resume();
    refresh();
    ui::giveFocus(this);
}

void MatchView::step() {
    const std::int32_t now = ui::clock().tickCount();
    match_.advance(ui::ticksSince(lastTick_, now));
    lastTick_ = now;
    refresh();
}

void MatchView::refresh() {
    // Keys that went down while the match was starting are not the first turn's: asking about
    // each once forgets it, and the keyboard trap hears the keys from the first turn on.
    if (!keysHeard_ && match_.phase() == game::Phase::Aiming) {
        for (int key = 0; key < 256; ++key) keys_.pressed(key);
        match_.setKeys(&keys_);
        keysHeard_ = true;
    }
    // The strip first: a turn that began opens the angle box, which then takes the keyboard.
    strip_->sync();
    playEvents();
    const QString title = ui::plainTitle(match_.title());
    if (windowTitle() != title) setWindowTitle(title);
    const game::Loading& loading = match_.loading();
    if (loading.shown) {
        if (!loading_) loading_ = new LoadingBox(this);
        loading_->showState(loading);
    } else if (loading_) {
        loading_->deleteLater();
        loading_.clear();
    }
    const Look now = look();
    if (!drawn_ || !(*drawn_ == now)) {
        field_->update();
        drawn_ = std::make_unique<Look>(now);
    }
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

MatchView::Look MatchView::look() const {
    const game::Match& m = match_;
    Look l;
    l.pictures = {m.scene().image().cacheKey(), m.windBox().image().cacheKey(),
                  m.indicator().picture().image().cacheKey()};
    l.places = {m.projectile().pos, m.indicator().picturePos(), m.popup().pos()};
    l.texts = {m.windLabel(), m.popup().text(), m.indicator().name()};
    l.states = {m.figuresShown(),           m.boxesShown(),
                m.projectile().shown,       static_cast<int>(m.projectile().kind),
                m.projectile().frame,       m.popup().visible(),
                m.popup().colour().value(), m.indicator().visible(),
                m.board().has_value()};
    for (int i = 0; i < m.players(); ++i) {
        l.pictures.push_back(m.figure(i).canvas().image().cacheKey());
        l.places.push_back(m.figure(i).pos);
        l.texts.push_back(m.panelLine(i));
    }
    return l;
}

}  // namespace screens
