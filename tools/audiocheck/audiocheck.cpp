// Plays every sound effect and every tune through the game's own audio services into SDL's disk
// driver, one recording per file, and reports how loud each recording is. Exit status 1 when any
// of them is silent.
//   grumbo_audiocheck DATA_DIR [OUT_DIR]
#include <SDL.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "media/Sound.h"

namespace {
struct Level {
    double rms = 0;
    int peak = 0;
};

Level measure(const QString& raw) {
    QFile f(raw);
    Level l;
    if (!f.open(QIODevice::ReadOnly)) return l;
    const QByteArray d = f.readAll();
    const auto* s = reinterpret_cast<const std::int16_t*>(d.constData());
    const qsizetype n = d.size() / 2;
    double sum = 0;
    for (qsizetype i = 0; i < n; ++i) {
        sum += double(s[i]) * s[i];
        l.peak = std::max(l.peak, std::abs(int(s[i])));
    }
    l.rms = n ? std::sqrt(sum / n) : 0;
    return l;
}

// Records `play` for `ms` milliseconds into OUT_DIR/name.raw and reports its level.
template <class Play>
bool record(const QString& out, const QString& name, int ms, Play play) {
    const QString raw = out + QLatin1Char('/') + name + QStringLiteral(".raw");
    qputenv("SDL_DISKAUDIOFILE", QFile::encodeName(raw));
    {
        media::SdlSound sound;
        if (!media::openAudioDevice()) {
            std::printf("%-22s cannot open the disk audio driver\n", qPrintable(name));
            return false;
        }
        play(sound);
        SDL_Delay(static_cast<Uint32>(ms));
    }
    const Level l = measure(raw);
    const bool audible = l.peak > 300;
    std::printf("%-22s rms %7.1f  peak %5d  %s\n", qPrintable(name), l.rms, l.peak,
                audible ? "ok" : "SILENT");
    return audible;
}
}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s DATA_DIR [OUT_DIR]\n", argv[0]);
        return 2;
    }
    qputenv("SDL_AUDIODRIVER", "disk");
    const QString data = QString::fromLocal8Bit(argv[1]);
    const QString out = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QDir::tempPath();
    QDir().mkpath(out);
    int silent = 0;
    QStringList effects =
        QDir(data + QStringLiteral("/sounds")).entryList({"*.wav"}, QDir::Files, QDir::Name);
    for (const QString& e : effects) {
        const QString path = data + QStringLiteral("/sounds/") + e;
        silent += !record(out, e, 1800, [&](media::Sound& s) { s.playEffect(path); });
    }
    const QString au = data + QStringLiteral("/Explosion-2.au");
    silent += !record(out, QStringLiteral("Explosion-2.au"), 2000,
                      [&](media::Sound& s) { s.playEffect(au); });
    for (int n = 1; n <= 22; ++n) {
        const QString path = data + QStringLiteral("/midi/%1.mid").arg(n);
        silent += !record(out, QStringLiteral("%1.mid").arg(n), 4000,
                          [&](media::Sound& s) { s.playTune(path); });
    }
    std::printf("%d silent\n", silent);
    return silent ? 1 : 0;
}
