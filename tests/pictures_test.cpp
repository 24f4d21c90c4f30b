// Pictures are read whole or refused with a reason; a match started with a broken, missing or
// wrongly sized picture says which file cannot be used and plays on with a stand-in; and only
// pure white shows what lies behind a picture.
#include "screens/Pictures.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <climits>
#include <functional>
#include <vector>

#include "TestSupport.h"
#include "core/Bitmap.h"
#include "core/Transparency.h"
#include "screens/MatchField.h"
#include "screens/MatchStrip.h"
#include "ui/CanvasWidget.h"

using namespace testing_support;

namespace {

// Room for any picture the reader takes.
constexpr qint64 kAnyFile = core::largestBitmapFile({core::kMaxPictureSide, core::kMaxPictureSide});

// A Windows bitmap as the usual tools write it: a 40-byte info header, rows padded to four bytes,
// bottom-up unless `topDown`; a picture of 8 bits or fewer gets a table of the colours it uses
// and packs its pixels from the top bit of each byte down.
QByteArray Bmp(int w, int h, const std::vector<QRgb>& px, int bits = 24, bool topDown = false) {
    std::vector<QRgb> table;
    for (QRgb c : px)
        if (bits <= 8 && std::find(table.begin(), table.end(), c) == table.end())
            table.push_back(c);
    const int stride = (w * bits + 31) / 32 * 4;
    const int offset = 54 + 4 * static_cast<int>(table.size());
    QByteArray b("BM");
    const auto put = [&](qint64 v, int n) {
        for (int i = 0; i < n; ++i) b.append(static_cast<char>(v >> (8 * i)));
    };
    for (qint64 v : {offset + stride * h, 0, offset, 40, w, topDown ? -h : h}) put(v, 4);
    put(1, 2);
    put(bits, 2);
    for (qint64 v : {0, stride * h, 2835, 2835, static_cast<int>(table.size()), 0}) put(v, 4);
    for (QRgb c : table) put(c & 0xFFFFFF, 4);
    for (int row = 0; row < h; ++row) {
        const int y = topDown ? row : h - 1 - row;
        QByteArray line(stride, '\0');
        for (int x = 0; x < w; ++x) {
            const QRgb c = px[static_cast<std::size_t>(y * w + x)];
            const int at = x * bits / 8;
            if (bits > 8) {
                for (int i = 0; i < bits / 8; ++i) line[at + i] = char((c & 0xFFFFFF) >> (8 * i));
                continue;
            }
            const auto index = std::find(table.begin(), table.end(), c) - table.begin();
            line[at] = static_cast<char>(line[at] | index << (8 - bits - x * bits % 8));
        }
        b += line;
    }
    return b;
}

void Set(QByteArray& b, int at, qint64 value, int bytes = 4) {
    for (int i = 0; i < bytes; ++i) b[at + i] = static_cast<char>(value >> (8 * i));
}

// Reads `bytes` as the file of a picture.
bool Read(const QByteArray& bytes, QImage& img, core::PictureError* why = nullptr) {
    QTemporaryDir dir;
    return core::readBitmap(Written(dir.filePath(QStringLiteral("p.bmp")), bytes), kAnyFile, img,
                            why);
}

}  // namespace
TEST(Bitmap, ReadsEveryPixelAtEachDepthInEitherRowOrder) {
    // Three pixels a row, so that rows need padding; two colours where one bit holds a pixel.
    const QRgb red = qRgb(255, 0, 0), blue = qRgb(0, 0, 255);
    const std::vector<QRgb> six{red,           qRgb(0, 255, 0),     blue,
                                qRgb(1, 2, 3), qRgb(255, 255, 255), qRgb(200, 100, 50)};
    const std::vector<QRgb> two{red, blue, blue, blue, red, blue};
    for (int bits : {1, 4, 8, 24, 32})
        for (bool topDown : {false, true}) {
            SCOPED_TRACE(testing::Message() << bits << " bits, top-down " << topDown);
            const std::vector<QRgb>& px = bits == 1 ? two : six;
            QImage img;
            ASSERT_TRUE(Read(Bmp(3, 2, px, bits, topDown), img));
            ASSERT_EQ(img.size(), QSize(3, 2));
            for (int y = 0; y < 2; ++y)
                for (int x = 0; x < 3; ++x) EXPECT_EQ(img.pixel(x, y), px[std::size_t(y * 3 + x)]);
        }
    // The largest side the reader takes, and one pixel more.
    const auto wide = [](int w) { return Bmp(w, 1, std::vector<QRgb>(std::size_t(w), 0)); };
    QImage img;
    EXPECT_TRUE(Read(wide(core::kMaxPictureSide), img));
    EXPECT_FALSE(Read(wide(core::kMaxPictureSide + 1), img));
}

