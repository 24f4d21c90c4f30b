#pragma once
// The projectiles: four kinds, each with four flight frames that turn a quarter turn clockwise
// from one to the next, and the 12 x 12 icon of its selector. White is see-through.
#include "core/Canvas.h"

namespace game {

enum class ProjectileKind { Normal, Nuke, War, Magnetic };
constexpr int kKinds = 4;
constexpr int kFrames = 4;

// Frame 0 to 3 of `kind`: 10 x 10 pixels; the war frames are 11 x 10 and 10 x 11 by turns.
const core::Canvas& projectileFrame(ProjectileKind kind, int frame);
// The picture on a selector: the kind's banana inside a one-pixel white frame.
const core::Canvas& selectorIcon(ProjectileKind kind);

}  // namespace game
