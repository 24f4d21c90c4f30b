#pragma once
// The setup screen: the options of the next match, each chosen with an arrow control or a
// slider, the boxes beside them only showing the value. It starts from the usual options every
// time it opens.
#include <functional>

#include "game/Settings.h"
#include "ui/Window.h"

class QCheckBox;
class QLineEdit;
class QSlider;
namespace ui {
class ArrowControl;
}

namespace screens {

class SetupScreen : public ui::Window {
public:
    SetupScreen();
    // The options as the controls stand.
    game::MatchSettings settings() const;
    void next();

    // Game type and time of day count at once, on every change; the rest at "Next".
    std::function<void(game::GameType)> onGameType;
    std::function<void(game::TimeOfDay)> onTimeOfDay;
    std::function<void(const game::MatchSettings&)> onNext;

    ui::ArrowControl *gravity = nullptr, *gameType = nullptr, *timeOfDay = nullptr,
                     *fragLimit = nullptr;
    QSlider *windExtremity = nullptr, *buildingHeight = nullptr;
    QCheckBox *windGusts = nullptr, *music = nullptr;

private:
    void createChoosers();
    void connectChoosers();

    QLineEdit *gravityBox_ = nullptr, *gameTypeBox_ = nullptr, *timeBox_ = nullptr,
              *fragBox_ = nullptr, *windBox_ = nullptr, *buildingBox_ = nullptr;
};

}  // namespace screens
