#pragma once
// The small box over the match window, in two kinds: the pause box that Escape opens ("Resume",
// "Start Over", "Quit") and the game-over box after the final board ("Play Again", "View
// Credits", "Quit"). The pause box opens in the middle of the desktop, the game-over box over the
// match window below the final board. It has no close box: its buttons close it, and should the
// window system close it all the same, the match window closes with it.
#include <functional>

#include "ui/Window.h"

class QLabel;
class QPushButton;

namespace screens {

class MatchBox : public ui::Window {
public:
    enum class Kind { Paused, GameOver };
    enum class Choice { Resume, StartOver, PlayAgain, ViewCredits, Quit };

    MatchBox(QWidget* match, Kind kind);
    Kind kind() const { return kind_; }
    // The caption and the three buttons, top to bottom and left to right.
    QStringList texts() const;
    void choose(Choice choice);

    std::function<void(Choice)> onChoice;

private:
    void showBelowBoard(const QWidget& match);

    Kind kind_;
    QLabel* caption_ = nullptr;
    QPushButton* first_ = nullptr;
    QPushButton* second_ = nullptr;
    QPushButton* quit_ = nullptr;
};

}  // namespace screens
