#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdlib>

#include "media/Audio.h"
#include "modmain/modMain.h"

namespace {
class Silence : public media::EffectService, public media::MusicService {
public:
    void Play(const QString&) override {}
    void Close(const QString&) override {}
};
}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
    static Silence silence;
    media::Audio::Install(&silence, &silence);
    modMain::SetAppPath(QStringLiteral(GRUMBO_DATA_DIR));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
