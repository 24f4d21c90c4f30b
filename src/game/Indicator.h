#pragma once
// The turn marker: the current player's name and a small picture over his head. The picture drops
// and climbs back twice within the first six ticks of 125 ms, and both are gone after the 15th.
#include <QPoint>
#include <QRect>
#include <QString>

#include "core/Canvas.h"

namespace game {

class Indicator {
public:
    static constexpr int kTickMs = 125;
    static constexpr int kTicks = 15;
    static constexpr int kLabelWidth = 147;

    // Marks the character at `character`. A marker still bobbing moves there and goes on counting
    // its ticks from where it was.
    void start(const core::Canvas& marker, const QRect& character, int player, int now);
    // One tick at match time `now`: the picture's white takes the sky behind it, then it bobs.
    void tick(const core::Canvas& sky, int now);

    bool running() const { return running_; }
    int nextTickAt() const { return nextTick_; }
    bool visible() const { return visible_; }
    const core::Canvas& picture() const { return picture_; }
    QPoint picturePos() const { return picturePos_; }
    QPoint labelPos() const { return labelPos_; }
    // Whose turn it marks; the view writes his name under the picture.
    int player() const { return player_; }
    // Ticks of the animation so far; it carries over into the next match of a run.
    int count = 0;

private:
    core::Canvas picture_;
    QPoint picturePos_, labelPos_;
    int player_ = 0;
    bool running_ = false, visible_ = false;
    int nextTick_ = 0;
};

}  // namespace game
