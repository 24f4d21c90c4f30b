#pragma once
// The strip below the play field: angle, velocity and "Throw", the projectile selectors, the
// frag limit, the round and the score. It shows what the match says and hands the players'
// typing and clicks to it; on the computer's turn it also shows what the computer's hands do.
#include <QWidget>
#include <array>

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
    MatchStrip(QWidget* parent, game::Match& match, const computer::Autopilot& pilot);
    // Brings every control in line with the match.
    void sync();
    void focusAngle();

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
    bool computersTurn() const;
    void showComputersHands();

    game::Match& match_;
    const computer::Autopilot& pilot_;
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
