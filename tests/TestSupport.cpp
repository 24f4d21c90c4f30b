#include "TestSupport.h"

#include <QApplication>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

#include "computer/Planner.h"
#include "screens/MatchStrip.h"
#include "ui/ArrowControl.h"
#include "ui/MessageBox.h"
#include "ui/Window.h"

namespace testing_support {

core::DataFolder ShippedData() { return core::DataFolder(QStringLiteral(GRUMBO_DATA_DIR)); }

QString Relative(const QString& path) {
    const qsizetype at = path.lastIndexOf(QRegularExpression(
        QStringLiteral("/(sounds|midi|characters|Explosion-2\\.au|Credits\\.txt|pIndication)")));
    return at < 0 ? path : path.mid(at + 1);
}

QString Written(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size())
        << path.toStdString();
    return path;
}

QByteArray Wav(int rate, int channels, int bits, int frames, int level) {
    const int frameBytes = channels * bits / 8;
    const auto bytes = static_cast<quint32>(frames * frameBytes);
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("RIFF", 4);
    out << 36 + bytes;
    out.writeRawData("WAVEfmt ", 8);
    out << quint32{16} << quint16{1} << quint16(channels) << quint32(rate)
        << quint32(rate * frameBytes) << quint16(frameBytes) << quint16(bits);
    out.writeRawData("data", 4);
    out << bytes;
    for (int i = 0; i < frames * channels; ++i)
        bits == 8 ? out << quint8(level) : out << qint16(level);
    return b;
}

OwnData::OwnData() { QDir(dir_.path()).mkdir(QStringLiteral("characters")); }

void OwnData::picture(const QString& file, int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int y = height / 4; y < height; ++y)
        for (int x = width / 4; x < width - width / 4; ++x) image.setPixel(x, y, kBody);
    EXPECT_TRUE(image.save(dir_.filePath(QStringLiteral("characters/") + file), "BMP"));
}

void OwnData::character(const QString& name, int width, int height) {
    for (const char* suffix : {"", "1", "2"})
        picture(name + QLatin1String(suffix) + QStringLiteral(".bmp"), width, height);
}

void OwnData::credits(const QString& text) {
    Written(dir_.filePath(QStringLiteral("Credits.txt")), text.toUtf8());
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

app::ScreenFlow& ScreensTest::StartProgram(const core::DataFolder& data, std::uint64_t seed,
                                           const std::array<screens::Seat, 4>& seats) {
    flow = std::make_unique<app::ScreenFlow>(
        app::Services{sound, keys, data, [seed] { return seed; }, [this] { ++quits; }}, seats);
    flow->start();
    return *flow;
}

void ScreensTest::Tap(int key) {
    keys.press(key);
    clock.advance(25);
    keys.release(key);
    clock.advance(25);
}

void ScreensTest::Click(QWidget* window, const QString& caption) {
    ASSERT_TRUE(window);
    for (QPushButton* b : window->findChildren<QPushButton*>())
        if (b->text() == caption) return b->click();
    ADD_FAILURE() << "no button " << caption.toStdString();
}

screens::MatchView* ScreensTest::ToMatch() {
    Click(flow->title(), QStringLiteral("Start"));
    ui::ArrowControl* frags = flow->setup()->fragLimit;
    for (int i = 0; i < 2; ++i) QTest::mouseClick(frags, Qt::LeftButton, {}, QPoint(8, 16));
    Click(flow->setup(), QStringLiteral("Next"));
    QTest::keyClicks(flow->players()->nameBox, QStringLiteral("Ann\rBo\r"));
    return flow->match();
}

bool ScreensTest::RoundStands() {
    const bool stands = clock.runUntil(
        [&] { return flow->match() && flow->match()->match().phase() == game::Phase::Aiming; },
        5000);
    // The loading box goes with the next round of window events.
    clock.advance(20);
    return stands;
}

bool ScreensTest::Win() {
    // The computer's aim is as good as any person's.
    const computer::Throw hit = computer::planThrow(flow->match()->match()).aim;
    screens::MatchStrip& strip = *flow->match()->strip();
    QTest::keyClicks(strip.angleBox(), QString::number(hit.angle));
    QTest::keyClicks(strip.velocityBox(), QString::number(hit.velocity));
    strip.throwButton()->click();
    return clock.runUntil([&] { return flow->box() != nullptr; }, 30000);
}

QStringList ScreensTest::VisibleWindows() {
    QStringList titles;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->isVisible()) titles << w->windowTitle();
    return titles;
}

}  // namespace testing_support