TEST(Bitmap, RefusesWhatItCannotReadWholeAndSaysWhy) {
    const QByteArray figure = Bmp(44, 70, std::vector<QRgb>(44 * 70, qRgb(40, 60, 80)));
    const QByteArray indexed = Bmp(2, 1, {qRgb(0, 0, 0), qRgb(9, 9, 9)}, 8);
    using Damage = std::function<void(QByteArray&)>;
    const auto patch = [](int at, qint64 value, int bytes = 4) -> Damage {
        return [=](QByteArray& b) { Set(b, at, value, bytes); };
    };
    const struct {
        QByteArray base;
        Damage damage;
        const char* reason;
    } cases[] = {
        {figure, [](QByteArray& b) { b.truncate(b.size() / 2); }, "cut short"},
        // No length in the header, and the last byte gone.
        {figure, [](QByteArray& b) { Set(b, 2, 0), b.chop(1); }, "cut short"},
        {figure, [](QByteArray& b) { Set(b, 2, b.size() + 1); }, "cut short"},
        {figure, patch(22, -100000), "size of 44 x -100000"},
        {figure, patch(18, 0), "size of 0 x 70"},
        {figure, patch(18, -44), "size of -44 x 70"},
        {figure, patch(22, INT32_MIN), "size of 44 x -2147483648"},
        {figure, patch(30, 1), "does not read"},      // run-length coded
        {figure, patch(28, 16, 2), "does not read"},  // 16 bits
        {figure, patch(26, 2, 2), "does not read"},   // two planes
        {figure, patch(14, 12), "kind"},              // the old header
        {figure, patch(10, 20), "overlaps"},          // pixels inside the header
        {indexed, patch(10, 58), "overlaps"},         // pixels inside the colour table
        {QByteArray("GIF89a, as it happens"), [](QByteArray&) {}, "not a Windows bitmap"},
        {indexed, patch(62, 2, 1), "lacks"},  // a colour beyond the table
        {indexed, patch(46, 257), "table"},   // a table larger than 256
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        QByteArray bytes = c.base;
        c.damage(bytes);
        QImage img(1, 1, QImage::Format_RGB32);
        core::PictureError why;
        EXPECT_FALSE(Read(bytes, img, &why));
        EXPECT_FALSE(why.missing);
        EXPECT_TRUE(why.reason.contains(QLatin1String(c.reason))) << why.reason.toStdString();
        EXPECT_EQ(img.size(), QSize(1, 1)) << "the image is left as it was";
    }
    QTemporaryDir dir;
    core::PictureError why;
    QImage img;
    EXPECT_FALSE(core::readBitmap(dir.filePath(QStringLiteral("none.bmp")), kAnyFile, img, &why));
    EXPECT_TRUE(why.missing);
}

using BrokenPictures = ScreensTest;

TEST_F(BrokenPictures, AreNamedOnceARunAndAStandInPlays) {
    const struct {
        QSize picture;        // of the standing picture; none when invalid
        const char* message;  // what the message says of the file; none when nothing is wrong
        QSize size{40, 60};   // the size the character then has
        bool cut = false;     // the file loses its second half
    } cases[] = {
        {{44, 70}, "cannot be read: the file is cut", {40, 60}, true},
        {{3000, 3000}, "cannot be read: it is larger than"},
        {{81, 70},
         "cannot be read: a character is 30 to 80 pixels wide and 35 to 150 pixels high, and "
         "this picture is 81 x 70"},
        {{29, 70}, "this picture is 29 x 70"},
        {{44, 151}, "this picture is 44 x 151"},
        {{44, 34}, "this picture is 44 x 34"},
        {{80, 150}, nullptr, {80, 150}},
        {{30, 35}, nullptr, {30, 35}},
        {{}, "is missing"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.message ? c.message : "a usable picture");
        OwnData data;
        data.picture(QStringLiteral("Broken1.bmp"), 44, 70);
        data.picture(QStringLiteral("Broken2.bmp"), 44, 70);
        const QString file = data.folder().path(QStringLiteral("characters/Broken.bmp"));
        if (c.picture.isValid())
            data.picture(QStringLiteral("Broken.bmp"), c.picture.width(), c.picture.height());
        if (c.cut) QFile::resize(file, QFileInfo(file).size() / 2);
        screens::Pictures pictures(data.folder());
        messages.clear();
        const game::CharacterArt art = pictures.character(QStringLiteral("Broken"));
        EXPECT_EQ(QSize(art.standing.width(), art.standing.height()), c.size);
        if (c.message) {
            ASSERT_EQ(messages.size(), 1);
            EXPECT_TRUE(messages[0].contains(QLatin1Char('"') + file + QLatin1Char('"')));
            EXPECT_TRUE(messages[0].contains(QLatin1String(c.message)))
                << messages[0].toStdString();
        }
        // The next match of the run reads the pictures again without a second message.
        pictures.character(QStringLiteral("Broken"));
        EXPECT_EQ(messages.size(), c.message ? 1 : 0) << messages.join('\n').toStdString();
    }
}

