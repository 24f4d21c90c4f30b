#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

int main(int argc, char** argv) {
    // Test discovery runs this binary outside CTest's environment: choose the headless platform
    // and the silent audio driver here.
    setenv("QT_QPA_PLATFORM", getenv("QT_QPA_PLATFORM") ? getenv("QT_QPA_PLATFORM") : "offscreen", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    if (!getenv("XDG_RUNTIME_DIR")) setenv("XDG_RUNTIME_DIR", "/tmp", 0);
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
