#include "ScreensSupport.h"

#include <QApplication>
#include <QDir>
#include <QTest>
#include <QWidget>

#include "modmain/modMain.h"
#include "screens/frmPlayer.h"
#include "screens/frmSetup.h"
#include "screens/frmSplash.h"

namespace testing_support {

void ScreensTest::TearDown() {
    // Without chosen characters a closing player selection only ends the program, which the
    // test hook swallows.
    modMain::strCharacter.fill(QString());
    modMain::blnBackToSetup = false;
    frmPlayer::Instance().Unload();
    frmSetup::Instance().Unload();
    frmSplash::Instance().Unload();
    clock.Advance(20);
    GameTest::TearDown();
}

void ScreensTest::UseOwnDataFolder() {
    ASSERT_TRUE(folder.isValid());
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("characters")));
    modMain::SetAppPath(folder.path());
}

void ScreensTest::WriteBitmap(const QString& file, int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int y = 2; y < height; ++y)
        for (int x = 2; x < width - 2; ++x) image.setPixel(x, y, kBody);
    ASSERT_TRUE(image.save(folder.filePath(QStringLiteral("characters/") + file), "BMP"));
}

void ScreensTest::WriteCharacter(const QString& name, int width, int height) {
    for (const char* suffix : {".bmp", "1.bmp", "2.bmp"})
        WriteBitmap(name + QLatin1String(suffix), width, height);
}

void ClickArrow(ui::ArrowControl* control, int direction, int times) {
    const int w = control->width(), h = control->height();
    const bool vertical = h > w;
    const QPoint up = vertical ? QPoint(w / 2, 2) : QPoint(w - 3, h / 2);
    const QPoint down = vertical ? QPoint(w / 2, h - 3) : QPoint(2, h / 2);
    for (int i = 0; i < times; ++i)
        QTest::mouseClick(control, Qt::LeftButton, {}, direction > 0 ? up : down);
}

QStringList VisibleWindows() {
    QStringList titles;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->isVisible()) titles << w->windowTitle();
    return titles;
}

}  // namespace testing_support
