#pragma once
// The title screen, where the program starts and every finished match returns: the game's name,
// six characters dancing in step, "Start" and "Exit", and between them "Join..." for a match that
// another computer hosts.
#include <array>
#include <functional>

#include "core/Colour.h"
#include "core/DataFolder.h"
#include "media/Sound.h"
#include "ui/Timer.h"
#include "ui/Window.h"

namespace ui {
class CanvasWidget;
}

namespace screens {

class TitleScreen : public ui::Window {
public:
    // The dance goes on from `danceFrame` (0 or 1), where the screen left it the last time.
    TitleScreen(const core::DataFolder& data, media::Sound& sound, int danceFrame);
    int danceFrame() const { return danceFrame_; }

    // 0 to 5 the six characters in their first pose, 6 to 11 the same in their second.
    ui::CanvasWidget* dancer(int i) const { return dancers_[static_cast<std::size_t>(i)]; }
    void start();
    void exit();
    void join();

    std::function<void()> onStart;
    std::function<void()> onExit;
    std::function<void()> onJoin;

private:
    void loadDancers();
    void dance();

    core::DataFolder data_;
    int danceFrame_;
    core::Colour background_;
    std::array<ui::CanvasWidget*, 12> dancers_{};
    ui::Timer dancing_;
};

}  // namespace screens
