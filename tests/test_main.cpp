#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <cstdio>
#include <cstdlib>

#include "ui/Window.h"

int main(int argc, char** argv) {
    // Test discovery runs this binary outside CTest's environment: choose the headless platform
    // and the silent audio driver here.
    setenv("QT_QPA_PLATFORM", getenv("QT_QPA_PLATFORM") ? getenv("QT_QPA_PLATFORM") : "offscreen",
           1);
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    // A runtime folder of our own where the environment has none; it goes with the run.
    static char dir[] = "/tmp/grumbo-tests-XXXXXX";
    const bool ownDir = !getenv("XDG_RUNTIME_DIR") && mkdtemp(dir);
    if (ownDir) setenv("XDG_RUNTIME_DIR", dir, 1);
    // The headless platform cannot raise windows and says so each time; that is no finding.
    static QtMessageHandler previous = nullptr;
    previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& ctx, const QString& msg) {
            if (msg.contains(QLatin1String("does not support raise"))) return;
            if (previous) previous(type, ctx, msg);
            else fprintf(stderr, "%s\n", qPrintable(msg));
        });
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    const int rc = RUN_ALL_TESTS();
    ui::destroyAllWindows();
    if (ownDir) QDir(QString::fromLocal8Bit(dir)).removeRecursively();
    return rc;
}
