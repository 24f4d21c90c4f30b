#include "ui/Display.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace ui {

namespace {
constexpr int kHeightPerStep = 1080;
constexpr int kMaxScale = 4;
}  // namespace

ScreenInfo probeScreen(int argc, char** argv) {
    ScreenInfo info;
    QGuiApplication probe(argc, argv);
    if (const QScreen* s = QGuiApplication::primaryScreen()) {
        info.pixelRatio = s->devicePixelRatio();
        info.height = static_cast<int>(std::lround(s->geometry().height() * info.pixelRatio));
    }
    return info;
}

int automaticScale(const ScreenInfo& screen) {
    int scale = std::clamp(screen.height / kHeightPerStep, 1, kMaxScale);
    if (screen.pixelRatio >= 2) scale = std::max(scale, static_cast<int>(screen.pixelRatio));
    return scale;
}

void setScale(int scale, const ScreenInfo& screen) {
    // The toolkit multiplies its own factor with the desktop's.
    const double factor = scale / std::max(screen.pixelRatio, 1.0);
    if (factor != 1) qputenv("QT_SCALE_FACTOR", QByteArray::number(factor, 'g', 6));
}

}  // namespace ui
