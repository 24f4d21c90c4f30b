#pragma once
// Shared ground for the screens before a match: data folders made by the test, clicks on the
// arrow controls, and every front-end screen closed after each test.
#include <QImage>
#include <QStringList>
#include <QTemporaryDir>

#include "TestSupport.h"
#include "ui/ArrowControl.h"

namespace testing_support {

constexpr QRgb kBody = qRgb(200, 30, 60);

class ScreensTest : public GameTest {
protected:
    void TearDown() override;
    // Points the program's folder at an empty folder of the test's own with a characters folder.
    void UseOwnDataFolder();
    // A bitmap of the given size in the characters folder: white, with a body in kBody that
    // leaves a white border of 2 pixels at the sides and the top and reaches the bottom row.
    void WriteBitmap(const QString& file, int width, int height);
    // A complete character: the standing picture and both poses, all of one size.
    void WriteCharacter(const QString& name, int width, int height);

    QTemporaryDir folder;
};

// Clicks the arrow that raises (+1) or lowers (-1) the control's value, `times` times.
void ClickArrow(ui::ArrowControl* control, int direction, int times = 1);
// Titles of the top-level windows a user could see now.
QStringList VisibleWindows();

}  // namespace testing_support
