#pragma once
// The points that rise over whoever or whatever scored, one pixel every 21 ms for 28 pixels, then
// fade in 35 steps of 6 ms into the colour of the city at the popup's corner.
#include <QPoint>
#include <QSize>
#include <QString>
#include <array>
#include <optional>

#include "core/Canvas.h"

namespace game {

class PointsPopup {
public:
    static constexpr QSize kSize{56, 18};
    static constexpr int kRiseSteps = 28, kRiseStepMs = 21;
    static constexpr int kFadeSteps = 35, kFadeStepMs = 6;
    static constexpr int kDurationMs = (kRiseSteps + 1) * kRiseStepMs + kFadeSteps * kFadeStepMs;

    // Starts `points` rising from a popup centred over a thing `width` pixels wide at `left`,
    // whose top edge is `top`.
    void start(int points, double left, double width, int top, int now);
    // The popup at match time `now`; the fade's colour is read off `scene` as the fade begins.
    void advanceTo(int now, const core::Canvas& scene);

    bool visible() const { return visible_; }
    // When the fade begins and the colour behind the popup is read, while that is still to come:
    // the match reads it at that very moment, however finely its time is cut.
    std::optional<int> fadeBeginsAt() const {
        if (!visible_ || fadeSteps_ > 0) return std::nullopt;
        return started_ + (kRiseSteps + 1) * kRiseStepMs;
    }
    int endsAt() const { return started_ + kDurationMs; }
    int points() const { return points_; }
    // The popup's top-left corner.
    QPoint pos() const { return {left_, top_}; }
    core::Colour colour() const { return colour_; }

private:
    int points_ = 0;
    int started_ = 0;
    int left_ = 0, startTop_ = 0, top_ = 0;
    int fadeSteps_ = 0;
    // The colour parts as they fade, and what each step takes off them.
    std::array<double, 3> fading_{}, step_{};
    core::Colour colour_ = core::kWhite;
    bool visible_ = false;
};

}  // namespace game
