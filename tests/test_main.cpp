#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>
#include <unistd.h>

int main(int argc, char** argv) {
    // Test discovery runs this binary outside CTest's environment: choose the headless platform
    // and the silent audio driver here.
    setenv("QT_QPA_PLATFORM", getenv("QT_QPA_PLATFORM") ? getenv("QT_QPA_PLATFORM") : "offscreen", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    if (!getenv("XDG_RUNTIME_DIR")) {
        static char dir[] = "/tmp/grumbo-tests-XXXXXX";
        if (mkdtemp(dir)) setenv("XDG_RUNTIME_DIR", dir, 0);
    }
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
