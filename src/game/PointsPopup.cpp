#include "game/PointsPopup.h"

#include <algorithm>

#include "core/Numbers.h"

namespace game {

namespace {
constexpr int kRiseMs = (PointsPopup::kRiseSteps + 1) * PointsPopup::kRiseStepMs;

// A colour the label cannot take (a part outside 0 to 255) leaves it as it is.
bool showable(int r, int g, int b) {
    const auto in = [](int v) { return v >= 0 && v <= 255; };
    return in(r) && in(g) && in(b);
}
}  // namespace

void PointsPopup::start(int points, double left, double width, int top, int now) {
    points_ = points;
    started_ = now;
    left_ = core::roundHalfEven(left + width / 2.0 - kSize.width() / 2.0);
    startTop_ = top_ = top - 10;
    fadeSteps_ = 0;
    colour_ = core::kWhite;
    visible_ = true;
}

void PointsPopup::advanceTo(int now, const core::Canvas& scene) {
    if (!visible_) return;
    const int elapsed = now - started_;
    if (elapsed >= kDurationMs) {
        visible_ = false;
        return;
    }
    top_ = startTop_ - std::min(elapsed / kRiseStepMs, kRiseSteps);
    if (elapsed < kRiseMs) return;
    if (fadeSteps_ == 0) {
        const core::Colour target = scene.point(left_, top_);
        step_ = {(255.0 - target.red()) / kFadeSteps, (255.0 - target.green()) / kFadeSteps,
                 (255.0 - target.blue()) / kFadeSteps};
        fading_ = {255, 255, 255};
    }
    const int steps = std::min((elapsed - kRiseMs) / kFadeStepMs + 1, kFadeSteps);
    for (; fadeSteps_ < steps; ++fadeSteps_) {
        for (int i = 0; i < 3; ++i) fading_[i] -= step_[i];
        const int r = core::roundHalfEven(fading_[0]), g = core::roundHalfEven(fading_[1]),
                  b = core::roundHalfEven(fading_[2]);
        if (showable(r, g, b)) colour_ = core::Colour(r, g, b);
    }
}

}  // namespace game
