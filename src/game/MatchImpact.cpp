// What a projectile does when it lands: craters, a nuked building, a hit character, the points
// and the end of the match.
#include "core/Numbers.h"
#include "game/Characters.h"
#include "game/Match.h"
#include "game/Scoring.h"

namespace game {

namespace {

int centre(const QRect& r) { return core::roundHalfEven(r.left() + r.width() / 2.0); }
}  // namespace

Match::Next Match::start(steps::Crater&) {
    play(QStringLiteral("sounds/bc.wav"));
    return now_ + durations::kCraterRingMs;
}

Match::Next Match::tick(steps::Crater& s) {
    const QPoint centre = projectile_.pos + QPoint(5, 5);
    drawCraterRing(scene_, centre, ++s.rings);
    if (s.rings < kCraterRadius) return now_ + durations::kCraterRingMs;
    cutCraterHole(scene_, sky_, centre);
    return std::nullopt;
}

bool Match::scoreNearMiss() {
    const QRect shot = projectile_.rect();
    std::array<int, 4> centres{};
    for (int i = 0; i < players(); ++i)
        centres[static_cast<std::size_t>(i)] = centre(figure(i).rect());
    const auto points = nearMissPoints(settings_.gameType, current_, centre(shot), centres);
    if (!points) return false;
    statsOf(current_).points += *points;
    popup_.start(*points, shot.left(), shot.width(), shot.top(), now_);
    return true;
}

Match::Next Match::start(steps::NearMiss&) {
    if (!scoreNearMiss()) return std::nullopt;
    return popup_.endsAt();
}

Match::Next Match::start(steps::Dissolve& s) {
    play(QStringLiteral("sounds/vg.wav"));
    nukedBuilding_ = buildingAt(sky_, scene_, s.x);
    nukeRoof_ = rowAboveRoof(sky_, scene_, nukedBuilding_);
    // It crumbles from the ground up, then the rest of its columns turn to sky.
    s.row = kGroundLine;
    return now_ + durations::kDissolveStepMs;
}

Match::Next Match::tick(steps::Dissolve& s) {
    for (int i = 0; i < durations::kDissolveRowsPerStep && s.row >= nukeRoof_; ++i, --s.row)
        dissolveRow(scene_, sky_, nukedBuilding_, s.row, random_);
    if (s.row >= nukeRoof_) return now_ + durations::kDissolveStepMs;
    clearBuilding(scene_, sky_, nukedBuilding_, nukeRoof_);
    return std::nullopt;
}

Match::Next Match::start(steps::NukeScan& s) {
    // After a hit the scan ends when the round was decided or rebuilt.
    if (!s.afterHit || (!roundOver_ && !fragged_.empty())) nukeScan(s.from);
    return std::nullopt;
}

Match::Next Match::start(steps::NukeMiss& s) {
    if (!nukedPlayer_) {
        ++statsOf(s.thrower).misses;
        doNext({steps::NearMiss{}, steps::EndTurn{}});
    }
    return std::nullopt;
}

void Match::nukeScan(int from) {
    for (int i = from; i < players(); ++i) {
        const Figure& f = figure(i);
        if (!nukedBuilding_.carries(f.pos.x())) continue;
        if (!f.inPlay()) {
            nukedPlayer_ = false;
            continue;
        }
        nukedPlayer_ = true;
        // After the hit the scan goes on, unless the hit decided the round: the city may be a
        // new one by then, and nobody in it stands on the old building.
        doNext({steps::NukeScan{.from = i + 1, .afterHit = true}});
        hitCharacter(i);
        return;
    }
}

void Match::hitCharacter(int player) {
    const int thrower = current_;
    const bool nuke = kind_ == ProjectileKind::Nuke;
    projectile_.shown = false;
    const Step effect =
        nuke ? Step(steps::Vaporize{.player = player}) : Step(steps::Blast{.player = player});
    doNext(
        {effect,
         steps::ScoreHit{
             .player = player, .thrower = thrower, .nuke = nuke, .anchor = figure(player).rect()},
         steps::Dance{.player = thrower}, steps::AfterHit{.thrower = thrower}});
}

Match::Next Match::start(steps::Blast& s) {
    play(QStringLiteral("Explosion-2.au"));
    return tick(s);
}

Match::Next Match::tick(steps::Blast& s) {
    Figure& f = figureOf(s.player);
    // Rings of radius 1 up to half the character's height, each after a short wait.
    if (s.rings > 0) drawBlastRing(f, s.rings);
    if (s.rings + 1 <= f.height() / 2.0) {
        ++s.rings;
        return now_ + durations::kBlastRingMs;
    }
    f.park();
    return std::nullopt;
}

Match::Next Match::start(steps::Vaporize&) {
    projectile_.shown = false;
    return now_ + durations::kVaporizeStepMs;
}

Match::Next Match::tick(steps::Vaporize& s) {
    Figure& f = figureOf(s.player);
    for (int i = 0; i < durations::kVaporizePicksPerStep && s.picks < kVaporizePicks;
         ++i, ++s.picks)
        vaporizePick(f, sky_, random_);
    if (s.picks < kVaporizePicks) return now_ + durations::kVaporizeStepMs;
    f.park();
    return std::nullopt;
}

Match::Next Match::start(steps::ScoreHit& s) {
    play(s.nuke ? QStringLiteral("sounds/vg.wav") : hitSound(setupOf(s.player).character));
    ++statsOf(s.thrower).frags;
    fragged_.push_back(s.player);
    scoreRound(s.player);
    PlayerStats& thrower = statsOf(s.thrower);
    const int before = thrower.points;
    thrower.points += hitPoints(settings_.gameType, s.thrower, s.player);
    popup_.start(thrower.points > before ? kEnemyHitPoints : kFriendlyHitPoints, s.anchor.left(),
                 s.anchor.width(), s.anchor.top(), now_);
    return popup_.endsAt();
}

void Match::scoreRound(int hit) {
    // In "1 vs 1" every hit decides the round, an own goal for the opponent; in "2 vs 2" only a
    // team wiped out does, and when both go at once the right team takes it.
    const auto gone = [&](int p) { return !figure(p).inPlay(); };
    int* scorer = nullptr;
    if (settings_.gameType == GameType::OneVsOne) scorer = hit != 0 ? &leftScore_ : &rightScore_;
    else if (gone(0) && gone(1)) scorer = &rightScore_;
    else if (gone(2) && gone(3)) scorer = &leftScore_;
    if (!scorer) return;
    ++*scorer;
    ++round_;
    roundOver_ = true;
}

Match::Next Match::start(steps::Dance& s) { return tick(s); }

Match::Next Match::tick(steps::Dance& s) {
    if (s.frames == durations::kDanceFrames) return std::nullopt;
    ++s.frames;
    figureOf(s.player).put(setupOf(s.player).art.poses[s.frames % 2 == 1 ? 0 : 1]);
    blend(s.player);
    return now_ + durations::kDanceFrameMs;
}

void Match::afterHit(int thrower) {
    endTurn();
    if (fragLimitReached()) {
        // The deciding hit counted a round that will not be played: through the popup and the
        // dance the strip showed the number of the round that would have come next.
        --round_;
        endMatch();
        doNext({steps::FinalBoard{}});
        return;
    }
    const int wasted = stats(thrower).misses - stats(thrower).missMark;
    if (const auto kind = drawAward(random_, wasted))
        specials_[static_cast<std::size_t>(thrower)][index(*kind)] = true;
    if (settings_.gameType == GameType::TwoVsTwo) statsOf(thrower).missMark = stats(thrower).misses;
    if (settings_.gameType != GameType::TwoVsTwo || fragged_.size() >= 3 || teamFragged())
        doNext({steps::BuildRound{}});
}

bool Match::fragLimitReached() const {
    return leftScore_ == settings_.fragLimit || rightScore_ == settings_.fragLimit;
}

void Match::endMatch() {
    for (int i = 0; i < players(); ++i) figureOf(i).park();
    boxesShown_ = false;
    // Every odd row becomes one flat colour 40 % darker than its leftmost pixel, so the city shows
    // through dark stripes behind the board.
    const auto darker = [](int v) { return core::roundHalfEven(v - v * 0.4); };
    for (int y = 1; y <= scene_.height() - 1; y += 2) {
        const core::Colour c = scene_.point(0, y);
        scene_.line(0, y, scene_.width() - 1, y,
                    core::Colour(darker(c.red()), darker(c.green()), darker(c.blue())));
    }
    Board b{leftScore_, rightScore_, {}};
    for (int i = 0; i < players(); ++i)
        b.rows.push_back(
            {stats(i).frags, stats(i).points, accuracyPercent(stats(i).frags, stats(i).misses), i});
    board_ = b;
}

}  // namespace game
