#pragma once
// A character on the field: the picture last put on him (standing, or a throwing pose), what
// shows of it now (blended with the city behind him, an explosion drawn over him, half
// dissolved), and where he stands.
#include <QPoint>
#include <QRect>

#include "core/Canvas.h"
#include "game/Field.h"

namespace game {

// A character must fit a roof and the collision checks: a figure wider than a building or taller
// than the sky above the city would turn every throw at or from him into a hit or a miss.
constexpr QSize kSmallestCharacter{30, 35};
constexpr QSize kLargestCharacter{80, 150};

class Figure {
public:
    // Shows `picture` as it is, white and all, until it is blended.
    void put(const core::Canvas& picture) {
        picture_ = picture;
        canvas_ = picture;
    }
    // Wipes whatever was drawn over the picture.
    void wipe() { canvas_ = picture_; }

    const core::Canvas& canvas() const { return canvas_; }
    core::Canvas& canvas() { return canvas_; }
    int width() const { return canvas_.width(); }
    int height() const { return canvas_.height(); }
    QRect rect() const { return {pos, QSize(width(), height())}; }
    // A character is in play while his top edge is on the field.
    bool inPlay() const { return pos.y() <= kGroundLine; }
    void park() { pos.setY(kOutOfPlay); }

    QPoint pos{0, kOutOfPlay};

private:
    core::Canvas picture_, canvas_;
};

}  // namespace game
