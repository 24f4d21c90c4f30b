#pragma once
// The play field as the match shows it: the city, the characters, the projectile, the wind and
// points boxes, the turn marker, the points popup and the final board, all drawn from the match.
#include <QWidget>

namespace game {
class Match;
}

namespace screens {

class MatchField : public QWidget {
public:
    MatchField(QWidget* parent, const game::Match& match);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const game::Match& match_;
};

}  // namespace screens
