// Background music: a random tune, and the next random one when it has run its length.
#include "match/frmGrumbo.h"
#include "media/Audio.h"

using namespace modMain;

int frmGrumbo::TuneSeconds(int n) {
    static constexpr int kSeconds[22] = {233, 177, 297, 225, 371, 162, 270, 416, 112, 62, 272,
                                         211, 345, 179, 88,  193, 97,  50,  156, 44,  24, 126};
    return n >= 1 && n <= 22 ? kSeconds[n - 1] : 0;
}

QString frmGrumbo::TunePath(int n) {
    return DataFile(QStringLiteral("midi/") + QString::number(n) + QStringLiteral(".mid"));
}

void frmGrumbo::tmrMIDI_Timer() {
    ++intTuneSeconds;
    if (intTuneSeconds == TuneSeconds(intTune)) CloseAndLoadMIDI();
}

void frmGrumbo::CloseAndLoadMIDI() {
    media::Audio::Music().Close(TunePath(intTune));
    intTune = static_cast<Integer>(grumbo::Int(grumbo::Rnd() * 22) + 1);
    media::Audio::Music().Play(TunePath(intTune));
    intTuneSeconds = 0;
}
