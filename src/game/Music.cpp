#include "game/Music.h"

namespace game {

int tuneSeconds(int tune) {
    static constexpr int kSeconds[kTunes] = {233, 177, 297, 225, 371, 162, 270, 416, 112, 62, 272,
                                             211, 345, 179, 88,  193, 97,  50,  156, 44,  24, 126};
    return tune >= 1 && tune <= kTunes ? kSeconds[tune - 1] : 0;
}

QString tuneFile(int tune) { return QStringLiteral("midi/%1.mid").arg(tune); }

}  // namespace game