TEST(SeeThrough, OnlyPureWhiteInsideTheRoundedRectangleTakesWhatLiesBehind) {
    core::Canvas picture(4, 3);
    const core::Colour nearWhite(254, 255, 255), alsoNear(255, 255, 254);
    picture.setPixel(1, 1, nearWhite);
    picture.setPixel(2, 1, alsoNear);
    // Columns 0.5 to 2.5 are 0 to 2, rows 0 to 1.5 are 0 to 2: ties round to even.
    core::makeTransparent(picture, 0.5f, 0, 2.5f, 1.5f,
                          [](int x, int y) { return core::Colour(x, y, 9); });
    EXPECT_EQ(picture.point(0, 0), core::Colour(0, 0, 9));
    EXPECT_EQ(picture.point(2, 2), core::Colour(2, 2, 9));
    EXPECT_EQ(picture.point(3, 0), core::kWhite);
    EXPECT_EQ(picture.point(1, 1), nearWhite);
    EXPECT_EQ(picture.point(2, 1), alsoNear);
}

TEST(Canvas, NothingIsReadOrDrawnJustOutsideItsLeftAndRightEdges) {
    // Row by row the pixels lie end to end: one past a row's end is the next row's start.
    core::Canvas c(4, 3);
    const core::Colour red(255, 0, 0);
    c.setPixel(-1, 1, red);
    c.setPixel(4, 1, red);
    c.line(-3, 2, 0, 2, red);
    EXPECT_EQ(c.point(3, 0), core::kWhite);
    EXPECT_EQ(c.point(0, 2), core::kWhite) << "a line stops short of its end point";
    for (int x = 0; x < 4; ++x) EXPECT_EQ(c.point(x, 1), core::kWhite) << x;
    EXPECT_EQ(c.point(-1, 1).value(), -1) << "no colour";
    EXPECT_EQ(c.point(4, 1).value(), -1);
}

TEST_F(ScreensTest, APictureDrawnInPlaceIsPaintedOnTheScreenAgain) {
    QWidget window;
    auto* shown = new ui::CanvasWidget(&window, 0, 0, core::Canvas(8, 8));
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    PaintCounter count;
    shown->installEventFilter(&count);
    shown->draw().setPixel(1, 1, core::kBlack);
    QCoreApplication::processEvents();
    EXPECT_EQ(count.paints, 1);
}

TEST_F(ScreensTest, TheFieldIsPaintedAsTheMatchChangesAndTheThrowerHidesHisProjectile) {
    screens::MatchView view(CalmSetup(), sound, keys, ShippedData());
    view.showCentred();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    const game::Match& m = view.match();
    clock.runUntil([&] { return m.phase() == game::Phase::Aiming; }, 5000);
    // The turn marker bobs and goes within two seconds; then the city stands still.
    clock.advance(2500);
    PaintCounter count;
    view.field()->installEventFilter(&count);
    clock.advance(3000);
    EXPECT_EQ(count.paints, 0) << "a waiting match costs no painting";
    // Straight down from his hand, through him, onto his roof.
    view.strip()->angleBox()->setText(QStringLiteral("90"));
    view.strip()->velocityBox()->setText(QStringLiteral("0"));
    view.strip()->throwButton()->click();
    int painted = 0, hidden = 0;
    for (int tick = 0; tick < 100 && m.projectile().shown; ++tick) {
        const int before = count.paints;
        clock.advance(m.flightTickMs());
        painted += count.paints > before;
        // Taking the picture paints it once more.
        const QImage shot = view.field()->grab().toImage();
        const game::Figure& f = m.figure(0);
        const QRect overlap = f.rect() & m.projectile().rect();
        for (int y = overlap.top(); y <= overlap.bottom(); ++y)
            for (int x = overlap.left(); x <= overlap.right(); ++x, ++hidden)
                ASSERT_EQ(core::Colour::fromRgb(shot.pixel(x, y)),
                          f.canvas().point(x - f.pos.x(), y - f.pos.y()));
    }
    EXPECT_GE(painted, 3) << "the flight is painted as it goes";
    EXPECT_GT(hidden, 0);
}
