#pragma once
// The projectile pictures as surfaces the screens can show.
#include "ui/Surface.h"

namespace media {

// Flight frame `frame` (0 to 3) of projectile kind `kind` (0 normal, 1 nuke, 2 war, 3 magnetic).
ui::Surface ProjectileSurface(int kind, int frame);
// The 12 x 12 picture of a projectile selector.
ui::Surface SelectorSurface(int kind);

}  // namespace media
