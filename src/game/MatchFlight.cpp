// Throwing, the flight, collision checks and the keyboard trap.
#include "core/Numbers.h"
#include "game/Characters.h"
#include "game/Collision.h"
#include "game/Match.h"

namespace game {

namespace {
constexpr int kCheckMs = 60;
constexpr int kFlyStep = 3;

}  // namespace

bool Match::rightSide(int player) const { return player > players() / 2 - 1; }

void Match::throwProjectile() {
    if (!canThrow()) return;
    play(throwSound(setupOf(current_).character));
    nukedPlayer_ = false;
    inputOpen_ = false;
    impact_ = {};
    flight_.pullX = flight_.pullY = 0;
    const bool right = rightSide(current_);
    flight_.launch(throwAngle(core::leadingNumber(angleText_), right),
                   core::roundHalfEven(core::leadingNumber(velocityText_)));
    figureOf(current_).put(setupOf(current_).art.poses[right ? 1 : 0]);
    blend(current_);
    projectile_.shown = true;
    flying_ = true;
    nextFlightTick_ = now_ + flightTickMs_;
    nextCheck_ = now_ + kCheckMs;
}

void Match::flightTick() {
    if (flight_.ticks == kLongestFlight) {
        impact_ = {Impact::What::Missed, projectile_.pos};
        ++statsOf(current_).misses;
        endTurn();
        return;
    }
    ++flight_.ticks;
    projectileFrame_ = (projectileFrame_ + 1) % kFrames;
    projectile_.kind = kind_;
    projectile_.frame = projectileFrame_;
    flight_.drift += wind_.drift();
    projectile_.pos = flightPosition(flight_, settings_.gravity);
    if (offField(projectile_.pos.x(), projectile_.pos.y())) {
        impact_ = {Impact::What::Missed, projectile_.pos};
        ++statsOf(current_).misses;
        endTurn();
        return;
    }
    if (kind_ == ProjectileKind::Magnetic) {
        std::vector<QRect> characters;
        for (int i = 0; i < players(); ++i) characters.push_back(figure(i).rect());
        pullTowardsCharacters(flight_, projectile_.rect(), characters, current_);
    }
}

void Match::collisionCheck() {
    std::vector<const Figure*> characters;
    for (int i = 0; i < players(); ++i) characters.push_back(&figure(i));
    if (const auto hit = touchedCharacter(projectile_.rect(), characters, current_, sky_)) {
        impact_ = {Impact::What::Character, projectile_.pos, *hit};
        flying_ = false;
        hitCharacter(*hit);
    } else if (const auto x = touchedBuilding(projectile_.rect(), sky_, scene_)) {
        touchBuilding(*x);
    }
    runSteps();
}

void Match::touchBuilding(int x) {
    const int thrower = current_;
    if (kind_ != ProjectileKind::War) impact_ = {Impact::What::Building, {x, projectile_.pos.y()}};
    switch (kind_) {
        case ProjectileKind::Nuke:
            // The nuke dissolves the building and whoever stands on it.
            flying_ = false;
            projectile_.shown = false;
            doNext(
                {steps::Dissolve{.x = x}, steps::NukeScan{}, steps::NukeMiss{.thrower = thrower}});
            break;
        case ProjectileKind::War:
            // The war projectile bores on through the city; its holes count no miss, and the
            // points of a low one rise while it flies on.
            play(QStringLiteral("sounds/bc.wav"));
            cutCraterHole(scene_, sky_, projectile_.pos + QPoint(5, 5));
            if (projectile_.pos.y() >= kLowWarHit && scoreNearMiss())
                checksResumeAt_ = popup_.endsAt();
            break;
        default:
            ++statsOf(thrower).misses;
            flying_ = false;
            projectile_.shown = false;
            doNext({steps::Crater{}, steps::NearMiss{}, steps::EndTurn{}});
            break;
    }
}

bool Match::trapPoll() {
    // From the deciding hit on, the box to come is the game-over box; a pause box opened then
    // would leave a finished match waiting for "Resume".
    const bool pause = keys_.pressed(key::kEscape) && !fragLimitReached();
    if (pause) {
        paused_ = true;
        events_.push_back({MatchEvent::Kind::Paused, {}, 0});
    }
    if (flyWithArrows()) return true;
    for (const QString& sound : codes_.read(keys_, modes_)) play(sound);
    return pause;
}

bool Match::flyWithArrows() {
    static constexpr struct {
        int key, dx, dy;
    } kArrows[] = {{key::kLeft, -kFlyStep, 0},
                   {key::kUp, 0, -kFlyStep},
                   {key::kRight, kFlyStep, 0},
                   {key::kDown, 0, kFlyStep}};
    // Only the first arrow pressed in a poll counts; the others are not even asked, so a key
    // still held is seen by the next poll.
    for (const auto& a : kArrows) {
        if (!keys_.pressed(a.key)) continue;
        Figure& f = figureOf(current_);
        if (modes_.flying) f.pos += QPoint(a.dx, a.dy);
        // Redrawn at its place whether it moved or not, and the projectile parked at its hand,
        // which also moves the origin of a flight under way.
        f.wipe();
        blend(current_);
        alignProjectile();
        return true;
    }
    return false;
}

}  // namespace game
