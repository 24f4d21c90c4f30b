#include "TestSupport.h"

#include <QApplication>
#include <QRegularExpression>

#include "ui/MessageBox.h"
#include "ui/Window.h"

namespace testing_support {

core::DataFolder ShippedData() { return core::DataFolder(QStringLiteral(GRUMBO_DATA_DIR)); }

QString Relative(const QString& path) {
    const qsizetype at = path.lastIndexOf(QRegularExpression(
        QStringLiteral("/(sounds|midi|characters|Explosion-2\\.au|Credits\\.txt|pIndication)")));
    return at < 0 ? path : path.mid(at + 1);
}

void ScreensTest::SetUp() {
    ui::setClock(&clock);
    ui::setMessageHook([this](const QString& text) { messages << text; });
    // A blinking text cursor would make pictures of the screens depend on the real time.
    QApplication::setCursorFlashTime(0);
}

void ScreensTest::TearDown() {
    flow.reset();
    ui::destroyAllWindows();
    clock.advance(20);
    ui::setMessageHook(nullptr);
    ui::setClock(nullptr);
}

app::ScreenFlow& ScreensTest::StartProgram(const core::DataFolder& data, std::uint64_t seed) {
    flow = std::make_unique<app::ScreenFlow>(
        app::Services{sound, keys, data, [seed] { return seed; }, [this] { ++quits; }});
    flow->start();
    return *flow;
}

void ScreensTest::Tap(int key) {
    keys.press(key);
    clock.advance(25);
    keys.release(key);
    clock.advance(25);
}

QStringList ScreensTest::VisibleWindows() {
    QStringList titles;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->isVisible()) titles << w->windowTitle();
    return titles;
}

}  // namespace testing_support
