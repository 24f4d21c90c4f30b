#include "MatchDriver.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "core/Numeric.h"

namespace testing_support {

bool MatchOver(const frmGrumbo& f) { return f.Loaded() && f.lbl1->isVisible(); }

bool InputOpen(const frmGrumbo& f) {
    return f.Loaded() && f.txtAngle->isEnabled() && !f.tmrMain.Enabled() &&
           !f.tmrCollision.Enabled();
}

int LabelNumber(const QLabel* label) { return static_cast<int>(grumbo::Val(label->text())); }

bool PlayThrow(ui::VirtualClock& clock, frmGrumbo& f, int angle, int velocity, int kind) {
    if (kind > 0 && f.picSelect[kind]->isVisible())
        QTest::mouseClick(f.picSelect[kind], Qt::LeftButton, {}, QPoint(5, 5));
    f.txtAngle->setText(QString::number(angle));
    f.txtVel->setText(QString::number(velocity));
    if (!f.cmdThrow->isEnabled()) return false;
    f.cmdThrow->click();
    return clock.RunUntil([&] { return MatchOver(f) || InputOpen(f); }, kThrowLimitMs);
}

void PutInThePathOfAnUpwardThrow(frmGrumbo& f, int target) {
    const ui::PictureBox& hand = *f.imgProjectile;
    ui::PictureBox& t = *f.Player[target];
    t.Move(hand.Left() + hand.Width() / 2 - t.Width() / 2, hand.Top() - 40 - t.Height());
}

}  // namespace testing_support
