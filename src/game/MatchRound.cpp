// The start of a match and the building of every round.
#include "core/Transparency.h"
#include "game/Calibration.h"
#include "game/Match.h"
#include "game/Skyline.h"

namespace game {

namespace {
// The projectile waits this far above the thrower's head.
constexpr int kHandAbove = 11;
}  // namespace

Match::Next Match::start(steps::Calibrate&) {
    loading_ = {.shown = true, .stage = Loading::Stage::Synchronizing};
    play(QStringLiteral("sounds/gn.wav"));
    return now_ + calibration::kTestTickMs;
}

Match::Next Match::tick(steps::Calibrate& s) {
    ++s.ticks;
    const int left = calibration::testLeft(s.ticks);
    loading_.progress = left / 100.0 * 100;
    if (left <= calibration::kTestAreaWidth - 10) return now_ + calibration::kTestTickMs;
    flightTickMs_ = calibration::flightTickMs(s.ticks);
    loading_.stage = Loading::Stage::Synchronized;
    loading_.testMs = calibration::testTime(s.ticks);
    loading_.tickMs = flightTickMs_;
    return std::nullopt;
}

Match::Next Match::start(steps::BuildRound&) {
    loading_ = {.shown = true};
    figuresShown_ = boxesShown_ = false;
    drawSky();
    // The last round's city is painted over where it stands: a new picture every round costs
    // more than the copy.
    if (scene_.width() == sky_.width() && scene_.height() == sky_.height()) scene_.blit(sky_, 0, 0);
    else scene_ = sky_;
    for (int i = 0; i < players(); ++i) figureOf(i).park();
    const City city = drawCity(scene_, random_, players(), settings_.buildingHeight, day_);
    placeAndBlendCharacters(city);
    fragged_.clear();
    wind_ = roundWind(random_, settings_.windExtremity);
    redrawWindBox();
    alignProjectile();
    showRoundStage(0);
    return now_ + durations::kLoadingStatusMs;
}

int Match::roundStages() const {
    // The sky, the buildings, each player, the wind, and the full bar.
    return players() + 4;
}

void Match::showRoundStage(int stage) {
    const int n = players();
    const int player = stage - 2;
    using Stage = Loading::Stage;
    if (stage == 0) {
        loading_.stage = Stage::Sky;
        loading_.progress = 7;
    } else if (stage == 1) {
        loading_.stage = Stage::Buildings;
        loading_.progress = 67;
    } else if (player < n) {
        loading_.stage = Stage::Player;
        loading_.player = player;
        loading_.progress = static_cast<double>(player) / n * 20 + 67;
    } else if (player == n) {
        loading_.stage = Stage::Wind;
        loading_.progress = 95;
    } else {
        // The wind's text stays up under the full bar.
        loading_.progress = 100;
    }
}

Match::Next Match::tick(steps::BuildRound& s) {
    if (++s.stage < roundStages()) {
        showRoundStage(s.stage);
        return now_ + durations::kLoadingStatusMs;
    }
    figuresShown_ = boxesShown_ = true;
    showTurnTitle();
    markTurn();
    roundOver_ = false;
    loading_.shown = false;
    aimingSince_ = now_;
    return std::nullopt;
}

void Match::drawSky() {
    switch (settings_.timeOfDay) {
        case TimeOfDay::Day: day_ = true; break;
        case TimeOfDay::Night: day_ = false; break;
        case TimeOfDay::Random: day_ = random_.below(2) == 0; break;
    }
    sky_ = fieldSky(day_);
}

void Match::placeAndBlendCharacters(const City& city) {
    for (int i = 0; i < players(); ++i) {
        Figure& f = figureOf(i);
        const int roof = city.roofOf[static_cast<std::size_t>(i)];
        f.pos =
            standingPlace(city.buildings[static_cast<std::size_t>(roof)], f.width(), f.height());
    }
    for (int i = 0; i < players(); ++i) {
        figureOf(i).wipe();
        blend(i);
        statsOf(i).missMark = statsOf(i).misses;
    }
}

void Match::blend(int player) {
    Figure& f = figureOf(player);
    // Characters show the city behind them, buildings and craters included.
    core::makeTransparent(f.canvas(), scene_, f.pos);
}

void Match::redrawWindBox() {
    // The box shows the sky behind it, without buildings, under the arrow.
    windBox_.blit(sky_, -kWindBox.left(), -kWindBox.top());
    drawWindArrow(windBox_, wind_);
}

void Match::alignProjectile() {
    const Figure& p = figureOf(current_);
    const int width = projectile_.picture().width();
    projectile_.pos = {rightSide(current_) ? p.pos.x() + p.width() - width : p.pos.x(),
                       p.pos.y() - kHandAbove};
    flight_.hand = projectile_.pos;
}

void Match::showTurnTitle() { headline_ = Headline{current_, stats(current_).points}; }

void Match::markTurn() { indicator_.start(setup_.marker, figure(current_).rect(), current_, now_); }

}  // namespace game
