// The match window: what its strip lets the players type and click, how it draws the field, and
// that it can be closed at any moment of a match.
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "TestSupport.h"
#include "screens/MatchField.h"
#include "screens/MatchStrip.h"
#include "ui/CanvasWidget.h"

using namespace testing_support;

namespace {

class MatchWindow : public ScreensTest {
protected:
    void TearDown() override {
        view.reset();
        ScreensTest::TearDown();
    }
    screens::MatchView& Open(const game::MatchSetup& setup) {
        view = std::make_unique<screens::MatchView>(setup, sound, keys, ShippedData());
        view->showCentred();
        clock.runUntil([&] { return view->match().phase() == game::Phase::Aiming; }, 5000);
        return *view;
    }
    std::unique_ptr<screens::MatchView> view;
};

TEST_F(MatchWindow, TheBoxesTakeDigitsAndThrowOnlyWithBothFilled) {
    screens::MatchView& v = Open(CalmSetup());
    screens::MatchStrip& strip = *v.strip();
    QLineEdit* angle = strip.angleBox();
    QTest::keyClicks(angle, QStringLiteral("4a-5. 67"));
    EXPECT_EQ(angle->text(), "456") << "digits only, three at most";
    QTest::keyClick(angle, Qt::Key_Backspace);
    EXPECT_EQ(v.match().angleText(), "45");
    EXPECT_FALSE(strip.throwButton()->isEnabled());
    QTest::keyClicks(strip.velocityBox(), QStringLiteral("80"));
    EXPECT_TRUE(strip.throwButton()->isEnabled());
    QTest::keyClick(strip.velocityBox(), Qt::Key_Backspace);
    QTest::keyClick(strip.velocityBox(), Qt::Key_Backspace);
    EXPECT_FALSE(strip.throwButton()->isEnabled()) << "an empty box";
    QTest::keyClicks(strip.velocityBox(), QStringLiteral("999"));
    strip.throwButton()->click();
    EXPECT_FALSE(angle->isEnabled() || strip.velocityBox()->isEnabled() ||
                 strip.throwButton()->isEnabled());
    EXPECT_EQ(angle->text(), "45") << "the typed values stay during the flight";
    clock.runUntil([&] { return v.match().phase() == game::Phase::Aiming; }, 10000);
    EXPECT_TRUE(angle->isEnabled() && angle->text().isEmpty() && angle->hasFocus());
    EXPECT_EQ(v.windowTitle(), "Player 2 - 0 pts");
}

TEST_F(MatchWindow, ASelectorChoosesItsKindAndMovesTheFrame) {
    screens::MatchView& v = Open(CalmSetup());
    screens::MatchStrip& strip = *v.strip();
    EXPECT_FALSE(strip.selector(1)->isVisible());
    for (const char c : std::string("\\ZAP PLINKOS"))
        Tap(c == '\\' ? game::key::kBackslash : c == ' ' ? game::key::kSpace : c);
    QTest::keyClicks(strip.angleBox(), QStringLiteral("10"));
    QTest::keyClicks(strip.velocityBox(), QStringLiteral("999"));
    strip.throwButton()->click();
    clock.runUntil([&] { return v.match().phase() == game::Phase::Aiming; }, 10000);
    ASSERT_TRUE(strip.selector(3)->isVisible());
    EXPECT_EQ(strip.selector(3)->x(), 66) << "in a row, 5 pixels apart";
    QTest::mouseClick(strip.selector(1), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(v.match().chosenKind(), game::ProjectileKind::Nuke);
    EXPECT_EQ(v.match().selectionFrameLeft(), strip.selector(1)->x() - 1);
    QTest::mouseClick(strip.selector(0), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(v.match().chosenKind(), game::ProjectileKind::Normal);
}

TEST_F(MatchWindow, TheProjectileFliesBehindTheCharactersAndShowsWhatIsBehindItsWhite) {
    screens::MatchView& v = Open(CalmSetup());
    const game::Match& m = v.match();
    QTest::keyClicks(v.strip()->angleBox(), QStringLiteral("80"));
    QTest::keyClicks(v.strip()->velocityBox(), QStringLiteral("40"));
    v.strip()->throwButton()->click();
    for (int frame = 0; frame < 8; ++frame) {
        clock.advance(m.flightTickMs());
        const QImage shot = v.field()->grab().toImage();
        const game::Projectile& p = m.projectile();
        const core::Canvas& picture = p.picture();
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const QPoint at = p.pos + QPoint(x, y);
                const QRect thrower = m.figure(0).rect();
                // Where the thrower stands, he hides it; elsewhere white shows the scene.
                const core::Colour want =
                    thrower.contains(at) ? m.figure(0).canvas().point(at.x() - thrower.left(),
                                                                      at.y() - thrower.top())
                    : picture.point(x, y) == core::kWhite ? m.scene().point(at.x(), at.y())
                                                          : picture.point(x, y);
                ASSERT_EQ(core::Colour::fromRgb(shot.pixel(at)), want)
                    << "frame " << frame << " at " << x << ", " << y;
            }
    }
}

TEST_F(MatchWindow, ClosingItAtAnyMomentOfAMatchEndsTheProgramCleanly) {
    // A match to one frag, closed at a different moment each time: while it starts, and after
    // the deciding throw while it flies, explodes, dances, on the final board, under the box.
    QPoint hit;
    for (int at = -1; at < 9000; at += 677) {
        SCOPED_TRACE(testing::Message() << "closed after " << at << " ms");
        app::ScreenFlow& f = StartProgram();
        quits = 0;
        ASSERT_TRUE(ToMatch());
        if (at >= 0) {
            clock.runUntil([&] { return f.match()->match().phase() == game::Phase::Aiming; }, 5000);
            if (hit.isNull()) hit = HittingThrow(f.match()->match());
            ASSERT_FALSE(hit.isNull());
            screens::MatchStrip& strip = *f.match()->strip();
            QTest::keyClicks(strip.angleBox(), QString::number(hit.x()));
            QTest::keyClicks(strip.velocityBox(), QString::number(hit.y()));
            strip.throwButton()->click();
        }
        clock.advance(std::max(at, 500));
        f.match()->close();
        clock.advance(50);
        EXPECT_EQ(quits, 1);
        EXPECT_FALSE(f.match());
        flow.reset();
    }
}

}  // namespace
