// The end of every throw: the flight stops, the turn passes and the next player's input opens.
#include "game/Match.h"

namespace game {

namespace {
constexpr int kSelectorWidth = 14, kSelectorGap = 5;
constexpr int kFrameHome = 8;
const char* const kAnnouncement[kKinds] = {nullptr, "sounds/nBan.wav", "sounds/wBan.wav",
                                           "sounds/mBan.wav"};
}  // namespace

bool Match::teamFragged() const {
    const auto has = [&](int p) {
        return std::find(fragged_.begin(), fragged_.end(), p) != fragged_.end();
    };
    return (has(0) && has(1)) || (has(2) && has(3));
}

void Match::endTurn() {
    const int thrower = current_;
    panelPoints_[static_cast<std::size_t>(thrower)] = stats(thrower).points;
    flying_ = false;
    projectile_.shown = false;
    projectile_.pos = flight_.hand;
    flight_.ticks = 0;
    flight_.drift = 0;
    // Back to the standing pose; this also wipes an explosion drawn over a self-fragged thrower.
    figureOf(thrower).put(setupOf(thrower).art.standing);
    blend(thrower);
    if (kind_ != ProjectileKind::Normal)
        specials_[static_cast<std::size_t>(thrower)][index(kind_)] = false;
    for (int k = 1; k < kKinds; ++k) selectorShown_[static_cast<std::size_t>(k)] = false;
    frameLeft_ = kFrameHome;
    kind_ = ProjectileKind::Normal;

    current_ = nextPlayer(thrower);
    showTurnTitle();
    showSpecials();
    alignProjectile();
    if (settings_.windGusts) {
        wind_ = gust(wind_, random_, settings_.windExtremity);
        redrawWindBox();
    }
    // A round just decided is rebuilt, and the new round marks the turn itself.
    if (!roundOver_) markTurn();
    inputOpen_ = true;
    aimingSince_ = now_;
    angleText_.clear();
    velocityText_.clear();
    events_.push_back({MatchEvent::Kind::FocusAngle, {}, 0});
}

int Match::nextPlayer(int from) const {
    if (settings_.gameType == GameType::OneVsOne) return from == 0 ? 1 : 0;
    // Teams alternate: 0, 2, 1, 3. Characters gone this round are passed over, unless the round
    // is decided (a team fragged, or three frags of four) and about to be rebuilt.
    static constexpr int kAfter[4] = {2, 3, 1, 0};
    const bool decided = teamFragged() || fragged_.size() == 3;
    int next = from;
    for (int step = 0; step < 4; ++step) {
        next = kAfter[next];
        if (decided || figure(next).inPlay()) break;
    }
    return next;
}

void Match::showSpecials() {
    // The selectors of the kinds the player holds stand in a row right of the normal one's.
    int x = selectorLeft_[0];
    for (int k = 1; k < kKinds; ++k) {
        const auto i = static_cast<std::size_t>(k);
        if (!modes_.allProjectiles) {
            if (!specials_[static_cast<std::size_t>(current_)][i]) continue;
            play(QString::fromLatin1(kAnnouncement[k]));
        }
        selectorShown_[i] = true;
        selectorLeft_[i] = x + kSelectorWidth + kSelectorGap;
        x = selectorLeft_[i];
    }
}

}  // namespace game
