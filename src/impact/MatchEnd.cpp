// The end of a match: the skyline darkens into stripes behind the final board.
#include <QLabel>

#include "impact/ImpactSteps.h"

using namespace modMain;
using grumbo::CInt;

namespace {
constexpr int kBoardWaitMs = 5000;

// Every odd row becomes one flat colour 40 % darker than its leftmost pixel, so the city shows
// through dark stripes and the board stays readable on any sky.
void DarkenInStripes(ui::PictureBox& scene) {
    ui::Surface& s = scene.surface();
    for (int y = 1; y <= s.Height() - 1; y += 2) {
        const std::int32_t c = s.Point(0, y);
        const auto darker = [](int v) { return CInt(v - v * 0.4); };
        const std::int32_t dark =
            ui::RGB(darker(ui::Red(c)), darker(ui::Green(c)), darker(ui::Blue(c)));
        s.Line(0, y, s.Width() - 1, y, dark);
    }
    scene.Changed();
}
}  // namespace

void impact::FinishMatch(frmGrumbo& f) {
    // The deciding hit already counted a round that will not be played.
    f.lblcRound->setText(QString::number(static_cast<long>(grumbo::Val(f.lblcRound->text())) - 1));
    f.EndGame();
    Delay(kBoardWaitMs);
    f.Overlays().ShowGameOver();
}

void frmGrumbo::EndGame() {
    for (int i = 0; i < intPlayers; ++i) Player[i]->SetTop(field::kOutOfPlay);
    picArrow->hide();
    picPlayerpoints->hide();
    DarkenInStripes(*picBld);

    lbl2->setText(lblLeft->text());
    lbl4->setText(lblRight->text());
    for (QLabel* l : {lbl1, lbl2, lbl3, lbl4, lbl5, lbl6, lbl7, lbl8}) l->show();
    const int rows = intGameType == 2 ? 4 : 2;
    for (int i = 0; i < rows; ++i) {
        lblFrags[i]->setText(QString::number(intFrags[i]));
        lblPoints[i]->setText(QString::number(lngPoints[i]));
        lblAccuracy[i]->setText(impact::AccuracyText(intFrags[i], intMisses[i]));
        for (QLabel* l : {lblFrags[i], lblPoints[i], lblAccuracy[i], lblName[i]}) l->show();
    }
}
