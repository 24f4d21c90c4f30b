// The match's clock: everything that falls due within an advance() runs in time order, and the
// phases of a throw follow each other as steps.
#include "game/Match.h"

#include <algorithm>
#include <limits>
#include <type_traits>

#include "core/Numbers.h"
#include "game/Calibration.h"
#include "game/Music.h"

namespace game {

namespace {
constexpr int kPollMs = 20;
constexpr int kMusicTickMs = 1000;
constexpr int kCheckMs = 60;
// The flight tick before the start's test has set it.
constexpr int kDesignedFlightTickMs = 32;
constexpr int kNever = -1;
}  // namespace

Match::Match(const MatchSetup& setup)
    : setup_(setup),
      settings_(setup.settings),
      random_(setup.seed),
      nextPoll_(kPollMs),
      nextMusicTick_(kNever),
      sky_(kFieldWidth, kFieldHeight),
      scene_(sky_),
      flightTickMs_(kDesignedFlightTickMs),
      windBox_(kWindBox.width(), kWindBox.height()) {
    specials_ = setup.carry.specials;
    codes_ = setup.carry.codes;
    modes_ = setup.carry.modes;
    projectileFrame_ = setup.carry.projectileFrame;
    indicator_.count = setup.carry.indicatorCount;
    tune_ = setup.carry.tune;
    reseeds_ = setup.carry.reseeds;
    for (int i = 0; i < 4; ++i) names_[static_cast<std::size_t>(i)] = setupOf(i).name;
    for (int i = 0; i < players(); ++i) figureOf(i).put(setupOf(i).art.standing);
    if (settings_.music) {
        reseed();
        tune_ = random_.below(kTunes) + 1;
        events_.push_back({MatchEvent::Kind::PlayTune, {}, tune_});
        tuneSeconds_ = 0;
        nextMusicTick_ = kMusicTickMs;
    }
    doNext(
        {steps::Calibrate{}, steps::ShowCalibration{}, steps::FirstRound{}, steps::BuildRound{}});
    runSteps();
}

// ---- Time ----------------------------------------------------------------------------------

void Match::advance(int ms) {
    if (ms <= 0) return;
    const int end = now_ + ms;
    while (!paused_) {
        const auto due = nextDue();
        if (!due || due->first > end) {
            now_ = end;
            break;
        }
        now_ = due->first;
        run(due->second);
    }
    if (paused_) {
        // The rest of the time passes with the match standing still; the tune plays on.
        const int realEnd = end + pausedFor_;
        while (nextMusicTick_ != kNever && nextMusicTick_ <= realEnd) musicTick();
        pausedFor_ += end - now_;
    }
    popup_.advanceTo(now_, scene_);
    if (popup_.visible()) changed_ = true;
}

int Match::msUntilNextEvent() const {
    if (paused_)
        return nextMusicTick_ == kNever ? std::numeric_limits<int>::max()
                                        : std::max(0, nextMusicTick_ - (now_ + pausedFor_));
    const auto due = nextDue();
    return due ? std::max(0, due->first - now_) : std::numeric_limits<int>::max();
}

std::optional<std::pair<int, Match::Due>> Match::nextDue() const {
    // Of things due at the same moment the one listed first goes first: the flight moves the
    // projectile before the collision check looks at it.
    std::optional<std::pair<int, Due>> best;
    const auto consider = [&](int at, Due what) {
        if (!best || at < best->first) best = std::pair(at, what);
    };
    consider(nextPoll_, Due::Poll);
    if (nextMusicTick_ != kNever) consider(nextMusicTick_ - pausedFor_, Due::Music);
    if (indicator_.running()) consider(indicator_.nextTickAt(), Due::Indicator);
    if (const auto fade = popup_.fadeBeginsAt()) consider(*fade, Due::Popup);
    if (flying_) {
        consider(nextFlightTick_, Due::FlightTick);
        consider(nextCheck_, Due::Check);
    }
    if (underWay_) consider(underWay_->nextAt, Due::Step);
    // The pilot acts after whatever else falls due at the same moment: a pause polled then comes
    // first. A pilot that is late acts now; time does not run back for it.
    if (pilot_)
        if (const auto at = pilot_->nextActionAt(*this)) consider(std::max(*at, now_), Due::Pilot);
    return best;
}

void Match::run(Due what) {
    switch (what) {
        case Due::Poll:
            nextPoll_ += kPollMs;
            if (trapPoll()) changed_ = true;
            return;
        case Due::Music: musicTick(); return;
        case Due::Indicator: indicator_.tick(sky_, now_); break;
        case Due::Popup: popup_.advanceTo(now_, scene_); break;
        case Due::FlightTick:
            nextFlightTick_ += flightTickMs_;
            flightTick();
            break;
        case Due::Check:
            nextCheck_ += kCheckMs;
            if (now_ > checksResumeAt_) collisionCheck();
            break;
        case Due::Step:
            if (const Next next = std::visit([this](auto& k) { return tick(k); }, underWay_->step))
                underWay_->nextAt = *next;
            else {
                underWay_.reset();
                runSteps();
            }
            break;
        case Due::Pilot:
            for (Command c : pilot_->act(*this)) {
                c.at = clock();
                if (accepts(c)) take(c);
            }
            break;
    }
    changed_ = true;
}

void Match::musicTick() {
    nextMusicTick_ += kMusicTickMs;
    if (++tuneSeconds_ != tuneSeconds(tune_)) return;
    events_.push_back({MatchEvent::Kind::CloseTune, {}, tune_});
    // The same tune may come again.
    tune_ = random_.below(kTunes) + 1;
    events_.push_back({MatchEvent::Kind::PlayTune, {}, tune_});
    tuneSeconds_ = 0;
}

void Match::reseed() { random_.seed(core::Random::reseedValue(setup_.seed, reseeds_++)); }

void Match::play(const QString& file) { events_.push_back({MatchEvent::Kind::Sound, file, 0}); }

std::vector<MatchEvent> Match::takeEvents() { return std::exchange(events_, {}); }

Match Match::sandbox() const {
    Match copy = *this;
    copy.keys_ = Keys();
    copy.pilot_ = nullptr;
    copy.events_.clear();
    copy.commands_.clear();
    return copy;
}

bool Match::accepts(const Command& c) const {
    using Kind = Command::Kind;
    return c.seat >= 0 && c.seat < players() &&
           (c.kind != Kind::Choose || (c.value >= 0 && c.value < kKinds)) &&
           ((c.kind != Kind::KeyDown && c.kind != Kind::KeyUp) ||
            (c.value >= 0 && c.value < Keys::kCount)) &&
           c.text.size() <= kBoxLength;
}

bool Match::apply(const Command& c) {
    if (!accepts(c) || c.at < clock()) return false;
    advance(c.at - clock());
    take(c);
    return true;
}

void Match::take(const Command& c) {
    using Kind = Command::Kind;
    commands_.push_back(c);
    changed_ = true;
    // Only the thrower's own keyboard, mouse or computer aims and throws for him.
    const bool thrower = c.seat == current_;
    switch (c.kind) {
        case Kind::Angle:
            if (thrower) setAngleText(c.text);
            break;
        case Kind::Velocity:
            if (thrower) setVelocityText(c.text);
            break;
        case Kind::Choose:
            if (thrower) chooseProjectile(static_cast<ProjectileKind>(c.value));
            break;
        case Kind::Throw:
            if (thrower) throwProjectile();
            break;
        case Kind::KeyDown: keys_.down(c.value); break;
        case Kind::KeyUp: keys_.up(c.value); break;
        case Kind::Resume: resume(); break;
        case Kind::Leave: left_ = true; break;
    }
}

// ---- Steps ---------------------------------------------------------------------------------

void Match::doNext(std::initializer_list<Step> steps) {
    steps_.insert(steps_.begin(), steps.begin(), steps.end());
}

void Match::runSteps() {
    while (!underWay_ && !steps_.empty()) {
        Step step = steps_.front();
        steps_.pop_front();
        if (const Next next = std::visit([this](auto& k) { return start(k); }, step))
            underWay_ = Running{step, *next};
    }
}

Match::Next Match::start(steps::ShowCalibration&) { return now_ + calibration::kShowResultMs; }

Match::Next Match::tick(steps::ShowCalibration&) {
    loading_.shown = false;
    return std::nullopt;
}

Match::Next Match::start(steps::FirstRound&) {
    reseed();
    kind_ = ProjectileKind::Normal;
    current_ = 0;
    flight_.ticks = 0;
    return std::nullopt;
}

Match::Next Match::start(steps::EndTurn&) {
    endTurn();
    return std::nullopt;
}

Match::Next Match::start(steps::AfterHit& s) {
    afterHit(s.thrower);
    return std::nullopt;
}

Match::Next Match::start(steps::FinalBoard&) { return now_ + durations::kGameOverAfterMs; }

Match::Next Match::tick(steps::FinalBoard&) {
    gameOverShown_ = true;
    events_.push_back({MatchEvent::Kind::GameOver, {}, 0});
    return std::nullopt;
}

Phase Match::phase() const {
    if (underWay_) {
        return std::visit(
            [](const auto& k) {
                using Kind = std::decay_t<decltype(k)>;
                if constexpr (std::is_same_v<Kind, steps::Calibrate> ||
                              std::is_same_v<Kind, steps::ShowCalibration>)
                    return Phase::Starting;
                else if constexpr (std::is_same_v<Kind, steps::BuildRound>)
                    return Phase::BuildingRound;
                else if constexpr (std::is_same_v<Kind, steps::Crater>) return Phase::Cratering;
                else if constexpr (std::is_same_v<Kind, steps::Dissolve>) return Phase::Dissolving;
                else if constexpr (std::is_same_v<Kind, steps::Blast>) return Phase::Exploding;
                else if constexpr (std::is_same_v<Kind, steps::Vaporize>) return Phase::Vaporizing;
                else if constexpr (std::is_same_v<Kind, steps::Dance>) return Phase::Dancing;
                else if constexpr (std::is_same_v<Kind, steps::FinalBoard>)
                    return Phase::FinalBoard;
                else return Phase::ShowingPoints;  // the popups of near misses and hits
            },
            underWay_->step);
    }
    if (flying_) return Phase::Flying;
    return over() ? Phase::FinalBoard : Phase::Aiming;
}

// ---- The players' input ----------------------------------------------------------------------

void Match::setAngleText(const QString& text) {
    if (inputOpen_) angleText_ = text;
}

void Match::setVelocityText(const QString& text) {
    if (inputOpen_) velocityText_ = text;
}

bool Match::canThrow() const {
    // Pasted text is not filtered by the keys, so anything but digits counts as an empty box.
    return inputOpen_ && !paused_ && phase() == Phase::Aiming && core::isDigits(angleText_) &&
           core::isDigits(velocityText_);
}

void Match::chooseProjectile(ProjectileKind kind) {
    if (paused_ || !selectorShown_[index(kind)]) return;
    frameLeft_ = selectorLeft_[index(kind)] - 1;
    kind_ = kind;
}

void Match::resume() { paused_ = false; }

bool Match::holds(int player, ProjectileKind kind) const {
    return specials_[static_cast<std::size_t>(player)][index(kind)];
}

Carry Match::carry() const {
    Carry c;
    c.specials = specials_;
    c.codes = codes_;
    c.modes = modes_;
    c.projectileFrame = projectileFrame_;
    c.indicatorCount = indicator_.count;
    c.tune = tune_;
    c.reseeds = reseeds_;
    return c;
}

}  // namespace game
