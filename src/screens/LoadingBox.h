#pragma once
// The loading box over the match window while the match starts and while a round is built: a
// status text and a progress bar. It has no close box; should the window system close it all the
// same, the match window closes with it.
#include "game/Match.h"
#include "ui/Window.h"

class QLabel;
class QProgressBar;

namespace screens {

class LoadingBox : public ui::Window {
public:
    explicit LoadingBox(QWidget* owner);
    void showState(const game::Loading& state);
    QString status() const;

private:
    QLabel* status_ = nullptr;
    QProgressBar* bar_ = nullptr;
};

}  // namespace screens
