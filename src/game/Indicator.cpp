#include "game/Indicator.h"

#include "core/Numbers.h"
#include "core/Transparency.h"

namespace game {

namespace {
constexpr int kPictureAbove = 75, kLabelAbove = 95;
// How far the picture moves on ticks 1 to 6: down, up, up, down, up, up.
constexpr int kBob[7] = {0, 8, -4, -4, 8, -4, -4};
}  // namespace

void Indicator::start(const core::Canvas& marker, const QRect& character, int player, int now) {
    // A fresh copy every time, so that its white is white again for the blending.
    picture_ = marker;
    const double centre = character.left() + character.width() / 2.0;
    picturePos_ = {core::roundHalfEven(centre - picture_.width() / 2.0),
                   character.top() - kPictureAbove};
    labelPos_ = {core::roundHalfEven(centre - kLabelWidth / 2.0), character.top() - kLabelAbove};
    player_ = player;
    running_ = true;
    nextTick_ = now + kTickMs;
}

void Indicator::tick(const core::Canvas& sky, int now) {
    // Blended at the place before this tick's move: after a move the picture shows the sky of
    // its previous place, which is what it has always done.
    core::makeTransparent(picture_, sky, picturePos_);
    ++count;
    visible_ = true;
    nextTick_ = now + kTickMs;
    if (count == kTicks) {
        count = 0;
        running_ = visible_ = false;
        return;
    }
    if (count >= 1 && count <= 6) picturePos_.ry() += kBob[count];
}

}  // namespace game
