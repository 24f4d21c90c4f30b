#pragma once
// The strip below the play field: angle, velocity and "Throw", the projectile selectors, the
// frag limit, the round and the score. It shows what the match says and sends the players'
// typing and clicks to it as commands; on the computer's turn it also shows what the computer's
// hands do.
#include <QWidget>
#include <array>
#include <functional>

#include "game/Command.h"

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;

namespace computer {
class Autopilot;
}
namespace game {
class Match;
}
namespace ui {
class CanvasWidget;
}

namespace screens {

class MatchStrip : public QWidget {
public:
    // What the players type and click goes to `send`, as commands for the current player.
    MatchStrip(QWidget* parent, const game::Match& match, const computer::Autopilot& pilot,
               std::function<void(game::Command)> send);
    // Brings every control in line with the match.
    void sync();
    void focusAngle();
    // The seats this machine's people type for; the others' boxes show what comes from elsewhere.
    void setLocalSeats(const std::array<bool, 4>& local) { local_ = local; }

    QLineEdit* angleBox() const { return angle_; }
    QLineEdit* velocityBox() const { return velocity_; }
    QPushButton* throwButton() const { return throw_; }
    QFrame* selectionFrame() const { return frame_; }
    ui::CanvasWidget* selector(int kind) const {
        return selectors_[static_cast<std::size_t>(kind)];
    }

private:
    void createAiming();
    void createSelectors();
    void createScore();
    // Nobody at this machine's keyboard aims this turn: the computer or another machine does.
    bool computersTurn() const;
    void showComputersHands();

    const game::Match& match_;
    const computer::Autopilot& pilot_;
    std::function<void(game::Command)> send_;
    std::array<bool, 4> local_{true, true, true, true};
    QLineEdit* angle_ = nullptr;
    QLineEdit* velocity_ = nullptr;
    QPushButton* throw_ = nullptr;
    QFrame* frame_ = nullptr;
    std::array<ui::CanvasWidget*, 4> selectors_{};
    QLabel* fragLimit_ = nullptr;
    QLabel* round_ = nullptr;
    QLabel* left_ = nullptr;
    QLabel* right_ = nullptr;
};

}  // namespace screens
